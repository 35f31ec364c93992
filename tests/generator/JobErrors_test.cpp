#include <gtest/gtest.h>

#include "tests/generator/Jobs.h"

namespace host::test {
namespace {

struct Refusal {
  std::string_view line;
  std::string_view error;
};

// Each line stands as the second of a job.
class RefusedLine : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedLine, GivesItsMessage) {
  const JobReading reading = readJob(jobOf(GetParam().line));
  EXPECT_EQ(reading.error, GetParam().error) << GetParam().line;
  EXPECT_TRUE(reading.events.empty());
}

constexpr Refusal kKeys[] = {
    {R"({"nc":"NC_GOTO","poinst":[[1,2,3]]})",
     R"(:2:17: error: $: unknown key "poinst"; did you mean "points"?)"},
    {R"({"nc":"NC_GOTO","xyz":1})",
     R"(:2:17: error: $: unknown key "xyz"; the keys here are nc, ppCommand, sequence, points, )"
     R"(axis, circle, helix, feedrate, spindle, comment, corrector, hole, rotate)"},
    {R"({"nc":"NC_GOTO","program":"P"})",
     R"(:2:17: error: $: unknown key "program"; the keys here are nc, ppCommand, sequence, points, )"
     R"(axis, circle, helix, feedrate, spindle, comment, corrector, hole, rotate)"},
    {R"({"nc":"A","nc":"B"})", ":2:11: error: $.nc: duplicate key"},
    {R"({"nc":"A","n\u0063":"B"})", ":2:11: error: $.nc: duplicate key"},
    {R"({"nc":"A","hole":1,"hole":1})", ":2:20: error: $.hole: duplicate key"},
    {R"({"nc":"A","circle":{"radius":1,"radius":2}})",
     ":2:32: error: $.circle.radius: duplicate key"},
    {R"({"activity":"A","parameters":{"P":"x","P":"y"}})",
     ":2:39: error: $.parameters.P: duplicate key"},
    {R"({"nc":"A","circle":{"centre":[0,0,0]}})",
     R"(:2:21: error: $.circle: unknown key "centre"; did you mean "center"?)"},
    {R"({"nc":"A","\ud800":1})", ":2:11: error: $: the key contains an invalid escape"},
    {R"({"nc":"A","\u001b[31m":1})", ":2:11: error: $: a key must not contain a control character"},
    {R"({"activity":"A","parameters":{"DEPTH\n":"x"}})",
     ":2:31: error: $.parameters: a key must not contain a control character"},
    {R"({"activity":"A","customParameters":{"\u007f":"x"}})",
     ":2:37: error: $.customParameters: a key must not contain a control character"},
    {R"({"points":[[1,2,3]]})",
     R"(:2:1: error: $: one of the keys "job", "activity", "nc", "ppCommand" and "end" is expected)"},
    {"  {}",
     R"(:2:3: error: $: one of the keys "job", "activity", "nc", "ppCommand" and "end" is expected)"},
    {R"({"activity":"A","nc":"B"})",
     R"(:2:17: error: $: unknown key "nc"; the keys here are activity, kind, virtual, operation, )"
     R"(parameters, customParameters, tool, assembly, feedsAndSpeeds, strategy, toolPath, )"
     R"(turning, lathe, motions)"},
    {R"({"end":true,"lines":3})", R"(:2:13: error: $: unknown key "lines"; the keys here are end)"},
    {R"({"nc":"A","rotate":{"axisSystem":{"origin":[0,0,0],"x":[1,0,0],"z":[0,0,1]}}})",
     R"(:2:34: error: $.rotate.axisSystem: the key "y" is missing)"},
    {R"({"nc":"A","a_key_of_more_than_forty_characters_in_all":1})",
     R"(:2:11: error: $: unknown key "a_key_of_more_than_forty_characters_in_a..."; the keys here )"
     R"(are nc, ppCommand, sequence, points, axis, circle, helix, feedrate, spindle, comment, )"
     R"(corrector, hole, rotate)"},
};
INSTANTIATE_TEST_SUITE_P(Keys, RefusedLine, testing::ValuesIn(kKeys));

constexpr Refusal kCommands[] = {
    {R"({"ppCommand":1,"nc":"A"})",
     R"(:2:1: error: $: an element has "nc" or "ppCommand", not both)"},
    {R"( {"nc":"A","ppCommand":1})",
     R"(:2:2: error: $: an element has "nc" or "ppCommand", not both)"},
    {R"({"ppCommand":1,"sequence":1})",
     R"(:2:1: error: $: a PP command has a sequence of its own; leave out "sequence")"},
    {R"({"ppCommand":0})",
     ":2:14: error: $.ppCommand: a whole number from 1 to 2147483647 is expected, found 0"},
    {R"({"ppCommand":"NC_GOTO"})",
     ":2:14: error: $.ppCommand: a whole number from 1 to 2147483647 is expected, "
     "found \"NC_GOTO\""},
    {R"({"ppCommand":1,"ppCommand":1})", ":2:16: error: $.ppCommand: duplicate key"},
};
INSTANTIATE_TEST_SUITE_P(Commands, RefusedLine, testing::ValuesIn(kCommands));

constexpr Refusal kValues[] = {
    {R"({"nc":7})", ":2:7: error: $.nc: a text is expected, found 7"},
    {R"({"nc":null})", ":2:7: error: $.nc: a text is expected, found null"},
    {R"({"nc":["NC_GOTO"]})", ":2:7: error: $.nc: a text is expected, found ["},
    {R"({"nc":tru})", ":2:7: error: $.nc: a text is expected, found tru"},
    {R"({"nc":""})", ":2:7: error: $.nc: a name is expected"},
    {R"({"nc":"A","comment":true})", ":2:21: error: $.comment: a text is expected, found true"},
    {R"({"nc":"A","sequence":0})",
     ":2:22: error: $.sequence: a whole number from 1 to 2147483647 is expected, found 0"},
    {R"({"nc":"A","sequence":1.0})",
     ":2:22: error: $.sequence: a whole number from 1 to 2147483647 is expected, found 1.0"},
    {R"({"nc":"A","hole":2147483648})",
     ":2:18: error: $.hole: a whole number from -2147483648 to 2147483647 is expected, "
     "found 2147483648"},
    {R"({"nc":"A","hole":-2147483649})",
     ":2:18: error: $.hole: a whole number from -2147483648 to 2147483647 is expected, "
     "found -2147483649"},
    {R"({"nc":"A","corrector":99999999999999999999})",
     ":2:23: error: $.corrector: a whole number from -2147483648 to 2147483647 is expected, "
     "found 99999999999999999999"},
    {R"({"nc":"A","corrector":"5"})",
     ":2:23: error: $.corrector: a whole number from -2147483648 to 2147483647 is expected, "
     "found \"5\""},
    {R"({"nc":"A","axis":[0,0]})", ":2:18: error: $.axis: exactly three numbers are expected"},
    {R"({"nc":"A","axis":[0,0,1,0]})", ":2:18: error: $.axis: exactly three numbers are expected"},
    {R"({"nc":"A","axis":{"i":0}})", ":2:18: error: $.axis: an array is expected, found {"},
    {R"({"nc":"A","points":[]})", ":2:20: error: $.points: at least one point is expected"},
    {R"({"nc":"A","points":[1,2,3]})", ":2:21: error: $.points[0]: an array is expected, found 1"},
    {R"({"nc":"A","points":[[]]})",
     ":2:21: error: $.points[0]: a point has three numbers, or six with its tool axis"},
    {R"({"nc":"A","points":[[1,2,3],[1,2,3,4]]})",
     ":2:29: error: $.points[1]: a point has three numbers, or six with its tool axis"},
    {R"({"nc":"A","points":[[1,2,3,0,0,1,800]]})",
     ":2:21: error: $.points[0]: a point has three numbers, or six with its tool axis"},
    {R"({"nc":"A","points":[[1,2,3],[1,2,3],[1,2,3],[1,"x",3]]})",
     ":2:48: error: $.points[3][1]: a number is expected, found \"x\""},
    {R"({"nc":"A","circle":[0,0,1]})", ":2:20: error: $.circle: an object is expected, found ["},
    {R"({"nc":"A","circle":{"radius":"5"}})",
     ":2:30: error: $.circle.radius: a number is expected, found \"5\""},
    {R"({"nc":"A","feedrate":{"value":"800"}})",
     ":2:31: error: $.feedrate.value: a number is expected, found \"800\""},
    {R"({"nc":"A","feedrate":{"type":"linear"}})",
     R"(:2:22: error: $.feedrate: a "type" needs its "value")"},
    {R"({"nc":"A","spindle":{"type":"angular"}})",
     R"(:2:21: error: $.spindle: a "type" needs its "value")"},
    {R"({"nc":"A","spindle":{"value":9,"type":"rpm"}})",
     R"(:2:39: error: $.spindle.type: "linear" or "angular" is expected, found "rpm")"},
    {R"({"nc":"A","feedrate":{"feedType":"fast"}})",
     R"(:2:34: error: $.feedrate.feedType: "machining" or "approach" or "retract" or "finishing" )"
     R"(or "plunge" or "chamfering" or "value" is expected, found "fast")"},
    {R"({"activity":"A","virtual":1})",
     ":2:27: error: $.virtual: true or false is expected, found 1"},
    {R"({"activity":"A","parameters":{"D":2}})",
     R"(:2:35: error: $.parameters.D: a text, {"real": NUMBER} or {"integer": NUMBER} is expected, )"
     "found 2"},
    {R"({"activity":"A","parameters":{"D":nan}})",
     R"(:2:35: error: $.parameters.D: a text, {"real": NUMBER} or {"integer": NUMBER} is expected, )"
     "found nan"},
    {R"({"activity":"A","parameters":{"D":?}})",
     R"(:2:35: error: $.parameters.D: a text, {"real": NUMBER} or {"integer": NUMBER} is expected, )"
     "found ?"},
    {R"({"activity":"A","parameters":{"D":{}}})",
     R"(:2:35: error: $.parameters.D: a text, {"real": NUMBER} or {"integer": NUMBER} is expected, )"
     "found {"},
    {R"({"activity":"A","parameters":{"D":{"real":1,"integer":1}}})",
     ":2:55: error: $.parameters.D.integer: a number is either real or integer"},
    {R"({"activity":"A","parameters":{"D":{"integer":1,"real":1}}})",
     ":2:55: error: $.parameters.D.real: a number is either real or integer"},
    {R"({"activity":"A","parameters":{"D":{"integer":1.5}}})",
     ":2:46: error: $.parameters.D.integer: a whole number from -2147483648 to 2147483647 is "
     "expected, found 1.5"},
    {R"({"activity":"A","parameters":{"":"x"}})",
     ":2:31: error: $.parameters[\"\"]: a parameter needs a name"},
    {R"({"activity":"A","parameters":{"two words":2}})",
     R"(:2:43: error: $.parameters["two words"]: a text, {"real": NUMBER} or {"integer": NUMBER} is )"
     "expected, found 2"},
    {R"({"end":false})", ":2:8: error: $.end: true is expected, found false"},
};
INSTANTIATE_TEST_SUITE_P(Values, RefusedLine, testing::ValuesIn(kValues));

constexpr Refusal kNumbers[] = {
    {R"({"nc":"A","axis":[0,NaN,1]})", ":2:21: error: $.axis[1]: a number is expected, found NaN"},
    {R"({"nc":"A","axis":[0,nan,1]})", ":2:21: error: $.axis[1]: a number is expected, found nan"},
    {R"({"nc":"A","axis":[0,Infinity,1]})",
     ":2:21: error: $.axis[1]: a number is expected, found Infinity"},
    {R"({"nc":"A","axis":[0,-inf,1]})",
     ":2:21: error: $.axis[1]: a number is expected, found -inf"},
    {R"({"nc":"A","axis":[0,1e400,1]})",
     ":2:21: error: $.axis[1]: the number 1e400 is out of range"},
    {R"({"nc":"A","axis":[0,-1e400,1]})",
     ":2:21: error: $.axis[1]: the number -1e400 is out of range"},
    {R"({"nc":"A","axis":[0,+1,1]})", ":2:21: error: $.axis[1]: a number is expected, found +1"},
    {R"({"nc":"A","axis":[0,01,1]})", ":2:21: error: $.axis[1]: a number is expected, found 01"},
    {R"({"nc":"A","axis":[0,1.,1]})", ":2:21: error: $.axis[1]: a number is expected, found 1."},
    {R"({"nc":"A","axis":[0,.5,1]})", ":2:21: error: $.axis[1]: a number is expected, found .5"},
    {R"({"nc":"A","axis":[0,1e,1]})", ":2:21: error: $.axis[1]: a number is expected, found 1e"},
    {R"({"nc":"A","axis":[0,0x10,1]})",
     ":2:21: error: $.axis[1]: a number is expected, found 0x10"},
    {R"({"nc":"A","axis":[0,-,1]})", ":2:21: error: $.axis[1]: a number is expected, found -"},
    {R"({"nc":"A","axis":[0,1.5mm,1]})",
     ":2:21: error: $.axis[1]: a number is expected, found 1.5mm"},
    {R"({"nc":"A","axis":[0,null,1]})",
     ":2:21: error: $.axis[1]: a number is expected, found null"},
    {R"({"nc":"A","axis":[0,,1]})", ":2:21: error: $.axis[1]: a number is expected, found ,"},
    {R"({"nc":"A","axis":[0,1,]})", ":2:23: error: $.axis[2]: a number is expected, found ]"},
    {R"({"nc":"A","spindle":{"value":1e999}})",
     ":2:30: error: $.spindle.value: the number 1e999 is out of range"},
};
INSTANTIATE_TEST_SUITE_P(Numbers, RefusedLine, testing::ValuesIn(kNumbers));

constexpr std::string_view kNoJson =
    "invalid JSON: a comma, a colon, a quote or a bracket is missing or unexpected";

constexpr Refusal kTexts[] = {
    {"{\"nc\":\"A\",\"comment\":\"a\tb\"}",
     ":2:23: error: $: a text must not contain a control character"},
    {R"({"nc":"A","comment":"a\tb"})",
     ":2:21: error: $.comment: a text must not contain a control character"},
    {R"({"nc":"A","comment":"two\nlines"})",
     ":2:21: error: $.comment: a text must not contain a control character"},
    {R"({"nc":"A","comment":"\u0000"})",
     ":2:21: error: $.comment: a text must not contain a control character"},
    {R"({"nc":"A","comment":"\u007f"})",
     ":2:21: error: $.comment: a text must not contain a control character"},
    {R"({"nc":"A","comment":"\ud800"})",
     ":2:21: error: $.comment: the text contains an invalid escape"},
    {R"({"nc":"A","comment":"\x41"})",
     ":2:21: error: $.comment: the text contains an invalid escape"},
    {"{\"nc\":\"A\",\"comment\":\"\xC3\xA9\xFF\"}",
     ":2:24: error: $: this byte is not valid UTF-8"},
    {"{\"nc\":\"A\",\"comment\":\"\xC3\"}", ":2:22: error: $: this byte is not valid UTF-8"},
};
INSTANTIATE_TEST_SUITE_P(Texts, RefusedLine, testing::ValuesIn(kTexts));

constexpr Refusal kStructure[] = {
    {"[1,2,3]", ":2:1: error: $: a line must be an object: {...}"},
    {" 12", ":2:2: error: $: a line must be an object: {...}"},
    {"null", ":2:1: error: $: a line must be an object: {...}"},
    {"\"nc\"", ":2:1: error: $: a line must be an object: {...}"},
    {"GOTO/1,2,3", ":2:1: error: $: a line must be an object: {...}"},
    {R"({"nc":"A"} {"nc":"B"})", ":2:12: error: $: unexpected text after the object"},
    {R"({"nc":"A"}x)", ":2:11: error: $: unexpected text after the object"},
    {R"({"nc":"A"}})", ":2:11: error: $: unexpected text after the object"},
    {R"({"nc":"A","comment":"ab)",
     ":2:21: error: $: the text is not closed; is the line cut short?"},
    {R"({"nc":"A","points":[[1,2,3)",
     ":2:27: error: $: a bracket is not closed; is the line cut short?"},
    {R"({"nc":"A","circle":{"radius":1})",
     ":2:32: error: $: a bracket is not closed; is the line cut short?"},
    {R"({"nc"\"A"})", R"(:2:6: error: $: unexpected "\" outside of a text)"},
    {R"({\"nc\":"A"})", R"(:2:2: error: $: unexpected "\" outside of a text)"},
    {"{", ":2:2: error: $: a bracket is not closed; is the line cut short?"},
};
INSTANTIATE_TEST_SUITE_P(Structure, RefusedLine, testing::ValuesIn(kStructure));

