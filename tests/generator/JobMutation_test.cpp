#include <gtest/gtest.h>
#include <simdjson.h>

#include <sstream>

#include "tests/generator/Jobs.h"
#include "tests/support/Mutator.h"

namespace host::test {
namespace {

const std::string& sample() {
  static const std::string job =
      R"({"job":1,"program":"PLATE","units":"mm","resource":{"name":"M"},"pointFormat":"%.3f",)"
      R"("designParameters":{"depth":-12.5}})"
      "\n"
      R"({"activity":"Drilling.1","virtual":false,"parameters":{"MFG_TOTAL_DEPTH":{"real":25.0},)"
      R"("MFG_TL_NUMBER":{"integer":3},"MFG_TOOL_NAME":"T1 \u00d8 8,5"}})"
      "\n\n"
      R"({"activity":"Groove.1","kind":"sequentialGroove","lathe":{"way":-1,"correctors":{"1":"P9"},)"
      R"("defaultCorrector":1},"motions":[{"feedsAndSpeeds":{"spindleSpeed":"local"}},{}],"tool":)"
      R"({"replay":{"9":[0,0,0]}},"assembly":{"kind":"lathe","radii":{"P3":0.2},"insert":)"
      R"({"type":"MfgGrooveInsert"}},"strategy":{"dwell":"none"}})"
      "\n"
      R"({"nc":"NC_GOTO","points":[[1,2,3],[-4.5e1,0.25,6,0,0,1]],"axis":[0,0.6,0.8]})"
      "\n"
      R"({"nc":"NC_CIRCLE1","circle":{"center":[1,2,3],"radius":5},"comment":"a \"b\"","hole":7})"
      "\n"
      R"({"nc":"NC_FEEDRATE","sequence":2,"feedrate":{"value":800,"type":"linear"}})"
      "\n{\"end\":true}\n";
  return job;
}

std::string described(const ToolPathEvent& event) {
  if (const auto* activity = std::get_if<ActivityStart>(&event))
    return "activity " + activity->name;
  const auto& element = std::get<Element>(event);
  return element.instruction + ' ' + std::to_string(element.positions.size());
}

std::vector<std::string> describedEvents(const JobReading& reading) {
  std::vector<std::string> events;
  for (const ToolPathEvent& event : reading.events) events.push_back(described(event));
  return events;
}

TEST(JobMutation, SampleIsReadWhole) {
  const JobReading reading = readJob(sample());
  EXPECT_EQ(reading.error, "");
  const std::vector<std::string> expected{"activity Drilling.1", "activity Groove.1", "NC_GOTO 2",
                                          "NC_CIRCLE1 0", "NC_FEEDRATE 0"};
  EXPECT_EQ(describedEvents(reading), expected);
}

TEST(JobMutation, JobCutAnywhereIsRefusedAfterAnExactPrefix) {
  const std::vector<std::string> whole = describedEvents(readJob(sample()));
  for (std::size_t length = 0; length + 1 < sample().size(); ++length) {
    const JobReading reading = readJob(sample().substr(0, length));
    ASSERT_NE(reading.error, "") << length;
    const std::vector<std::string> events = describedEvents(reading);
    ASSERT_LE(events.size(), whole.size()) << length;
    ASSERT_TRUE(std::equal(events.begin(), events.end(), whole.begin())) << length;
  }
}

/// What a strict parser of whole documents finds in a job: false for a line that is no JSON object.
struct Census {
  bool wellFormed = true;
  std::size_t activities = 0;
  std::size_t elements = 0;
  std::size_t points = 0;
};

void count(const simdjson::dom::object& object, Census& census) {
  if (object["activity"].error() == simdjson::SUCCESS) ++census.activities;
  if (object["nc"].error() != simdjson::SUCCESS) return;
  ++census.elements;
  simdjson::dom::array points;
  if (object["points"].get(points) == simdjson::SUCCESS) census.points += points.size();
}

Census censusOf(const std::string& job) {
  Census census;
  simdjson::dom::parser parser;
  std::istringstream lines(job);
  for (std::string line; std::getline(lines, line);) {
    if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
    simdjson::dom::object object;
    census.wellFormed &= parser.parse(line).get(object) == simdjson::SUCCESS;
    if (!census.wellFormed) return census;
    count(object, census);
  }
  return census;
}

void expectCounted(const JobReading& reading, const std::string& job) {
  const Census census = censusOf(job);
  ASSERT_TRUE(census.wellFormed) << job;
  std::size_t elements = 0;
  std::size_t points = 0;
  for (const ToolPathEvent& event : reading.events) {
    const auto* element = std::get_if<Element>(&event);
    if (element == nullptr) continue;
    ++elements;
    points += element->positions.size();
  }
  EXPECT_EQ(elements, census.elements) << job;
  EXPECT_EQ(points, census.points) << job;
  EXPECT_EQ(reading.events.size(), census.elements + census.activities) << job;
}

TEST(JobMutation, MutatedJobIsRefusedOrReadWhole) {
  const unsigned seed = chosenSeed();
  SCOPED_TRACE("repeat with PPWORD_TEST_SEED=" + std::to_string(seed));
  Mutator mutator(seed, "0123456789.,:-+eE[]{}\"\\ \t\r\nunlt");
  int accepted = 0;
  for (int round = 0; round < 4000; ++round) {
    const std::string job = mutator.mutate(sample());
    const JobReading reading = readJob(job);
    if (!reading.error.empty()) continue;
    ++accepted;
    ASSERT_NO_FATAL_FAILURE(expectCounted(reading, job));
  }
  EXPECT_GT(accepted, 0);
}

}  // namespace
}  // namespace host::test
