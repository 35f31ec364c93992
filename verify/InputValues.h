#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "post/toolpath/ToolPath.h"
#include "verify/DocumentWords.h"
#include "verify/Values.h"

namespace verify {

/// The state of a tool path between its events: what each parameter prints, by the rules of
/// docs/parameters.md.
class InputValues {
 public:
  /// The words must outlive the object. Angles in radians are multiplied by the factor.
  InputValues(const DocumentWords& words, double angleFactor)
      : words_(words), angleFactor_(angleFactor) {}

  void begin(const host::ActivityStart& activity) { activity_ = activity; }
  /// The values of an element, without its positions.
  void begin(const host::Element& element);
  void apply(const host::Position& position);

  /// A component of a point or a direction; null for another source.
  [[nodiscard]] const double* coordinateOf(const ValueSource& source) const {
    return source.triple == nullptr ? nullptr : &source.triple(*this)[source.component];
  }
  /// What any other source has.
  [[nodiscard]] Value valueOf(const ValueSource& source, std::string_view parameter) const;

  // What the rows of the table of parameters ask for.
  struct Circle {
    host::Triple tangent{}, center{}, normal{}, point{};
    double radius = 0.0;
  };
  struct Helix {
    host::Triple direction{}, center{}, axis{}, start{}, end{};
    double radius = 0.0, pitch = 0.0;
  };
  /// A feed rate or a spindle speed.
  struct Rate {
    double value = 0.0, factor = 1.0;
    std::string type;
  };
  [[nodiscard]] const host::Triple& point() const { return point_; }
  [[nodiscard]] const host::Triple& toolAxis() const { return toolAxis_; }
  [[nodiscard]] const Circle& circle() const { return circle_; }
  [[nodiscard]] const Helix& helix() const { return helix_; }
  [[nodiscard]] const Rate& feed() const { return feed_; }
  [[nodiscard]] const std::string& comment() const { return comment_; }
  [[nodiscard]] double angleFactor() const { return angleFactor_; }
  [[nodiscard]] Value feedType() const;
  [[nodiscard]] Value speed() const;
  // Entries of lists, from 1; 0 for none.
  [[nodiscard]] int feedUnit() const;
  [[nodiscard]] int speedUnit() const;
  [[nodiscard]] int way() const;
  [[nodiscard]] int delayUnit() const;
  [[nodiscard]] int toolPathType() const;

 private:
  void apply(const host::CircleChange& change);
  void apply(const host::HelixChange& change);
  void apply(const host::FeedrateChange& change);
  void apply(const host::SpindleChange& change);
  [[nodiscard]] const host::SequentialMotionValues* motion() const;
  [[nodiscard]] const host::FeedrateValues* motionSpindle() const;
  [[nodiscard]] bool isSequential() const;
  [[nodiscard]] bool isLocal() const;
  [[nodiscard]] const host::ActivityValues* operation() const;
  [[nodiscard]] const host::ActivityValues* knownActivity() const;
  [[nodiscard]] int handOfTool() const;
  [[nodiscard]] Value lookedUp(std::string_view parameter) const;
  [[nodiscard]] Value wordOf(std::string_view parameter, int entry, std::size_t least) const;

  const DocumentWords& words_;
  double angleFactor_;
  std::optional<host::ActivityStart> activity_;
  host::Triple point_{}, toolAxis_{};
  Circle circle_;
  Helix helix_;
  Rate feed_, spindle_;
  std::string feedType_, comment_;
  int way_ = 1;
  int motionNumber_ = 0;
};

}  // namespace verify