// The column is where the parser stopped.
constexpr Refusal kCommas[] = {
    {R"({"nc" "A"})", ":2:7: error: $: "},
    {R"({"nc":"A" "hole":1})", ":2:11: error: $: "},
    {R"({"nc":"A",})", ":2:11: error: $: "},
    {R"({nc:"A"})", ":2:2: error: $: "},
    {R"({"nc":"A","axis":[0 0,1]})", ":2:21: error: $.axis[1]: "},
    {R"({"nc":"A","axis":[0,0,1}})", ":2:24: error: $.axis[3]: "},
    {R"({"nc":"A","circle":{"radius":1,2}})", ":2:32: error: $.circle: "},
};

TEST(JobLine, MisplacedCommaGivesWhereTheParserStopped) {
  for (const auto& [line, place] : kCommas) {
    const std::string expected = std::string(place).append(kNoJson);
    EXPECT_EQ(readJob(jobOf(line)).error, expected) << line;
  }
}

struct Job {
  std::string text;
  std::string_view error;
};

TEST(Job, OfAnotherShapeIsRefused) {
  const std::string header = std::string(kHeader) + '\n';
  const Job jobs[] = {
      {"", ": error: the job is empty; its first line must be the header"},
      {"\n \n", ":2: error: the job is empty; its first line must be the header"},
      {"{\"end\":true}\n",
       ":1: error: the first line of a job must be its header, with the key \"job\""},
      {"{\"nc\":\"A\"}\n",
       ":1: error: the first line of a job must be its header, with the key \"job\""},
      {header, ":1: error: the job is cut short; its last line must be {\"end\": true}"},
      {header + "{\"nc\":\"A\"}",
       ":2: error: the job is cut short; its last line must be {\"end\": true}"},
      {header + header, ":2: error: a job has only one header, its first line"},
      {jobOf("") + "{\"nc\":\"A\"}\n", ":4: error: nothing may follow the end of the job"},
      {jobOf("") + "x", ":4: error: nothing may follow the end of the job"},
      {"\xEF\xBB\xBF" + jobOf(""),
       ":1: error: $: the job begins with a byte-order mark; write it as UTF-8 without one"},
  };
  for (const auto& [text, error] : jobs) EXPECT_EQ(readJob(text).error, error) << text;
}

