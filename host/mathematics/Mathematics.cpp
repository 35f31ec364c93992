#include <Eigen/Core>
#include <Eigen/LU>

#include "Mathematics/KEPMathTransformation.h"

namespace {

Eigen::Vector3d eigen(const KEPMathVector& vector) { return {vector.x, vector.y, vector.z}; }

KEPMathVector platform(const Eigen::Vector3d& vector) {
  return {vector.x(), vector.y(), vector.z()};
}

Eigen::Matrix3d eigen(const KEPMath3x3Matrix& matrix) {
  Eigen::Matrix3d columns;
  columns << eigen(matrix.first), eigen(matrix.second), eigen(matrix.third);
  return columns;
}

}  // namespace

void KEPMathVector::Normalize() { *this = platform(eigen(*this).stableNormalized()); }

bool KEPMathTransformation::Invert() {
  const Eigen::FullPivLU<Eigen::Matrix3d> decomposition(eigen(matrix_));
  if (!decomposition.isInvertible()) return false;
  const Eigen::Matrix3d inverse = decomposition.inverse();
  if (!inverse.allFinite()) return false;
  matrix_ = {platform(inverse.col(0)), platform(inverse.col(1)), platform(inverse.col(2))};
  translation_ = platform(-inverse * eigen(translation_));
  return true;
}

KEPMathVector KEPMathTransformation::Apply(const KEPMathVector& point) const {
  return platform(eigen(matrix_) * eigen(point) + eigen(translation_));
}
