#include <limits>

#include "KEPIMfgBufferCorrectorNumber.h"
#include "tests/evaluation/Evaluations.h"

namespace ppword::test {
namespace {

/// A turning operation with setting values 100, 200, 300 and corrector 1, whose point lies (1, 2,
/// 3) away from the reference point 9.
class ToolSetting : public Evaluations {
 protected:
  ToolSetting() {
    for (const char* name : {"MFG_CMP_TL_SET_X", "MFG_CMP_TL_SET_Y", "MFG_CMP_TL_SET_Z"}) {
      make(name, "MfgPPParameter");
    }
    dimensions.real("MFG_TL_SET_X", 100).real("MFG_TL_SET_Y", 200).real("MFG_TL_SET_Z", 300);
    replay.positions = {{9, {10, 10, 10}}, {1, {11, 12, 13}}, {4, {20, 20, 20}}};
    its.assembly = assemblyObject;
    its.tool = toolObject;
    setActivity(operation);
    setCorrector(1);
  }

  void setCorrector(int number) const {
    KEPIMfgBufferCorrectorNumber_var(words)->SetNumber(number);
  }
  /// The three values.
  [[nodiscard]] Texts values() const {
    return {value("MFG_CMP_TL_SET_X"), value("MFG_CMP_TL_SET_Y"), value("MFG_CMP_TL_SET_Z")};
  }

  KEPVar<TestObject> operation = object();
  KEPVar<TestObject> assemblyObject = object();
  KEPVar<TestObject> toolObject = object();
  TestActivity& its = operation->add<TestActivity>();
  TestDimensions& dimensions = assemblyObject->add<TestDimensions>();
  TestReplay& replay = toolObject->add<TestReplay>();

