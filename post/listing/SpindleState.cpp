#include "post/listing/SpindleState.h"

#include "post/listing/TypedNumber.h"

namespace host {
namespace {

constexpr double kMetresInFoot = 0.3048;

double surfaceSpeed(double value, LengthUnit from, LengthUnit to) {
  const bool fromFeet = from == LengthUnit::Inch;
  if (fromFeet == (to == LengthUnit::Inch)) return value;
  return fromFeet ? value * kMetresInFoot : value / kMetresInFoot;
}

}  // namespace

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
  if (goesOn && speed == told_) return std::nullopt;
  turning_ = Turning::Yes;
  way_ = way;
  told_ = speed;
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

}  // namespace host
