#include "tools/ppword/view/Motions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

using host::Triple;

constexpr double kTurn = 2 * std::numbers::pi;
// Directions that are shorter have none.
constexpr double kShortest = 1e-9;
// A picture has no more turns in one arc.
constexpr double kMostTurns = 1000;
// Coordinates beyond are no places of a machine, and are not drawn.
constexpr double kFarthest = 1e9;

Triple sum(const Triple& a, const Triple& b, double times) {
  return {a[0] + times * b[0], a[1] + times * b[1], a[2] + times * b[2]};
}

double dot(const Triple& a, const Triple& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Triple cross(const Triple& a, const Triple& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

// Nothing for a vector without direction.
std::optional<Triple> unitOf(const Triple& vector) {
  const double length = std::sqrt(dot(vector, vector));
  if (!std::isfinite(length) || length < kShortest) return std::nullopt;
  return sum({}, vector, 1 / length);
}

bool isPlace(const Triple& point) {
  return std::ranges::all_of(point, [](double value) { return std::abs(value) <= kFarthest; });
}

// The axis about which a tool turns that leaves in a direction: a stated one, in the sense that
// fits.
std::optional<Triple> axisOf(const Triple& stated, const Triple& radius, const Triple& direction) {
  const auto axis = unitOf(stated);
  if (!axis) return unitOf(cross(radius, direction));
  return dot(cross(*axis, radius), direction) < 0 ? sum({}, *axis, -1) : *axis;
}

// From 0 up to one turn.
double angleBetween(const Triple& from, const Triple& to, const Triple& axis) {
  const Triple start = sum(from, axis, -dot(from, axis));
  const Triple end = sum(to, axis, -dot(to, axis));
  const double angle = std::atan2(dot(cross(start, end), axis), dot(start, end));
  return angle < 0 ? angle + kTurn : angle;
}

constexpr double kSmallestAngle = 1e-6;

// The whole angle of an arc whose ends are so far apart about its axis, of about `turns` turns.
double wholeAngle(double angle, double turns) {
  const double whole = std::round(std::min(turns, kMostTurns) - angle / kTurn);
  const double all = angle + kTurn * std::max(whole, 0.0);
  return all < kSmallestAngle ? all + kTurn : all;
}

template <class Value>
void take(std::optional<Value>& value, const std::optional<Value>& change) {
  if (change) value = change;
}

struct KindRow {
  std::string_view instruction;
  MotionKind kind;
};
// Instructions whose points are not those of a move. The name may go on after it.
constexpr std::array<KindRow, 6> kKinds{{{"NC_FROM", MotionKind::Start},
                                         {"NC_CYCLE_LOCATION_POINT", MotionKind::Cycle},
                                         {"NC_CIRCLE1", MotionKind::Arc},
                                         {"NC_CIRCLE2", MotionKind::Arc},
                                         {"NC_CYLNDR", MotionKind::Arc},
                                         {"NC_HELICAL_INTERPOLATION", MotionKind::Arc}}};

MotionKind motionKindOf(std::string_view instruction) {
  const auto* const row = std::ranges::find_if(
      kKinds, [&](const KindRow& each) { return instruction.starts_with(each.instruction); });
  return row == kKinds.end() ? MotionKind::Feed : row->kind;
}

}  // namespace

Motion Motions::next(const host::Element& element, long point, std::string_view instruction) {
  if (point == 1) apply(element.changes);
  const MotionKind kind = motionKindOf(instruction);
  if (instruction == "NC_RAPID") isRapid_ = true;
  const bool isHelix = instruction == "NC_HELICAL_INTERPOLATION";
  const auto& end = isHelix ? helix_.end : circle_.point;
  const bool isArc = kind == MotionKind::Arc && end;
  if (isArc) return along(*end, isHelix ? helixTo(*end) : circleTo(*end));
  if (element.positions.empty()) return {};
  const host::Position& position = element.positions[static_cast<std::size_t>(point) - 1];
  if (position.toolAxis) toolAxis_ = position.toolAxis;
  return moveTo(position.point, kind);
}

Motion Motions::moveTo(const Triple& point, MotionKind kind) {
  if (!isPlace(point)) {
    point_.reset();
    return {};
  }
  const bool isStart = kind == MotionKind::Start || !point_;
  if (isRapid_ && kind == MotionKind::Feed) kind = MotionKind::Rapid;
  isRapid_ = false;
  point_ = point;
  return {isStart ? MotionKind::Start : kind, point};
}

Motion Motions::along(const Triple& end, const std::optional<Arc>& arc) {
  Motion motion = moveTo(end, MotionKind::Arc);
  const bool isDrawn = arc && isPlace(arc->center) && isPlace(arc->turn);
  if (motion.kind == MotionKind::Arc && isDrawn) motion.arc = arc;
  // An arc that nothing can be computed of is a line.
  if (motion.kind == MotionKind::Arc && !isDrawn) motion.kind = MotionKind::Feed;
  return motion;
}

std::optional<Arc> Motions::circleTo(const Triple& end) const {
  if (!point_ || !circle_.center) return std::nullopt;
  const Triple radius = sum(*point_, *circle_.center, -1);
  const auto axis =
      axisOf(circle_.normal.value_or(Triple{}), radius, circle_.tangent.value_or(Triple{}));
  if (!axis) return std::nullopt;
  const double angle = angleBetween(radius, sum(end, *circle_.center, -1), *axis);
  return Arc{*circle_.center, sum({}, *axis, wholeAngle(angle, 0))};
}

std::optional<Arc> Motions::helixTo(const Triple& end) const {
  if (!point_ || !helix_.center) return std::nullopt;
  const Triple radius = sum(*point_, *helix_.center, -1);
  const auto axis =
      axisOf(helix_.axis.value_or(Triple{}), radius, helix_.inDirV.value_or(Triple{}));
  if (!axis) return std::nullopt;
  const double angle = angleBetween(radius, sum(end, *helix_.center, -1), *axis);
  const double pitch = std::abs(helix_.pitch.value_or(0));
  const double height = std::abs(dot(sum(end, *point_, -1), *axis));
  const double turns = pitch > kShortest ? height / pitch : 0;
  return Arc{*helix_.center, sum({}, *axis, wholeAngle(angle, turns))};
}

void Motions::apply(const host::BufferChanges& changes) {
  take(toolAxis_, changes.toolAxis);
  if (changes.circle) apply(*changes.circle);
  if (changes.helix) apply(*changes.helix);
}

void Motions::apply(const host::CircleChange& change) {
  take(circle_.tangent, change.tangent);
  take(circle_.center, change.center);
  take(circle_.normal, change.normal);
  take(circle_.point, change.point);
}

void Motions::apply(const host::HelixChange& change) {
  take(helix_.inDirV, change.inDirV);
  take(helix_.center, change.center);
  take(helix_.axis, change.axis);
  take(helix_.end, change.end);
  take(helix_.pitch, change.pitch);
}
