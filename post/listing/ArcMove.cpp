#include "post/listing/ArcMove.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
/// A piece is a third of a turn at most: well below the half beyond which a line through the centre
/// meets its circle before the end of the piece.
constexpr double kLongestPiece = kTurn / 3.0 + 1e-9;

constexpr double kMostChords = 100'000;

/// The arc in the polar coordinates of its plane.
class Sweep {
 public:
  explicit Sweep(const ArcMove& arc)
      : arc_(arc),
        sense_(arc.turns > 0 ? 1.0 : -1.0),
        startAngle_(angleOf(arc.start)),
        angle_(sweptAngle()) {}

  [[nodiscard]] double radius() const { return radiusOf(arc_.start); }
  [[nodiscard]] double turns() const { return angle_ / kTurn; }
  [[nodiscard]] double rise() const { return arc_.end[normal()] - arc_.start[normal()]; }

  /// Whether start and end lie on one circle, within the precision of rounded numbers.
  [[nodiscard]] bool isArc() const {
    return arc_.turns != 0 && radius() > arc_.tolerance &&
           std::abs(radius() - radiusOf(arc_.end)) <= arc_.tolerance;
  }
  [[nodiscard]] double sense() const { return sense_; }
  /// The point and the direction of travel at a share (0 to 1) of the arc.
  [[nodiscard]] Triple point(double share) const {
    if (share >= 1.0) return arc_.end;
    Triple point = arc_.center;
    point[arc_.plane.first] += radius() * std::cos(angleAt(share));
    point[arc_.plane.second] += radius() * std::sin(angleAt(share));
    return point;
  }
  /// The point where the radius and the height change evenly.
  [[nodiscard]] Triple spiralPoint(double share) const {
    if (share >= 1.0) return arc_.end;
    const double radiusHere = std::lerp(radius(), radiusOf(arc_.end), share);
    Triple point = arc_.center;
    point[arc_.plane.first] += radiusHere * std::cos(angleAt(share));
    point[arc_.plane.second] += radiusHere * std::sin(angleAt(share));
    point[normal()] = std::lerp(arc_.start[normal()], arc_.end[normal()], share);
    return point;
  }
  /// How many chords are nowhere further than `deviation` from the curve. Between two points of a
  /// curve p(t) a chord is off by at most h*h/8 times the largest |p''(t)|; here t is the angle,
  /// and p'' = (-r, 2 r') along and across the radius.
  [[nodiscard]] double chords(double deviation) const {
    const double end = radiusOf(arc_.end);
    const double slope = (end - radius()) / angle_;
    const double bend = std::hypot(std::max(radius(), end), 2.0 * slope);
    return std::max(1.0, std::ceil(angle_ * std::sqrt(bend / (8.0 * deviation))));
  }
  [[nodiscard]] Triple direction(double share) const {
    Triple direction{};
    direction[arc_.plane.first] = -sense_ * std::sin(angleAt(share));
    direction[arc_.plane.second] = sense_ * std::cos(angleAt(share));
    return direction;
  }
  [[nodiscard]] int pieces() const { return static_cast<int>(std::ceil(angle_ / kLongestPiece)); }

 private:
  [[nodiscard]] std::size_t normal() const { return arc_.plane.normal; }
  [[nodiscard]] double first(const Triple& point) const {
    return point[arc_.plane.first] - arc_.center[arc_.plane.first];
  }
  [[nodiscard]] double second(const Triple& point) const {
    return point[arc_.plane.second] - arc_.center[arc_.plane.second];
  }
  [[nodiscard]] double radiusOf(const Triple& point) const {
    return std::hypot(first(point), second(point));
  }
  [[nodiscard]] double angleOf(const Triple& point) const {
    return std::atan2(second(point), first(point));
  }
  [[nodiscard]] double angleAt(double share) const { return startAngle_ + sense_ * angle_ * share; }

  [[nodiscard]] double sweptAngle() const {
    const double further = (std::abs(static_cast<double>(arc_.turns)) - 1.0) * kTurn;
    const bool isClosed =
        first(arc_.start) == first(arc_.end) && second(arc_.start) == second(arc_.end);
    if (isClosed) return kTurn + further;
    const double angle = std::fmod(sense_ * (angleOf(arc_.end) - startAngle_), kTurn);
    return (angle > 0.0 ? angle : angle + kTurn) + further;
  }

  const ArcMove& arc_;
  double sense_;
  double startAngle_;
  double angle_;
};

Element elementTo(const Triple& end, std::string_view instruction) {
  Element element;
  element.instruction = instruction;
  element.positions.push_back({end, {}});
  return element;
}

Element helix(const ArcMove& arc, const Sweep& sweep) {
  Element element = elementTo(arc.end, "NC_HELICAL_INTERPOLATION");
  HelixChange& change = element.changes.helix.emplace();
  change.inDirV = sweep.direction(0.0);
  change.center = arc.center;
  change.axis.emplace()[arc.plane.normal] = sweep.rise() > 0.0 ? 1.0 : -1.0;
  change.start = arc.start;
  change.end = arc.end;
  change.radius = sweep.radius();
  change.pitch = std::abs(sweep.rise()) / sweep.turns();
  return element;
}

Element piece(const ArcMove& arc, const Sweep& sweep, double from, double to) {
  const bool isLevel = arc.plane.normal == 2;
  Element element = elementTo(sweep.point(to), isLevel ? "NC_CIRCLE1" : "NC_CYLNDR1");
  CircleChange& change = element.changes.circle.emplace();
  change.tangent = sweep.direction(from);
  change.center = arc.center;
  change.radius = sweep.radius();
  change.normal.emplace()[arc.plane.normal] = sweep.sense();
  change.point = sweep.point(to);
  return element;
}

}  // namespace

std::optional<ArcPlane> arcPlane(std::string_view name) {
  if (name == "CANON_PLANE_XY") return ArcPlane{0, 1, 2};
  if (name == "CANON_PLANE_YZ") return ArcPlane{1, 2, 0};
  if (name == "CANON_PLANE_XZ") return ArcPlane{2, 0, 1};
  return std::nullopt;
}

std::vector<ArcPoint> arcChords(const ArcMove& arc, double deviation, double least) {
  const Sweep sweep(arc);
  const double count = std::max(sweep.chords(deviation), least);
  if (arc.turns == 0 || hasTooManyTurns(arc) || !(count <= kMostChords)) return {};
  std::vector<ArcPoint> points;
  points.reserve(static_cast<std::size_t>(count));
  for (double number = 1.0; number <= count; ++number) {
    points.push_back({sweep.spiralPoint(number / count), number / count});
  }
  return points;
}

std::vector<Element> arcElements(const ArcMove& arc) {
  const Sweep sweep(arc);
  if (!sweep.isArc()) return {};
  if (sweep.rise() != 0.0) return {helix(arc, sweep)};
  if (hasTooManyTurns(arc)) return {};
  std::vector<Element> elements;
  const int pieces = sweep.pieces();
  elements.reserve(std::size_t(pieces));
  for (int number = 0; number < pieces; ++number) {
    elements.push_back(piece(arc, sweep, double(number) / pieces, double(number + 1) / pieces));
  }
  return elements;
}

}  // namespace host
