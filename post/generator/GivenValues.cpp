#include "post/generator/GivenValues.h"

#include <algorithm>
#include <cmath>

#include "language/number/DecimalPrefix.h"

namespace host {
namespace {

constexpr double kUnitTolerance = 1e-4;
constexpr double kLargest = 1e15;

bool isUnit(const Triple& axis) {
  const double length = std::hypot(axis[0], axis[1], axis[2]);
  return std::abs(length - 1.0) <= kUnitTolerance;
}

bool isLarge(double value) { return std::abs(value) >= kLargest; }
bool isLarge(const Triple& triple) {
  return std::any_of(triple.begin(), triple.end(), [](double each) { return isLarge(each); });
}

/// False for a feed rate or a speed: negative, or too large.
bool isPossible(const TypedValue& value) {
  const auto number = ppword::decimalPrefix(value.text);
  return !number || (*number >= 0.0 && !isLarge(*number));
}

void put(bool isIn, BufferValue which, BufferValues& values) {
  isIn ? values.add(which) : values.remove(which);
}

}  // namespace

/// Reads the values of one element.
class GivenValues::ElementReader {
 public:
  ElementReader(const Element& element, std::string_view title, Tally& impossible, Stated& stated)
      : element_(element), title_(title), impossible_(impossible), stated_(stated) {}

  void read() {
    const BufferChanges& changes = element_.changes;
    if (changes.toolAxis) readAxis(*changes.toolAxis);
    if (changes.circle) read(*changes.circle);
    if (changes.helix) read(*changes.helix);
    if (changes.feedrate) readTyped(*changes.feedrate, BufferValue::Feedrate, "feedrate");
    if (changes.spindle) readTyped(*changes.spindle, BufferValue::SpindleSpeed, "spindle");
    if (!element_.positions.empty()) stated_.given.add(BufferValue::Point);
  }

  void readAxis(const Triple& axis) {
    stated_.given.add(BufferValue::ToolAxis);
    if (!isUnit(axis)) count("axis");
  }

  void count(std::string_view what) { impossible_.add(what, element_.place(), title_); }

 private:
  void read(const CircleChange& circle) {
    using enum BufferValue;
    read(circle.tangent, CircleTangent, "circle.tangent");
    read(circle.center, CircleCenter, "circle.center");
    readRadius(circle.radius, CircleRadius, "circle.radius");
    read(circle.normal, CircleNormal, "circle.normal");
    read(circle.point, CirclePoint, "circle.point");
  }
  void read(const HelixChange& helix) {
    using enum BufferValue;
    read(helix.inDirV, HelixInDirV, "helix.indirv");
    read(helix.center, HelixCenter, "helix.center");
    readRadius(helix.radius, HelixRadius, "helix.radius");
    read(helix.axis, HelixAxis, "helix.axis");
    read(helix.start, HelixStart, "helix.start");
    read(helix.end, HelixEnd, "helix.end");
    read(helix.pitch, HelixPitch, "helix.pitch");
    if (helix.pitch) put(*helix.pitch == 0.0, HelixPitch, stated_.zeros);
  }
  template <class Value>
  void read(const std::optional<Value>& value, BufferValue which, std::string_view name) {
    if (!value) return;
    stated_.given.add(which);
    if (isLarge(*value)) count(name);
  }
  void readRadius(const std::optional<double>& radius, BufferValue which, std::string_view name) {
    read(radius, which, name);
    if (!radius) return;
    put(*radius == 0.0, which, stated_.zeros);
    if (*radius == 0.0) count(name);
  }
  /// A feed rate or a speed.
  template <class Change>
  void readTyped(const Change& change, BufferValue which, std::string_view name) {
    if (change.factor) put(*change.factor == 0.0, which, stated_.zeroFactors);
    if (!change.value) return;
    stated_.given.add(which);
    put(ppword::decimalPrefix(change.value->text) == 0.0, which, stated_.zeros);
    if (!isPossible(*change.value)) count(name);
  }

  const Element& element_;
  std::string_view title_;
  Tally& impossible_;
  Stated& stated_;
};

void GivenValues::read(const Element& element, std::string_view title) {
  ElementReader(element, title, impossible_, stated_).read();
}

void GivenValues::read(const Position& position, const Element& element, std::string_view title) {
  if (!position.toolAxis && !isLarge(position.point)) return;
  ElementReader reader(element, title, impossible_, stated_);
  if (isLarge(position.point)) reader.count("points");
  if (position.toolAxis) reader.readAxis(*position.toolAxis);
}

}  // namespace host
