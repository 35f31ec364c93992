#include <gtest/gtest.h>

#include "Knowledge/KEPICkeParm.h"
#include "Manufacturing/KEPIMfgLatheOperation.h"
#include "Manufacturing/KEPIMfgSequentialMotions.h"
#include "Manufacturing/KEPIMfgToolChange.h"
#include "Manufacturing/KEPIMfgToolPath.h"
#include "Manufacturing/KEPIMfgTurningEnvironment.h"
#include "Manufacturing/KEPMfgNames.h"
#include "host/manufacturing/Activity.h"

namespace host::test {
namespace {

ActivityValues operationValues(ActivityKind kind) {
  ActivityValues values;
  values.name = "Operation.1";
  values.kind = kind;
  return values;
}

std::string textOf(const KEPMfgNamedValues& values, std::string_view name) {
  KEPMfgParameterValue value;
  return values.GetValue(name, value) == 0 ? std::string(value.text.View()) : "absent";
}

TEST(FeedrateParameters, GiveTheTwoKnowledgeParameters) {
  ActivityValues values = operationValues(ActivityKind::Machining);
  values.feedsAndSpeeds = {{{"0.25", "ANGULARFEEDRATE"}}, {{"180", "LINEARSPINDLESPEED"}}, {}};
  const KEPIMfgFeedrateParameters_var parameters = Activity::create(values);
  const KEPICkeParm_var feed = parameters->GetParameter(Mfg_MachiningFeedrateValue);
  const KEPICkeParm_var speed = parameters->GetParameter(Mfg_SpindleSpeedValue);
  EXPECT_EQ(feed->GetValueText(), KEPUnicodeString("0.25"));
  EXPECT_EQ(feed->GetType()->GetName(), KEPUnicodeString("ANGULARFEEDRATE"));
  EXPECT_EQ(speed->GetValueText(), KEPUnicodeString("180"));
  EXPECT_EQ(speed->GetType()->GetName(), KEPUnicodeString("LINEARSPINDLESPEED"));
  EXPECT_FALSE(parameters->GetParameter("Mfg_ApproachFeedrateValue"));
}

TEST(FeedrateParameters, AbsentOnesAreNull) {
  ActivityValues values = operationValues(ActivityKind::Machining);
  values.feedsAndSpeeds.emplace();
  const KEPIMfgFeedrateParameters_var parameters = Activity::create(values);
  EXPECT_FALSE(parameters->GetParameter(Mfg_MachiningFeedrateValue));
  EXPECT_FALSE(parameters->GetParameter(Mfg_SpindleSpeedValue));
  KEPMfgParameterValue value = textValue("kept");
  EXPECT_NE(parameters->GetValue("MfgSpindleSpeedType", value), 0);
  EXPECT_EQ(value.text, KEPUnicodeString("kept"));
}

TEST(StrategyParameters, GiveTheDwellMode) {
  ActivityValues values = operationValues(ActivityKind::Machining);
  values.strategy = {{std::string(MfgDwellMode), textValue(MfgDwellTime)}};
  const KEPIMfgStrategyParameters_var parameters = Activity::create(values);
  EXPECT_EQ(textOf(*parameters, "MfgDwellMode"), "MfgDwellTime");
  EXPECT_EQ(textOf(*parameters, "MfgSpindleDwellMode"), "absent");
}

TEST(ToolPath, OperationWithoutOneFails) {
  const KEPIMfgToolPathManagement_var paths =
      Activity::create(operationValues(ActivityKind::Machining));
  KEPIMfgTraject_var path;
  EXPECT_EQ(paths->GetToolPath(path), E_FAIL);
  EXPECT_FALSE(path);
}

TEST(ToolPath, TellsItsType) {
  ActivityValues values = operationValues(ActivityKind::Machining);
  values.toolPath = {2};
  const KEPIMfgToolPathManagement_var paths = Activity::create(values);
  KEPIMfgTraject_var path;
  EXPECT_EQ(paths->GetToolPath(path), S_OK);
  EXPECT_TRUE(path->IsAKindOf("MfgToolPath"));
  bool known = false;
  int type = 0;
  EXPECT_EQ(path->GetType(known, type), S_OK);
  EXPECT_TRUE(known);
  EXPECT_EQ(type, 2);
}

TEST(ToolPath, TypeThatIsNotKnownIsLeftAlone) {
  ActivityValues values = operationValues(ActivityKind::Machining);
  values.toolPath.emplace();
  const KEPIMfgToolPathManagement_var paths = Activity::create(values);
  KEPIMfgTraject_var path;
  EXPECT_EQ(paths->GetToolPath(path), S_OK);
  bool known = true;
  int type = 7;
  EXPECT_EQ(path->GetType(known, type), S_OK);
  EXPECT_FALSE(known);
  EXPECT_EQ(type, 7);
}

TEST(TurningEnvironment, GivesOriginThirdAndFirstDirection) {
  ActivityValues values = operationValues(ActivityKind::Lathe);
  values.turning = {{1, 2, 3}, {0, 0, 1}, {0, 1, 0}};
  const KEPIMfgTurningEnvironment_var environment = Activity::create(values);
  KEPMathVector origin;
  KEPMathVector third;
  KEPMathVector first;
  EXPECT_EQ(environment->GetAxisSystem(origin, third, first), S_OK);
  EXPECT_EQ(origin, (KEPMathVector{1, 2, 3}));
  EXPECT_EQ(third, (KEPMathVector{0, 0, 1}));
  EXPECT_EQ(first, (KEPMathVector{0, 1, 0}));
}

KEPIMfgLatheOperation_var latheOperation(LatheValues lathe) {
  ActivityValues values = operationValues(ActivityKind::Lathe);
  values.lathe = std::move(lathe);
  return Activity::create(values);
}

TEST(LatheOperation, TellsItsWayOfRotation) {
  int code = 5;
  EXPECT_EQ(latheOperation({})->GetWayOfRotation(code), E_FAIL);
  EXPECT_EQ(code, 5);
  EXPECT_EQ(latheOperation({-1, {}, {}})->GetWayOfRotation(code), S_OK);
  EXPECT_EQ(code, -1);
}

TEST(LatheOperation, AxialOneTellsWhatItStates) {
  ActivityValues values = operationValues(ActivityKind::SequentialAxial);
  values.lathe = {-1, {{1, "P9"}, {2, "P3"}}, 2};
  values.motions.emplace(1);
  const auto activity = Activity::create(values);
  const KEPIMfgLatheOperation_var operation = activity;
  int code = 0;
  EXPECT_EQ(operation->GetWayOfRotation(code), S_OK);
  EXPECT_EQ(code, -1);
  KEPUnicodeString point;
  EXPECT_EQ(operation->GetCorrector(1, point), S_OK);
  EXPECT_EQ(point, KEPUnicodeString("P9"));
  int number = 0;
  EXPECT_EQ(operation->GetDefaultCorrector(number, point), S_OK);
  EXPECT_EQ(number, 2);
  EXPECT_EQ(point, KEPUnicodeString("P3"));
  EXPECT_EQ(KEPIMfgSequentialMotions_var(activity)->GetMotions().Size(), 1);
}

TEST(LatheOperation, TellsTheOutputPointOfACorrector) {
  const auto operation = latheOperation({{}, {{1, "P9"}, {2, "P3"}}, {}});
  KEPUnicodeString point("kept");
  EXPECT_EQ(operation->GetCorrector(3, point), E_FAIL);
  EXPECT_EQ(point, KEPUnicodeString("kept"));
  EXPECT_EQ(operation->GetCorrector(2, point), S_OK);
  EXPECT_EQ(point, KEPUnicodeString("P3"));
}

TEST(LatheOperation, TellsItsDefaultCorrector) {
  const auto operation = latheOperation({{}, {{1, "P9"}, {2, "P3"}}, 2});
  KEPUnicodeString point;
  int number = 0;
  EXPECT_EQ(operation->GetDefaultCorrector(number, point), S_OK);
  EXPECT_EQ(number, 2);
  EXPECT_EQ(point, KEPUnicodeString("P3"));
}

TEST(LatheOperation, DefaultCorrectorThatIsMissingLeavesBothAlone) {
  for (const std::optional<int> named : {std::optional<int>(), std::optional<int>(4)}) {
    const auto operation = latheOperation({{}, {{1, "P9"}}, named});
    KEPUnicodeString point("kept");
    int number = 8;
    EXPECT_EQ(operation->GetDefaultCorrector(number, point), E_FAIL);
    EXPECT_EQ(number, 8);
    EXPECT_EQ(point, KEPUnicodeString("kept"));
  }
}

KEPListVal<KEPBaseUnknown_var> motionsOf(ActivityKind kind) {
  ActivityValues values = operationValues(kind);
  auto& motions = values.motions.emplace(3);
  motions[0].feedsAndSpeeds = {{},
                               {{"1200", "ANGULARSPINDLESPEED"}},
                               {{"MfgSpindleSpeedType", textValue("MfgSpindleSpeedLocal")},
                                {"MfgSpindleWayOfRotation", textValue("MfgSpindleCLW")}}};
  motions[1].strategy = {{"MfgSpindleDwellMode", textValue("MfgSpindleDwellByTimeUnit")}};
  const KEPIMfgSequentialMotions_var operation = Activity::create(values);
  return operation->GetMotions();
}

TEST(SequentialMotions, StandInTheirOrder) {
  for (const ActivityKind kind : {ActivityKind::SequentialAxial, ActivityKind::SequentialGroove}) {
    const auto motions = motionsOf(kind);
    ASSERT_EQ(motions.Size(), 3);
    EXPECT_TRUE(motions[1]->IsAKindOf("MfgSequentialMotion"));
    const KEPIMfgSeqMotionParameters_var first = motions[1];
    const KEPIMfgSeqMotionParameters_var second = motions[2];
    EXPECT_EQ(textOf(*first->GetFeedrateParameters(), "MfgSpindleSpeedType"),
              "MfgSpindleSpeedLocal");
    EXPECT_EQ(textOf(*first->GetFeedrateParameters(), "MfgSpindleWayOfRotation"), "MfgSpindleCLW");
    const KEPICkeParm_var speed =
        first->GetFeedrateParameters()->GetParameter(Mfg_SpindleSpeedValue);
    EXPECT_EQ(speed->GetValueText(), KEPUnicodeString("1200"));
    EXPECT_EQ(textOf(*second->GetStrategyParameters(), "MfgSpindleDwellMode"),
              "MfgSpindleDwellByTimeUnit");
  }
}

TEST(SequentialMotions, MotionHasOnlyWhatItWasGiven) {
  const auto motions = motionsOf(ActivityKind::SequentialAxial);
  EXPECT_FALSE(KEPIMfgSeqMotionParameters_var(motions[1])->GetStrategyParameters());
  EXPECT_FALSE(KEPIMfgSeqMotionParameters_var(motions[2])->GetFeedrateParameters());
  const KEPIMfgSeqMotionParameters_var bare = motions[3];
  ASSERT_TRUE(bare);
  EXPECT_FALSE(bare->GetFeedrateParameters());
  EXPECT_FALSE(bare->GetStrategyParameters());
}

KEPVar<Activity> toolChangeBefore(ActivityKind operation) {
  ActivityValues values = operationValues(ActivityKind::ToolChange);
  values.operation = std::make_shared<const ActivityValues>(operationValues(operation));
  return Activity::create(values);
}

TEST(ToolChange, WithoutOperationBelongsToNoSequence) {
  const KEPIMfgToolChange_var toolChange =
      Activity::create(operationValues(ActivityKind::ToolChange));
  EXPECT_FALSE(toolChange->GetSequence());
}

TEST(ToolChange, SequenceGivesItsOperation) {
  const auto activity = toolChangeBefore(ActivityKind::Lathe);
  const KEPIMfgSequence_var sequence = KEPIMfgToolChange_var(activity)->GetSequence();
  KEPIMfgActivity_var operation;
  EXPECT_EQ(sequence->GetActivityOfToolChange(activity, KEPInterfaceId<KEPIMfgMachiningOperation>(),
                                              operation),
            S_OK);
  EXPECT_EQ(operation->GetName(), KEPUnicodeString("Operation.1"));
  EXPECT_TRUE(operation->IsAKindOf("MfgLatheOperation"));
  EXPECT_EQ(KEPIMfgToolChange_var(activity)->GetSequence().Get(), sequence.Get());
}

TEST(ToolChange, SequenceHasNoOtherActivity) {
  const auto activity = toolChangeBefore(ActivityKind::Plain);
  const KEPIMfgSequence_var sequence = KEPIMfgToolChange_var(activity)->GetSequence();
  const auto* const wanted = KEPInterfaceId<KEPIMfgMachiningOperation>();
  KEPIMfgActivity_var operation = activity;
  EXPECT_EQ(sequence->GetActivityOfToolChange(activity, wanted, operation), E_FAIL);
  EXPECT_FALSE(operation);
}

TEST(ToolChange, SequenceKnowsNoOtherToolChange) {
  const auto activity = toolChangeBefore(ActivityKind::Machining);
  const auto other = toolChangeBefore(ActivityKind::Machining);
  const KEPIMfgSequence_var sequence = KEPIMfgToolChange_var(activity)->GetSequence();
  const auto* const wanted = KEPInterfaceId<KEPIMfgMachiningOperation>();
  KEPIMfgActivity_var operation;
  EXPECT_EQ(sequence->GetActivityOfToolChange(other, wanted, operation), E_FAIL);
  EXPECT_EQ(sequence->GetActivityOfToolChange(nullptr, wanted, operation), E_FAIL);
  EXPECT_FALSE(operation);
}

TEST(ToolChange, LeavesNoReferenceBehind) {
  const auto activity = toolChangeBefore(ActivityKind::Machining);
  {
    const KEPIMfgSequence_var sequence = KEPIMfgToolChange_var(activity)->GetSequence();
    EXPECT_EQ(activity->GetReferenceCount(), 1);
    EXPECT_EQ(sequence->GetReferenceCount(), 2);
  }
  EXPECT_EQ(KEPIMfgToolChange_var(activity)->GetSequence()->GetReferenceCount(), 2);
}

}  // namespace
}  // namespace host::test
