#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>

namespace host {

/// The coordinate system of the positions of a listing: the fixture and program offsets and the
/// rotation of the XY plane, as the listing states them.
class WorkFrame {
 public:
  static constexpr std::size_t kAxes = 6;

  /// Store the x y z a b c of an offset; lengths are in units of `millimetres`.
  void setFixtureOffset(std::span<const double, kAxes> offset, double millimetres);
  void setProgramOffset(std::span<const double, kAxes> offset, double millimetres);
  /// Stores the rotation of the XY plane in degrees.
  void setRotation(double degrees);

  /// Whether both are the same system, within the precision of printed numbers.
  [[nodiscard]] bool isSameAs(const WorkFrame& other) const;
  /// Whether rotary words are offset or the XY plane is rotated.
  [[nodiscard]] bool isTurned() const;

 private:
  /// A printed number and how far the number that was meant can be away from it.
  struct Printed {
    double value = 0.0;
    double doubt = 0.0;
  };
  using Offset = std::array<Printed, kAxes>;

  static Offset readOffset(std::span<const double, kAxes> offset, double millimetres);
  static bool isSame(const Printed& one, const Printed& other);

  Offset fixture_;
  Offset program_;
  Printed rotation_;
};

}  // namespace host