  const Texts settings{"100.000000", "200.000000", "300.000000"};
};

TEST_F(ToolSetting, OffsetOfTheCorrectorIsAddedToTheSetting) {
  EXPECT_EQ(values(), (Texts{"101.000000", "202.000000", "303.000000"}));
  EXPECT_EQ(replay.askedFor, KEPIMfgActivity_var(operation).Get());
}

TEST_F(ToolSetting, ReferenceCompensationOfALatheAssemblyGivesTheReferencePoint) {
  assemblyObject->add<TestLatheAssembly>();
  auto& reference = assemblyObject->add<TestReference>();
  reference.number = 4;
  EXPECT_EQ(values(), (Texts{"91.000000", "192.000000", "293.000000"}));
  reference.status = E_FAIL;
  EXPECT_EQ(values(), (Texts{"101.000000", "202.000000", "303.000000"}));
  reference.status = S_OK;
  for (const int number : {0, -1}) {
    reference.number = number;
    EXPECT_EQ(values(), settings) << number;
  }
}

TEST_F(ToolSetting, ReferenceCompensationOfAnotherAssemblyIsNotAsked) {
  assemblyObject->add<TestReference>().number = 4;
  EXPECT_EQ(values(), (Texts{"101.000000", "202.000000", "303.000000"}));
}

TEST_F(ToolSetting, WithoutCorrectorThereIsNoOffset) {
  for (const int number : {0, -1}) {
    setCorrector(number);
    EXPECT_EQ(values(), settings) << number;
  }
}

TEST_F(ToolSetting, ToolWithoutReplayHasNoOffset) {
  its.tool = object();
  EXPECT_EQ(values(), settings);
  its.tool = nullptr;
  EXPECT_EQ(values(), settings);
}

TEST_F(ToolSetting, PositionThatCannotBeToldIsZero) {
  replay.positions = {{9, {10, 20, 30}}};
  EXPECT_EQ(values(), (Texts{"90.000000", "180.000000", "270.000000"}));
  replay.positions = {{1, {10, 20, 30}}};
  EXPECT_EQ(values(), (Texts{"110.000000", "220.000000", "330.000000"}));
}

TEST_F(ToolSetting, OffsetIsExpressedInTheTurningAxes) {
  auto& frame = operation->add<TestTurningEnvironment>();
  // third direction X, first direction Y, so that the second one is Z
  frame.itsThird = {1, 0, 0};
  frame.itsFirst = {0, 1, 0};
  EXPECT_EQ(values(), (Texts{"102.000000", "203.000000", "301.000000"}));
  EXPECT_EQ(frame.presetThird, (KEPMathVector{1, 0, 0}));
  EXPECT_EQ(frame.presetFirst, (KEPMathVector{1, 0, 0}));
}

TEST_F(ToolSetting, AxesThatAreNotOrthogonalUnitVectorsAreInvertedAsTheyAre) {
  auto& frame = operation->add<TestTurningEnvironment>();
  // columns (2, 0, 0), (0, 8, 0), (1, 0, 4): x = 2 a + c, y = 8 b, z = 4 c
  frame.itsThird = {1, 0, 4};
  frame.itsFirst = {2, 0, 0};
  // c = 0.75, b = 0.25, a = 0.125
  EXPECT_EQ(values(), (Texts{"100.125000", "200.250000", "300.750000"}));
}

TEST_F(ToolSetting, AxesThatAreSingularOrMissingLeaveTheOffset) {
  auto& frame = operation->add<TestTurningEnvironment>();
  const Texts offset{"101.000000", "202.000000", "303.000000"};
  frame.itsThird = frame.itsFirst = {0, 1, 0};
  EXPECT_EQ(values(), offset);
  frame.itsThird = {0, 0, 0};
  EXPECT_EQ(values(), offset);
  frame.status = E_FAIL;
  EXPECT_EQ(values(), offset);
}

TEST_F(ToolSetting, SettingThatIsNotThereIsZero) {
  dimensions.values.erase("MFG_TL_SET_X");
  dimensions.text("MFG_TL_SET_Y", "7").integer("MFG_TL_SET_Z", 7);
  EXPECT_EQ(values(), (Texts{"1.000000", "2.000000", "10.000000"}));
  its.assembly = object();
  EXPECT_EQ(values(), (Texts{"1.000000", "2.000000", "3.000000"}));
  its.assembly = nullptr;
  EXPECT_EQ(values(), (Texts{"1.000000", "2.000000", "3.000000"}));
}

TEST_F(ToolSetting, ActivityWithoutToolAndAssemblyHasZeros) {
  setActivity(newActivity());
  EXPECT_EQ(values(), (Texts{"0.000000", "0.000000", "0.000000"}));
}

TEST_F(ToolSetting, NumbersArePrintedWithSixDecimalsAndNoSnap) {
  setCorrector(0);
  dimensions.real("MFG_TL_SET_X", 0.0000009).real("MFG_TL_SET_Y", -1e-9);
  setFormat("MFG_CMP_TL_SET_Z", "%.1f");
  EXPECT_EQ(values(), (Texts{"0.000001", "-0.000000", "300.000000"}));
}

TEST_F(ToolSetting, NegativeZeroStaysWhereNoOffsetIsApplied) {
  dimensions.real("MFG_TL_SET_X", -0.0).real("MFG_TL_SET_Y", -0.0).real("MFG_TL_SET_Z", -0.0);
  const Texts negative{"-0.000000", "-0.000000", "-0.000000"};
  setCorrector(0);
  EXPECT_EQ(values(), negative);
  setCorrector(1);
  assemblyObject->add<TestLatheAssembly>();
  assemblyObject->add<TestReference>().number = 0;
  EXPECT_EQ(values(), negative);
}

TEST_F(ToolSetting, NegativeZeroGoesWhereTheOffsetIsZero) {
  dimensions.real("MFG_TL_SET_X", -0.0);
  replay.positions[1] = replay.positions[9];
  EXPECT_EQ(values(), (Texts{"0.000000", "200.000000", "300.000000"}));
}

TEST_F(ToolSetting, ValueThatIsNotFiniteIsASuccessThatLeavesTheText) {
  dimensions.real("MFG_TL_SET_X", std::numeric_limits<double>::infinity());
  dimensions.real("MFG_TL_SET_Y", std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(values(), (Texts{kUntouched, kUntouched, "303.000000"}));
}

TEST_F(ToolSetting, WithoutActivityOrContainerItIsASuccessThatLeavesTheText) {
  words->SetObjects(nullptr);
  EXPECT_EQ(values(), (Texts{kUntouched, kUntouched, kUntouched}));
  setActivity(operation);
  for (const char* name : {"MFG_CMP_TL_SET_X", "MFG_CMP_TL_SET_Y", "MFG_CMP_TL_SET_Z"}) {
    EXPECT_EQ(valueOutside(name), kUntouched) << name;
  }
}

TEST_F(ToolSetting, WithoutCorrectorBufferThereIsNoOffset) {
  moveTo(BareWords(*document, {}));
  for (const char* name : {"MFG_CMP_TL_SET_X", "MFG_CMP_TL_SET_Y", "MFG_CMP_TL_SET_Z"}) {
    make(name, "");
  }
  setActivity(operation);
  EXPECT_EQ(values(), settings);
}

}  // namespace
}  // namespace ppword::test
