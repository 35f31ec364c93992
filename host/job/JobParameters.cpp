#include "host/job/JobParameters.h"

#include <algorithm>
#include <array>
#include <limits>
#include <unordered_set>

#include "host/job/JobObject.h"
#include "host/manufacturing/Activity.h"

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

using NameCheck = void (*)(const FieldName&, const Place&);

void checkParameter(const FieldName& name, const Place& place) {
  if (name.text.empty()) place.refuse(name.at, "a parameter needs a name");
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

template <class T>
void readNamed(Value value, const Place& place, NameCheck check,
               std::vector<std::pair<std::string, T>>& named) {
  std::unordered_set<std::string_view> seen;
  for (auto item : readObject(value, place)) {
    auto field = take(std::move(item), place);
    const FieldName name = nameOf(field, place);
    const Place here(place, name.text);
    check(name, here);
    if (!seen.insert(name.text).second) here.refuse(name.at, "the key stands here twice");
    read(field.value(), here, named.emplace_back(name.text, T{}).second);
  }
}

}  // namespace

void read(Value value, const Place& place,
          std::vector<std::pair<std::string, KEPMfgParameterValue>>& parameters) {
  readNamed(value, place, checkParameter, parameters);
}

void read(Value value, const Place& place,
          std::vector<std::pair<std::string, double>>& designParameters) {
  readNamed(value, place, checkDesignParameter, designParameters);
}

std::vector<std::string_view> numberKeyNames() {
  return namesOf<KEPMfgParameterValue>(kNumberKeys);
}

}  // namespace host::job
