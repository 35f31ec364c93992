#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "post/toolpath/ToolPath.h"

namespace host {

/// A line of an input, for messages about it.
struct LinePlace {
  std::string_view file;
  long line = 0;
  /// False for a line of an NC program that is known by its block number only: errors are at its
  /// beginning.
  bool hasColumns = true;
  /// True in a file that the NC program calls.
  bool isCalled = false;

  [[nodiscard]] SourceLine source() const { return {line, isCalled ? file : std::string_view()}; }
  /// Raises an InputError at a byte of the line, counted from 0.
  [[noreturn]] void refuse(std::size_t offset, std::string_view message) const;
};

/// The parts of one line of a canonical listing; every view refers to the line.
struct CanonicalCall {
  long runningNumber = 0;
  /// The block number as it is written, "....." for none.
  std::string_view block;
  std::string_view name;
  /// Byte of the line where the name begins, from 0.
  std::size_t nameAt = 0;
  /// The text between the outer parentheses.
  std::string_view arguments;
  std::size_t argumentsAt = 0;
};

/// Splits a line into its parts. Raises an InputError for a line that is not a call, and for bytes
/// that are not text.
[[nodiscard]] CanonicalCall parseCall(std::string_view line, const LinePlace& place);

inline constexpr std::size_t kMostArguments = 9;

/// The values of a call's arguments, each with the byte of the line where it begins.
struct CanonicalArguments {
  std::array<double, kMostArguments> numbers{};
  std::array<std::size_t, kMostArguments> at{};
  /// The text of a quoted argument, or the word of a worded one.
  std::string_view text;
};

/// Reads the arguments of a call, one for each letter of `shape`: 'n' a finite number, 'i' a whole
/// number, 'w' a word, 's' a text in quotes, which must be the only argument. Raises an
/// InputError for arguments of another number or kind.
[[nodiscard]] CanonicalArguments readArguments(const CanonicalCall& call, std::string_view shape,
                                               const LinePlace& place);

}  // namespace host
