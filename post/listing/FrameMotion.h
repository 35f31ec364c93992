#pragma once

#include "post/listing/LengthUnit.h"
#include "post/listing/WorkFrame.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// Writes in one coordinate system what is listed in another: a rotation about Z, then a shift.
/// Both systems are on the same machine, so that a point keeps its machine coordinates.
class FrameMotion {
 public:
  /// `unit` is that of the lengths.
  FrameMotion(const WorkFrame& from, const WorkFrame& to, LengthUnit unit);

  /// Converts the points and directions of an element, also those of its arc or helix. Tool axes
  /// and lengths stay.
  void apply(Element& element) const;
  void movePoint(Triple& point) const;

 private:
  void moveDirection(Triple& direction) const;
  void moveCircle(CircleChange& circle) const;
  void moveHelix(HelixChange& helix) const;

  double degrees_;
  Triple shift_;
};

}  // namespace host
