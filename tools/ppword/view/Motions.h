#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "post/toolpath/ToolPath.h"

/// What an element is in the picture of a tool path. Its number is in the page.
enum class MotionKind : std::uint8_t {
  /// No motion.
  None,
  /// The tool is at the point, wherever it was before.
  Start,
  Rapid,
  Feed,
  Arc,
  /// To the next place of a cycle.
  Cycle
};

/// An arc from the point before: the middle, and an axis through it whose length is the angle, in
/// radians, that the tool turns about it counterclockwise.
struct Arc {
  host::Triple center{};
  host::Triple turn{};
};

struct Motion {
  MotionKind kind = MotionKind::None;
  host::Triple point{};
  std::optional<Arc> arc{};
};

/// Follows the motions of a tool path: the points of its elements, its circles and helices.
class Motions {
 public:
  /// The motion of the next element at a point, from 1, with the instruction that writes it. Of an
  /// element with several points each is asked for, in order.
  [[nodiscard]] Motion next(const host::Element& element, long point, std::string_view instruction);
  /// The tool axis at the last point; nothing until one is stated.
  [[nodiscard]] const std::optional<host::Triple>& toolAxis() const { return toolAxis_; }

 private:
  void apply(const host::BufferChanges& changes);
  void apply(const host::CircleChange& change);
  void apply(const host::HelixChange& change);
  [[nodiscard]] Motion moveTo(const host::Triple& point, MotionKind kind);
  [[nodiscard]] Motion along(const host::Triple& end, const std::optional<Arc>& arc);
  [[nodiscard]] std::optional<Arc> circleTo(const host::Triple& end) const;
  [[nodiscard]] std::optional<Arc> helixTo(const host::Triple& end) const;

  std::optional<host::Triple> point_;
  std::optional<host::Triple> toolAxis_;
  host::CircleChange circle_;
  host::HelixChange helix_;
  /// True when the next motion is a rapid one.
  bool isRapid_ = false;
};
