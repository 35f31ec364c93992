#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "post/listing/CanonicalCall.h"
#include "post/program/NcProgram.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

constexpr std::string_view kSpaces = " \t\r";
constexpr long kHighestParameter = 5602;
/// Of the first value: X, in the points of G28 and G30, in the offset of G92 and in nine coordinate
/// systems.
constexpr long kPoints[] = {5161, 5181, 5211};
constexpr long kFirstSystem = 5221;
constexpr long kLastSystem = 5381;
constexpr long kBetweenSystems = 20;
constexpr long kRotaryWords = 3;
constexpr long kAxes = 9;

/// True for the nine values from `first` on that do not turn: X Y Z U V W.
bool isLengthOf(long number, long first) {
  const long axis = number - first;
  return axis >= 0 && axis < kAxes && axis / kRotaryWords != 1;
}

bool isLength(long number) {
  const auto isOf = [number](long first) { return isLengthOf(number, first); };
  if (std::ranges::any_of(kPoints, isOf)) return true;
  if (number < kFirstSystem || number >= kLastSystem + kAxes) return false;
  return isLengthOf((number - kFirstSystem) % kBetweenSystems, 0);
}

/// The next number of a line, which becomes what is after it; false if there is none.
template <class Number>
bool takeValue(std::string_view& rest, Number& number) {
  rest.remove_prefix(std::min(rest.find_first_not_of(kSpaces), rest.size()));
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
  if (error != std::errc()) return false;
  rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
  return true;
}

std::string fixedText(double value) {
  constexpr std::size_t kLongest = 400;
  char text[kLongest];
  const auto end =
      std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, 9).ptr;
  return {text, end};
}

/// The line with its value in inches; `last` is the number of the line before it.
std::string convertedLine(std::string_view line, long& last, LengthUnit unit,
                          const LinePlace& place) {
  std::string_view rest = line;
  long number = 0;
  double value = 0.0;
  const bool isRead = takeValue(rest, number) && takeValue(rest, value) && std::isfinite(value) &&
                      rest.find_first_not_of(kSpaces) == std::string_view::npos;
  if (!isRead || number < 1 || number > kHighestParameter) {
    place.refuse(0, "not a parameter of a machine: a number from 1 to 5602 and its value");
  }
  if (number <= last) place.refuse(0, "the numbers of the parameters do not count up");
  last = number;
  if (isLength(number)) value = converted(value, unit, LengthUnit::Inch);
  return std::to_string(number) + '\t' + fixedText(value) + '\n';
}

}  // namespace

std::string machineFileText(const std::string& path, LengthUnit unit) {
  LineReader lines(path);
  std::string text;
  long last = 0;
  for (std::string_view line; lines.next(line);) {
    if (line.find_first_not_of(kSpaces) == std::string_view::npos) continue;
    text += convertedLine(line, last, unit, {lines.name(), lines.lineNumber()});
  }
  return text;
}

}  // namespace host
