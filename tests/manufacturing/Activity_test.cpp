#include "host/manufacturing/Activity.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Manufacturing/KEPIMfgInsert.h"
#include "Manufacturing/KEPIMfgLatheOperation.h"
#include "Manufacturing/KEPIMfgResource.h"
#include "Manufacturing/KEPIMfgSequentialMotions.h"
#include "Manufacturing/KEPIMfgTool.h"
#include "Manufacturing/KEPIMfgToolAssembly.h"
#include "Manufacturing/KEPIMfgToolChange.h"
#include "Manufacturing/KEPIMfgToolPath.h"
#include "Manufacturing/KEPIMfgTurningEnvironment.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "host/system/Dictionary.h"

namespace host::test {
namespace {

ActivityValues valuesOf(ActivityKind kind) {
  ActivityValues values;
  values.name = "A.1";
  values.kind = kind;
  return values;
}

/// Everything that an activity can be told, for whatever kind.
ActivityValues fullValues(ActivityKind kind) {
  ActivityValues values = valuesOf(kind);
  values.operation = std::make_shared<const ActivityValues>(valuesOf(ActivityKind::Machining));
  values.feedsAndSpeeds.emplace();
  values.strategy.emplace();
  values.toolPath.emplace();
  values.turning.emplace();
  values.motions.emplace();
  return values;
}

template <class Interface>
bool offers(const KEPBaseUnknown_var& object) {
  return static_cast<bool>(KEPVar<Interface>(object));
}

/// A word for each interface that an activity offers.
std::string offered(const KEPBaseUnknown_var& activity) {
  const std::pair<bool, const char*> interfaces[] = {
      {offers<KEPIMfgActivity>(activity), "activity"},
      {offers<KEPIMfgToolChange>(activity), " change"},
      {offers<KEPIMfgMachiningOperation>(activity), " operation"},
      {offers<KEPIMfgFeedrateParameters>(activity), " feeds"},
      {offers<KEPIMfgStrategyParameters>(activity), " strategy"},
      {offers<KEPIMfgToolPathManagement>(activity), " path"},
      {offers<KEPIMfgTurningEnvironment>(activity), " turning"},
      {offers<KEPIMfgLatheOperation>(activity), " lathe"},
      {offers<KEPIMfgSequentialMotions>(activity), " motions"}};
  std::string words;
  for (const auto& [isOffered, word] : interfaces) words += isOffered ? word : "";
  return words;
}

struct KindCase {
  ActivityKind kind;
  std::vector<std::string_view> types;
  std::string_view interfaces;
};

const std::vector<KindCase>& kinds() {
  static const std::vector<KindCase> cases{
      {ActivityKind::Plain, {"MfgActivity"}, "activity"},
      {ActivityKind::ToolChange, {"MfgToolChange", "MfgActivity"}, "activity change"},
      {ActivityKind::Machining,
       {"MfgMachiningOperation", "MfgActivity"},
       "activity operation feeds strategy path turning"},
      {ActivityKind::Lathe,
       {"MfgLatheOperation", "MfgMachiningOperation", "MfgActivity"},
       "activity operation feeds strategy path turning lathe"},
      {ActivityKind::SequentialAxial,
       {"MfgSequentialAxialOperation", "MfgMachiningOperation", "MfgActivity"},
       "activity operation feeds strategy path turning motions"},
      {ActivityKind::SequentialGroove,
       {"MfgSequentialGrooveOperation", "MfgLatheOperation", "MfgMachiningOperation",
        "MfgActivity"},
       "activity operation feeds strategy path turning lathe motions"},
  };
  return cases;
}

constexpr std::string_view kAllTypes[] = {"MfgActivity",
                                          "MfgToolChange",
                                          "MfgMachiningOperation",
                                          "MfgLatheOperation",
                                          "MfgSequentialAxialOperation",
                                          "MfgSequentialGrooveOperation",
                                          "MfgTool"};

TEST(Activity, KindTellsTheLateTypes) {
  for (const KindCase& kind : kinds()) {
    const KEPVar<Activity> activity = Activity::create(valuesOf(kind.kind));
    for (const std::string_view type : kAllTypes) {
      const bool isOne = std::find(kind.types.begin(), kind.types.end(), type) != kind.types.end();
      EXPECT_EQ(activity->IsAKindOf(type), isOne) << kind.types.front() << ' ' << type;
    }
  }
}

TEST(Activity, KindTellsTheInterfaces) {
  for (const KindCase& kind : kinds()) {
    const KEPVar<Activity> activity = Activity::create(fullValues(kind.kind));
    EXPECT_EQ(offered(activity), kind.interfaces) << kind.types.front();
  }
}

TEST(Activity, WhatIsNotStatedIsNotOffered) {
  const auto operation = Activity::create(valuesOf(ActivityKind::SequentialGroove));
  EXPECT_EQ(offered(operation), "activity operation path lathe");
  const auto toolChange = Activity::create(valuesOf(ActivityKind::ToolChange));
  EXPECT_EQ(offered(toolChange), "activity change");
}

TEST(Activity, OperationThatStatesLatheValuesIsATurningOperationToo) {
  const std::pair<ActivityKind, std::string_view> operations[] = {
      {ActivityKind::Plain, "activity"},
      {ActivityKind::ToolChange, "activity change"},
      {ActivityKind::Machining, "activity operation path lathe"},
      {ActivityKind::Lathe, "activity operation path lathe"},
      {ActivityKind::SequentialAxial, "activity operation path lathe"},
      {ActivityKind::SequentialGroove, "activity operation path lathe"}};
  for (const auto& [kind, interfaces] : operations) {
    ActivityValues values = valuesOf(kind);
    values.lathe.emplace();
    EXPECT_EQ(offered(Activity::create(values)), interfaces) << static_cast<int>(kind);
  }
}

TEST(Activity, LatheValuesDoNotChangeTheLateTypes) {
  ActivityValues values = valuesOf(ActivityKind::SequentialAxial);
  values.lathe.emplace();
  const KEPVar<Activity> activity = Activity::create(values);
  EXPECT_TRUE(activity->IsAKindOf("MfgSequentialAxialOperation"));
  EXPECT_FALSE(activity->IsAKindOf("MfgLatheOperation"));
}

TEST(Activity, AskingTwiceGivesTheSameObject) {
  const auto activity = Activity::create(fullValues(ActivityKind::SequentialGroove));
  const KEPIMfgSequentialMotions_var first = activity;
  const KEPIMfgSequentialMotions_var second = activity;
  EXPECT_EQ(first.Get(), second.Get());
  EXPECT_EQ(first->GetImpl(), activity->GetImpl());
}

TEST(Activity, ExtensionsAreFoundThroughTheDictionary) {
  const auto activity = Activity::create(fullValues(ActivityKind::Lathe));
  const KEPIMfgLatheOperation_var lathe = activity;
  const auto* const interfaceClass = KEPInterfaceId<KEPIMfgLatheOperation>();
  EXPECT_NE(findCreator("MfgLatheOperation", interfaceClass), nullptr);
  EXPECT_EQ(findCreator("MfgActivity", interfaceClass), nullptr);
  ASSERT_NE(lathe->GetMetaObject(), nullptr);
  EXPECT_EQ(lathe->GetMetaObject()->GetName(), "LatheOperation");
  EXPECT_EQ(lathe->GetMetaObject()->GetBase(), interfaceClass);
  EXPECT_EQ(lathe->GetMetaObject()->GetFramework(), "Manufacturing");
}

TEST(Activity, OneClassExtendsBothSequentialKinds) {
  const auto activity = Activity::create(fullValues(ActivityKind::SequentialAxial));
  const KEPIMfgSequentialMotions_var motions = activity;
  const std::vector<std::string> expected{"MfgSequentialAxialOperation",
                                          "MfgSequentialGrooveOperation"};
  EXPECT_EQ(motions->GetMetaObject()->GetLateTypes(), expected);
}

TEST(Activity, CreatorOfTheModelExtendsNoOtherComponent) {
  const auto activity = Activity::create(fullValues(ActivityKind::Lathe));
  EXPECT_TRUE(offers<KEPIMfgFeedrateParameters>(activity));
  KEPBaseUnknown stranger;
  const auto creatorOf = [](std::string_view type, const KEPMetaClass* interfaceClass) {
    return findCreator(type, interfaceClass);
  };
  EXPECT_EQ(
      creatorOf("MfgMachiningOperation", KEPInterfaceId<KEPIMfgFeedrateParameters>())(&stranger),
      nullptr);
  EXPECT_EQ(creatorOf("MfgTool", KEPInterfaceId<KEPIMfgTool>())(&stranger), nullptr);
  EXPECT_EQ(creatorOf("MfgInsert", KEPInterfaceId<KEPIMfgResource>())(&stranger), nullptr);
}

TEST(Activity, HandlesOnItsObjectsKeepItAlive) {
  KEPIMfgFeedrateParameters_var parameters;
  {
    ActivityValues values = fullValues(ActivityKind::Machining);
    values.feedsAndSpeeds->attributes = {{"MfgSpindleSpeedType", textValue("X")}};
    parameters = Activity::create(std::move(values));
  }
  EXPECT_EQ(parameters->GetReferenceCount(), 1);
  KEPMfgParameterValue value;
  EXPECT_EQ(parameters->GetValue("MfgSpindleSpeedType", value), 0);
  EXPECT_EQ(value.text, KEPUnicodeString("X"));
}

TEST(Activity, WithoutToolAndAssemblyBothAreNull) {
  const auto activity = Activity::create(valuesOf(ActivityKind::Machining));
  KEPBaseUnknown_var tool = activity;
  KEPBaseUnknown_var assembly = activity;
  EXPECT_EQ(activity->GetToolAndAssembly(tool, assembly), E_FAIL);
  EXPECT_FALSE(tool);
  EXPECT_FALSE(assembly);
}

TEST(Activity, ToolAndAssemblyAreToldTogether) {
  ActivityValues values = valuesOf(ActivityKind::Plain);
  values.tool.emplace();
  values.assembly.emplace();
  const auto activity = Activity::create(values);
  KEPBaseUnknown_var tool;
  KEPBaseUnknown_var assembly;
  EXPECT_EQ(activity->GetToolAndAssembly(tool, assembly), S_OK);
  EXPECT_TRUE(offers<KEPIMfgTool>(tool));
  EXPECT_TRUE(tool->IsAKindOf("MfgTool"));
  EXPECT_TRUE(offers<KEPIMfgToolAssembly>(assembly));
  EXPECT_TRUE(assembly->IsAKindOf("MfgToolAssembly"));
  EXPECT_FALSE(assembly->IsAKindOf("MfgLatheToolAssembly"));
}

TEST(Activity, ToolAloneIsEnough) {
  ActivityValues values = valuesOf(ActivityKind::ToolChange);
  values.tool.emplace();
  KEPBaseUnknown_var tool;
  KEPBaseUnknown_var assembly;
  EXPECT_EQ(Activity::create(values)->GetToolAndAssembly(tool, assembly), S_OK);
  EXPECT_TRUE(tool);
  EXPECT_FALSE(assembly);
}

/// Who carries a parameter, by one that only this object has.
std::string_view ownerOf(const KEPVar<Activity>& activity, std::string_view name) {
  KEPBaseUnknown_var object;
  const HRESULT status = KEPMfgModelUtilities::GetV5ObjectFromV4Parameter(activity, name, object);
  EXPECT_EQ(KEPSucceeded(status), static_cast<bool>(object)) << name;
  if (!object) return "nobody";
  if (offers<KEPIMfgActivity>(object)) return "activity";
  if (offers<KEPIMfgTool>(object)) return "tool";
  if (offers<KEPIMfgToolAssembly>(object)) return "assembly";
  return offers<KEPIMfgInsert>(object) ? "insert" : "?";
}

TEST(Activity, ParameterIsFoundOnActivityToolAssemblyAndInsertInThisOrder) {
  ActivityValues values = valuesOf(ActivityKind::Lathe);
  values.customParameters = {{"A", textValue("custom")}};
  values.parameters = {{"B", textValue("own")}};
  values.tool.emplace().parameters = {{"A", textValue("t")}, {"C", textValue("t")}};
  values.assembly.emplace().parameters = {{"C", textValue("a")}, {"D", textValue("a")}};
  values.assembly->insert.emplace().parameters = {{"D", textValue("i")}, {"E", textValue("i")}};
  const auto activity = Activity::create(values);
  EXPECT_EQ(ownerOf(activity, "A"), "activity");
  EXPECT_EQ(ownerOf(activity, "B"), "activity");
  EXPECT_EQ(ownerOf(activity, "C"), "tool");
  EXPECT_EQ(ownerOf(activity, "D"), "assembly");
  EXPECT_EQ(ownerOf(activity, "E"), "insert");
  EXPECT_EQ(ownerOf(activity, "F"), "nobody");
}

TEST(Activity, ParameterOfAToolIsReadThroughTheToolsOwnTable) {
  ActivityValues values = valuesOf(ActivityKind::Plain);
  values.tool.emplace().parameters = {{"MFG_NOMINAL_DIAM", realValue(8.5)}};
  const auto activity = Activity::create(values);
  const KEPIMfgV4ToV5Parameters_var table = activity->ownerOf("MFG_NOMINAL_DIAM");
  KEPMfgParameterValue value;
  EXPECT_EQ(table->GetValue("MFG_NOMINAL_DIAM", value), 0);
  EXPECT_EQ(value.real, 8.5);
  EXPECT_NE(table->GetValue("MFG_NOMINAL", value), 0);
}

}  // namespace
}  // namespace host::test
