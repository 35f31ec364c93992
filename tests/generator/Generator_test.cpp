#include "post/generator/Generator.h"

#include <gtest/gtest.h>

#include "KEPIMfgBufferSeqMotionNumber.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "host/manufacturing/Activity.h"
#include "host/manufacturing/GeneratorData.h"
#include "host/system/Session.h"
#include "tests/generator/Generation.h"

namespace host::test {
namespace {

constexpr std::string_view kUserSyntax = "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX";

/// What one element of the user's own syntax gives.
Lines linesOfUserSyntax(const KEPVar<Document>& document, std::string_view syntax,
                        std::string_view activity = "") {
  document->ppWordContainer()->SetUserSyntax(KEPUnicodeString(syntax));
  const std::string line = "{\"nc\":\"" + std::string(kUserSyntax) + "\"}";
  return post(document, jobOf(std::string(activity).append("\n").append(line))).lines;
}

TEST(Generator, EachPositionGivesItsLines) {
  const Posting posting = post(R"({"nc":"NC_GOTO","points":[[1,2,3],[-4.5,0.25,1000]]})");
  EXPECT_EQ(posting.error, "");
  const Lines expected{"GOTO/    1.00000,    2.00000,    3.00000",
                       "GOTO/   -4.50000,    0.25000, 1000.00000"};
  EXPECT_EQ(posting.lines, expected);
}

TEST(Generator, ElementWithoutPositionsGivesItsLinesOnce) {
  EXPECT_EQ(post("{\"nc\":\"NC_RAPID\"}\n{\"nc\":\"NC_CUTCOM_NORMDS_ON\"}").lines,
            (Lines{"RAPID", "CUTCOM/SAME, NORMDS", "CUTCOM/NORMDS"}));
}

TEST(Generator, ToolAxisHoldsUntilItChanges) {
  const Posting posting = post(
      R"({"nc":"NC_GOTO_VARIABLE_AXIS","axis":[0,0,1],"points":[[1,2,3],[4,5,6,0.6,0,0.8],[7,8,9]]})");
  const Lines expected{"GOTO/    1.00000,    2.00000,    3.00000, 0.000000, 0.000000, 1.000000",
                       "GOTO/    4.00000,    5.00000,    6.00000, 0.600000, 0.000000, 0.800000",
                       "GOTO/    7.00000,    8.00000,    9.00000, 0.600000, 0.000000, 0.800000"};
  EXPECT_EQ(posting.lines, expected);
}

/// The activity that a document is generating.
KEPIMfgActivity_var currentActivity(const KEPVar<Document>& document) {
  KEPIMfgActivity_var activity;
  KEPMfgModelUtilities::GetCurrentActivity(document->ppWordContainer(), activity);
  return activity;
}

TEST(Generator, ActivityAndItsObjectsDieWithTheNextOne) {
  const KEPVar<Document> document = newDocument();
  KeptLines sink;
  Generator generator(document, "job", sink);
  ActivityStart start;
  start.name = "Groove.1";
  start.tool.emplace();
  start.assembly.emplace().insert.emplace();
  generator.put(start);
  const KEPIMfgActivity_var activity = currentActivity(document);
  EXPECT_EQ(activity->GetName(), KEPUnicodeString("Groove.1"));
  KEPBaseUnknown_var tool;
  KEPBaseUnknown_var assembly;
  EXPECT_EQ(activity->GetToolAndAssembly(tool, assembly), S_OK);
  EXPECT_EQ(tool->GetReferenceCount(), 2);
  start.name = "Groove.2";
  generator.put(start);
  EXPECT_EQ(currentActivity(document)->GetName(), KEPUnicodeString("Groove.2"));
  EXPECT_EQ(activity->GetReferenceCount(), 1);
}

TEST(Generator, ActivityStatedAsVirtualStandsForTheRealOne) {
  const KEPVar<Document> document = newDocument();
  KeptLines sink;
  Generator generator(document, "job", sink);
  ActivityStart start;
  start.name = "Turning.1";
  start.kind = ActivityKind::Lathe;
  start.isVirtual = true;
  generator.put(start);
  const KEPIMfgActivity_var activity = currentActivity(document);
  EXPECT_FALSE(activity->IsAKindOf("MfgLatheOperation"));
  const KEPIMfgVirtualActivity_var standIn = activity;
  ASSERT_TRUE(standIn);
  EXPECT_TRUE(standIn->GetRealActivity()->IsAKindOf("MfgLatheOperation"));
}

TEST(Generator, AngleFactorOfTheHeaderHoldsForItsJob) {
  const InputFile file(
      "{\"job\":1,\"program\":\"P\",\"units\":\"mm\",\"angleFactor\":57.5}\n{\"end\":true}\n");
  const JobReader reader(std::make_unique<LineReader>(file.path()));
  const KEPVar<Document> document = newDocument();
  double factor = 1.0;
  {
    const JobSetup setup(reader.header(), *document);
    KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData()->GetAngleFactor(factor);
  }
  EXPECT_EQ(factor, 57.5);
  EXPECT_FALSE(KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData());
}

TEST(Generator, EachPositionHasAnOutputListOfItsOwn) {
  const KEPVar<Document> document = newDocument();
  document->ppWordContainer()->SetUserSyntax(KEPUnicodeString("X,%MFG_XPOINT,"));
  const Posting posting = post(
      document,
      jobOf(R"({"nc":"NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX","points":[[1,0,0],[2,0,0]]})"));
  EXPECT_EQ(posting.lines, (Lines{"X,    1.00000,", "X,    2.00000,"}));
}

TEST(Generator, FormatsOfTheHeaderHoldForItsJob) {
  const KEPVar<Document> document = newDocument();
  constexpr std::string_view kElement =
      "{\"nc\":\"NC_GOTO_VARIABLE_AXIS\",\"points\":[[1,2,3,0,0,1]]}\n{\"end\":true}\n";
  const std::string formatted =
      R"({"job":1,"program":"P","units":"mm","pointFormat":"%.2f","axisFormat":"%.1f"})"
      "\n";
  EXPECT_EQ(post(document, formatted + std::string(kElement)).lines,
            Lines{"GOTO/1.00,2.00,3.00,0.0,0.0,1.0"});
  EXPECT_EQ(post(document, std::string(kHeader) + '\n' + std::string(kElement)).lines,
            Lines{"GOTO/    1.00000,    2.00000,    3.00000, 0.000000, 0.000000, 1.000000"});
}

TEST(Generator, FormatThatShowsNoNumberIsRefusedAtItsPlace) {
  const auto errorOf = [](std::string_view formats) {
    const std::string job =
        std::string(R"({"job":1,"program":"P","units":"mm",)").append(formats) + "}\n";
    const Posting posting = post(newDocument(), job + "{\"nc\":\"NC_GOTO\"}\n{\"end\":true}\n");
    return posting.error.substr(std::min(posting.error.find(":1:"), posting.error.size()));
  };
  constexpr std::string_view kWhy =
      ": no number can be printed with this format; write one conversion of e, f, g or a, such as "
      "%.3f";
  for (const std::string_view format : {".3f", "3", "%d", "%s", "%", "%1000f", "%.3f%.3f", "%%"}) {
    EXPECT_EQ(errorOf("\"pointFormat\":\"" + std::string(format) + '"'),
              ":1:51: error: $.pointFormat" + std::string(kWhy));
  }
  EXPECT_EQ(errorOf(R"("pointFormat":"%.3f","axisFormat":".6f")"),
            ":1:71: error: $.axisFormat" + std::string(kWhy));
  EXPECT_EQ(errorOf(R"("pointFormat":"","axisFormat":"")"), "");
  EXPECT_EQ(errorOf(R"("pointFormat":"%,3f mm","axisFormat":"%+.1e")"), "");
}

TEST(Generator, GeneratorDataBeforeTheJobComesBack) {
  const KEPIMfgGeneratorData_var before = GeneratorData::create("", "");
  setCurrentGeneratorData(before);
  EXPECT_EQ(post("{\"nc\":\"NC_RAPID\"}").lines, Lines{"RAPID"});
  EXPECT_EQ(KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData().Get(), before.Get());
  setCurrentGeneratorData({});
}

TEST(Generator, DesignParametersOfTheHeaderAreKnown) {
  const KEPVar<Document> document = newDocument();
  document->ppWordContainer()->SetUserSyntax(KEPUnicodeString("PPFUN/%(depth),1"));
  const std::string job =
      R"({"job":1,"program":"P","units":"mm","designParameters":{"depth":12.5}})"
      "\n"
      R"({"nc":"NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX"})"
      "\n{\"end\":true}\n";
  EXPECT_EQ(post(document, job).lines, Lines{"PPFUN/   12.500000,1"});
}

TEST(Generator, ActivityGivesItsParameters) {
  const Posting posting = post(R"({"activity":"T1","parameters":{"MFG_TOOL_NUMBER":{"integer":1},)"
                               R"("MFG_NOMINAL_DIAM":{"real":8.5},"MFG_TOOL_NAME":"DRILL D8,5"}})"
                               "\n{\"nc\":\"NC_TOOL_CHANGE\"}");
  const Lines expected{"TOOLNO/1,    8.500000", "TPRINT/DRILL D8,5", "LOADTL/1"};
  EXPECT_EQ(posting.lines, expected);
  EXPECT_EQ(posting.summary.unevaluated.total(), 0);
}

TEST(Generator, NextActivityTakesThePlaceOfTheOneBefore) {
  const Posting posting = post(
      "{\"activity\":\"A\",\"parameters\":{\"MFG_TL_NUMBER\":{\"integer\":1}}}\n"
      "{\"activity\":\"B\",\"parameters\":{\"MFG_TL_COMP\":{\"integer\":2}}}\n"
      "{\"nc\":\"NC_COMPENSATION\"}");
  EXPECT_EQ(posting.lines, Lines{"LOADTL/,2"});
}

TEST(Generator, CustomParametersAreAskedFirst) {
  constexpr std::string_view kActivity =
      R"({"activity":"A","parameters":{"OWN":"parameter"},"customParameters":{"OWN":"custom"}})";
  EXPECT_EQ(linesOfUserSyntax(newDocument(), "PPRINT %OWN", kActivity), Lines{"PPRINT custom"});
}

TEST(Generator, VirtualActivityGivesTheParametersOfTheRealOne) {
  constexpr std::string_view kActivity =
      R"({"activity":"A","virtual":true,"parameters":{"OWN":"real"}})";
  EXPECT_EQ(linesOfUserSyntax(newDocument(), "PPRINT %OWN", kActivity), Lines{"PPRINT real"});
}

TEST(Generator, ActivityEndsWithTheJob) {
  const KEPVar<Document> document = newDocument();
  constexpr std::string_view kActivity = R"({"activity":"A","parameters":{"OWN":"1"}})";
  EXPECT_EQ(linesOfUserSyntax(document, "PPRINT %OWN", kActivity), Lines{"PPRINT 1"});
  EXPECT_EQ(linesOfUserSyntax(document, "PPRINT %OWN"), Lines{"PPRINT "});
  KEPBaseUnknown_var activity = Activity::create("left over");
  document->ppWordContainer()->GetFirstObject(activity);
  EXPECT_FALSE(activity);
}

TEST(Generator, BytesOfTextsComeOutUnchanged) {
  constexpr std::string_view kActivity = R"({"activity":"A","parameters":{"OWN":"caf\u00e9 Ø"}})";
  EXPECT_EQ(linesOfUserSyntax(newDocument(), "PPRINT %OWN", kActivity),
            Lines{"PPRINT caf\xC3\xA9 \xC3\x98"});
}

TEST(Generator, SequentialMotionNumberReachesItsBuffer) {
  const KEPVar<Document> document = newDocument();
  const KEPIMfgBufferSeqMotionNumber_var buffer = document->ppWordContainer();
  const Posting posting =
      post(document, jobOf("{\"nc\":\"NC_GOTO#SEQMOTION#12\"}\n{\"nc\":\"NC_GOTO\"}\n"
                           "{\"nc\":\"NC_GOTO#SEQMOTION#7\"}"));
  EXPECT_EQ(posting.error, "");
  int number = 0;
  buffer->GetNumber(number);
  EXPECT_EQ(number, 7);
  ASSERT_EQ(posting.summary.instructions.entries().size(), 1U);
  EXPECT_EQ(posting.summary.instructions.entries()[0].name, "NC_GOTO");
  EXPECT_EQ(posting.summary.instructions.entries()[0].count, 3);
}

struct ElementRefusal {
  std::string_view line;
  std::string_view error;
};

TEST(Generator, ElementThatCannotBeWrittenEndsTheJob) {
  constexpr ElementRefusal kRefusals[] = {
      {R"({"nc":"NC_GOTOO"})",
       R"(job:3: error: this document has no NC instruction NC_GOTOO; did you mean "NC_GOTO"?)"},
      {R"({"nc":"NC_RAPDI#SEQMOTION#3"})",
       "job:3: error: this document has no NC instruction NC_RAPDI#SEQMOTION#3; did you mean "
       "\"NC_RAPID\"?"},
      {R"({"nc":"NC_MILL_AND_TURN_AT_ONCE"})",
       "job:3: error: this document has no NC instruction NC_MILL_AND_TURN_AT_ONCE"},
      {R"({"nc":"nc_goto"})",
       R"(job:3: error: this document has no NC instruction nc_goto; did you mean "NC_GOTO"?)"},
      {R"({"nc":"MFG_XPOINT"})", "job:3: error: this document has no NC instruction MFG_XPOINT"},
      {R"({"nc":"NC_GOTO","sequence":2})",
       "job:3: error: NC_GOTO cannot be written: it has no sequence 2; it has 1"},
      {R"({"nc":"NC_GOTO","sequence":2,"points":[[1,2,3]]})",
       "job:3: error: NC_GOTO cannot be written: it has no sequence 2; it has 1"},
  };
  for (const auto& [line, error] : kRefusals) {
    const Posting posting =
        post("{\"nc\":\"NC_RAPID\"}\n" + std::string(line) + "\n{\"nc\":\"NC_RAPID\"}");
    EXPECT_EQ(posting.error, error) << line;
    EXPECT_EQ(posting.lines, Lines{"RAPID"}) << line;
  }
}

TEST(Generator, MarkerWithoutTheNumberOfAMotionIsRefused) {
  for (const std::string number : {"", "0", "-5", "x", "2x", " 2", "02", "99999999999"}) {
    EXPECT_EQ(post("{\"nc\":\"NC_GOTO#SEQMOTION#" + number + "\"}").error,
              "job:2: error: NC_GOTO#SEQMOTION#" + number +
                  " names no sequential motion: a number from 1 is expected after #SEQMOTION#");
  }
}

TEST(Generator, InstructionWhoseOwnNameHoldsTheMarkerIsPutOut) {
  const KEPVar<Document> document = newDocument();
  const auto features = document->features();
  const auto type = KEPISpecObject_var::Adopt(features->CreateStartUp(
      "NC_A#SEQMOTION#B", KEPISpecObject_var::Adopt(features->FindStartUp("MfgPPSyntax"))));
  KEPISpecAttrAccess_var(type)->AddAttribute("Syntaxe", KEPISpecAttribute::Kind::StringList);
  KEPISpecAttrAccess_var(type)->AppendToList("Syntaxe", "RAPID");
  EXPECT_EQ(post(document, jobOf("{\"nc\":\"NC_A#SEQMOTION#B\"}")).lines, Lines{"RAPID"});
}

TEST(Generator, SummaryCountsElementsLinesAndInstructions) {
  const Posting posting = post(
      "{\"nc\":\"NC_RAPID\"}\n{\"nc\":\"NC_GOTO\",\"points\":[[1,2,3],[4,5,6],[7,8,9]]}\n"
      "{\"nc\":\"NC_CUTCOM_NORMDS_ON\"}\n{\"nc\":\"NC_RAPID\"}");
  const Summary& summary = posting.summary;
  EXPECT_EQ(summary.file, "job");
  EXPECT_EQ(summary.elements, 6);
  EXPECT_EQ(summary.lines, 7);
  const auto& used = summary.instructions.entries();
  ASSERT_EQ(used.size(), 3U);
  EXPECT_EQ(used[0].name, "NC_RAPID");
  EXPECT_EQ(used[0].count, 2);
  EXPECT_EQ(used[1].name, "NC_GOTO");
  EXPECT_EQ(used[1].count, 3);
  EXPECT_EQ(used[1].firstLine, 3);
  EXPECT_EQ(used[2].name, "NC_CUTCOM_NORMDS_ON");
  EXPECT_EQ(summary.unevaluated.total(), 0);
  EXPECT_EQ(summary.dropped.total(), 0);
}

TEST(Generator, SummaryNamesReferencesThatCannotBeEvaluated) {
  const Posting posting =
      post("{\"nc\":\"NC_RAPID\"}\n{\"nc\":\"NC_TOOL_CHANGE\"}\n{\"nc\":\"NC_TOOL_CHANGE_LATHE\"}");
  EXPECT_EQ(posting.lines, (Lines{"RAPID", "TOOLNO/,", "TPRINT/", "LOADTL/", "TOOLNO/,TURN"}));
  const auto& entries = posting.summary.unevaluated.entries();
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].name, "MFG_TOOL_NUMBER");
  EXPECT_EQ(entries[0].count, 3);
  EXPECT_EQ(entries[0].firstLine, 3);
  EXPECT_EQ(entries[0].firstInstruction, "NC_TOOL_CHANGE");
  EXPECT_EQ(entries[1].name, "MFG_NOMINAL_DIAM");
  EXPECT_EQ(entries[2].name, "MFG_TOOL_NAME");
}