TEST(JobHeader, OfAnotherShapeIsRefused) {
  constexpr Refusal kHeaders[] = {
      {R"({"job":1,"units":"mm"})", R"(:1:1: error: $: the key "program" is missing)"},
      {R"({"job":1,"program":"P"})", R"(:1:1: error: $: the key "units" is missing)"},
      {R"({"job":2,"program":"P","units":"mm"})",
       ":1:8: error: $.job: version 2 of the format is not known; write 1"},
      {R"({"job":"1","program":"P","units":"mm"})",
       ":1:8: error: $.job: a whole number from 1 to 2147483647 is expected, found \"1\""},
      {R"({"job":1,"program":"","units":"mm"})", ":1:20: error: $.program: a name is expected"},
      {R"({"job":1,"program":"P","units":"cm"})",
       R"(:1:32: error: $.units: "mm" or "inch" is expected, found "cm")"},
      {R"({"job":1,"program":"P","units":"mm","resource":"MILL"})",
       ":1:48: error: $.resource: an object is expected, found \"MILL\""},
      {R"({"job":1,"program":"P","units":"mm","resource":{"table":"a.txt"}})",
       R"(:1:48: error: $.resource: the key "name" is missing)"},
      {R"({"job":1,"program":"P","units":"mm","resource":{"name":"M","table":""}})",
       ":1:68: error: $.resource.table: a name is expected"},
      {R"({"job":1,"program":"P","units":"mm","designParameters":{"2d":1}})",
       R"(:1:57: error: $.designParameters.2d: a name of letters, digits and "_" is expected, no )"
       "digit first"},
      {R"({"job":1,"program":"P","units":"mm","designParameters":{"a-b":1}})",
       R"(:1:57: error: $.designParameters["a-b"]: a name of letters, digits and "_" is expected, )"
       "no digit first"},
      {R"({"job":1,"program":"P","units":"mm","designParameters":{"":1}})",
       R"(:1:57: error: $.designParameters[""]: a name of letters, digits and "_" is expected, )"
       "no digit first"},
      {R"({"job":1,"program":"P","units":"mm","designParameters":{"d":1,"d":1}})",
       ":1:63: error: $.designParameters.d: duplicate key"},
      {R"({"job":1,"program":"P","units":"mm","designParameters":{"d":"1"}})",
       ":1:61: error: $.designParameters.d: a number is expected, found \"1\""},
      {R"({"job":1,"program":"P","units":"mm","Units":"mm"})",
       R"(:1:37: error: $: unknown key "Units"; did you mean "units"?)"},
  };
  for (const auto& [line, error] : kHeaders) {
    EXPECT_EQ(readJob(std::string(line) + "\n{\"end\":true}\n").error, error) << line;
  }
}

}  // namespace
}  // namespace host::test
