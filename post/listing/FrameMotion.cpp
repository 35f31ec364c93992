#include "post/listing/FrameMotion.h"

#include <cstddef>
#include <optional>

namespace host {

// With R the rotation `from`, T that `to`: a point p is at fixture + R (program + p) in machine
// coordinates, so `to` has it at T^-1 R (program + p) + T^-1 (fixture - its fixture) - its program.
FrameMotion::FrameMotion(const WorkFrame& from, const WorkFrame& to, LengthUnit unit)
    : degrees_(from.rotation() - to.rotation()) {
  Triple between = from.fixtureOffset(unit);
  const Triple fixture = to.fixtureOffset(unit);
  for (std::size_t axis = 0; axis < between.size(); ++axis) between[axis] -= fixture[axis];
  between = turnedAboutZ(between, -to.rotation());
  const Triple program = turnedAboutZ(from.programOffset(unit), degrees_);
  const Triple taken = to.programOffset(unit);
  for (std::size_t axis = 0; axis < shift_.size(); ++axis) {
    shift_[axis] = program[axis] + between[axis] - taken[axis];
  }
}

void FrameMotion::apply(Element& element) const {
  for (Position& position : element.positions) movePoint(position.point);
  if (element.changes.circle) moveCircle(*element.changes.circle);
  if (element.changes.helix) moveHelix(*element.changes.helix);
}

void FrameMotion::movePoint(Triple& point) const {
  moveDirection(point);
  for (std::size_t axis = 0; axis < point.size(); ++axis) point[axis] += shift_[axis];
}

void FrameMotion::moveDirection(Triple& direction) const {
  if (degrees_ != 0.0) direction = turnedAboutZ(direction, degrees_);
}

void FrameMotion::moveCircle(CircleChange& circle) const {
  for (auto* const direction : {&circle.tangent, &circle.normal}) {
    if (*direction) moveDirection(**direction);
  }
  for (auto* const point : {&circle.center, &circle.point}) {
    if (*point) movePoint(**point);
  }
}

void FrameMotion::moveHelix(HelixChange& helix) const {
  for (auto* const direction : {&helix.inDirV, &helix.axis}) {
    if (*direction) moveDirection(**direction);
  }
  for (auto* const point : {&helix.center, &helix.start, &helix.end}) {
    if (*point) movePoint(**point);
  }
}

}  // namespace host