TEST(Generator, SummaryNamesNumbersThatTheirFormatsDoNotPrint) {
  const KEPVar<Document> document = newDocument();
  const auto setFormat = [&](std::string_view parameter, std::string_view format) {
    KEPISpecObject_var type;
    document->ppWordContainer()->GetPPWord(type, parameter);
    KEPMfgAttributeUtilities::SetString(type, "Format", format);
  };
  setFormat("MFG_XPOINT", "");
  setFormat("MFG_YPOINT", "none");
  document->ppWordContainer()->SetUserSyntax(
      KEPUnicodeString("GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT,%MFG_OUTPUT_COMMENT"));
  const Posting posting =
      post(document, jobOf("{\"nc\":\"NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX\"}"));
  EXPECT_EQ(posting.lines, Lines{"GOTO/,none,    0.00000,"});
  const auto& entries = posting.summary.withoutNumber.entries();
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].name, "MFG_XPOINT");
  EXPECT_EQ(entries[0].count, 1);
  EXPECT_EQ(entries[0].firstLine, 2);
  EXPECT_EQ(entries[1].name, "MFG_YPOINT");
}

TEST(Generator, SummaryNamesLinesBeyondColumn72) {
  const KEPVar<Document> document = newDocument();
  const std::string widest(72, 'A');
  const std::string tooWide(73, 'A');
  std::string accented = tooWide;
  accented.replace(0, 2, "\xC3\xA9");
  const auto lines = [&](const std::string& syntax) {
    document->ppWordContainer()->SetUserSyntax(KEPUnicodeString(syntax));
    return post(document, jobOf("{\"nc\":\"NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX\"}"));
  };
  EXPECT_EQ(lines(widest).summary.wide.total(), 0);
  EXPECT_EQ(lines(accented).summary.wide.total(), 0);
  const Posting posting = lines(tooWide);
  EXPECT_EQ(posting.lines, Lines{tooWide});
  ASSERT_EQ(posting.summary.wide.entries().size(), 1U);
  EXPECT_EQ(posting.summary.wide.entries()[0].name, "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX");
  EXPECT_EQ(posting.summary.wide.entries()[0].firstLine, 2);
}

