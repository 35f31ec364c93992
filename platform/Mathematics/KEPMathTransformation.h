#pragma once

#include "Mathematics/KEPMathVector.h"

/// A 3 by 3 matrix by its columns. Default: the identity.
struct KEPMath3x3Matrix {
  KEPMathVector first{1.0, 0.0, 0.0};
  KEPMathVector second{0.0, 1.0, 0.0};
  KEPMathVector third{0.0, 0.0, 1.0};

  friend bool operator==(const KEPMath3x3Matrix&, const KEPMath3x3Matrix&) = default;
};

/// An affine map: a matrix, then a translation.
class KEPMathTransformation {
 public:
  KEPMathTransformation(const KEPMath3x3Matrix& matrix, const KEPMathVector& translation) noexcept
      : matrix_(matrix), translation_(translation) {}

  /// Replaces the map by its inverse. False, with the map unchanged, when the matrix is singular or
  /// not finite.
  [[nodiscard]] KEP_PLATFORM bool Invert();

  /// The image of a point.
  [[nodiscard]] KEP_PLATFORM KEPMathVector Apply(const KEPMathVector& point) const;

 private:
  KEPMath3x3Matrix matrix_;
  KEPMathVector translation_;
};
