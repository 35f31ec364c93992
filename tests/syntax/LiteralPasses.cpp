#include "tests/syntax/LiteralPasses.h"

#include <locale.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "tests/support/PointNumber.h"

namespace ppword::test {
namespace {

constexpr std::size_t kNone = std::string::npos;

bool isIn(char character, std::string_view set) { return set.find(character) != kNone; }

bool holds(const std::string& text, std::string_view what) { return text.find(what) != kNone; }

void replaceAll(std::string& text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != kNone; at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
}

/// printf of one number: the first "," of the text becomes ".".
std::string printed(const char* format, double value) {
  std::array<char, 400> text{};
  // The formats are the literals below.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  (void)std::snprintf(text.data(), text.size(), format, value);
#pragma GCC diagnostic pop
  std::string result = text.data();
  if (const std::size_t comma = result.find(','); comma != kNone) result[comma] = '.';
  return result;
}

/// The conversion of the decimal number that a text begins with.
bool converts(const std::string& text, double& value) {
  const std::size_t first = text.find_first_not_of(" \t\n\v\f\r");
  if (first == kNone) return false;
  const std::size_t digits = first + (isIn(text[first], "+-") ? 1 : 0);
  if (digits == text.size() || !isIn(text[digits], "0123456789.")) return false;
  // Without letters of other notations, such as the x of a hexadecimal number.
  const std::string decimal =
      text.substr(first, text.find_first_not_of("+-.0123456789eE", first) - first);
  char* end = nullptr;
  value = readWithPoint(decimal.c_str(), &end);
  return end != decimal.c_str() && std::isfinite(value);
}

bool isNumber(const std::string& text, double& value) {
  return converts(text, value) && text.find_first_not_of("0123456789., -") == kNone;
}

void dropLastCharacter(std::string& text) {
  while (!text.empty()) {
    const auto byte = static_cast<unsigned char>(text.back());
    text.pop_back();
    if ((byte & 0xC0U) != 0x80U) break;
  }
}

std::string withoutBlanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == kNone ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Position of the "(" that the ")" at `closing` belongs to; -1 when there is none.
int partnerOf(const std::string& line, int closing) {
  int depth = 0;
  for (int at = closing; at >= 0; --at) {
    const char character = line[static_cast<std::size_t>(at)];
    if (character == ')') ++depth;
    if (character == '(') --depth;
    if (depth == 0) return at;
  }
  return -1;
}

bool standsBehindPercent(const std::string& line, int at) {
  return at > 0 && line[static_cast<std::size_t>(at) - 1] == '%';
}

std::string leftOfDivision(const std::string& line, std::size_t slash) {
  int looked = static_cast<int>(slash) - 1;
  while (looked >= 0 && line[static_cast<std::size_t>(looked)] == ' ') --looked;
  const bool closes = looked >= 0 && line[static_cast<std::size_t>(looked)] == ')' &&
                      standsBehindPercent(line, partnerOf(line, looked));
  int at = static_cast<int>(slash) - 1;
  for (; at >= 0; --at) {
    if (closes && at == looked) continue;
    const char character = line[static_cast<std::size_t>(at)];
    if (character == '(' && standsBehindPercent(line, at)) continue;
    if (isIn(character, "/,*+-=()")) break;
  }
  const int first = at + 1;
  return line.substr(static_cast<std::size_t>(first), slash - static_cast<std::size_t>(first));
}

double result(char sign, double left, double right) {
  if (sign == '+') return left + right;
  if (sign == '-') return left - right;
  return sign == '*' ? left * right : left / right;
}

}  // namespace

std::string LiteralPasses::instantiated(std::string line) {
  replaceAll(line, "\\%", "@#@#@#@#");
  line = masked(divisionsRewritten(std::move(line)));
  for (const char* prefix : {"&", "%(", "%"}) line = substituted(line, prefix);
  line = evaluated(restored(std::move(line)));
  replaceAll(line, "@#@#@#@#", "%");
  return line;
}

std::string LiteralPasses::cleaned(std::string line) {
  if (line.find_first_of("+-*") == kNone) return line;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] != '(' || line[i - 1] == '%') continue;
    line.erase(i, 1);
    bool inGroup = false;
    std::size_t j = i;
    for (; j < line.size(); ++j) {
      if (line[j] == '(' && line[j - 1] == '%') inGroup = true;
      if (line[j] == ')' && !inGroup) break;
      if (line[j] == ')') inGroup = false;
    }
    if (j < line.size()) {
      line.erase(j, 1);
      i = j;
    }
    // On with the character that stands in this place now.
    --i;
  }
  return line;
}