TEST(Generator, SummaryNamesWhatWasDropped) {
  const KEPVar<Document> document = newDocument();
  document->ppWordContainer()->SetUserSyntax(KEPUnicodeString("GOTO/%MFG_XPOINT$"));
  const Posting posting =
      post(document, jobOf("{\"nc\":\"NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX\"}"));
  EXPECT_EQ(posting.lines, Lines{"GOTO/    0.00000"});
  ASSERT_EQ(posting.summary.dropped.entries().size(), 1U);
  EXPECT_EQ(posting.summary.dropped.entries()[0].name, "MFG_XPOINT$");
  EXPECT_EQ(posting.summary.dropped.entries()[0].firstLine, 2);
}

TEST(Generator, SummaryNamesWhatWasDeleted) {
  const KEPVar<Document> document = newDocument();
  document->ppWordContainer()->SetUserSyntax(KEPUnicodeString("GOTO/1+,-MM,%(A*B"));
  const Posting posting =
      post(document, jobOf("{\"nc\":\"NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX\"}"));
  EXPECT_EQ(posting.lines, Lines{"GOTO/,,"});
  const auto& entries = posting.summary.deleted.entries();
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].name, "*");
  EXPECT_EQ(entries[1].name, "1+");
  EXPECT_EQ(entries[1].firstLine, 2);
  EXPECT_EQ(entries[2].name, "-MM");
}

TEST(Generator, ListenerBeforeTheJobComesBack) {
  KEPMfgPPWordListener before;
  session().listener = &before;
  KeptLines sink;
  {
    const Generator generator(newDocument(), "job", sink);
    EXPECT_NE(session().listener, &before);
  }
  EXPECT_EQ(session().listener, &before);
  session().listener = nullptr;
}

TEST(Generator, EveryHandleIsGivenBack) {
  const KEPVar<Document> document = newDocument();
  const KEPIMfgPPWordContainer_var words = document->ppWordContainer();
  const int documentBefore = document->GetReferenceCount();
  const int wordsBefore = words->GetReferenceCount();
  const Posting posting = post(document, jobOf("{\"activity\":\"A\"}\n{\"nc\":\"NC_RAPID\"}\n"
                                               "{\"nc\":\"NC_NONE\"}"));
  EXPECT_NE(posting.error, "");
  EXPECT_EQ(document->GetReferenceCount(), documentBefore);
  EXPECT_EQ(words->GetReferenceCount(), wordsBefore);
}

}  // namespace
}  // namespace host::test
