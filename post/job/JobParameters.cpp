#include <algorithm>
#include <array>
#include <limits>

#include "host/manufacturing/Activity.h"
#include "post/job/JobObject.h"
#include "post/job/JobValue.h"

namespace host::job {
namespace {

constexpr std::string_view kParameterForms = R"(a text, {"real": NUMBER} or {"integer": NUMBER})";

void requireUntyped(const KEPMfgParameterValue& parameter, Value value, const Place& place) {
  if (parameter.kind == 0) return;
  place.refuse(value.raw_json_token().data(), "a number is either real or integer");
}

void readReal(Value value, const Place& place, KEPMfgParameterValue& parameter) {
  requireUntyped(parameter, value, place);
  parameter = realValue(readNumber(value, place));
}

void readWhole(Value value, const Place& place, KEPMfgParameterValue& parameter) {
  requireUntyped(parameter, value, place);
  parameter = integerValue(readInteger(value, place, std::numeric_limits<int>::min()));
}

constexpr std::array<Key<KEPMfgParameterValue>, 2> kNumberKeys{{
    {"real", readReal},
    {"integer", readWhole},
}};

void read(Value value, const Place& place, KEPMfgParameterValue& parameter) {
  simdjson::ondemand::json_type type{};
  const bool known = value.type().get(type) == simdjson::SUCCESS;
  if (known && type == simdjson::ondemand::json_type::string) {
    parameter = textValue(readText(value, place));
  } else if (known && type == simdjson::ondemand::json_type::object) {
    readFields<KEPMfgParameterValue>(value, place, kNumberKeys, parameter);
  }
  if (parameter.kind == 0) refuseValue(value, place, kParameterForms);
}

void checkParameter(const FieldName& name, const Place& place) {
  if (name.text.empty()) place.refuse(name.at, "a parameter needs a name");
}

/// The number that a key of digits writes, in one way only.
int numberOf(const FieldName& name, const Place& place) {
  constexpr std::size_t kMostDigits = 9;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const std::string_view text = name.text;
  const bool good = !text.empty() && text.size() <= kMostDigits && text.front() != '0' &&
                    std::all_of(text.begin(), text.end(), isDigit);
  if (!good) place.refuse(name.at, "a number from 1 to 999999999 is expected as the key");
  return std::stoi(std::string(text));
}

void checkDesignParameter(const FieldName& name, const Place& place) {
  const auto isLetter = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
  };
  const auto isInside = [&](char c) { return isLetter(c) || (c >= '0' && c <= '9'); };
  const bool good = !name.text.empty() && isLetter(name.text.front()) &&
                    std::all_of(name.text.begin(), name.text.end(), isInside);
  if (!good)
    place.refuse(name.at, "a name of letters, digits and \"_\" is expected, no digit first");
}

}  // namespace

void read(Value value, const Place& place, NamedValues& parameters) {
  readNamed(value, place, [&](const FieldName& name, Value parameter, const Place& here) {
    checkParameter(name, here);
    read(parameter, here, parameters.emplace_back(name.text, KEPMfgParameterValue{}).second);
  });
}

void read(Value value, const Place& place,
          std::vector<std::pair<std::string, double>>& designParameters) {
  readNamed(value, place, [&](const FieldName& name, Value parameter, const Place& here) {
    checkDesignParameter(name, here);
    designParameters.emplace_back(name.text, readNumber(parameter, here));
  });
}

void readByNumber(Value value, const Place& place, const NumberedReader& read) {
  readNamed(value, place, [&](const FieldName& name, Value numbered, const Place& here) {
    read(numberOf(name, here), numbered, here);
  });
}

}  // namespace host::job
