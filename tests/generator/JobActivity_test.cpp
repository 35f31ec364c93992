#include <gtest/gtest.h>

#include <sstream>

#include "tests/generator/Jobs.h"

namespace host::test {
namespace {

ActivityStart activityOf(std::string_view line) {
  const JobReading reading = readJob(jobOf(line));
  if (reading.events.size() != 1) throw std::runtime_error("no single event" + reading.error);
  return std::get<ActivityStart>(reading.events.front());
}

/// A table of named values as text: "NAME=text NAME=2.5".
std::string described(const NamedValues& values) {
  std::ostringstream text;
  for (const auto& [name, value] : values) {
    text << (&value == &values.front().second ? "" : " ") << name << '=';
    if (value.kind == KEPMfgParameterValue::kText) text << value.text.View();
    if (value.kind == KEPMfgParameterValue::kInteger) text << value.integer;
    if (value.kind == KEPMfgParameterValue::kReal) text << value.real;
  }
  return text.str();
}

std::string described(const std::optional<TypedValue>& value) {
  return value ? value->text + ' ' + value->type : "absent";
}

TEST(JobActivity, WithoutAnyKeyHasNothing) {
  const ActivityStart activity = activityOf(R"({"activity":"A"})");
  EXPECT_EQ(activity.kind, ActivityKind::Plain);
  EXPECT_FALSE(activity.tool || activity.assembly || activity.operation || activity.lathe);
  EXPECT_FALSE(activity.feedsAndSpeeds || activity.strategy || activity.toolPath ||
               activity.turning || activity.motions);
}

TEST(JobActivity, KindWordGivesItsKind) {
  const std::pair<std::string_view, ActivityKind> kinds[] = {
      {R"({"activity":"A","kind":"toolChange"})", ActivityKind::ToolChange},
      {R"({"activity":"A","kind":"machining"})", ActivityKind::Machining},
      {R"({"activity":"A","kind":"lathe"})", ActivityKind::Lathe},
      {R"({"activity":"A","kind":"sequentialAxial"})", ActivityKind::SequentialAxial},
      {R"({"activity":"A","kind":"sequentialGroove"})", ActivityKind::SequentialGroove},
  };
  for (const auto& [line, kind] : kinds) EXPECT_EQ(activityOf(line).kind, kind) << line;
}

TEST(JobActivity, OperationStatesItsFeedsAndSpeeds) {
  const ActivityStart activity = activityOf(
      R"({"activity":"A","feedsAndSpeeds":{"machining":{"value":0.250,"type":"angular"},)"
      R"("spindle":{"type":"linear","value":180}},"kind":"machining"})");
  EXPECT_EQ(described(activity.feedsAndSpeeds->machining), "0.250 ANGULARFEEDRATE");
  EXPECT_EQ(described(activity.feedsAndSpeeds->spindle), "180 LINEARSPINDLESPEED");
  EXPECT_EQ(described(activity.feedsAndSpeeds->attributes), "");
}

TEST(JobActivity, TypesOfFeedsAndSpeedsHaveNamesOfTheirOwn) {
  const ActivityStart activity = activityOf(
      R"({"activity":"A","kind":"lathe","feedsAndSpeeds":{"machining":{"value":1,"type":"linear"},)"
      R"("spindle":{"value":2,"type":"angular"}}})");
  EXPECT_EQ(described(activity.feedsAndSpeeds->machining), "1 LINEARFEEDRATE");
  EXPECT_EQ(described(activity.feedsAndSpeeds->spindle), "2 ANGULARSPINDLESPEED");
}

TEST(JobActivity, FeedWithoutTypeHasNone) {
  const ActivityStart activity = activityOf(
      R"({"activity":"A","kind":"machining","feedsAndSpeeds":{"machining":{"value":1}}})");
  EXPECT_EQ(described(activity.feedsAndSpeeds->machining), "1 ");
  EXPECT_EQ(described(activity.feedsAndSpeeds->spindle), "absent");
}

TEST(JobActivity, DwellWordGivesTheModeOfAnOperation) {
  const std::pair<std::string_view, std::string_view> words[] = {
      {R"({"activity":"A","kind":"machining","strategy":{"dwell":"revolution"}})",
       "MfgDwellMode=MfgDwellRound"},
      {R"({"activity":"A","kind":"machining","strategy":{"dwell":"time"}})",
       "MfgDwellMode=MfgDwellTime"},
      {R"({"activity":"A","kind":"machining","strategy":{"dwell":"none"}})",
       "MfgDwellMode=MfgDwellNone"},
      {R"({"activity":"A","kind":"machining","strategy":{}})", ""},
  };
  for (const auto& [line, mode] : words) EXPECT_EQ(described(*activityOf(line).strategy), mode);
}

TEST(JobActivity, ToolPathHasATypeOrNone) {
  EXPECT_EQ(
      activityOf(R"({"activity":"A","kind":"machining","toolPath":{"type":-2}})").toolPath->type,
      -2);
  EXPECT_EQ(activityOf(R"({"activity":"A","kind":"machining","toolPath":{}})").toolPath->type,
            std::nullopt);
}

TEST(JobActivity, TurningIsAnAxisSystem) {
  const ActivityStart activity =
      activityOf(R"({"activity":"A","kind":"lathe","turning":{"origin":[1,2,3],)"
                 R"("spindleAxis":[0,0,1],"radialAxis":[1,0,0.5]}})");
  EXPECT_EQ(activity.turning->origin, (KEPMathVector{1, 2, 3}));
  EXPECT_EQ(activity.turning->spindleAxis, (KEPMathVector{0, 0, 1}));
  EXPECT_EQ(activity.turning->radialAxis, (KEPMathVector{1, 0, 0.5}));
}

TEST(JobActivity, LatheHasWayAndCorrectors) {
  const ActivityStart activity =
      activityOf(R"({"activity":"A","kind":"lathe","lathe":{"defaultCorrector":12,"way":-1,)"
                 R"("correctors":{"1":"P9","12":"P3"}}})");
  EXPECT_EQ(activity.lathe->way, -1);
  EXPECT_EQ(activity.lathe->correctors, (std::map<int, std::string>{{1, "P9"}, {12, "P3"}}));
  EXPECT_EQ(activity.lathe->defaultCorrector, 12);
}

TEST(JobActivity, EveryOperationCanBeALatheOperationToo) {
  const std::string_view lines[] = {
      R"({"activity":"A","kind":"machining","lathe":{"way":-1}})",
      R"({"activity":"A","lathe":{"way":-1},"kind":"sequentialAxial","motions":[{}]})"};
  for (const std::string_view line : lines) EXPECT_EQ(activityOf(line).lathe->way, -1) << line;
}

TEST(JobActivity, EmptyLatheTellsNothing) {
  const ActivityStart activity =
      activityOf(R"({"activity":"A","kind":"sequentialGroove","lathe":{}})");
  EXPECT_FALSE(activity.lathe->way || activity.lathe->defaultCorrector);
  EXPECT_TRUE(activity.lathe->correctors.empty());
}

TEST(JobActivity, MotionsStandInOrder) {
  const ActivityStart activity = activityOf(
      R"({"activity":"A","kind":"sequentialAxial","motions":[{"feedsAndSpeeds":{)"
      R"("spindleSpeed":"local","spindleWay":"clw","machining":{"value":0.1,"type":"angular"},)"
      R"("spindle":{"value":900,"type":"angular"}}},{"strategy":{"dwell":"time"}},{},)"
      R"({"feedsAndSpeeds":{"spindleSpeed":"operation","spindleWay":"cclw"}},)"
      R"({"strategy":{"dwell":"revolution"}},{"strategy":{"dwell":"none"}}]})");
  const auto& motions = *activity.motions;
  ASSERT_EQ(motions.size(), 6U);
  EXPECT_EQ(described(motions[0].feedsAndSpeeds->attributes),
            "MfgSpindleSpeedType=MfgSpindleSpeedLocal MfgSpindleWayOfRotation=MfgSpindleCLW");
  EXPECT_EQ(described(motions[0].feedsAndSpeeds->machining), "0.1 ANGULARFEEDRATE");
  EXPECT_EQ(described(motions[0].feedsAndSpeeds->spindle), "900 ANGULARSPINDLESPEED");
  EXPECT_FALSE(motions[0].strategy);
  EXPECT_FALSE(motions[1].feedsAndSpeeds);
  EXPECT_EQ(described(*motions[1].strategy), "MfgSpindleDwellMode=MfgSpindleDwellByTimeUnit");
  EXPECT_FALSE(motions[2].feedsAndSpeeds || motions[2].strategy);
  EXPECT_EQ(described(motions[3].feedsAndSpeeds->attributes),
            "MfgSpindleSpeedType=MfgSpindleSpeedOperation MfgSpindleWayOfRotation=MfgSpindleCCLW");
  EXPECT_EQ(described(*motions[4].strategy), "MfgSpindleDwellMode=MfgSpindleDwellByRevolution");
  EXPECT_EQ(described(*motions[5].strategy), "MfgSpindleDwellMode=MfgSpindleDwellNone");
}

TEST(JobActivity, NoMotionsAreAnEmptyList) {
  EXPECT_TRUE(
      activityOf(R"({"activity":"A","kind":"sequentialAxial","motions":[]})").motions->empty());
}

TEST(JobActivity, ToolHasParametersCompensationAndReplay) {
  const ActivityStart activity =
      activityOf(R"({"activity":"A","tool":{"parameters":{"MFG_WAY_OF_ROT":"MfgLeftHand"},)"
                 R"("compensation":{"2":"P1"},"replay":{"9":[0,0,0],"2":[1.5,0,-2]}}})");
  EXPECT_EQ(described(activity.tool->parameters), "MFG_WAY_OF_ROT=MfgLeftHand");
  EXPECT_EQ(activity.tool->compensation, (std::map<int, std::string>{{2, "P1"}}));
  EXPECT_EQ(activity.tool->replay,
            (std::map<int, KEPMathVector>{{9, {0, 0, 0}}, {2, {1.5, 0, -2}}}));
}

TEST(JobActivity, EmptyToolOffersNeitherCompensationNorReplay) {
  const ActivityStart activity = activityOf(R"({"activity":"A","tool":{},"assembly":{}})");
  EXPECT_TRUE(activity.tool->parameters.empty());
  EXPECT_FALSE(activity.tool->compensation || activity.tool->replay);
  EXPECT_FALSE(activity.assembly->isLathe);
  EXPECT_FALSE(activity.assembly->insert || activity.assembly->reference ||
               activity.assembly->radii);
}

TEST(JobActivity, AssemblyOfAMillHasReferenceAndRadii) {
  const ActivityStart activity =
      activityOf(R"({"activity":"A","assembly":{"reference":2,"radii":{"P3":0.21}}})");
  EXPECT_FALSE(activity.assembly->isLathe);
  EXPECT_EQ(activity.assembly->reference, 2);
  EXPECT_EQ(activity.assembly->radii->at("P3"), 0.21);
}

TEST(JobActivity, AssemblyOfATurningToolHasReferenceAndRadii) {
  const ActivityStart activity = activityOf(
      R"({"activity":"A","assembly":{"reference":9,"radii":{"P3":0.21,"P9":0.4},"kind":"lathe",)"
      R"("parameters":{"MFG_TL_SET_X":{"real":62.5}},"inverted":true}})");
  EXPECT_TRUE(activity.assembly->isLathe);
  EXPECT_EQ(activity.assembly->reference, 9);
  EXPECT_EQ(activity.assembly->radii->size(), 2U);
  EXPECT_EQ(activity.assembly->radii->at("P3"), 0.21);
  EXPECT_EQ(activity.assembly->radii->at("P9"), 0.4);
  EXPECT_EQ(described(activity.assembly->parameters), "MFG_TL_SET_X=62.5");
  EXPECT_EQ(described(activity.assembly->attributes), "MfgInvertedAssembly=1");
}

TEST(JobActivity, AssemblyOfAMillIsNotInvertedOnRequest) {
  const ActivityStart activity =
      activityOf(R"({"activity":"A","assembly":{"kind":"mill","inverted":false}})");
  EXPECT_FALSE(activity.assembly->isLathe);
  EXPECT_EQ(described(activity.assembly->attributes), "MfgInvertedAssembly=0");
}

TEST(JobActivity, InsertHasTypeRadiiAndParameters) {
  const ActivityStart activity = activityOf(
      R"({"activity":"A","assembly":{"insert":{"type":"MfgGrooveInsert","leftNoseRadius":0.2,)"
      R"("rightNoseRadius":0.4,"parameters":{"MFG_NOSE_RADIUS":{"real":0.4}}}}})");
  const InsertValues& insert = *activity.assembly->insert;
  EXPECT_EQ(insert.type, "MfgGrooveInsert");
  EXPECT_EQ(described(insert.dimensions), "MfgLeftNoseRadius=0.2 MfgRightNoseRadius=0.4");
  EXPECT_EQ(described(insert.parameters), "MFG_NOSE_RADIUS=0.4");
}

TEST(JobActivity, ToolChangeHasItsOperation) {
  const ActivityStart activity = activityOf(
      R"({"activity":"T","kind":"toolChange","operation":{"kind":"sequentialGroove",)"
      R"("name":"Groove.1","parameters":{"D":{"real":1}},"customParameters":{"E":"x"},"tool":{},)"
      R"("assembly":{},"feedsAndSpeeds":{},"strategy":{},"toolPath":{},"turning":{)"
      R"("origin":[0,0,0],"spindleAxis":[0,0,1],"radialAxis":[1,0,0]},"lathe":{"way":1},)"
      R"("motions":[{}]}})");
  ASSERT_TRUE(activity.operation);
  const ActivityValues& operation = *activity.operation;
  EXPECT_EQ(operation.name, "Groove.1");
  EXPECT_EQ(operation.kind, ActivityKind::SequentialGroove);
  EXPECT_EQ(described(operation.parameters), "D=1");
  EXPECT_EQ(described(operation.customParameters), "E=x");
  EXPECT_TRUE(operation.tool && operation.assembly && operation.feedsAndSpeeds);
  EXPECT_TRUE(operation.strategy && operation.toolPath && operation.turning);
  EXPECT_EQ(operation.lathe->way, 1);
  EXPECT_EQ(operation.motions->size(), 1U);
  EXPECT_FALSE(activity.lathe || activity.motions);
}

TEST(JobHeaderValues, AngleFactorIsTheOneStated) {
  EXPECT_EQ(readJob(jobOf("")).header.angleFactor, std::nullopt);
  const JobReading reading = readJob(
      "{\"job\":1,\"program\":\"P\",\"units\":\"mm\",\"angleFactor\":57.5}\n{\"end\":true}\n");
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.header.angleFactor, 57.5);
}

}  // namespace
}  // namespace host::test
