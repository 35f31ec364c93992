#include "tools/ppword/view/PassForms.h"

#include <nlohmann/json.hpp>

// The page puts the numbers back in their places (page/passes.js), and finds the numbers of a line
// as this does: optional blanks, an optional sign, digits with at most one point.

namespace {

// What is in the place of a number: one of the line as it is there, without its blanks, or without
// blanks and zeros; a number of its own. Except for the last one its index follows.
enum Mark : char { kWhole = 1, kBare = 2, kShort = 3, kOwn = 4 };
constexpr char kFirstIndex = '!';
constexpr std::size_t kMostNumbers = 90;

struct Number {
  std::size_t begin;
  std::size_t end;
  // Where it begins after its blanks.
  std::size_t bare;
};

bool isDigit(std::string_view text, std::size_t at) {
  return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

// The end of the digits at a place, which is the place itself where there are none.
std::size_t endOfDigits(std::string_view text, std::size_t at) {
  while (isDigit(text, at)) ++at;
  return at;
}

// Where the digits of the next number begin, or its point.
std::size_t nextDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && !isDigit(text, at) && !(text[at] == '.' && isDigit(text, at + 1)))
    ++at;
  return at;
}

// The next number that begins at `from` or after it; false at the end of the text.
bool nextNumber(std::string_view text, std::size_t from, Number& number) {
  const std::size_t at = nextDigits(text, from);
  if (at == text.size()) return false;
  number.end = endOfDigits(text, at);
  if (number.end < text.size() && text[number.end] == '.') {
    number.end = endOfDigits(text, number.end + 1);
  }
  number.bare = at > from && (text[at - 1] == '-' || text[at - 1] == '+') ? at - 1 : at;
  number.begin = number.bare;
  while (number.begin > from && text[number.begin - 1] == ' ') --number.begin;
  return true;
}

// A number without the zeros and the sign that say nothing: "-1.5" for "-01.500".
std::string shortened(std::string_view bare) {
  const bool isNegative = bare.front() == '-';
  if (isNegative || bare.front() == '+') bare.remove_prefix(1);
  while (bare.size() > 1 && bare.front() == '0' && bare[1] != '.') bare.remove_prefix(1);
  if (bare.find('.') != std::string_view::npos) {
    while (bare.back() == '0') bare.remove_suffix(1);
    if (bare.back() == '.') bare.remove_suffix(1);
  }
  std::string text = isNegative ? "-" : "";
  if (bare.empty() || bare.front() == '.') text += '0';
  return text += bare;
}

struct LineNumber {
  std::string_view whole;
  std::string_view bare;
  std::string brief;
};

std::vector<LineNumber> numbersOf(std::string_view line) {
  std::vector<LineNumber> numbers;
  std::size_t at = 0;
  for (Number number{}; numbers.size() < kMostNumbers && nextNumber(line, at, number);) {
    const std::string_view bare = line.substr(number.bare, number.end - number.bare);
    numbers.push_back(
        {line.substr(number.begin, number.end - number.begin), bare, shortened(bare)});
    at = number.end;
  }
  return numbers;
}

// Adds the place of a number that the line has; false when it has none like it.
template <class IsLike>
bool addPlace(const std::vector<LineNumber>& numbers, Mark mark, std::string& form, IsLike isLike) {
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (!isLike(numbers[i])) continue;
    form += static_cast<char>(mark);
    form += static_cast<char>(kFirstIndex + static_cast<char>(i));
    return true;
  }
  return false;
}

// Adds a number of an explanation to its form; one that is in no other place and has a point, to
// those of the line.
void addNumber(std::string_view text, const Number& number, const std::vector<LineNumber>& numbers,
               std::string& form, std::string& own) {
  const std::string_view whole = text.substr(number.begin, number.end - number.begin);
  const std::string_view bare = text.substr(number.bare, number.end - number.bare);
  if (addPlace(numbers, kWhole, form, [&](const auto& each) { return each.whole == whole; }))
    return;
  form += text.substr(number.begin, number.bare - number.begin);
  if (addPlace(numbers, kBare, form, [&](const auto& each) { return each.bare == bare; })) return;
  if (addPlace(numbers, kShort, form, [&](const auto& each) { return each.brief == bare; })) return;
  const bool isOwn = bare.find('.') != std::string_view::npos;
  if (isOwn) form += static_cast<char>(kOwn);
  if (!isOwn) form += bare;
  if (isOwn) (own += own.empty() ? "" : ",") += bare;
}

}  // namespace

PassForms::Reading PassForms::read(std::string_view line, std::string_view explanation) {
  const std::vector<LineNumber> numbers = numbersOf(line);
  Reading reading;
  std::size_t at = 0;
  for (Number number{}; nextNumber(explanation, at, number); at = number.end) {
    reading.form += explanation.substr(at, number.begin - at);
    addNumber(explanation, number, numbers, reading.form, reading.own);
  }
  reading.form += explanation.substr(at);
  return reading;
}

void PassForms::add(long source, std::string_view line, std::string_view explanation) {
  Reading reading;
  if (explanation.size() <= kLongest) reading = read(line, explanation);
  if (numbers_.size() + reading.own.size() > kMostBytes) reading = {};
  const long form = numberOf(source, reading.form);
  lines_.addStep(form);
  ++line_;
  const bool isStored = !forms_[static_cast<std::size_t>(form)].text.empty();
  if (!reading.own.empty() && isStored) addNumbers(reading.own);
}

void PassForms::addNumbers(const std::string& numbers) {
  gaps_.addStep(line_ - 1);
  (numbers_ += numbers_.empty() ? "" : "\n") += numbers;
}

long PassForms::numberOf(long source, const std::string& text) {
  const std::string stored = forms_.size() < kMostForms ? text : "";
  const std::string key = std::to_string(source) + ' ';
  if (const auto known = known_.find(key + text); known != known_.end()) return known->second;
  const auto [entry, isNew] = known_.try_emplace(key + stored, static_cast<long>(forms_.size()));
  if (isNew) forms_.push_back({source, stored});
  return entry->second;
}

Json PassForms::json() const {
  Json forms = Json::array();
  for (const Form& form : forms_) forms.push_back(Json::array({form.source, form.text}));
  return {{"forms", std::move(forms)},
          {"ofLine", lines_.text()},
          {"ownLines", gaps_.text()},
          {"own", numbers_}};
}
