#include <limits>
#include <numbers>

#include "KEPIMfgBufferHelix.h"
#include "tests/evaluation/Evaluations.h"

namespace ppword::test {
namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

class HelixEvaluation : public Evaluations {
 protected:
  /// From the origin to (3, 4, -10) about an axis that is no unit vector.
  HelixEvaluation() {
    for (const char* name : {"MFG_HELICAL_HEIGHT", "MFG_HELICAL_ROUND", "MFG_HELICAL_ANGLE",
                             "MFG_HELICAL_PITCH", "MFG_HELICAL_K_AXIS"}) {
      setFormat(name, "%.4f");
    }
    buffer().SetStart(0, 0, 0);
    buffer().SetEnd(3, 4, -10);
    buffer().SetAxis(0, 0, 2);
    buffer().SetPitch(2.5);
  }
  [[nodiscard]] KEPIMfgBufferHelix& buffer() const { return *KEPIMfgBufferHelix_var(words); }
  [[nodiscard]] static KEPVar<host::GeneratorData> generation(double angleFactor) {
    auto data = host::GeneratorData::create("", "");
    data->setAngleFactor(angleFactor);
    host::setCurrentGeneratorData(data);
    return data;
  }
};

TEST_F(HelixEvaluation, AxisIsPrintedAsItIsStored) {
  EXPECT_EQ(value("MFG_HELICAL_K_AXIS"), "2.0000");
}

TEST_F(HelixEvaluation, HeightIsTheChordAlongTheUnitAxisWithoutSign) {
  EXPECT_EQ(value("MFG_HELICAL_HEIGHT"), "10.0000");
  buffer().SetEnd(3, 4, 10);
  EXPECT_EQ(value("MFG_HELICAL_HEIGHT"), "10.0000");
  // 5 * 0.6 + 10 * 0.8
  buffer().SetAxis(0, 3, 4);
  buffer().SetStart(1, 1, 1);
  buffer().SetEnd(100, 6, 11);
  EXPECT_EQ(value("MFG_HELICAL_HEIGHT"), "11.0000");
}

TEST_F(HelixEvaluation, TurnsAreTheHeightByThePitch) {
  EXPECT_EQ(value("MFG_HELICAL_ROUND"), "4.0000");
  buffer().SetPitch(3);
  EXPECT_EQ(value("MFG_HELICAL_ROUND"), "3.3333");
}

TEST_F(HelixEvaluation, AngleIsInRadiansWithoutAnAngleFactor) {
  EXPECT_EQ(value("MFG_HELICAL_ANGLE"), "25.1327");
  host::setCurrentGeneratorData(host::GeneratorData::create("", ""));
  EXPECT_EQ(value("MFG_HELICAL_ANGLE"), "25.1327");
}

TEST_F(HelixEvaluation, AngleIsMultipliedByTheAngleFactor) {
  const auto data = generation(kDegrees);
  EXPECT_EQ(value("MFG_HELICAL_ANGLE"), "1440.0000");
  data->setAngleFactor(-1);
  EXPECT_EQ(value("MFG_HELICAL_ANGLE"), "-25.1327");
  data->setAngleFactor(0);
  EXPECT_EQ(value("MFG_HELICAL_ANGLE"), "0.0000");
}

TEST_F(HelixEvaluation, AngleBelowTheTolerancePrintsZeroWhateverItsSign) {
  const auto data = generation(-1e-8);
  EXPECT_EQ(value("MFG_HELICAL_ANGLE"), "0.0000");
  setFormat("MFG_HELICAL_ANGLE", "%.9f");
  EXPECT_EQ(value("MFG_HELICAL_ANGLE"), "0.000000000");
}

TEST_F(HelixEvaluation, VanishingPitchGivesNoTurnsAndNoAngle) {
  for (const double pitch : {0.0, 0.0000009999, -2.5}) {
    buffer().SetPitch(pitch);
    EXPECT_EQ(value("MFG_HELICAL_ROUND"), kNoValue) << pitch;
    EXPECT_EQ(value("MFG_HELICAL_ANGLE"), kNoValue) << pitch;
    EXPECT_EQ(value("MFG_HELICAL_HEIGHT"), "10.0000") << pitch;
  }
  EXPECT_EQ(value("MFG_HELICAL_PITCH"), "-2.5000");
  buffer().SetPitch(0);
  EXPECT_EQ(value("MFG_HELICAL_PITCH"), "0.0000");
}

TEST_F(HelixEvaluation, PitchOfTheToleranceIsEnough) {
  buffer().SetPitch(0.000001);
  EXPECT_EQ(value("MFG_HELICAL_ROUND"), "10000000.0000");
}

TEST_F(HelixEvaluation, EndAtTheStartGivesZeros) {
  buffer().SetEnd(0, 0, 0);
  for (const char* name : {"MFG_HELICAL_HEIGHT", "MFG_HELICAL_ROUND", "MFG_HELICAL_ANGLE"}) {
    EXPECT_EQ(value(name), "0.0000") << name;
  }
}

TEST_F(HelixEvaluation, AxisOfLengthZeroGivesNoHeight) {
  buffer().SetAxis(0, 0, 0);
  EXPECT_EQ(value("MFG_HELICAL_HEIGHT"), "0.0000");
  EXPECT_EQ(value("MFG_HELICAL_ROUND"), "0.0000");
}

TEST_F(HelixEvaluation, FirstCommaOfTheTextBecomesAPoint) {
  for (const char* name : {"MFG_HELICAL_HEIGHT", "MFG_HELICAL_ROUND", "MFG_HELICAL_ANGLE"}) {
    setFormat(name, ",%.0f,");
  }
  EXPECT_EQ(value("MFG_HELICAL_HEIGHT"), ".10,");
  EXPECT_EQ(value("MFG_HELICAL_ROUND"), ".4,");
  EXPECT_EQ(value("MFG_HELICAL_ANGLE"), ".25,");
}

TEST_F(HelixEvaluation, WithoutAUsableFormatThereIsNoValue) {
  for (const char* name : {"MFG_HELICAL_HEIGHT", "MFG_HELICAL_ROUND", "MFG_HELICAL_ANGLE"}) {
    setFormat(name, "%d");
    EXPECT_EQ(value(name), kNoValue) << name;
    KEPISpecAttrAccess_var(find(name))->Unset("Format");
    EXPECT_EQ(value(name), kNoValue) << name;
  }
}

TEST_F(HelixEvaluation, GenerationFormatsAreNotAsked) {
  host::setCurrentGeneratorData(host::GeneratorData::create("%.1f", "%.1f"));
  EXPECT_EQ(value("MFG_HELICAL_HEIGHT"), "10.0000");
  EXPECT_EQ(value("MFG_HELICAL_K_AXIS"), "2.0000");
}

TEST_F(HelixEvaluation, NumberThatIsNotFiniteGivesNoValue) {
  buffer().SetEnd(0, 0, 1e308);
  buffer().SetPitch(0.01);
  EXPECT_EQ(value("MFG_HELICAL_ROUND"), kNoValue);
  buffer().SetPitch(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(value("MFG_HELICAL_ANGLE"), kNoValue);
  buffer().SetEnd(0, 0, std::numeric_limits<double>::infinity());
  EXPECT_EQ(value("MFG_HELICAL_HEIGHT"), kNoValue);
}

TEST_F(HelixEvaluation, WithoutContainerOrBufferThereIsNoValue) {
  for (const char* name : {"MFG_HELICAL_HEIGHT", "MFG_HELICAL_ROUND", "MFG_HELICAL_ANGLE"}) {
    EXPECT_EQ(valueOutside(name), kNoValue) << name;
  }
  moveTo(BareWords(*document, {}));
  for (const char* name :
       {"MFG_HELICAL_HEIGHT", "MFG_HELICAL_ROUND", "MFG_HELICAL_ANGLE", "MFG_HELICAL_PITCH"}) {
    setFormat(name, "%.4f");
    EXPECT_EQ(value(name), kNoValue) << name;
  }
}

}  // namespace
}  // namespace ppword::test
