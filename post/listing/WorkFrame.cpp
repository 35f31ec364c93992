#include "post/listing/WorkFrame.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace host {
namespace {

constexpr std::size_t kLengths = 3;
/// Listings print four decimals.
constexpr double kHalfOfLastDigit = 0.00005;

/// The cosine and the sine of an angle, without rounding where they are whole numbers.
std::pair<double, double> cosineAndSine(double degrees) {
  const double angle = std::remainder(degrees, 360.0);
  if (angle == 0.0) return {1.0, 0.0};
  if (std::abs(angle) == 90.0) return {0.0, std::copysign(1.0, angle)};
  if (std::abs(angle) == 180.0) return {-1.0, 0.0};
  const double radians = angle * std::numbers::pi / 180.0;
  return {std::cos(radians), std::sin(radians)};
}

}  // namespace

void WorkFrame::setFixtureOffset(int number, std::span<const double, kAxes> offset,
                                 LengthUnit unit) {
  number_ = number;
  fixture_ = readOffset(offset, unit);
}

void WorkFrame::setProgramOffset(std::span<const double, kAxes> offset, LengthUnit unit) {
  program_ = readOffset(offset, unit);
}

void WorkFrame::setRotation(double degrees) { rotation_ = {degrees, kHalfOfLastDigit}; }

Triple WorkFrame::origin(LengthUnit unit) const {
  Triple origin = fixtureOffset(unit);
  const Triple offset = turnedAboutZ(programOffset(unit), rotation());
  for (std::size_t axis = 0; axis < origin.size(); ++axis) origin[axis] += offset[axis];
  return origin;
}

bool WorkFrame::isSameAs(const WorkFrame& other) const {
  return std::ranges::equal(fixture_, other.fixture_, isSame) &&
         std::ranges::equal(program_, other.program_, isSame) && isRotatedAs(other);
}

bool WorkFrame::turnsWordsAs(const WorkFrame& other) const {
  const auto areSame = [](const Offset& one, const Offset& two) {
    return std::equal(one.begin() + kLengths, one.end(), two.begin() + kLengths, isSame);
  };
  return areSame(fixture_, other.fixture_) && areSame(program_, other.program_);
}

bool WorkFrame::isRotatedAs(const WorkFrame& other) const {
  return isSame(rotation_, other.rotation_);
}

bool WorkFrame::isTurned() const {
  const auto isSet = [](const Printed& number) { return number.value != 0.0; };
  return isSet(rotation_) || std::any_of(fixture_.begin() + kLengths, fixture_.end(), isSet) ||
         std::any_of(program_.begin() + kLengths, program_.end(), isSet);
}

bool WorkFrame::hasProgramOffset() const {
  return std::ranges::any_of(program_, [](const Printed& number) { return number.value != 0.0; });
}

bool WorkFrame::isPlain() const { return number_ == 1 && isSameAs(WorkFrame()); }

WorkFrame::Offset WorkFrame::readOffset(std::span<const double, kAxes> offset, LengthUnit unit) {
  Offset read;
  for (std::size_t axis = 0; axis < kAxes; ++axis) {
    const double step = axis < kLengths ? tenthsOf(unit) : 1.0;
    read[axis] = {offset[axis] * step, kHalfOfLastDigit * step};
  }
  return read;
}

Triple WorkFrame::lengthsOf(const Offset& offset, LengthUnit unit) {
  const double step = tenthsOf(unit);
  return {offset[0].value / step, offset[1].value / step, offset[2].value / step};
}

bool WorkFrame::isSame(const Printed& one, const Printed& other) {
  return std::abs(one.value - other.value) <= one.doubt + other.doubt;
}

Triple turnedAboutZ(const Triple& vector, double degrees) {
  const auto [cosine, sine] = cosineAndSine(degrees);
  // The sum with 0 has no minus zero.
  return {vector[0] * cosine - vector[1] * sine + 0.0, vector[0] * sine + vector[1] * cosine + 0.0,
          vector[2]};
}

}  // namespace host
