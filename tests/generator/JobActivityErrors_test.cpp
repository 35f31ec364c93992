#include <gtest/gtest.h>

#include <span>

#include "tests/generator/Jobs.h"

namespace host::test {
namespace {

struct ActivityRefusal {
  std::string_view line;
  std::string_view error;
};

/// Each line stands as the second of a job.
void expectRefused(std::span<const ActivityRefusal> refusals) {
  for (const auto& [line, error] : refusals) {
    const JobReading reading = readJob(jobOf(line));
    EXPECT_EQ(reading.error, error) << line;
    EXPECT_TRUE(reading.events.empty()) << line;
  }
}

TEST(JobActivityErrors, UnknownKeyIsNamed) {
  constexpr ActivityRefusal kRefusals[] = {
      {R"({"activity":"A","lathes":{}})",
       R"(:2:17: error: $: unknown key "lathes"; did you mean "lathe"?)"},
      {R"({"activity":"A","kind":"toolChange","operation":{"activity":"B"}})",
       R"(:2:50: error: $.operation: unknown key "activity"; the keys here are name, kind, )"
       R"(parameters, customParameters, tool, assembly, feedsAndSpeeds, strategy, toolPath, )"
       "turning, lathe, motions"},
      {R"({"activity":"A","kind":"machining","feedsAndSpeeds":{"spindleWay":"clw"}})",
       R"(:2:54: error: $.feedsAndSpeeds: unknown key "spindleWay"; did you mean )"
       R"("spindle"?)"},
      {R"({"activity":"A","kind":"machining","feedsAndSpeeds":{"spindle":{"way":1}}})",
       R"(:2:65: error: $.feedsAndSpeeds.spindle: unknown key "way"; the keys here are value, type)"},
      {R"({"activity":"A","kind":"machining","strategy":{"dwel":"time"}})",
       R"(:2:48: error: $.strategy: unknown key "dwel"; did you mean "dwell"?)"},
      {R"({"activity":"A","kind":"machining","toolPath":{"axes":3}})",
       R"(:2:48: error: $.toolPath: unknown key "axes"; the keys here are type)"},
      {R"({"activity":"A","kind":"lathe","turning":{"x":[1,0,0]}})",
       R"(:2:43: error: $.turning: unknown key "x"; the keys here are origin, spindleAxis, )"
       "radialAxis"},
      {R"({"activity":"A","kind":"lathe","lathe":{"wai":1}})",
       R"(:2:41: error: $.lathe: unknown key "wai"; did you mean "way"?)"},
      {R"({"activity":"A","kind":"sequentialAxial","motions":[{},{"feed":1}]})",
       R"(:2:57: error: $.motions[1]: unknown key "feed"; the keys here are feedsAndSpeeds, )"
       "strategy"},
      {R"({"activity":"A","tool":{"name":"T"}})",
       R"(:2:25: error: $.tool: unknown key "name"; the keys here are parameters, compensation, )"
       "replay"},
      {R"({"activity":"A","assembly":{"inserts":{}}})",
       R"(:2:29: error: $.assembly: unknown key "inserts"; did you mean "insert"?)"},
      {R"({"activity":"A","assembly":{"insert":{"noseradius":1}}})",
       R"(:2:39: error: $.assembly.insert: unknown key "noseradius"; did you mean "noseRadius"?)"},
  };
  expectRefused(kRefusals);
}

TEST(JobActivityErrors, KeyOfAnotherKindIsRefused) {
  constexpr ActivityRefusal kRefusals[] = {
      {R"({"activity":"A","operation":{"name":"B","kind":"machining"}})",
       R"(:2:1: error: $: the key "operation" needs the kind "toolChange")"},
      {R"({"activity":"A","kind":"toolChange","feedsAndSpeeds":{}})",
       R"(:2:1: error: $: the key "feedsAndSpeeds" needs the kind "machining" or "lathe" or )"
       R"("sequentialAxial" or "sequentialGroove")"},
      {R"({"activity":"A","strategy":{}})",
       R"(:2:1: error: $: the key "strategy" needs the kind "machining" or "lathe" or )"
       R"("sequentialAxial" or "sequentialGroove")"},
      {R"({"activity":"A","toolPath":{}})",
       R"(:2:1: error: $: the key "toolPath" needs the kind "machining" or "lathe" or )"
       R"("sequentialAxial" or "sequentialGroove")"},
      {R"({"activity":"A","turning":{"origin":[0,0,0],"spindleAxis":[0,0,1],)"
       R"("radialAxis":[1,0,0]}})",
       R"(:2:1: error: $: the key "turning" needs the kind "machining" or "lathe" or )"
       R"("sequentialAxial" or "sequentialGroove")"},
      {R"({"activity":"A","lathe":{}})",
       R"(:2:1: error: $: the key "lathe" needs the kind "machining" or "lathe" or )"
       R"("sequentialAxial" or "sequentialGroove")"},
      {R"({"activity":"A","lathe":{"way":-1},"kind":"toolChange"})",
       R"(:2:1: error: $: the key "lathe" needs the kind "machining" or "lathe" or )"
       R"("sequentialAxial" or "sequentialGroove")"},
      {R"(  {"activity":"A","kind":"lathe","motions":[]})",
       R"(:2:3: error: $: the key "motions" needs the kind "sequentialAxial" or )"
       R"("sequentialGroove")"},
      {R"({"activity":"A","kind":"toolChange","operation":{"name":"B","kind":"machining",)"
       R"("motions":[]}})",
       R"(:2:49: error: $.operation: the key "motions" needs the kind "sequentialAxial" or )"
       R"("sequentialGroove")"},
  };
  expectRefused(kRefusals);
}

TEST(JobActivityErrors, MissingKeyIsNamed) {
  constexpr ActivityRefusal kRefusals[] = {
      {R"({"activity":"A","kind":"toolChange","operation":{"kind":"machining"}})",
       R"(:2:49: error: $.operation: the key "name" is missing)"},
      {R"({"activity":"A","kind":"toolChange","operation":{"name":"B"}})",
       R"(:2:49: error: $.operation: the key "kind" is missing)"},
      {R"({"activity":"A","kind":"machining","feedsAndSpeeds":{"machining":{"type":"linear"}}})",
       R"(:2:66: error: $.feedsAndSpeeds.machining: the key "value" is missing)"},
      {R"({"activity":"A","kind":"lathe","turning":{"origin":[0,0,0],"spindleAxis":[0,0,1]}})",
       R"(:2:42: error: $.turning: the key "radialAxis" is missing)"},
      {R"({"activity":"A","assembly":{"insert":{"noseRadius":0.8}}})",
       R"(:2:38: error: $.assembly.insert: the key "type" is missing)"},
  };
  expectRefused(kRefusals);
}

TEST(JobActivityErrors, WordThatIsNotKnownIsRefused) {
  constexpr ActivityRefusal kRefusals[] = {
      {R"({"activity":"A","kind":"milling"})",
       R"(:2:24: error: $.kind: "toolChange" or "machining" or "lathe" or "sequentialAxial" or )"
       R"("sequentialGroove" is expected, found "milling")"},
      {R"({"activity":"A","kind":"toolChange","operation":{"name":"B","kind":"toolChange"}})",
       R"(:2:68: error: $.operation.kind: "machining" or "lathe" or "sequentialAxial" or )"
       R"("sequentialGroove" is expected, found "toolChange")"},
      {R"({"activity":"A","kind":"machining","strategy":{"dwell":"seconds"}})",
       R"(:2:56: error: $.strategy.dwell: "revolution" or "time" or "none" is expected, found )"
       R"("seconds")"},
      {R"({"activity":"A","kind":"sequentialAxial","motions":[{"strategy":{"dwell":""}}]})",
       R"(:2:74: error: $.motions[0].strategy.dwell: "revolution" or "time" or "none" is )"
       R"(expected, found "")"},
      {R"({"activity":"A","kind":"sequentialAxial","motions":[{"feedsAndSpeeds":)"
       R"({"spindleSpeed":"own"}}]})",
       R"(:2:87: error: $.motions[0].feedsAndSpeeds.spindleSpeed: "local" or "operation" is )"
       R"(expected, found "own")"},
      {R"({"activity":"A","kind":"sequentialAxial","motions":[{"feedsAndSpeeds":)"
       R"({"spindleWay":1}}]})",
       R"(:2:85: error: $.motions[0].feedsAndSpeeds.spindleWay: a text is expected, found 1)"},
      {R"({"activity":"A","kind":"machining","feedsAndSpeeds":{"spindle":{"value":1,)"
       R"("type":"rpm"}}})",
       R"(:2:82: error: $.feedsAndSpeeds.spindle.type: "linear" or "angular" is expected, found )"
       R"("rpm")"},
      {R"({"activity":"A","assembly":{"kind":"turning"}})",
       R"(:2:36: error: $.assembly.kind: "mill" or "lathe" is expected, found "turning")"},
  };
  expectRefused(kRefusals);
}

TEST(JobActivityErrors, ValueOfAnotherTypeIsRefused) {
  constexpr ActivityRefusal kRefusals[] = {
      {R"({"activity":"A","kind":7})", ":2:24: error: $.kind: a text is expected, found 7"},
      {R"({"activity":"A","kind":"toolChange","operation":[]})",
       ":2:49: error: $.operation: an object is expected, found ["},
      {R"({"activity":"A","kind":"toolChange","operation":{"name":""}})",
       ":2:57: error: $.operation.name: a name is expected"},
      {R"({"activity":"A","kind":"machining","feedsAndSpeeds":{"machining":800}})",
       ":2:66: error: $.feedsAndSpeeds.machining: an object is expected, found 800"},
      {R"({"activity":"A","kind":"machining","feedsAndSpeeds":{"machining":{"value":"800"}}})",
       ":2:75: error: $.feedsAndSpeeds.machining.value: a number is expected, found \"800\""},
      {R"({"activity":"A","kind":"machining","strategy":"time"})",
       ":2:47: error: $.strategy: an object is expected, found \"time\""},
      {R"({"activity":"A","kind":"machining","toolPath":{"type":1.5}})",
       ":2:55: error: $.toolPath.type: a whole number from -2147483648 to 2147483647 is expected, "
       "found 1.5"},
      {R"({"activity":"A","kind":"lathe","turning":{"origin":[0,0]}})",
       ":2:52: error: $.turning.origin: exactly three numbers are expected"},
      {R"({"activity":"A","kind":"lathe","lathe":{"way":true}})",
       ":2:47: error: $.lathe.way: a whole number from -2147483648 to 2147483647 is expected, "
       "found true"},
      {R"({"activity":"A","kind":"lathe","lathe":{"correctors":["P9"]}})",
       ":2:54: error: $.lathe.correctors: an object is expected, found ["},
      {R"({"activity":"A","kind":"lathe","lathe":{"correctors":{"1":9}}})",
       ":2:59: error: $.lathe.correctors.1: a text is expected, found 9"},
      {R"({"activity":"A","kind":"lathe","lathe":{"correctors":{"1":""}}})",
       ":2:59: error: $.lathe.correctors.1: a name is expected"},
      {R"({"activity":"A","kind":"lathe","lathe":{"defaultCorrector":0}})",
       ":2:60: error: $.lathe.defaultCorrector: a whole number from 1 to 2147483647 is expected, "
       "found 0"},
      {R"({"activity":"A","kind":"lathe","lathe":{"defaultCorrector":2,"correctors":{"1":"P9"}}})",
       ":2:40: error: $.lathe: the default corrector 2 is none of the correctors"},
      {R"({"activity":"A","kind":"sequentialAxial","motions":{}})",
       ":2:52: error: $.motions: an array is expected, found {"},
      {R"({"activity":"A","kind":"sequentialAxial","motions":[{},1]})",
       ":2:56: error: $.motions[1]: an object is expected, found 1"},
      {R"({"activity":"A","tool":"T1"})",
       ":2:24: error: $.tool: an object is expected, found \"T1\""},
      {R"({"activity":"A","tool":{"parameters":{"D":2}}})",
       R"(:2:43: error: $.tool.parameters.D: a text, {"real": NUMBER} or {"integer": NUMBER} is )"
       "expected, found 2"},
      {R"({"activity":"A","tool":{"replay":{"9":[1,2]}}})",
       ":2:39: error: $.tool.replay.9: exactly three numbers are expected"},
      {R"({"activity":"A","assembly":{"inverted":1}})",
       ":2:40: error: $.assembly.inverted: true or false is expected, found 1"},
      {R"({"activity":"A","assembly":{"kind":"lathe","reference":"P9"}})",
       ":2:56: error: $.assembly.reference: a whole number from 1 to 2147483647 is expected, found "
       "\"P9\""},
      {R"({"activity":"A","assembly":{"kind":"lathe","radii":{"P9":"0.4"}}})",
       ":2:58: error: $.assembly.radii.P9: a number is expected, found \"0.4\""},
      {R"({"activity":"A","assembly":{"insert":{"type":"X","noseRadius":null}}})",
       ":2:63: error: $.assembly.insert.noseRadius: a number is expected, found null"},
      {R"({"activity":"A","assembly":{"insert":{"type":""}}})",
       ":2:46: error: $.assembly.insert.type: a name is expected"},
  };
  expectRefused(kRefusals);
}

TEST(JobActivityErrors, KeyThatIsNoNumberIsRefused) {
  constexpr ActivityRefusal kRefusals[] = {
      {R"({"activity":"A","tool":{"compensation":{"0":"P9"}}})",
       R"(:2:41: error: $.tool.compensation.0: a number from 1 to 999999999 is expected as the key)"},
      {R"({"activity":"A","tool":{"compensation":{"01":"P9"}}})",
       R"(:2:41: error: $.tool.compensation.01: a number from 1 to 999999999 is expected as the )"
       "key"},
      {R"({"activity":"A","tool":{"compensation":{"":"P9"}}})",
       R"(:2:41: error: $.tool.compensation[""]: a number from 1 to 999999999 is expected as the )"
       "key"},
      {R"({"activity":"A","tool":{"replay":{"P9":[0,0,0]}}})",
       R"(:2:35: error: $.tool.replay.P9: a number from 1 to 999999999 is expected as the key)"},
      {R"({"activity":"A","kind":"lathe","lathe":{"correctors":{"1000000000":"P9"}}})",
       R"(:2:55: error: $.lathe.correctors.1000000000: a number from 1 to 999999999 is expected as )"
       "the key"},
      {R"({"activity":"A","tool":{"compensation":{"1":"P9","1":"P3"}}})",
       ":2:50: error: $.tool.compensation.1: duplicate key"},
      {R"({"activity":"A","assembly":{"kind":"lathe","radii":{"":1}}})",
       R"(:2:53: error: $.assembly.radii[""]: a tool point needs a name)"},
      {R"({"activity":"A","assembly":{"kind":"lathe","radii":{"P9":1,"P9":2}}})",
       ":2:60: error: $.assembly.radii.P9: duplicate key"},
  };
  expectRefused(kRefusals);
}

TEST(JobActivityErrors, RadiusOfAnotherInsertIsRefused) {
  constexpr ActivityRefusal kRefusals[] = {
      {R"({"activity":"A","assembly":{"insert":{"type":"MfgGrooveInsert","noseRadius":0.8}}})",
       ":2:38: error: $.assembly.insert: a groove insert has \"leftNoseRadius\" and "
       "\"rightNoseRadius\""},
      {R"({"activity":"A","assembly":{"insert":{"noseRadius":0,"type":"KEPEMfgGrooveInsert"}}})",
       ":2:38: error: $.assembly.insert: a groove insert has \"leftNoseRadius\" and "
       "\"rightNoseRadius\""},
      {R"({"activity":"A","assembly":{"insert":{"type":"MfgDiamondInsert","leftNoseRadius":1}}})",
       R"(:2:38: error: $.assembly.insert: an insert of this type has "noseRadius")"},
      {R"({"activity":"A","assembly":{"insert":{"rightNoseRadius":1,"type":"X","noseRadius":1}}})",
       R"(:2:38: error: $.assembly.insert: an insert of this type has "noseRadius")"},
  };
  expectRefused(kRefusals);
}

TEST(JobActivityErrors, AngleFactorIsANumber) {
  const JobReading reading = readJob(
      "{\"job\":1,\"program\":\"P\",\"units\":\"mm\",\"angleFactor\":\"deg\"}\n{\"end\":true}\n");
  EXPECT_EQ(reading.error, ":1:51: error: $.angleFactor: a number is expected, found \"deg\"");
}

}  // namespace
}  // namespace host::test
