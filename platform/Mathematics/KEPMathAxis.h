#pragma once

#include <array>

/// An axis system: origin and three directions. Default: the origin and the three unit directions.
struct KEPMathAxis {
  std::array<double, 3> origin{0.0, 0.0, 0.0};
  std::array<double, 3> xDirection{1.0, 0.0, 0.0};
  std::array<double, 3> yDirection{0.0, 1.0, 0.0};
  std::array<double, 3> zDirection{0.0, 0.0, 1.0};

  friend bool operator==(const KEPMathAxis&, const KEPMathAxis&) = default;
};
