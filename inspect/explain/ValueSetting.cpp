#include "inspect/explain/ValueSetting.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferTLAxis.h"

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

template <class Number>
std::optional<Number> wholeNumber(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  const bool isRead =
      result.ec == std::errc{} && result.ptr == end && std::isfinite(static_cast<double>(number));
  return isRead ? std::optional(number) : std::nullopt;
}

std::optional<KEPMfgParameterValue> readValue(std::string_view kind, std::string_view text) {
  if (kind == "text") return textValue(text);
  if (kind == "int") {
    const auto number = wholeNumber<int>(text);
    return number ? std::optional(integerValue(*number)) : std::nullopt;
  }
  const auto number = wholeNumber<double>(text);
  return number ? std::optional(realValue(*number)) : std::nullopt;
}

struct Coordinate {
  std::string_view name;
  bool isAxis;
  std::size_t component;
};
constexpr std::array<Coordinate, 6> kCoordinates = {{{"MFG_XPOINT", false, 0},
                                                     {"MFG_YPOINT", false, 1},
                                                     {"MFG_ZPOINT", false, 2},
                                                     {"MFG_XAXIS", true, 0},
                                                     {"MFG_YAXIS", true, 1},
                                                     {"MFG_ZAXIS", true, 2}}};

void setCoordinate(const Coordinate& coordinate, double value, const KEPIMfgBufferPoint_var& point,
                   const KEPIMfgBufferTLAxis_var& axis) {
  std::array<double, 3> triple{};
  if (coordinate.isAxis) {
    axis->GetTLAxis(triple[0], triple[1], triple[2]);
    triple[coordinate.component] = value;
    axis->SetTLAxis(triple[0], triple[1], triple[2]);
  } else {
    point->GetPoint(triple[0], triple[1], triple[2]);
    triple[coordinate.component] = value;
    point->SetPoint(triple[0], triple[1], triple[2]);
  }
}

}  // namespace

bool readSetting(std::string_view text, ValueSetting& setting, std::string& reason) {
  const std::size_t equals = text.find('=');
  const std::string_view left = text.substr(0, equals);
  const std::size_t colon = left.rfind(':');
  const std::string_view name = left.substr(0, colon);
  const std::string_view kind = colon == kNone ? "" : left.substr(colon + 1);
  const std::string shown(text);
  if (equals == kNone || name.empty()) {
    reason = "'" + shown + "' is not NAME=VALUE";
    return false;
  }
  if (colon != kNone && kind != "text" && kind != "int" && kind != "design") {
    reason = "'" + std::string(kind) + "' of '" + shown +
             "' is not a kind; the kinds are text, int and design";
    return false;
  }
  const std::string_view given = text.substr(equals + 1);
  const auto value = readValue(kind, given);
  if (!value) {
    reason = "'" + std::string(given) + "' is not " + (kind == "int" ? "an integer" : "a number") +
             "; a text is given as " + std::string(name) + ":text=" + std::string(given);
    return false;
  }
  setting = {std::string(name), *value, kind == "design"};
  return true;
}

void applySetting(const ValueSetting& setting, Document& document, Activity& activity) {
  if (setting.isDesign) return document.setDesignParameter(setting.name, setting.value.real);
  for (const Coordinate& coordinate : kCoordinates) {
    if (setting.name != coordinate.name || setting.value.kind != KEPMfgParameterValue::kReal) {
      continue;
    }
    const KEPIMfgPPWordContainer_var words = document.ppWordContainer();
    setCoordinate(coordinate, setting.value.real, words, words);
  }
  activity.parameters().set(setting.name, setting.value);
}

}  // namespace host
