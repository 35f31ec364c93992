#include "inspect/lint/LineReading.h"

#include <algorithm>
#include <charconv>

#include "inspect/lint/LineDivisions.h"
#include "inspect/lint/LineOperations.h"
#include "inspect/lint/LineReferences.h"
#include "language/table/TextWords.h"

namespace host {
namespace {

bool isComment(std::string_view line) {
  const auto holds = [line](std::string_view mark) { return line.find(mark) != line.npos; };
  return holds("$$") || holds("PPRINT") || holds("*VORTA");
}

/// "\%" is text.
std::string withoutEscapes(std::string_view line) {
  std::string flat(line);
  for (std::size_t at = 0; (at = flat.find("\\%", at)) != std::string::npos; at += 2) {
    flat[at + 1] = 'x';
  }
  return flat;
}

}  // namespace

LineReading readLine(std::string_view line) {
  LineReading reading{line, withoutEscapes(line), isComment(line), false, {}, {}, {}, {}};
  reading.isProse = reading.isComment || ppword::isTextWord(line.substr(0, line.find(' ')));
  readDivisions(reading);
  readReferences(reading);
  if (!reading.isComment) readOperations(reading);
  return reading;
}

std::optional<double> leadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.empty() || std::string_view("0123456789.").find(text.front()) == text.npos) {
    return std::nullopt;
  }
  double number = 0.0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

bool mayBeNumber(std::string_view operand) {
  constexpr std::string_view kBytes = "0123456789., -\x01";
  constexpr std::string_view kDigits = "0123456789\x01";
  return operand.find_first_not_of(kBytes) == operand.npos &&
         operand.find_first_of(kDigits) != operand.npos;
}

}  // namespace host
