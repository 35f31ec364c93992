#pragma once

#include <array>
#include <numbers>

#include "System/KEPPlatform.h"

/// Three components of a point or a direction.
struct KEPMathVector {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  /// Changes the length to 1; a vector of length 0 stays as it is.
  KEP_PLATFORM void Normalize();

  [[nodiscard]] double Dot(const KEPMathVector& other) const noexcept {
    return x * other.x + y * other.y + z * other.z;
  }
  [[nodiscard]] KEPMathVector Cross(const KEPMathVector& other) const noexcept {
    return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
  }
  friend KEPMathVector operator-(const KEPMathVector& left, const KEPMathVector& right) noexcept {
    return {left.x - right.x, left.y - right.y, left.z - right.z};
  }
  friend bool operator==(const KEPMathVector&, const KEPMathVector&) = default;
};

/// An axis system: origin and three directions. Default: the origin and the three unit directions.
struct KEPMathAxis {
  std::array<double, 3> origin{0.0, 0.0, 0.0};
  std::array<double, 3> xDirection{1.0, 0.0, 0.0};
  std::array<double, 3> yDirection{0.0, 1.0, 0.0};
  std::array<double, 3> zDirection{0.0, 0.0, 1.0};

  friend bool operator==(const KEPMathAxis&, const KEPMathAxis&) = default;
};

/// The general tolerance of the application.
inline constexpr double KEPEpsg = 1e-6;
/// Degrees times this are radians.
inline constexpr double KEPDegreeToRadian = std::numbers::pi / 180.0;