std::string LiteralPasses::divisionsRewritten(std::string line) {
  std::size_t search = line.find('/');
  if (search == kNone) return line;
  for (++search; search + 1 < line.size(); ++search) {
    search = line.find('/', search);
    if (search == kNone) break;
    const std::string left = leftOfDivision(line, search);
    if (left.empty() || !holds(left, "%")) continue;
    std::size_t end = search + 1;
    while (end < line.size() && !isIn(line[end], "/,*+-=()")) ++end;
    double divisor = 0;
    if (!converts(line.substr(search + 1, end - search - 1), divisor)) continue;
    if (std::fabs(divisor) <= 1.0e-5) continue;
    line.replace(search, end - search, "*" + printed("%g", 1.0 / divisor));
  }
  return line;
}

std::string LiteralPasses::masked(std::string line) {
  ordinals_.clear();
  signs_.clear();
  for (const char sign : {'+', '*', '-'}) {
    for (std::size_t at = line.find(sign); at != kNone; at = line.find(sign)) {
      int ordinal = 1;
      for (std::size_t i = 0; i < at; ++i) ordinal += line[i] == ',' ? 1 : 0;
      line[at] = ',';
      for (int& other : ordinals_) other += other >= ordinal ? 1 : 0;
      ordinals_.push_back(ordinal);
      signs_.emplace_back(1, sign);
    }
  }
  return line;
}

std::string LiteralPasses::restored(std::string line) {
  for (std::size_t i = 0; i < signs_.size(); ++i) {
    int seen = 0;
    for (char& character : line) {
      if (character != ',' || ++seen != ordinals_[i]) continue;
      character = signs_[i].front();
      break;
    }
    for (std::size_t later = i + 1; later < signs_.size(); ++later) {
      if (ordinals_[later] > ordinals_[i]) --ordinals_[later];
    }
  }
  return line;
}

std::string LiteralPasses::grouped(const std::string& line, const std::string& prefix) const {
  std::string out;
  std::size_t from = 0;
  for (;;) {
    const std::size_t open = line.find('(', from);
    const std::size_t close = open == kNone ? kNone : line.find(')', open);
    if (close == kNone) return out + line.substr(from);
    char sign = 0;
    for (const char candidate : {'/', '*', '-', '+'}) {
      if (line.find(candidate, open) != kNone) sign = candidate;
    }
    const std::string inner = line.substr(open + 1, close - open - 1);
    const auto computed = sign == 0 ? std::nullopt : operation(inner, sign, prefix);
    out += line.substr(from, open - from) + (computed ? *computed : "(" + inner + ")");
    from = close + 1;
  }
}

bool LiteralPasses::readSide(const std::string& side, const std::string& prefix, int& kind,
                             double& value) const {
  kind = 0;
  if (!holds(side, prefix)) return converts(side, value);
  std::size_t second = 1;
  while (second < side.size() && (static_cast<unsigned char>(side[second]) & 0xC0U) == 0x80U) {
    ++second;
  }
  const auto found = lookup_(withoutBlanks(side.substr(second)));
  if (!found) return false;
  kind = found->kind;
  value = kind == 1 ? found->integer : found->real;
  return kind == 1 || (kind == 2 && std::isfinite(value));
}

