#pragma once

#include <optional>

#include "post/listing/LengthUnit.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// The spindle as the calls of a listing drive it. Each operation gives the element that the text
/// needs, without its line; nothing where the call changes nothing. `surface` is the unit of
/// surface speeds in the text: metres for a metric one, feet for inches.
class SpindleState {
 public:
  /// The codes of the spindle buffer's way.
  enum class Way { Clockwise = 1, Counterclockwise = 2 };

  /// Whether speeds are surface speeds; they are revolutions per minute at first.
  void setSurfaceSpeeds(bool surface) { speed_.isSurface = surface; }
  /// A speed; a surface speed in metres or feet per minute, as the unit of its place says.
  [[nodiscard]] std::optional<Element> setSpeed(double value, LengthUnit unit, LengthUnit surface);
  [[nodiscard]] std::optional<Element> start(Way way, LengthUnit surface);
  [[nodiscard]] std::optional<Element> stop();

 private:
  enum class Turning { Unknown, Stopped, Yes };
  struct Speed {
    double value = 0.0;
    bool isSurface = false;
    friend bool operator==(const Speed&, const Speed&) = default;
  };

  [[nodiscard]] Speed wanted(LengthUnit surface) const;

  Turning turning_ = Turning::Unknown;
  Way way_ = Way::Clockwise;
  /// As the calls give it: a surface speed in the unit of its place.
  Speed speed_;
  LengthUnit unit_ = LengthUnit::Millimetre;
  /// As the text has it.
  Speed told_;
};

}  // namespace host
