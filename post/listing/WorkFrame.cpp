#include "post/listing/WorkFrame.h"

#include <algorithm>
#include <cmath>

namespace host {
namespace {

constexpr std::size_t kLengths = 3;
/// Listings print four decimals.
constexpr double kHalfOfLastDigit = 0.00005;

}  // namespace

void WorkFrame::setFixtureOffset(std::span<const double, kAxes> offset, double millimetres) {
  fixture_ = readOffset(offset, millimetres);
}

void WorkFrame::setProgramOffset(std::span<const double, kAxes> offset, double millimetres) {
  program_ = readOffset(offset, millimetres);
}

void WorkFrame::setRotation(double degrees) { rotation_ = {degrees, kHalfOfLastDigit}; }

bool WorkFrame::isSameAs(const WorkFrame& other) const {
  return std::ranges::equal(fixture_, other.fixture_, isSame) &&
         std::ranges::equal(program_, other.program_, isSame) && isSame(rotation_, other.rotation_);
}

bool WorkFrame::isTurned() const {
  const auto isSet = [](const Printed& number) { return number.value != 0.0; };
  return isSet(rotation_) || std::any_of(fixture_.begin() + kLengths, fixture_.end(), isSet) ||
         std::any_of(program_.begin() + kLengths, program_.end(), isSet);
}

WorkFrame::Offset WorkFrame::readOffset(std::span<const double, kAxes> offset, double millimetres) {
  Offset read;
  for (std::size_t axis = 0; axis < kAxes; ++axis) {
    const double unit = axis < kLengths ? millimetres : 1.0;
    read[axis] = {offset[axis] * unit, kHalfOfLastDigit * unit};
  }
  return read;
}

bool WorkFrame::isSame(const Printed& one, const Printed& other) {
  return std::abs(one.value - other.value) <= one.doubt + other.doubt;
}

}  // namespace host
