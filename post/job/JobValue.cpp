#include "post/job/JobValue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace host::job {
namespace {

constexpr unsigned char kLeastPrinting = 0x20;
constexpr char kDelete = 0x7F;

std::string_view tokenOf(Value& value) {
  const std::string_view token = value.raw_json_token();
  return token.substr(0, token.find_last_not_of(" \t\r\n") + 1);
}

bool isOutOfRange(std::string_view token) {
  double number = 0.0;
  const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), number);
  return error == std::errc::result_out_of_range && end == token.data() + token.size();
}

bool isControl(char c) { return static_cast<unsigned char>(c) < kLeastPrinting || c == kDelete; }

/// Fills `numbers` from an array. Returns the count of its items; for too many, one more than fit.
std::size_t readNumbers(Value value, const Place& place, std::span<double> numbers) {
  std::size_t count = 0;
  for (auto item : readArray(value, place)) {
    const Place here(place, count);
    const Value number = unwrap(std::move(item), here);
    if (count == numbers.size()) return count + 1;
    numbers[count++] = readNumber(number, here);
  }
  return count;
}

}  // namespace

void refuseValue(Value value, const Place& place, std::string_view expected) {
  const std::string_view token = tokenOf(value);
  const std::string why = std::string(expected) + " is expected, found " + shown(token);
  place.refuse(token.data(), why);
}

double readNumber(Value value, const Place& place) {
  double number = 0.0;
  if (value.get_double().get(number) == simdjson::SUCCESS) return number;
  const std::string_view token = tokenOf(value);
  if (!isOutOfRange(token)) refuseValue(value, place, "a number");
  place.refuse(token.data(), "the number " + shown(token) + " is out of range");
}

int readInteger(Value value, const Place& place, int least) {
  constexpr int kMost = std::numeric_limits<int>::max();
  std::int64_t number = 0;
  const bool whole = value.get_int64().get(number) == simdjson::SUCCESS;
  if (whole && number >= least && number <= kMost) return static_cast<int>(number);
  refuseValue(value, place,
              "a whole number from " + std::to_string(least) + " to " + std::to_string(kMost));
}

bool holdsControlCharacter(std::string_view text) {
  return std::any_of(text.begin(), text.end(), isControl);
}

std::string readText(Value value, const Place& place) {
  const char* const at = tokenOf(value).data();
  std::string_view text;
  const auto error = value.get_string().get(text);
  if (error == simdjson::STRING_ERROR) place.refuse(at, "the text contains an invalid escape");
  if (error != simdjson::SUCCESS) refuseValue(value, place, "a text");
  if (holdsControlCharacter(text)) place.refuse(at, "a text must not contain a control character");
  return std::string(text);
}

std::string readName(Value value, const Place& place) {
  std::string name = readText(value, place);
  if (name.empty()) place.refuse(tokenOf(value).data(), "a name is expected");
  return name;
}

bool readTruth(Value value, const Place& place) {
  bool truth = false;
  if (value.get_bool().get(truth) == simdjson::SUCCESS) return truth;
  refuseValue(value, place, "true or false");
}

simdjson::ondemand::array readArray(Value value, const Place& place) {
  auto result = value.get_array();
  if (result.error() == simdjson::INCORRECT_TYPE) refuseValue(value, place, "an array");
  return unwrap(std::move(result), place);
}

simdjson::ondemand::object readObject(Value value, const Place& place) {
  auto result = value.get_object();
  if (result.error() == simdjson::INCORRECT_TYPE) refuseValue(value, place, "an object");
  return unwrap(std::move(result), place);
}

std::string readNumberText(Value value, const Place& place) {
  std::string text(tokenOf(value));
  static_cast<void>(readNumber(value, place));
  return text;
}

std::size_t readWord(Value value, const Place& place, std::span<const std::string_view> words) {
  const std::string text = readText(value, place);
  std::string expected;
  for (std::size_t index = 0; index < words.size(); ++index) {
    if (text == words[index]) return index;
    expected.append(index == 0 ? "" : " or ").append("\"").append(words[index]).append("\"");
  }
  refuseValue(value, place, expected);
}

void read(Value value, const Place& place, double& number) { number = readNumber(value, place); }

void read(Value value, const Place& place, int& number) {
  number = readInteger(value, place, std::numeric_limits<int>::min());
}

void read(Value value, const Place& place, std::string& text) { text = readText(value, place); }

void read(Value value, const Place& place, Triple& triple) {
  if (readNumbers(value, place, triple) == triple.size()) return;
  place.refuse(tokenOf(value).data(), "exactly three numbers are expected");
}

void read(Value value, const Place& place, Position& position) {
  std::array<double, 6> numbers{};
  const std::size_t count = readNumbers(value, place, numbers);
  if (count != 3 && count != 6) {
    place.refuse(tokenOf(value).data(), "a point has three numbers, or six with its tool axis");
  }
  position.point = {numbers[0], numbers[1], numbers[2]};
  if (count == 6) position.toolAxis = {numbers[3], numbers[4], numbers[5]};
}

void read(Value value, const Place& place, std::vector<Position>& positions) {
  positions.clear();
  for (auto item : readArray(value, place)) {
    const Place here(place, positions.size());
    read(unwrap(std::move(item), here), here, positions.emplace_back());
  }
  if (positions.empty()) place.refuse(tokenOf(value).data(), "at least one point is expected");
}

}  // namespace host::job
