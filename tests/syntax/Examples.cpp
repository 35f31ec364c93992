#include "tests/syntax/Examples.h"

#include <charconv>
#include <istream>
#include <string_view>

#include "KEPIMfgSyntaxEvaluation.h"

namespace ppword::test {
namespace {

constexpr std::string_view kOpen = "\u00ab";
constexpr std::string_view kDesign = "design ";

/// Adds a line to the example that it belongs to.
void add(Example& example, const std::string& line) {
  if (!line.starts_with(kOpen)) {
    example.values = line;
    return;
  }
  Texts& part = example.values.empty() ? example.syntax : example.lines;
  part.push_back(line.substr(kOpen.size(), line.size() - 2 * kOpen.size()));
}

std::string trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// A number as it is written here: with a decimal point, under every locale.
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

/// The parts of a list; a comma between quotes parts nothing.
Texts partsOf(const std::string& list) {
  Texts parts(1);
  bool isQuoted = false;
  for (const char character : list) {
    if (character == '"') isQuoted = !isQuoted;
    if (character == ',' && !isQuoted) {
      parts.emplace_back();
    } else {
      parts.back() += character;
    }
  }
  return parts;
}

}  // namespace

std::vector<Example> readExamples(std::istream& text) {
  std::vector<Example> found;
  bool isNew = true;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with('#')) continue;
    isNew = isNew || line.empty();
    if (line.empty()) continue;
    if (isNew) found.emplace_back();
    add(found.back(), line);
    isNew = false;
  }
  return found;
}

void setValues(const PPWordDocument& document, const std::string& values) {
  const auto activity = document.activity();
  for (const std::string& part : partsOf(values)) {
    const auto equals = part.find('=');
    if (equals == std::string::npos) continue;
    const std::string name = trimmed(part.substr(0, equals));
    const std::string text = trimmed(part.substr(equals + 1));
    if (name.starts_with(kDesign)) {
      document.document->setDesignParameter(name.substr(kDesign.size()), number<double>(text));
    } else {
      activity->parameters().set(name, value(text));
    }
  }
}

Texts linesOf(const Example& example) {
  const PPWordDocument document;
  setValues(document, example.values);
  const KEPIMfgSyntaxEvaluation_var evaluation = document.instruction("NC_X", example.syntax);
  KEPListValKEPUnicodeString lines;
  const int first = 1;
  EXPECT_TRUE(evaluation->InstantiateSyntax(lines, first));
  return texts(lines);
}

}  // namespace ppword::test
