#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>

#include "post/listing/LengthUnit.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// The coordinate system of the positions of a listing: the fixture and program offsets and the
/// rotation of the XY plane, as the listing states them. A point of the system is in machine
/// coordinates at fixture + R (program + point), where R turns about Z by the rotation.
class WorkFrame {
 public:
  static constexpr std::size_t kAxes = 6;

  /// Store the x y z a b c of an offset, with lengths in a unit. The fixture offset has the number
  /// of its system: 1 for G54 to 9 for G59.3.
  void setFixtureOffset(int number, std::span<const double, kAxes> offset, LengthUnit unit);
  void setProgramOffset(std::span<const double, kAxes> offset, LengthUnit unit);
  /// Stores the rotation of the XY plane in degrees.
  void setRotation(double degrees);

  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] double rotation() const { return rotation_.value; }
  /// The lengths of the offsets, and where the point 0 of the system is in machine coordinates.
  [[nodiscard]] Triple fixtureOffset(LengthUnit unit) const { return lengthsOf(fixture_, unit); }
  [[nodiscard]] Triple programOffset(LengthUnit unit) const { return lengthsOf(program_, unit); }
  [[nodiscard]] Triple origin(LengthUnit unit) const;

  /// Whether both are the same system, within the precision of printed numbers, whatever their
  /// numbers.
  [[nodiscard]] bool isSameAs(const WorkFrame& other) const;
  /// Whether rotary words mean the same angles in both; whether both are rotated alike.
  [[nodiscard]] bool turnsWordsAs(const WorkFrame& other) const;
  [[nodiscard]] bool isRotatedAs(const WorkFrame& other) const;
  /// Whether rotary words are offset or the XY plane is rotated.
  [[nodiscard]] bool isTurned() const;
  /// Whether there is a program offset (G92).
  [[nodiscard]] bool hasProgramOffset() const;
  /// Whether it is that of a machine without offsets: number 1, at 0, not turned.
  [[nodiscard]] bool isPlain() const;

 private:
  /// A printed number and how far the number that was meant can be away from it. Lengths are in
  /// tenths of a millimetre, which are whole numbers for all units.
  struct Printed {
    double value = 0.0;
    double doubt = 0.0;
  };
  using Offset = std::array<Printed, kAxes>;

  static Offset readOffset(std::span<const double, kAxes> offset, LengthUnit unit);
  static Triple lengthsOf(const Offset& offset, LengthUnit unit);
  static bool isSame(const Printed& one, const Printed& other);

  int number_ = 1;
  Offset fixture_;
  Offset program_;
  Printed rotation_;
};

/// Turns a vector counterclockwise about Z. Right angles are exact.
[[nodiscard]] Triple turnedAboutZ(const Triple& vector, double degrees);

}  // namespace host
