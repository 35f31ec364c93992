#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "post/toolpath/ToolPath.h"

namespace host {

/// A plane that arcs lie in: the axes (0, 1, 2 for X, Y, Z) that its coordinates run along and the
/// one that is normal to it, in the order of a right-handed system.
struct ArcPlane {
  std::size_t first = 0;
  std::size_t second = 1;
  std::size_t normal = 2;
};

/// The plane that SELECT_PLANE names; nothing for a plane of the axes U, V, W and for another name.
[[nodiscard]] std::optional<ArcPlane> arcPlane(std::string_view name);

/// An arc about an axis that is parallel to an axis of the part.
struct ArcMove {
  ArcPlane plane;
  Triple start{};
  Triple end{};
  /// The point of the axis at the height of the start.
  Triple center{};
  /// How many turns the arc has, rounded up: 1 for up to one turn counterclockwise, seen from the
  /// plus end of the axis, 2 for up to two turns; negative for clockwise.
  int turns = 1;
  /// How far start and end can differ in their distance from the centre.
  double tolerance = 0.0;
};

/// True for an arc of more than 1000 turns, more than a program means. Only a helix can be written
/// with so many, since it is one instruction.
inline constexpr int kMostTurns = 1000;
[[nodiscard]] constexpr bool hasTooManyTurns(const ArcMove& arc) {
  return arc.turns < -kMostTurns || arc.turns > kMostTurns;
}

/// A point of an arc, and the share of the arc that ends there.
struct ArcPoint {
  Triple point{};
  double share = 1.0;
};

/// The ends of chords that are nowhere further than `deviation` from the curve; the last one is the
/// end of the arc. The radius and the height change evenly along the arc, so that it can be a
/// spiral; one without radius is a line. There are at least `least` of them. None for an arc of no
/// turn or of more than 1000 turns, or one that takes more than 100,000 chords.
[[nodiscard]] std::vector<ArcPoint> arcChords(const ArcMove& arc, double deviation,
                                              double least = 1.0);

/// The elements of an arc: NC_CIRCLE1 in the XY plane, NC_CYLNDR1 in another one, in pieces of less
/// than half a turn, so that the end of each is the first point where its circle meets the line
/// from the centre to it; NC_HELICAL_INTERPOLATION where the arc rises. Normals and axes have the
/// direction from which the travel is counterclockwise. None if start and end do
/// not lie on an arc about the centre, and for too many turns in the plane.
[[nodiscard]] std::vector<Element> arcElements(const ArcMove& arc);

}  // namespace host
