// The examples of docs/syntax.md.

#include <gtest/gtest.h>

#include <charconv>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "KEPIMfgSyntaxEvaluation.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

/// An example: lines of syntax, values, lines that come out.
struct Example {
  Texts syntax;
  std::string values;
  Texts lines;
};

constexpr std::string_view kOpen = "\u00ab";

/// Adds a line of the manual to the example that it belongs to.
void add(Example& example, const std::string& line) {
  if (!line.starts_with(kOpen)) {
    example.values = line;
    return;
  }
  Texts& part = example.values.empty() ? example.syntax : example.lines;
  part.push_back(line.substr(kOpen.size(), line.size() - 2 * kOpen.size()));
}

/// The examples between the fences, parted by blank lines.
std::vector<Example> examples() {
  std::ifstream manual(PPWORD_SOURCE_DIR "/docs/syntax.md");
  std::vector<Example> found;
  bool isInside = false;
  bool isNew = true;
  for (std::string line; std::getline(manual, line);) {
    const bool isFence = line.starts_with("```");
    if (isFence) isInside = !isInside;
    isNew = isNew || isFence || line.empty();
    if (!isInside || isFence || line.empty()) continue;
    if (isNew) found.emplace_back();
    add(found.back(), line);
    isNew = false;
  }
  return found;
}

std::string trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// A number as the manual writes it: with a decimal point, under every locale.
template <class Number>
Number number(const std::string& text) {
  Number value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  EXPECT_EQ(result.ptr, text.data() + text.size()) << text;
  return value;
}

KEPMfgParameterValue value(const std::string& text) {
  if (text.starts_with('"')) return host::textValue(text.substr(1, text.size() - 2));
  const bool isReal = text.find('.') != std::string::npos;
  return isReal ? host::realValue(number<double>(text)) : host::integerValue(number<int>(text));
}

/// Sets values such as: X = 1, Y = 2.0, T = "TEXT", design D = 1.
void setValues(const PPWordDocument& document, const std::string& values) {
  constexpr std::string_view kDesign = "design ";
  const auto activity = document.activity();
  std::istringstream all(values);
  for (std::string one; std::getline(all, one, ',');) {
    const auto equals = one.find('=');
    if (equals == std::string::npos) continue;
    const std::string name = trimmed(one.substr(0, equals));
    const std::string text = trimmed(one.substr(equals + 1));
    if (name.starts_with(kDesign)) {
      document.document->setDesignParameter(name.substr(kDesign.size()), number<double>(text));
    } else {
      activity->parameters().set(name, value(text));
    }
  }
}

TEST(SyntaxManual, ExamplesGiveTheirLines) {
  const auto all = examples();
  ASSERT_EQ(all.size(), 11U);
  for (const Example& example : all) {
    const PPWordDocument document;
    setValues(document, example.values);
    const KEPIMfgSyntaxEvaluation_var evaluation = document.instruction("NC_X", example.syntax);
    KEPListValKEPUnicodeString lines;
    const int first = 1;
    EXPECT_TRUE(evaluation->InstantiateSyntax(lines, first));
    EXPECT_EQ(texts(lines), example.lines) << example.syntax.front();
  }
}

}  // namespace
}  // namespace ppword::test
