#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/system/TextHash.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/view/Columns.h"

/// What every pass did for each line of a text, in little space. Two lines from one line of a table
/// differ in numbers only, and these are in the lines: stored are the different forms, in which a
/// number of the line is its place there, and for each line its form with the numbers that the line
/// does not have.
class PassForms {
 public:
  /// How many forms are stored; lines with further ones have no passes.
  static constexpr std::size_t kMostForms = 2000;
  /// How many bytes an explanation has at most whose form is stored.
  static constexpr std::size_t kLongest = 16384;
  /// How many bytes the numbers of all lines have at most that are not in the lines.
  static constexpr std::size_t kMostBytes = 16U << 20U;

  /// Adds a line, and the explanation of how it arose from a line of an instruction, which has the
  /// number `source`.
  void add(long source, std::string_view line, std::string_view explanation);

  [[nodiscard]] Json json() const;

 private:
  struct Form {
    long source;
    /// Empty for lines whose passes are not stored.
    std::string text;
  };

  /// The form of an explanation, and the numbers between commas that the line does not have.
  struct Reading {
    std::string form;
    std::string own;
  };

  [[nodiscard]] static Reading read(std::string_view line, std::string_view explanation);
  [[nodiscard]] long numberOf(long source, const std::string& text);
  void addNumbers(const std::string& numbers);

  std::vector<Form> forms_;
  host::TextMap<long> known_;
  /// The form of each line.
  Column lines_;
  /// Lines with numbers of their own: how many lines after the one before, and the numbers between
  /// commas, a line each.
  Column gaps_;
  std::string numbers_;
  long line_ = 0;
};
