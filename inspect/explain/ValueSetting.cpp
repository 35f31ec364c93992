#include "inspect/explain/ValueSetting.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferComment.h"
#include "KEPIMfgBufferFeedrate.h"
#include "KEPIMfgBufferHelix.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferSpindle.h"
#include "KEPIMfgBufferTLAxis.h"
#include "host/knowledge/KnowledgeParameter.h"
#include "post/parameters/Parameters.h"

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

using Words = KEPIMfgPPWordContainer_var;

/// Changes one component of a triple in a motion buffer.
template <class Buffer, auto kGet, auto kSet>
void setComponent(const Words& words, std::size_t component, double value) {
  const KEPVar<Buffer> buffer = words;
  double triple[3] = {};
  (buffer.Get()->*kGet)(triple[0], triple[1], triple[2]);
  triple[component] = value;
  (buffer.Get()->*kSet)(triple[0], triple[1], triple[2]);
}

template <class Buffer, auto kSet>
void setNumber(const Words& words, std::size_t /*component*/, double value) {
  const KEPVar<Buffer> buffer = words;
  (buffer.Get()->*kSet)(value);
}

/// A feed rate or speed, without a type.
template <class Buffer, auto kSet>
void setValue(const Words& words, std::size_t /*component*/, double value) {
  const KEPVar<Buffer> buffer = words;
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  (buffer.Get()->*kSet)(createKnowledgeParameter({digits.data(), end}, ""));
}

using Point = KEPIMfgBufferPoint;
using Axis = KEPIMfgBufferTLAxis;
using Circle = KEPIMfgBufferCircle;
using Helix = KEPIMfgBufferHelix;
using Feedrate = KEPIMfgBufferFeedrate;
using Spindle = KEPIMfgBufferSpindle;

/// How a value of a motion buffer is set.
struct BufferRow {
  BufferValue value;
  void (*set)(const Words& words, std::size_t component, double value);
};

constexpr BufferRow kRows[] = {
    {BufferValue::Point, setComponent<Point, &Point::GetPoint, &Point::SetPoint>},
    {BufferValue::ToolAxis, setComponent<Axis, &Axis::GetTLAxis, &Axis::SetTLAxis>},
    {BufferValue::CircleTangent, setComponent<Circle, &Circle::GetTgt, &Circle::SetTgt>},
    {BufferValue::CircleCenter, setComponent<Circle, &Circle::GetCenter, &Circle::SetCenter>},
    {BufferValue::CircleNormal, setComponent<Circle, &Circle::GetNormal, &Circle::SetNormal>},
    {BufferValue::CirclePoint, setComponent<Circle, &Circle::GetPt, &Circle::SetPt>},
    {BufferValue::CircleRadius, setNumber<Circle, &Circle::SetRadius>},
    {BufferValue::HelixInDirV, setComponent<Helix, &Helix::GetInDirV, &Helix::SetInDirV>},
    {BufferValue::HelixCenter, setComponent<Helix, &Helix::GetCenter, &Helix::SetCenter>},
    {BufferValue::HelixAxis, setComponent<Helix, &Helix::GetAxis, &Helix::SetAxis>},
    {BufferValue::HelixEnd, setComponent<Helix, &Helix::GetEnd, &Helix::SetEnd>},
    {BufferValue::HelixRadius, setNumber<Helix, &Helix::SetRadius>},
    {BufferValue::HelixPitch, setNumber<Helix, &Helix::SetPitch>},
    {BufferValue::Feedrate, setValue<Feedrate, &Feedrate::SetFeedParameter>},
    {BufferValue::SpindleSpeed, setValue<Spindle, &Spindle::SetSpindleParameter>},
};

void setBuffer(const ValueSetting& setting, const Words& words) {
  const KEPMfgParameterValue& value = setting.value;
  if (value.kind == KEPMfgParameterValue::kText) {
    const KEPIMfgBufferComment_var comment = words;
    if (setting.name == "MFG_OUTPUT_COMMENT") comment->SetComment(KEPString(value.text.View()));
    return;
  }
  const double number = value.kind == KEPMfgParameterValue::kReal ? value.real : value.integer;
  const Parameter* const parameter = findParameter(setting.name);
  if (parameter == nullptr) return;
  for (const BufferRow& row : kRows) {
    if (parameter->row->values == row.value) row.set(words, parameter->letter, number);
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
  setBuffer(setting, document.ppWordContainer());
  activity.parameters().set(setting.name, setting.value);
}

}  // namespace host
