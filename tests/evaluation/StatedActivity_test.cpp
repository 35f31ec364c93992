#include "KEPIMfgBufferCorrectorNumber.h"
#include "tests/evaluation/Evaluations.h"

// What the host's own activities answer to evaluations, where a kind and its values differ.

namespace ppword::test {
namespace {

class StatedActivity : public Evaluations {
 protected:
  StatedActivity() {
    setList("MFG_SPNDL_WAY", {"CLW", "CCLW"});
    for (const char* name : {"MFG_CMP_NOSE_RADIUS", "MFG_CMP_TL_SET_X"}) {
      make(name, "MfgPPParameter");
    }
    values.name = "Drilling.1";
    values.kind = host::ActivityKind::SequentialAxial;
  }

  [[nodiscard]] std::string printed(std::string_view name) const {
    words->SetObjects(host::Activity::create(values));
    return value(name);
  }
  /// A groove insert in a milling assembly; the tool knows the points of two correctors.
  host::ToolAssemblyValues& grooveAssembly() {
    values.tool.emplace().compensation = {{1, "P9"}, {2, "P1"}};
    auto& assembly = values.assembly.emplace();
    assembly.insert = {"MfgGrooveInsert",
                       {},
                       {{"MfgLeftNoseRadius", host::realValue(0.2)},
                        {"MfgRightNoseRadius", host::realValue(0.4)}}};
    return assembly;
  }

  host::ActivityValues values;
};

TEST_F(StatedActivity, WayOfAnAxialOperationComesBeforeThatOfItsMotion) {
  host::FeedrateValues local;
  local.attributes = {{"MfgSpindleSpeedType", host::textValue("MfgSpindleSpeedLocal")},
                      {"MfgSpindleWayOfRotation", host::textValue("MfgSpindleCLW")}};
  values.motions = {{local, {}}};
  setMotionNumber(1);
  EXPECT_EQ(printed("MFG_SPNDL_WAY"), "CLW");
  values.lathe.emplace();
  EXPECT_EQ(printed("MFG_SPNDL_WAY"), "CLW");
  values.lathe->way = -1;
  EXPECT_EQ(printed("MFG_SPNDL_WAY"), "CCLW");
  setMotionNumber(2);
  EXPECT_EQ(printed("MFG_SPNDL_WAY"), "CCLW");
  values.lathe.reset();
  EXPECT_EQ(printed("MFG_SPNDL_WAY"), kNoValue);
}

TEST_F(StatedActivity, ToolChangeHasTheWayOfItsAxialOperation) {
  values.lathe = {-1, {}, {}};
  const auto axial = std::make_shared<const host::ActivityValues>(values);
  values = {};
  values.kind = host::ActivityKind::ToolChange;
  values.operation = axial;
  EXPECT_EQ(printed("MFG_SPNDL_WAY"), "CCLW");
}

TEST_F(StatedActivity, CorrectorsOfAnAxialOperationNameThePoint) {
  grooveAssembly();
  KEPIMfgBufferCorrectorNumber_var(words)->SetNumber(2);
  EXPECT_EQ(printed("MFG_CMP_NOSE_RADIUS"), "0.400000");
  values.lathe = {{}, {{2, "P3"}}, {}};
  EXPECT_EQ(printed("MFG_CMP_NOSE_RADIUS"), "0.200000");
}

TEST_F(StatedActivity, ReferenceOfAMillingAssemblyIsItsCorrector) {
  auto& assembly = grooveAssembly();
  EXPECT_EQ(printed("MFG_CMP_NOSE_RADIUS"), "0.200000");
  assembly.reference = 2;
  EXPECT_EQ(printed("MFG_CMP_NOSE_RADIUS"), "0.400000");
}

TEST_F(StatedActivity, RadiiOfAMillingAssemblyReplaceThoseOfAGrooveInsert) {
  auto& assembly = grooveAssembly();
  assembly.radii = {{"P9", 0.21}};
  EXPECT_EQ(printed("MFG_CMP_NOSE_RADIUS"), "0.210000");
  assembly.insert = {"MfgDiamondInsert", {}, {{"MfgNoseRadius", host::realValue(0.8)}}};
  EXPECT_EQ(printed("MFG_CMP_NOSE_RADIUS"), "0.800000");
}

TEST_F(StatedActivity, SettingValuesOfAMillingAssemblyReferToPoint9) {
  values.tool.emplace().replay = {{1, {3, 0, 0}}, {4, {10, 0, 0}}, {9, {1, 0, 0}}};
  auto& assembly = values.assembly.emplace();
  assembly.parameters = {{"MFG_TL_SET_X", host::realValue(62.5)}};
  assembly.reference = 4;
  KEPIMfgBufferCorrectorNumber_var(words)->SetNumber(1);
  EXPECT_EQ(printed("MFG_CMP_TL_SET_X"), "64.500000");
  assembly.isLathe = true;
  EXPECT_EQ(printed("MFG_CMP_TL_SET_X"), "55.500000");
}

}  // namespace
}  // namespace ppword::test
