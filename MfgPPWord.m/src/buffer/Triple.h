#pragma once

namespace ppword {

/// Three numbers that a buffer stores together: a point or a direction.
struct Triple {
  double first = 0.0;
  double second = 0.0;
  double third = 0.0;

  void copyTo(double& x, double& y, double& z) const noexcept {
    x = first;
    y = second;
    z = third;
  }
};

}  // namespace ppword
