#include <gtest/gtest.h>

#include "Manufacturing/KEPIMfgInsert.h"
#include "Manufacturing/KEPIMfgResource.h"
#include "Manufacturing/KEPIMfgTool.h"
#include "Manufacturing/KEPIMfgToolAssembly.h"
#include "Manufacturing/KEPMfgNames.h"
#include "host/manufacturing/Activity.h"

namespace host::test {
namespace {

KEPBaseUnknown_var toolOf(ToolValues tool) {
  ActivityValues values;
  values.tool = std::move(tool);
  KEPBaseUnknown_var object;
  KEPBaseUnknown_var assembly;
  EXPECT_EQ(Activity::create(values)->GetToolAndAssembly(object, assembly), S_OK);
  return object;
}

KEPBaseUnknown_var assemblyOf(ToolAssemblyValues assembly) {
  ActivityValues values;
  values.assembly = std::move(assembly);
  KEPBaseUnknown_var tool;
  KEPBaseUnknown_var object;
  EXPECT_EQ(Activity::create(values)->GetToolAndAssembly(tool, object), S_OK);
  return object;
}

TEST(Tool, GivesItsParameters) {
  const KEPIMfgTool_var tool = toolOf({{{"MFG_WAY_OF_ROT", textValue(MfgRightHand)}}, {}, {}});
  KEPMfgParameterValue value;
  EXPECT_EQ(tool->GetValue("MFG_WAY_OF_ROT", value), 0);
  EXPECT_EQ(value.kind, KEPMfgParameterValue::kText);
  EXPECT_EQ(value.text, KEPUnicodeString("MfgRightHand"));
  EXPECT_NE(tool->GetValue("MFG_NOMINAL_DIAM", value), 0);
}

TEST(Tool, OffersCompensationAndReplayOnlyWhereGiven) {
  const KEPBaseUnknown_var bare = toolOf({});
  EXPECT_FALSE(KEPIMfgToolCompensation_var(bare));
  EXPECT_FALSE(KEPIMfgToolCompensationValueReplay_var(bare));
}

TEST(Tool, CompensationGivesTheOutputPointOfACorrector) {
  const KEPIMfgToolCompensation_var compensation =
      toolOf({{}, std::map<int, std::string>{{1, "P9"}, {2, "P1"}}, {}});
  KEPUnicodeString point("kept");
  EXPECT_EQ(compensation->GetOutputPoint(0, point), E_FAIL);
  EXPECT_EQ(point, KEPUnicodeString("kept"));
  EXPECT_EQ(compensation->GetOutputPoint(2, point), S_OK);
  EXPECT_EQ(point, KEPUnicodeString("P1"));
}

TEST(Tool, ReplayGivesThePositionOfAPoint) {
  const KEPIMfgToolCompensationValueReplay_var replay =
      toolOf({{}, {}, std::map<int, KEPMathVector>{{9, {0, 0, 0}}, {3, {1.5, 0, -2}}}});
  KEPMathVector position{7, 7, 7};
  EXPECT_EQ(replay->GetPosition(nullptr, 4, position), E_FAIL);
  EXPECT_EQ(position, (KEPMathVector{7, 7, 7}));
  EXPECT_EQ(replay->GetPosition(nullptr, 3, position), S_OK);
  EXPECT_EQ(position, (KEPMathVector{1.5, 0, -2}));
}

TEST(ToolAssembly, GivesItsAttributesAndGeometricParameters) {
  ToolAssemblyValues values;
  values.attributes = {{std::string(MfgInvertedAssembly), integerValue(1)}};
  values.parameters = {{"MFG_TL_SET_X", realValue(62.5)}};
  const KEPIMfgToolAssembly_var assembly = assemblyOf(values);
  KEPMfgParameterValue value;
  EXPECT_EQ(assembly->GetValue(MfgInvertedAssembly, value), 0);
  EXPECT_EQ(value.integer, 1);
  EXPECT_NE(assembly->GetValue("MFG_TL_SET_X", value), 0);
  EXPECT_EQ(KEPIMfgGeomParameters_var(assembly)->GetValue("MFG_TL_SET_X", value), 0);
  EXPECT_EQ(value.real, 62.5);
  EXPECT_NE(KEPIMfgGeomParameters_var(assembly)->GetValue("MFG_TL_SET_Y", value), 0);
  EXPECT_FALSE(assembly->GetInsert());
}

TEST(ToolAssembly, OnlyThatOfATurningToolIsALatheAssembly) {
  ToolAssemblyValues values;
  values.reference = 9;
  values.radii.emplace();
  const KEPBaseUnknown_var milling = assemblyOf(values);
  EXPECT_FALSE(milling->IsAKindOf("MfgLatheToolAssembly"));
  EXPECT_FALSE(KEPIMfgLatheToolAssembly_var(milling));
  EXPECT_TRUE(KEPIMfgLatheRefCompensation_var(milling));
  EXPECT_TRUE(KEPIMfgLatheToolInsertUtilities_var(milling));
  values.isLathe = true;
  const KEPBaseUnknown_var turning = assemblyOf(values);
  EXPECT_TRUE(turning->IsAKindOf("MfgLatheToolAssembly"));
  EXPECT_TRUE(turning->IsAKindOf("MfgToolAssembly"));
  EXPECT_TRUE(KEPIMfgToolAssembly_var(turning));
  EXPECT_TRUE(KEPIMfgLatheToolAssembly_var(turning));
  EXPECT_TRUE(KEPIMfgLatheRefCompensation_var(turning));
  EXPECT_TRUE(KEPIMfgLatheToolInsertUtilities_var(turning));
}

TEST(ToolAssembly, WithoutReferenceAndRadiiOffersNeither) {
  for (const bool isLathe : {false, true}) {
    ToolAssemblyValues values;
    values.isLathe = isLathe;
    const KEPBaseUnknown_var assembly = assemblyOf(values);
    EXPECT_EQ(static_cast<bool>(KEPIMfgLatheToolAssembly_var(assembly)), isLathe);
    EXPECT_FALSE(KEPIMfgLatheRefCompensation_var(assembly));
    EXPECT_FALSE(KEPIMfgLatheToolInsertUtilities_var(assembly));
  }
}

TEST(ToolAssembly, OffersReferenceAndRadiiEachByItself) {
  ToolAssemblyValues values;
  values.reference = 9;
  EXPECT_FALSE(KEPIMfgLatheToolInsertUtilities_var(assemblyOf(values)));
  values.reference.reset();
  values.radii.emplace();
  EXPECT_FALSE(KEPIMfgLatheRefCompensation_var(assemblyOf(values)));
}

TEST(ToolAssembly, TellsItsReference) {
  for (const bool isLathe : {false, true}) {
    ToolAssemblyValues values;
    values.isLathe = isLathe;
    values.reference = 3;
    int number = 0;
    EXPECT_EQ(KEPIMfgLatheRefCompensation_var(assemblyOf(values))->GetNumber(number), S_OK);
    EXPECT_EQ(number, 3);
  }
}

TEST(ToolAssembly, TellsTheRadiusAtAPoint) {
  ToolAssemblyValues values;
  values.radii = {{"P3", 0.21}, {"P9", 0.4}};
  const KEPIMfgLatheToolInsertUtilities_var utilities = assemblyOf(values);
  double radius = 7;
  EXPECT_EQ(utilities->GetRadius(nullptr, "P1", radius), E_FAIL);
  EXPECT_EQ(radius, 7);
  EXPECT_EQ(utilities->GetRadius(nullptr, "P3", radius), S_OK);
  EXPECT_EQ(radius, 0.21);
}

TEST(Insert, GivesTypeDimensionsAndParameters) {
  ToolAssemblyValues values;
  values.insert = {"MfgGrooveInsert",
                   {{"MFG_NOSE_RADIUS", realValue(0.4)}},
                   {{std::string(MfgLeftNoseRadius), realValue(0.2)}}};
  const KEPBaseUnknown_var insert = KEPIMfgToolAssembly_var(assemblyOf(values))->GetInsert();
  EXPECT_TRUE(insert->IsAKindOf("MfgInsert"));
  EXPECT_EQ(KEPIMfgResource_var(insert)->GetResourceType(), KEPUnicodeString("MfgGrooveInsert"));
  KEPUnicodeString text("kept");
  EXPECT_EQ(KEPIMfgResource_var(insert)->GetValue("MfgPPWordTable", text), E_FAIL);
  EXPECT_EQ(text, KEPUnicodeString("kept"));
  KEPMfgParameterValue value;
  EXPECT_EQ(KEPIMfgInsert_var(insert)->GetValue(MfgLeftNoseRadius, value), 0);
  EXPECT_EQ(value.real, 0.2);
  EXPECT_NE(KEPIMfgInsert_var(insert)->GetValue(MfgRightNoseRadius, value), 0);
  EXPECT_EQ(KEPIMfgV4ToV5Parameters_var(insert)->GetValue("MFG_NOSE_RADIUS", value), 0);
  EXPECT_EQ(value.real, 0.4);
}

}  // namespace
}  // namespace host::test