std::optional<std::string> LiteralPasses::operation(const std::string& inner, char sign,
                                                    const std::string& prefix) const {
  const std::size_t place = inner.find(sign);
  if (place == kNone) return std::nullopt;
  int leftKind = 0;
  int rightKind = 0;
  double left = 0;
  double right = 0;
  if (!readSide(inner.substr(0, place), prefix, leftKind, left)) return std::nullopt;
  if (!readSide(inner.substr(place + 1), prefix, rightKind, right)) return std::nullopt;
  if (sign == '/' && std::fabs(right) <= 1.0e-7) return std::nullopt;
  const double value = result(sign, left, right);
  if (value > 1.0e20) return std::nullopt;
  const bool isInteger = (leftKind == 1 && rightKind == 1) || (leftKind == 1 && rightKind == 0) ||
                         (leftKind == 0 && rightKind == 1);
  if (isInteger) {
    const double whole = std::trunc(value);
    return printed("%.0f", whole == 0.0 ? 0.0 : whole);
  }
  return printed("%12.6f", std::fabs(value) < 1.0e-6 ? 0.0 : value);
}

std::string LiteralPasses::valueOf(const std::string& name) const {
  const auto found = lookup_(withoutBlanks(name));
  if (!found) return "";
  if (found->kind == 1) return std::to_string(found->integer);
  if (found->kind == 2) {
    return printed("%12.6f", std::fabs(found->real) < 1.0e-6 ? 0.0 : found->real);
  }
  return std::string(found->text.View());
}

std::string LiteralPasses::substituted(const std::string& line, const std::string& prefix) const {
  const std::string text = grouped(line, prefix);
  std::string out;
  std::size_t from = 0;
  for (;;) {
    const std::size_t start = text.find(prefix, from);
    if (start == kNone) return out + text.substr(from);
    out += text.substr(from, start - from);
    char terminator = prefix == "%(" ? ')' : ',';
    std::size_t end = text.find(terminator, start);
    if (end == kNone) end = text.find_first_of(" \n\"", start);
    const bool isLast = end == kNone;
    if (isLast) end = text.size();
    if (!isLast) terminator = text[end];
    std::string name = text.substr(start + 1, end - start - 1);
    if (terminator == '\n') dropLastCharacter(name);
    std::size_t parentheses = 0;
    for (; prefix != "%(" && holds(name, ")"); ++parentheses) dropLastCharacter(name);
    while (prefix == "%" && holds(name, "$")) dropLastCharacter(name);
    out += valueOf(name) + std::string(parentheses, ')');
    if (isLast) return out;
    if (terminator != ')') out += terminator;
    from = end + 1;
  }
}

std::string LiteralPasses::evaluated(std::string line) const {
  if (signs_.empty() || holds(line, "*VORTA") || holds(line, "PPRINT") || holds(line, "$$")) {
    return line;
  }
  std::size_t i = 0;
  while (i < line.size()) {
    const char sign = line[i];
    if (!isIn(sign, "+-*")) {
      ++i;
      continue;
    }
    std::size_t start = i;
    while (start > 0 && !isIn(line[start - 1], "/,=()")) --start;
    std::size_t end = i + 1;
    for (bool isBlank = true; end < line.size(); ++end) {
      if (isIn(line[end], "/,*+=()") || (line[end] == '-' && !isBlank)) break;
      if (line[end] != ' ') isBlank = false;
    }
    const std::string left = line.substr(start, i - start);
    const std::string right = line.substr(i + 1, end - i - 1);
    double leftNumber = 0;
    double rightNumber = 0;
    if (sign == '-' && left.empty() && !right.empty()) {
      if (converts(right, rightNumber)) {
        i = end;
      } else {
        line.erase(i, end - i);
      }
    } else if (left.empty() || right.empty()) {
      line.erase(start, end - start);
      i = start;
    } else if (!isNumber(left, leftNumber) || !isNumber(right, rightNumber)) {
      i = end;
    } else {
      double value = result(sign, leftNumber, rightNumber);
      if (std::fabs(value) < 1.0e-6 || value > 1.0e20) value = 0.0;
      const std::string text = printed("%12.6f", value);
      line.replace(start, end - start, text);
      i = start + text.size();
    }
  }
  for (std::size_t at = line.find("- "); at != kNone; at = line.find("- ")) line.erase(at + 1, 1);
  return line;
}

}  // namespace ppword::test
