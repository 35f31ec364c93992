#include "post/job/JobReader.h"

#include <gtest/gtest.h>

#include "tests/generator/Jobs.h"

namespace host::test {
namespace {

using Points = std::vector<Triple>;

Points pointsOf(const Element& element) {
  Points points;
  for (const Position& position : element.positions) points.push_back(position.point);
  return points;
}

TEST(JobReader, HeaderGivesWhatItStates) {
  const JobReading reading = readJob(
      R"({"designParameters":{"depth":-12.5,"_n2":3},"axisFormat":"%9.6f","pointFormat":"%.3f",)"
      R"("resource":{"name":"MILL 5","table":"mill.pptable"},"units":"inch","program":"PLATE",)"
      R"("document":"part.ppdoc",)"
      "\"job\":1}\n{\"end\":true}\n");
  EXPECT_EQ(reading.error, "");
  const JobHeader& header = reading.header;
  EXPECT_EQ(header.program, "PLATE");
  EXPECT_EQ(header.units, JobHeader::Units::Inch);
  EXPECT_EQ(header.resource, "MILL 5");
  EXPECT_EQ(header.table, "mill.pptable");
  EXPECT_EQ(header.document, "part.ppdoc");
  EXPECT_EQ(header.pointFormat, "%.3f");
  EXPECT_EQ(header.axisFormat, "%9.6f");
  const std::vector<std::pair<std::string, double>> parameters{{"depth", -12.5}, {"_n2", 3.0}};
  EXPECT_EQ(header.designParameters, parameters);
  EXPECT_EQ(header.line, 1);
}

TEST(JobReader, ShortestHeaderLeavesTheRestEmpty) {
  const JobReading reading = readJob(jobOf(""));
  EXPECT_EQ(reading.error, "");
  EXPECT_EQ(reading.header.program, "PLATE");
  EXPECT_EQ(reading.header.units, JobHeader::Units::Millimetre);
  EXPECT_EQ(reading.header.resource, "");
  EXPECT_EQ(reading.header.pointFormat, "");
  EXPECT_TRUE(reading.header.designParameters.empty());
  EXPECT_TRUE(reading.events.empty());
}

TEST(JobReader, ElementOfAPPCommandHasItsPosition) {
  const Element element = elementOf(R"({"points":[[1,2,3]],"ppCommand":7})");
  EXPECT_EQ(element.ppCommand, 7);
  EXPECT_EQ(element.instruction, "");
  EXPECT_EQ(pointsOf(element), (Points{{1, 2, 3}}));
}

TEST(JobReader, ElementWithoutValuesChangesNothing) {
  const Element element = elementOf(R"({"nc":"NC_RAPID"})");
  EXPECT_EQ(element.instruction, "NC_RAPID");
  EXPECT_EQ(element.ppCommand, 0);
  EXPECT_EQ(element.sequence, 1);
  EXPECT_EQ(element.line, 2);
  EXPECT_TRUE(element.positions.empty());
  const BufferChanges& changes = element.changes;
  EXPECT_FALSE(changes.toolAxis || changes.circle || changes.helix || changes.feedrate ||
               changes.spindle || changes.comment || changes.corrector || changes.hole ||
               changes.rotate);
}

TEST(JobReader, PointsOfThreeAndSixNumbersMix) {
  const Element element = elementOf(
      R"({"nc":"NC_GOTO#SEQMOTION#12","sequence":3,"points":[[1,-2.5,1e1],[0,0,0,0.6,0,0.8]]})");
  EXPECT_EQ(element.instruction, "NC_GOTO#SEQMOTION#12");
  EXPECT_EQ(element.sequence, 3);
  EXPECT_EQ(pointsOf(element), (Points{{1.0, -2.5, 10.0}, {0.0, 0.0, 0.0}}));
  EXPECT_FALSE(element.positions[0].toolAxis);
  EXPECT_EQ(element.positions[1].toolAxis, (Triple{0.6, 0.0, 0.8}));
}

TEST(JobReader, EveryBufferIsReached) {
  const Element element = elementOf(
      R"({"nc":"A","axis":[0,0,1],"comment":"caf\u00e9 \"1\"","corrector":-5,"hole":7,)"
      R"("circle":{"tangent":[1,0,0],"center":[2,3,4],"radius":5,"normal":[0,0,1],"point":[6,7,8]},)"
      R"("helix":{"indirv":[0,1,0],"center":[1,2,3],"radius":4,"axis":[0,0,-1],"start":[5,6,7],)"
      R"("end":[8,9,10],"pitch":11},)"
      R"("feedrate":{"type":"angular","value":0.250,"factor":0.5,"feedType":"plunge"},)"
      R"("spindle":{"value":1e3,"type":"linear","factor":2,"way":2},)"
      R"("rotate":{"angle":90,"text1":"A","text2":"CLW","text3":"INCR",)"
      R"("axisSystem":{"origin":[1,2,3],"x":[0,1,0],"y":[-1,0,0],"z":[0,0,1]}}})");
  const BufferChanges& changes = element.changes;
  EXPECT_EQ(changes.toolAxis, (Triple{0, 0, 1}));
  EXPECT_EQ(changes.comment, "caf\xC3\xA9 \"1\"");
  EXPECT_EQ(changes.corrector, -5);
  EXPECT_EQ(changes.hole, 7);
  EXPECT_EQ(changes.circle->tangent, (Triple{1, 0, 0}));
  EXPECT_EQ(changes.circle->center, (Triple{2, 3, 4}));
  EXPECT_EQ(changes.circle->radius, 5.0);
  EXPECT_EQ(changes.circle->normal, (Triple{0, 0, 1}));
  EXPECT_EQ(changes.circle->point, (Triple{6, 7, 8}));
  EXPECT_EQ(changes.helix->inDirV, (Triple{0, 1, 0}));
  EXPECT_EQ(changes.helix->center, (Triple{1, 2, 3}));
  EXPECT_EQ(changes.helix->radius, 4.0);
  EXPECT_EQ(changes.helix->axis, (Triple{0, 0, -1}));
  EXPECT_EQ(changes.helix->start, (Triple{5, 6, 7}));
  EXPECT_EQ(changes.helix->end, (Triple{8, 9, 10}));
  EXPECT_EQ(changes.helix->pitch, 11.0);
  EXPECT_EQ(changes.feedrate->value->text, "0.250");
  EXPECT_EQ(changes.feedrate->value->type, "ANGULARFEEDRATE");
  EXPECT_EQ(changes.feedrate->factor, 0.5);
  EXPECT_EQ(changes.feedrate->feedType, "TPPlungeFeedrate");
  EXPECT_EQ(changes.spindle->value->text, "1e3");
  EXPECT_EQ(changes.spindle->value->type, "LINEARSPINDLESPEED");
  EXPECT_EQ(changes.spindle->factor, 2.0);
  EXPECT_EQ(changes.spindle->way, 2);
  EXPECT_EQ(changes.rotate->angle, 90.0);
  EXPECT_EQ(changes.rotate->firstText, "A");
  EXPECT_EQ(changes.rotate->secondText, "CLW");
  EXPECT_EQ(changes.rotate->thirdText, "INCR");
  const KEPMathAxis axisSystem{{1, 2, 3}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}};
  EXPECT_EQ(changes.rotate->axisSystem, axisSystem);
}

TEST(JobReader, PartOfABufferLeavesItsRestAbsent) {
  const Element element =
      elementOf(R"({"nc":"A","feedrate":{"value":800},"circle":{"radius":5},"spindle":{"way":1}})");
  EXPECT_EQ(element.changes.feedrate->value->text, "800");
  EXPECT_EQ(element.changes.feedrate->value->type, "");
  EXPECT_FALSE(element.changes.feedrate->factor || element.changes.feedrate->feedType);
  EXPECT_FALSE(element.changes.circle->center || element.changes.circle->tangent);
  EXPECT_FALSE(element.changes.spindle->value);
  EXPECT_EQ(element.changes.spindle->way, 1);
}

struct FeedWord {
  std::string_view line;
  std::string_view type;
};

TEST(JobReader, FeedWordGivesItsType) {
  constexpr FeedWord kWords[] = {
      {R"({"nc":"A","feedrate":{"feedType":"machining"}})", "TPMachiningFeedrate"},
      {R"({"nc":"A","feedrate":{"feedType":"approach"}})", "TPApproachFeedrate"},
      {R"({"nc":"A","feedrate":{"feedType":"retract"}})", "TPRetractFeedrate"},
      {R"({"nc":"A","feedrate":{"feedType":"finishing"}})", "TPFinishingFeedrate"},
      {R"({"nc":"A","feedrate":{"feedType":"plunge"}})", "TPPlungeFeedrate"},
      {R"({"nc":"A","feedrate":{"feedType":"chamfering"}})", "TPChamferingFeedrate"},
      {R"({"nc":"A","feedrate":{"feedType":"value"}})", ""},
  };
  for (const auto& [line, type] : kWords) {
    EXPECT_EQ(elementOf(line).changes.feedrate->feedType, type) << line;
  }
}

TEST(JobReader, ValueTypesOfFeedAndSpindleHaveNamesOfTheirOwn) {
  EXPECT_EQ(elementOf(R"({"nc":"A","feedrate":{"value":1,"type":"linear"}})")
                .changes.feedrate->value->type,
            "LINEARFEEDRATE");
  EXPECT_EQ(elementOf(R"({"nc":"A","spindle":{"value":1,"type":"angular"}})")
                .changes.spindle->value->type,
            "ANGULARSPINDLESPEED");
}

TEST(JobReader, ActivityGivesTypedParameters) {
  const JobReading reading = readJob(jobOf(
      R"({"activity":"Drilling.1","virtual":true,"parameters":{"MFG_TOTAL_DEPTH":{"real":25},)"
      R"("MFG_TL_NUMBER":{"integer":-3},"MFG_TOOL_NAME":"T1 \u00d8 8.5"},)"
      R"("customParameters":{"CHECKED BY":"QA"}})"));
  ASSERT_EQ(reading.error, "");
  ASSERT_EQ(reading.events.size(), 1U);
  const auto& activity = std::get<ActivityStart>(reading.events[0]);
  EXPECT_EQ(activity.name, "Drilling.1");
  EXPECT_TRUE(activity.isVirtual);
  EXPECT_EQ(activity.line, 2);
  // The last one is the unit of the job.
  ASSERT_EQ(activity.parameters.size(), 4U);
  EXPECT_EQ(activity.parameters[0].first, "MFG_TOTAL_DEPTH");
  EXPECT_EQ(activity.parameters[0].second.kind, KEPMfgParameterValue::kReal);
  EXPECT_EQ(activity.parameters[0].second.real, 25.0);
  EXPECT_EQ(activity.parameters[1].second.kind, KEPMfgParameterValue::kInteger);
  EXPECT_EQ(activity.parameters[1].second.integer, -3);
  EXPECT_EQ(activity.parameters[2].second.kind, KEPMfgParameterValue::kText);
  EXPECT_EQ(activity.parameters[2].second.text.View(), "T1 \xC3\x98 8.5");
  ASSERT_EQ(activity.customParameters.size(), 1U);
  EXPECT_EQ(activity.customParameters[0].first, "CHECKED BY");
  EXPECT_EQ(activity.customParameters[0].second.text.View(), "QA");
}

TEST(JobReader, ActivityHasTheUnitOfTheJobUnlessItStatesOne) {
  const auto unitOf = [](const std::string& units, const std::string& parameters) {
    const JobReading reading =
        readJob("{\"job\":1,\"program\":\"P\",\"units\":\"" + units +
                "\"}\n{\"activity\":\"A\",\"parameters\":{" + parameters + "}}\n{\"end\":true}\n");
    EXPECT_EQ(reading.error, "");
    const auto& all = std::get<ActivityStart>(reading.events[0]).parameters;
    EXPECT_EQ(all.size(), 1U);
    return all[0].first + '=' + std::string(all[0].second.text.View());
  };
  EXPECT_EQ(unitOf("mm", ""), "MFG_UNIT=MM");
  EXPECT_EQ(unitOf("inch", ""), "MFG_UNIT=INCHES");
  EXPECT_EQ(unitOf("inch", "\"MFG_UNIT\":\"IN\""), "MFG_UNIT=IN");
}

TEST(JobReader, EventsComeInOrderWithTheirLines) {
  const JobReading reading = readJob(
      jobOf("{\"nc\":\"A\"}\n\n \t\r\n{\"activity\":\"X\"}\r\n{\"nc\":\"B\",\"points\":[[1,2,3]]}\n"
            "{\"nc\":\"C\"}"));
  ASSERT_EQ(reading.error, "");
  ASSERT_EQ(reading.events.size(), 4U);
  EXPECT_EQ(std::get<Element>(reading.events[0]).line, 2);
  EXPECT_EQ(std::get<ActivityStart>(reading.events[1]).line, 5);
  EXPECT_EQ(std::get<Element>(reading.events[2]).positions.size(), 1U);
  EXPECT_EQ(std::get<Element>(reading.events[2]).line, 6);
  EXPECT_EQ(std::get<Element>(reading.events[3]).instruction, "C");
  EXPECT_TRUE(std::get<Element>(reading.events[3]).positions.empty());
}

TEST(JobReader, LastLineNeedsNoLineFeed) {
  EXPECT_EQ(readJob(std::string(kHeader) + "\n{\"end\":true}").error, "");
}

TEST(JobReader, KeyOfTheKindMayStandLast) {
  const Element element = elementOf(R"({"points":[[1,2,3]],"comment":"x","n\u0063":"NC_GOTO"})");
  EXPECT_EQ(element.instruction, "NC_GOTO");
  EXPECT_EQ(pointsOf(element), (Points{{1, 2, 3}}));
}

TEST(JobReader, LineAfterAnUnreadableOneIsNotReached) {
  const JobReading reading = readJob(jobOf("{\"nc\":\"A\"}\n{\"nc\":1}\n{\"nc\":\"B\"}"));
  EXPECT_EQ(reading.events.size(), 1U);
  EXPECT_EQ(reading.error, ":3:7: error: $.nc: a text is expected, found 1");
}

TEST(JobReader, LongestLineIsReadWhole) {
  const std::string begin = R"({"nc":"A","points":[[0,0,0])";
  const std::string end = "]}";
  const std::string point = ",[1,2,3]";
  std::string line = begin;
  std::size_t points = 1;
  while (line.size() + point.size() + end.size() <= LineReader::kLongestLine) {
    line += point;
    ++points;
  }
  line += end;
  line.append(LineReader::kLongestLine - line.size(), ' ');
  EXPECT_EQ(elementOf(line).positions.size(), points);
  EXPECT_EQ(readJob(jobOf(line + ' ')).error,
            ":2: error: the line is longer than 1 MiB (1048576 bytes)");
}

TEST(JobReader, DeepNestingIsRefused) {
  const std::string deep = R"({"nc":"A","points":)" + std::string(500000, '[');
  EXPECT_EQ(readJob(jobOf(deep + std::string(500000, ']') + "}")).error,
            ":2:22: error: $.points[0][0]: a number is expected, found [");
}

}  // namespace
}  // namespace host::test
