#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "tests/support/PPWordDocument.h"

namespace ppword::test {

/// An example of three parts: lines of syntax between « and », values, lines that come out.
struct Example {
  Texts syntax;
  std::string values;
  Texts lines;
};

/// The examples of a text, parted by blank lines; lines that begin with "#" are left out.
[[nodiscard]] std::vector<Example> readExamples(std::istream& text);

/// Sets values such as: X = 1, Y = 2.0, T = "TEXT", design D = 1.
void setValues(const PPWordDocument& document, const std::string& values);

/// The lines that an example's syntax gives with its values.
[[nodiscard]] Texts linesOf(const Example& example);

}  // namespace ppword::test
