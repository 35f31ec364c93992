#include "post/listing/MachineState.h"

#include <charconv>
#include <string>
#include <string_view>
#include <utility>

namespace host {
namespace {

/// A feed rate or a spindle speed as the motion buffers take it, with the shortest text that
/// reads as the same number.
TypedValue typedNumber(double value, std::string_view type) {
  char text[64];
  const auto [end, error] = std::to_chars(text, text + sizeof text, value);
  return {{text, end}, std::string(type)};
}

constexpr double kMetresInFoot = 0.3048;

double surfaceSpeed(double value, LengthUnit from, LengthUnit to) {
  const bool fromFeet = from == LengthUnit::Inch;
  if (fromFeet == (to == LengthUnit::Inch)) return value;
  return fromFeet ? value * kMetresInFoot : value / kMetresInFoot;
}

int sequenceOf(Coolant::Kind kind) {
  return kind == Coolant::Kind::Flood ? Coolant::kFlood : Coolant::kMist;
}

}  // namespace

void FeedState::setRate(double rate, LengthUnit unit) {
  rate_.value = rate;
  rate_.unit = unit;
  isSet_ = true;
}

std::optional<FeedrateChange> FeedState::pendingChange(const Vocabulary& vocabulary,
                                                       LengthUnit text) {
  if (!isSet_ && !synchronised_) return std::nullopt;
  const Rate& rate = synchronised_ ? *synchronised_ : rate_;
  const auto& named = rate.perRevolution ? vocabulary.feedPerRevolution : vocabulary.feedPerMinute;
  const LengthUnit unit = named.value_or(text);
  const Rate wanted{converted(rate.value, rate.unit, unit), unit, rate.perRevolution};
  if (lastWritten_ == wanted) return std::nullopt;
  lastWritten_ = wanted;
  FeedrateChange change;
  change.value =
      typedNumber(wanted.value, wanted.perRevolution ? "ANGULARFEEDRATE" : "LINEARFEEDRATE");
  return change;
}

SpindleState::Speed SpindleState::wanted(LengthUnit surface) const {
  if (!speed_.isSurface) return speed_;
  return {surfaceSpeed(speed_.value, unit_, surface), true};
}

std::optional<Element> SpindleState::setSpeed(double value, LengthUnit unit, LengthUnit surface) {
  speed_.value = value;
  unit_ = unit;
  return turning_ == Turning::Yes ? start(way_, surface) : std::nullopt;
}

std::optional<Element> SpindleState::start(Way way, LengthUnit surface) {
  const bool goesOn = turning_ == Turning::Yes && way == way_;
  const Speed speed = wanted(surface);
  if (goesOn && speed == lastWritten_) return std::nullopt;
  turning_ = Turning::Yes;
  way_ = way;
  lastWritten_ = speed;
  Element element;
  element.instruction = goesOn ? "NC_SPINDLE" : "NC_SPINDLE_START";
  SpindleChange& change = element.changes.spindle.emplace();
  change.value =
      typedNumber(speed.value, speed.isSurface ? "LINEARSPINDLESPEED" : "ANGULARSPINDLESPEED");
  change.way = static_cast<int>(way);
  return element;
}

std::optional<Element> SpindleState::stop() {
  if (turning_ == Turning::Stopped) return std::nullopt;
  turning_ = Turning::Stopped;
  Element element;
  element.instruction = "NC_SPINDLE_OFF";
  return element;
}

Coolant::Sequences Coolant::on(Kind kind) {
  isKnown_ = true;
  if (std::exchange(runs(kind), true)) return {};
  return {sequenceOf(kind)};
}

Coolant::Sequences Coolant::off(Kind kind) {
  const bool ran = std::exchange(runs(kind), false);
  if (!ran && std::exchange(isKnown_, true)) return {};
  const Kind other = kind == Kind::Flood ? Kind::Mist : Kind::Flood;
  if (runs(other)) return {kOff, sequenceOf(other)};
  return {kOff};
}

}  // namespace host
