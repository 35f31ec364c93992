#include <gtest/gtest.h>

#include <limits>

#include "Mathematics/KEPMathTransformation.h"
#include "Mathematics/KEPMathVector.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

void expectNear(const KEPMathVector& vector, const KEPMathVector& expected) {
  EXPECT_NEAR(vector.x, expected.x, 1e-12);
  EXPECT_NEAR(vector.y, expected.y, 1e-12);
  EXPECT_NEAR(vector.z, expected.z, 1e-12);
}

KEPMathVector normalized(KEPMathVector vector) {
  vector.Normalize();
  return vector;
}

TEST(Vector, NormalizingKeepsTheDirection) {
  EXPECT_EQ(normalized({0, 0, 2}), (KEPMathVector{0, 0, 1}));
  EXPECT_EQ(normalized({0, -3, 4}), (KEPMathVector{0, -0.6, 0.8}));
  expectNear(normalized({3e200, 4e200, 0}), {0.6, 0.8, 0});
}

TEST(Vector, VectorOfLengthZeroStaysZero) { EXPECT_EQ(normalized({0, 0, 0}), KEPMathVector{}); }

TEST(Vector, ProductsAndDifferenceAreThoseOfTheRightHand) {
  EXPECT_EQ((KEPMathVector{1, 0, 0}.Cross({0, 1, 0})), (KEPMathVector{0, 0, 1}));
  EXPECT_EQ((KEPMathVector{1, 2, 3}.Cross({4, 5, 6})), (KEPMathVector{-3, 6, -3}));
  EXPECT_EQ((KEPMathVector{1, 2, 3}.Dot({4, 5, 6})), 32);
  EXPECT_EQ((KEPMathVector{1, 2, 3} - KEPMathVector{4, 6, 8}), (KEPMathVector{-3, -4, -5}));
}

TEST(Transformation, ColumnsAreWhereTheUnitDirectionsGo) {
  const KEPMathTransformation map({{1, 2, 3}, {4, 5, 6}, {7, 8, 10}}, {100, 200, 300});
  expectNear(map.Apply({1, 0, 0}), {101, 202, 303});
  expectNear(map.Apply({0, 1, 0}), {104, 205, 306});
  expectNear(map.Apply({0, 0, 1}), {107, 208, 310});
}

TEST(Transformation, InverseTakesPointsBack) {
  // not orthogonal: the transposed matrix would not do
  KEPMathTransformation map({{2, 0, 0}, {1, 1, 0}, {0, 0, 4}}, {10, 20, 30});
  ASSERT_TRUE(map.Invert());
  expectNear(map.Apply({13, 21, 38}), {1, 1, 2});
}

TEST(Transformation, SingularMapHasNoInverseAndStays) {
  const KEPMath3x3Matrix matrices[] = {{{1, 0, 0}, {0, 0, 0}, {1, 0, 0}},
                                       {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}}};
  for (const auto& matrix : matrices) {
    KEPMathTransformation map(matrix, {1, 2, 3});
    EXPECT_FALSE(map.Invert());
    expectNear(map.Apply({0, 7, 0}), {1, 2, 3});
  }
}

TEST(Transformation, MapThatIsNotFiniteHasNoInverse) {
  for (const double number : {kInfinity, std::numeric_limits<double>::quiet_NaN()}) {
    KEPMathTransformation map({{1, 0, 0}, {0, 1, 0}, {0, 0, number}}, {});
    EXPECT_FALSE(map.Invert()) << number;
  }
}

TEST(Transformation, SmallNumbersAreNoReasonToBeSingular) {
  KEPMathTransformation map({{1e-9, 0, 0}, {0, 1e-9, 0}, {0, 0, 1e-9}}, {});
  ASSERT_TRUE(map.Invert());
  expectNear(map.Apply({1e-9, 2e-9, 3e-9}), {1, 2, 3});
}

TEST(Constants, HaveTheirValues) {
  EXPECT_EQ(KEPEpsg, 0.000001);
  EXPECT_DOUBLE_EQ(KEPDegreeToRadian, 0.017453292519943295);
}

}  // namespace
