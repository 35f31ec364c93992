#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "language/syntax/LineWriter.h"

namespace ppword {

/// A finite number that a parameter has before any format.
struct ParameterNumber {
  double value;
  bool isInteger;
};

/// A parameter that a source found.
class LineParameter {
 public:
  virtual ~LineParameter() = default;
  /// Appends the parameter's text. False, and nothing appended, when it cannot be evaluated.
  [[nodiscard]] virtual bool appendText(LineWriter& out) = 0;
};

/// What a source found for the name of a reference, and when. It belongs to the reference, which is
/// asked again with it as long as the text of its line is the same; whether it is still good only
/// the source knows.
struct FoundParameter {
  LineParameter* parameter = nullptr;
  std::uint64_t revision = 0;
};

/// The door through which the passes see the world: a parameter name becomes a text.
class ParameterSource {
 public:
  ParameterSource() = default;
  ParameterSource(const ParameterSource&) = delete;
  ParameterSource& operator=(const ParameterSource&) = delete;
  virtual ~ParameterSource() = default;

  /// Appends to `out` the text of the parameter called `name`, or the text that replaces one that
  /// cannot be evaluated. `found`: the source's own note on this name, empty at first.
  virtual void appendText(std::string_view name, FoundParameter& found, LineWriter& out) = 0;

  /// The number of the parameter called `name`; nothing when it is unknown or is not a finite
  /// number.
  [[nodiscard]] virtual std::optional<ParameterNumber> number(std::string_view name) = 0;

  /// Is called for characters after the name of a reference that the output drops.
  virtual void textDropped(std::string_view name, std::string_view text) = 0;
};

}  // namespace ppword
