#include "src/container/TableLoad.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "Manufacturing/KEPMfgInternalError.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "host/modeler/Container.h"
#include "host/system/Session.h"
#include "tests/container/Listing.h"
#include "tests/support/PPWordDocument.h"
#include "tests/table/TableFiles.h"

namespace ppword::test {
namespace {

/// What a table load told, one text for each entry: «Section number name outcome».
class LoadReport final : public KEPMfgPPWordListener {
 public:
  LoadReport() { host::session().listener = this; }
  LoadReport(const LoadReport&) = delete;
  LoadReport& operator=(const LoadReport&) = delete;
  ~LoadReport() override { host::session().listener = nullptr; }

  void TableEntry(Section section, int number, std::string_view name, Outcome outcome) override {
    static constexpr const char* kSections[] = {"Command", "Sequence", "MultiList", "Format"};
    static constexpr const char* kOutcomes[] = {
        "Created", "Replaced", "NeverLoaded", "NameUnreadable", "ContentUnreadable", "NotDeclared"};
    entries_.push_back(std::string(kSections[static_cast<int>(section)]) + " " +
                       std::to_string(number) + " «" + std::string(name) + "» " +
                       kOutcomes[static_cast<int>(outcome)]);
  }

  [[nodiscard]] const Texts& entries() const { return entries_; }

 private:
  Texts entries_;
};

/// A container with the three root types and what the test adds.
class TableLoad : public testing::Test, protected PPWordDocument {
 protected:
  HRESULT load(std::string_view table) const {
    const TableFile file(table);
    return words->LoadPPWordTable(KEPUnicodeString(file.path().View()));
  }
  /// What the load of a table that passes its check told.
  [[nodiscard]] Texts reportOf(std::string_view table) const {
    const LoadReport report;
    EXPECT_EQ(load(table), S_OK);
    return report.entries();
  }
  [[nodiscard]] std::string entry(std::string_view name) const {
    const KEPISpecObject_var type = find(name);
    return type ? entryOf(type) : "no type";
  }
  void attribute(const KEPISpecAttrAccess_var& type, std::string_view name,
                 const Texts& items) const {
    type->AddAttribute(name, KEPISpecAttribute::Kind::StringList);
    type->SetList(name, list(items));
  }
  void multiList(std::string_view name, const Texts& items) const {
    attribute(make(name, "MfgPPParameter"), "MultiListValue", items);
  }
  /// An instruction of three sequences of one line each.
  KEPISpecObject_var threeSequences(std::string_view name) const {
    KEPISpecObject_var type = instruction(name, {"OLD/1"});
    attribute(type, "Syntaxe2", {"OLD/2"});
    attribute(type, "Syntaxe3", {"OLD/3"});
    return type;
  }
};

constexpr const char* kNotOpened =
    "the PP word table cannot be opened; check its path and permissions";

/// Loads what cannot be opened into a bare container, which must stay as it was.
void expectNotOpened(const std::string& path) {
  const auto document = host::Document::create();
  const auto before = listing(document->features());
  const auto counts = referencesOf(document);
  KEPError::KEPCleanLastError();
  const LoadReport report;
  EXPECT_EQ(document->ppWordContainer()->LoadPPWordTable(KEPUnicodeString(std::string_view(path))),
            E_FAIL)
      << path;
  const auto* const error = dynamic_cast<const KEPMfgInternalError*>(KEPError::KEPGetLastError());
  ASSERT_NE(error, nullptr) << path;
  EXPECT_EQ(error->GetMessageKey(), KEPString("ERR_5009"));
  EXPECT_EQ(error->GetCatalogue(), KEPString("ManufacturingError"));
  EXPECT_EQ(error->GetInformationOnErrorType(), 2);
  EXPECT_TRUE(error->GetNLSParameters().empty());
  EXPECT_EQ(error->GetNLSMessage(), KEPUnicodeString(kNotOpened));
  EXPECT_EQ(listing(document->features()), before) << path;
  EXPECT_EQ(referencesOf(document), counts) << path;
  EXPECT_EQ(report.entries(), Texts{});
}

TEST(TableThatCannotBeOpened, AbsentFileRaisesTheErrorAndChangesNothing) {
  const TableFile file("");
  file.remove();
  expectNotOpened(std::string(file.path().View()));
}

TEST(TableThatCannotBeOpened, EmptyPathRaisesTheError) { expectNotOpened(""); }

TEST(TableThatCannotBeOpened, DirectoryRaisesTheError) {
  expectNotOpened(std::filesystem::temp_directory_path().string());
}

TEST(TableThatCannotBeOpened, DeviceWithoutEndRaisesTheError) { expectNotOpened("/dev/zero"); }

TEST(TableThatFailsItsCheck, LeavesTheRootTypesOnly) {
  const auto document = host::Document::create();
  const TableFile file(
      "*START_FORMAT MFG_XPOINT\n"
      "%11.5f\n"
      "*END\n"
      "*COMMENT\n");
  KEPError::KEPCleanLastError();
  EXPECT_EQ(document->ppWordContainer()->LoadPPWordTable(KEPUnicodeString(file.path().View())),
            E_FAIL);
  ASSERT_NE(KEPError::KEPGetLastError(), nullptr);
  EXPECT_EQ(
      KEPError::KEPGetLastError()->GetNLSMessage(),
      KEPUnicodeString(
          "line 4: a line that begins with \"*\" must be a *START_..., *END or *INSERT line"));
  const auto entries = listing(document->features());
  EXPECT_EQ(Texts(entries.begin() + 1, entries.end()),
            (Texts{"MfgPPWordRoot\n", "MfgPPSyntax : MfgPPWordRoot\n",
                   "MfgPPParameter : MfgPPWordRoot\n"}));
}

TEST_F(TableLoad, FailedCheckKeepsTheRootsAndReferences) {
  instruction("NC_GOTO", {"OLD/1"});
  const auto before = listing(features);
  const auto counts = referencesOf(document);
  EXPECT_EQ(load("*START_NC_COMMAND NC_GOTO\nNEW/1\n"), E_FAIL);
  EXPECT_EQ(listing(features), before);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, EmptyTableChangesNothing) {
  const auto before = listing(features);
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf(""), Texts{});
  EXPECT_EQ(listing(features), before);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, SuccessLeavesTheLastErrorAndTheFilesAlone) {
  KEPError::KEPCleanLastError();
  const int files = openFiles();
  EXPECT_EQ(load("*START_FORMAT MFG_A\n%f\n*END\n"), S_OK);
  EXPECT_EQ(KEPError::KEPGetLastError(), nullptr);
  EXPECT_EQ(openFiles(), files);
}

TEST_F(TableLoad, CommandsAreMadeBeforeInstructions) {
  EXPECT_EQ(reportOf("*START_NC_INSTRUCTION NC_TWO\n"
                     "TWO/2\n"
                     "*END\n"
                     "*START_NC_COMMAND NC_ONE\n"
                     "ONE/%MFG_A,%MFG_B\n"
                     "PPRINT MOVE TO POINT\n"
                     "*END\n"),
            (Texts{"Command 1 «NC_ONE» Created", "Command 2 «NC_TWO» Created"}));
  const auto entries = listing(features);
  EXPECT_EQ(Texts(entries.begin() + 4, entries.end()), (Texts{"NC_ONE : MfgPPSyntax\n"
                                                              "  Syntaxe: ONE/%MFG_A,%MFG_B\n"
                                                              "  Syntaxe: PPRINT MOVE TO POINT\n",
                                                              "NC_TWO : MfgPPSyntax\n"
                                                              "  Syntaxe: TWO/2\n"}));
}

TEST_F(TableLoad, CommandWithoutLinesIsSetAndEmpty) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\n*END\n"), Texts{"Command 1 «NC_ONE» Created"});
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe empty\n");
}

TEST_F(TableLoad, BytesOfALineAreKept) {
  load("*START_NC_COMMAND NC_ONE\nA/\xFF\xC3\x28\n*END\n");
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe: A/\xFF\xC3\x28\n");
}

TEST_F(TableLoad, NewTypesHoldTheOnlyNewReferences) {
  const int root = find("MfgPPSyntax")->GetReferenceCount();
  const int container = features->GetReferenceCount();
  load(
      "*START_NC_COMMAND NC_ONE\n"
      "A/1\n"
      "*START_SEQUENCE\n"
      "B/1\n"
      "*END\n"
      "*START_SEQUENCE\n"
      "C/1\n"
      "*END\n"
      "*END\n");
  // The container holds the type, and the handle that asks.
  EXPECT_EQ(find("NC_ONE")->GetReferenceCount(), 2);
  EXPECT_EQ(find("MfgPPSyntax")->GetReferenceCount(), root + 1);
  EXPECT_EQ(features->GetReferenceCount(), container);
}

constexpr const char* kTwoSequences =
    "*START_NC_COMMAND NC_ONE\n"
    "NEW/1\n"
    "*START_SEQUENCE\n"
    "NEW/2\n"
    "*END\n"
    "*START_SEQUENCE\n"
    "NEW/3\n"
    "NEW/4\n"
    "*END\n"
    "*END\n";

TEST_F(TableLoad, FurtherSequenceBecomesAnAttributeOfItsOwn) {
  EXPECT_EQ(reportOf(kTwoSequences),
            (Texts{"Command 1 «NC_ONE» Created", "Sequence 2 «NC_ONE» Created"}));
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  Syntaxe2: NEW/3\n"
            "  Syntaxe2: NEW/4\n");
}

TEST_F(TableLoad, FurtherSequenceWithoutLinesIsDeclaredAndUnset) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\n"
                     "*START_SEQUENCE\n"
                     "*END\n"
                     "*START_SEQUENCE\n"
                     "*END\n"
                     "*END\n"),
            (Texts{"Command 1 «NC_ONE» Created", "Sequence 2 «NC_ONE» Created"}));
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe empty\n  Syntaxe2 unset\n");
}

TEST_F(TableLoad, ReplacedCommandLosesTheSequencesThatTheTableLacks) {
  threeSequences("NC_ONE");
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n"),
            Texts{"Command 1 «NC_ONE» Replaced"});
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe2 unset\n"
            "  Syntaxe3 unset\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, ReplacedSequenceHoldsTheNewLinesOnly) {
  threeSequences("NC_ONE");
  EXPECT_EQ(reportOf(kTwoSequences),
            (Texts{"Command 1 «NC_ONE» Replaced", "Sequence 2 «NC_ONE» Replaced"}));
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  Syntaxe2: NEW/3\n"
            "  Syntaxe2: NEW/4\n"
            "  Syntaxe3 unset\n");
}

TEST_F(TableLoad, InstanceInheritsTheLoadedLines) {
  load(kTwoSequences);
  const auto instance =
      KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_ONE"), "One.1"));
  EXPECT_EQ(entryOf(instance),
            "One.1 : NC_ONE\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  Syntaxe2: NEW/3\n"
            "  Syntaxe2: NEW/4\n");
}

TEST_F(TableLoad, LoadedTwiceStaysTheSame) {
  load(kTwoSequences);
  const auto once = listing(features);
  const auto counts = referencesOf(document);
  load(kTwoSequences);
  EXPECT_EQ(listing(features), once);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, UnsettingStopsAtTheFirstSequenceThatIsNotDeclared) {
  const KEPISpecObject_var type = instruction("NC_ONE", {"OLD/1"});
  attribute(type, "Syntaxe3", {"OLD/3"});
  attribute(type, "Syntaxe4", {"OLD/4"});
  load("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n");
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe3: OLD/3\n"
            "  Syntaxe4: OLD/4\n");
}

TEST_F(TableLoad, UnsettingReachesTheOnlySequenceDeclared) {
  attribute(make("NC_ONE", "MfgPPSyntax"), "Syntaxe2", {"OLD/2"});
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n"),
            Texts{"Command 1 «NC_ONE» NotDeclared"});
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe2 unset\n");
}

constexpr const char* kThreeSequences =
    "*START_NC_COMMAND NC_ONE\n"
    "*START_SEQUENCE\n"
    "NEW/1\n"
    "*END\n"
    "*START_SEQUENCE\n"
    "*INSERT NOTHING NC_ELSE\n"
    "*END\n"
    "*START_SEQUENCE\n"
    "NEW/3\n"
    "*END\n"
    "*END\n";

TEST_F(TableLoad, UnreadableSequenceIsSkipped) {
  EXPECT_EQ(reportOf(kThreeSequences),
            (Texts{"Command 1 «NC_ONE» Created", "Sequence 2 «NC_ONE» ContentUnreadable",
                   "Sequence 3 «NC_ONE» Created"}));
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe3: NEW/3\n");
}

TEST_F(TableLoad, SequenceBehindAGapIsAppendedTo) {
  load(kThreeSequences);
  load(kThreeSequences);
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe3: NEW/3\n"
            "  Syntaxe3: NEW/3\n");
}

TEST_F(TableLoad, UnsettingEndsWithTheDeclaredAttributes) {
  constexpr int kSequences = 100'000;
  const KEPISpecObject_var type = instruction("NC_ONE", {"OLD/1"});
  const KEPISpecAttrAccess_var attributes = type;
  for (int i = 2; i <= kSequences; ++i) {
    attribute(attributes, "Syntaxe" + std::to_string(i), {"OLD/2"});
  }
  load("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n");
  ASSERT_EQ(type->GetNumberOfAttributes(), kSequences);
  for (int i = 2; i <= kSequences; ++i) {
    const auto sequence = attributes->FindAttribute("Syntaxe" + std::to_string(i));
    ASSERT_TRUE(sequence.has_value() && !sequence->IsSet()) << i;
  }
}

TEST_F(TableLoad, BookkeepingAttributesAreLeftAlone) {
  const KEPVar<host::Feature> type = threeSequences("NC_ONE");
  type->declareBookkeepingAttribute("$OSM_Xts", 1);
  type->declareBookkeepingAttribute("$OSM_LocalXts", 3);
  const KEPISpecAttrAccess_var attributes = type;
  attributes->SetString("$OSM_Xts", "MODELER");
  load(kTwoSequences);
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  $OSM_Xts: MODELER\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  $OSM_LocalXts unset\n"
            "  Syntaxe2: NEW/3\n"
            "  Syntaxe2: NEW/4\n"
            "  Syntaxe3 unset\n");
}

TEST_F(TableLoad, SpindleStopNeverEntersTheContainer) {
  EXPECT_EQ(
      reportOf("*START_NC_COMMAND NC_SPINDLE_STOP\n"
               "SPINDL/OFF\n"
               "*START_SEQUENCE\n"
               "A\n"
               "*END\n"
               "*START_SEQUENCE\n"
               "B\n"
               "*END\n"
               "*END\n"
               "*START_NC_INSTRUCTION NC_SPINDLE_STOP\n"
               "SPINDL/OFF\n"
               "*END\n"
               "*START_NC_INSTRUCTION NC_SPINDLE_STOP2\n"
               "SPINDL/OFF\n"
               "*END\n"),
      (Texts{"Command 1 «NC_SPINDLE_STOP» NeverLoaded", "Command 2 «NC_SPINDLE_STOP» NeverLoaded",
             "Command 3 «NC_SPINDLE_STOP2» Created"}));
  EXPECT_EQ(entry("NC_SPINDLE_STOP"), "no type");
}

TEST_F(TableLoad, SpindleStopThatIsThereIsLeftAlone) {
  instruction("NC_SPINDLE_STOP", {"OLD/1"});
  load("*START_NC_COMMAND NC_SPINDLE_STOP\nSPINDL/OFF\n*END\n");
  EXPECT_EQ(entry("NC_SPINDLE_STOP"), "NC_SPINDLE_STOP : MfgPPSyntax\n  Syntaxe: OLD/1\n");
}

TEST_F(TableLoad, CommandWithoutAReadableNameIsSkipped) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND X NC_ONE\n"
                     "ONE/1\n"
                     "*END\n"
                     "*START_NC_COMMAND NC_TWO\n"
                     "TWO/2\n"
                     "*END\n"),
            (Texts{"Command 1 «» NameUnreadable", "Command 2 «NC_TWO» Created"}));
  EXPECT_EQ(entry("NC_ONE"), "no type");
  EXPECT_EQ(entry("NC_TWO"), "NC_TWO : MfgPPSyntax\n  Syntaxe: TWO/2\n");
}

TEST_F(TableLoad, CommandWithUnreadableLinesIsSkipped) {
  instruction("NC_OLD", {"OLD/1"});
  EXPECT_EQ(
      reportOf("*START_NC_COMMAND NC_NEW\n"
               "*INSERT NOTHING NC_ELSE\n"
               "*END\n"
               "*START_NC_COMMAND NC_OLD\n"
               "*INSERT NOTHING NC_ELSE\n"
               "*END\n"),
      (Texts{"Command 1 «NC_NEW» ContentUnreadable", "Command 2 «NC_OLD» ContentUnreadable"}));
  EXPECT_EQ(entry("NC_NEW"), "no type");
  EXPECT_EQ(entry("NC_OLD"), "NC_OLD : MfgPPSyntax\n  Syntaxe: OLD/1\n");
}

TEST_F(TableLoad, CommandWhoseSequencesCannotBeCountedIsSkipped) {
  EXPECT_EQ(reportOf("*END\n"
                     "*START_NC_COMMAND NC_ONE\n"
                     "*START_SEQUENCE\n"
                     "A/1\n"
                     "*END\n"),
            Texts{"Command 1 «NC_ONE» ContentUnreadable"});
  EXPECT_EQ(entry("NC_ONE"), "no type");
}

TEST_F(TableLoad, LinesOfTheLaterBlockOfANameStay) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\n"
                     "FIRST/1\n"
                     "*START_SEQUENCE\n"
                     "*END\n"
                     "*START_SEQUENCE\n"
                     "FIRST/2\n"
                     "*END\n"
                     "*END\n"
                     "*START_NC_COMMAND NC_ONE\n"
                     "LATER/1\n"
                     "*START_SEQUENCE\n"
                     "*END\n"
                     "*START_SEQUENCE\n"
                     "LATER/2\n"
                     "*END\n"
                     "*START_SEQUENCE\n"
                     "LATER/3\n"
                     "*END\n"
                     "*END\n"),
            (Texts{"Command 1 «NC_ONE» Created", "Sequence 2 «NC_ONE» Created",
                   "Command 2 «NC_ONE» Replaced", "Sequence 2 «NC_ONE» Replaced",
                   "Sequence 3 «NC_ONE» ContentUnreadable"}));
  // The lines and the number of sequences are those of the block; the further sequences are asked
  // for by name, which finds the first block.
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: LATER/1\n"
            "  Syntaxe2: FIRST/2\n");
}

TEST_F(TableLoad, CommandIntoATypeThatDeclaresNoSyntaxChangesNothing) {
  make("NC_ONE", "MfgPPSyntax");
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\nNEW/1\n*END\n"),
            Texts{"Command 1 «NC_ONE» NotDeclared"});
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, SequenceIntoAnAttributeOfAnotherKindChangesNothing) {
  const KEPISpecAttrAccess_var type = instruction("NC_ONE", {"OLD/1"});
  type->AddAttribute("Syntaxe2", KEPISpecAttribute::Kind::Integer);
  EXPECT_EQ(reportOf(kTwoSequences),
            (Texts{"Command 1 «NC_ONE» Replaced", "Sequence 2 «NC_ONE» NotDeclared"}));
  EXPECT_EQ(entry("NC_ONE"),
            "NC_ONE : MfgPPSyntax\n"
            "  Syntaxe: NEW/1\n"
            "  Syntaxe: NEW/2\n"
            "  Syntaxe2 unset\n");
}

TEST_F(TableLoad, MultiListIsMadeWithItsWords) {
  EXPECT_EQ(reportOf("*START_LIST MFG_UNIT\nMMPM,MMPR\nINPM\n*END\n"),
            Texts{"MultiList 1 «MFG_UNIT» Created"});
  EXPECT_EQ(entry("MFG_UNIT"),
            "MFG_UNIT : MfgPPParameter\n"
            "  MultiListValue: MMPM\n"
            "  MultiListValue: MMPR\n"
            "  MultiListValue: INPM\n");
}

TEST_F(TableLoad, MultiListReplacesTheWordsBefore) {
  multiList("MFG_UNIT", {"A", "B", "C"});
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_LIST MFG_UNIT\nMMPM\n*END\n"),
            Texts{"MultiList 1 «MFG_UNIT» Replaced"});
  EXPECT_EQ(entry("MFG_UNIT"), "MFG_UNIT : MfgPPParameter\n  MultiListValue: MMPM\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, MultiListWithoutWordsIsSetAndEmpty) {
  multiList("MFG_UNIT", {"A"});
  EXPECT_EQ(reportOf("*START_LIST MFG_UNIT\n*END\n"), Texts{"MultiList 1 «MFG_UNIT» Replaced"});
  EXPECT_EQ(entry("MFG_UNIT"), "MFG_UNIT : MfgPPParameter\n  MultiListValue empty\n");
}

TEST_F(TableLoad, MultiListInsideACommandCounts) {
  EXPECT_EQ(reportOf("*START_NC_COMMAND NC_ONE\n"
                     "A/1\n"
                     "*START_LIST MFG_UNIT\n"
                     "MMPM\n"
                     "*END\n"
                     "B/2\n"
                     "*END\n"),
            (Texts{"Command 1 «NC_ONE» Created", "MultiList 1 «MFG_UNIT» Created"}));
  EXPECT_EQ(entry("NC_ONE"), "NC_ONE : MfgPPSyntax\n  Syntaxe: A/1\n  Syntaxe: B/2\n");
  EXPECT_EQ(entry("MFG_UNIT"), "MFG_UNIT : MfgPPParameter\n  MultiListValue: MMPM\n");
}

TEST_F(TableLoad, MultiListWithoutAReadableNameIsSkipped) {
  EXPECT_EQ(reportOf("*START_LIST X MFG_A\nV\n*END\n*START_LIST MFG_B\nW\n*END\n"),
            (Texts{"MultiList 1 «» NameUnreadable", "MultiList 2 «MFG_B» Created"}));
  EXPECT_EQ(entry("MFG_A"), "no type");
  EXPECT_EQ(entry("MFG_B"), "MFG_B : MfgPPParameter\n  MultiListValue: W\n");
}

TEST_F(TableLoad, MultiListWithUnreadableWordsIsMadeOrEmptied) {
  EXPECT_EQ(reportOf("*START_LIST MFG_NEW\nV\n*ENDX\n"),
            Texts{"MultiList 1 «MFG_NEW» ContentUnreadable"});
  EXPECT_EQ(entry("MFG_NEW"), "MFG_NEW : MfgPPParameter\n  MultiListValue unset\n");
  multiList("MFG_OLD", {"A"});
  EXPECT_EQ(reportOf("*START_LIST MFG_OLD\nV\n*ENDX\n"),
            Texts{"MultiList 1 «MFG_OLD» ContentUnreadable"});
  EXPECT_EQ(entry("MFG_OLD"), "MFG_OLD : MfgPPParameter\n  MultiListValue empty\n");
}

TEST_F(TableLoad, MultiListIntoATypeWithAFormatChangesNothing) {
  format("MFG_UNIT", "%11.5f");
  EXPECT_EQ(reportOf("*START_LIST MFG_UNIT\nMMPM\n*END\n"),
            Texts{"MultiList 1 «MFG_UNIT» NotDeclared"});
  EXPECT_EQ(entry("MFG_UNIT"), "MFG_UNIT : MfgPPParameter\n  Format: %11.5f\n");
}

TEST_F(TableLoad, FormatIsMadeWithItsText) {
  EXPECT_EQ(reportOf("*START_FORMAT MFG_A\n%8.3f\n*END\n"), Texts{"Format 1 «MFG_A» Created"});
  EXPECT_EQ(entry("MFG_A"), "MFG_A : MfgPPParameter\n  Format: %8.3f\n");
}

TEST_F(TableLoad, FormatReplacesTheTextBefore) {
  format("MFG_A", "%11.5f");
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_FORMAT MFG_A\n%8.3f\n*END\n"), Texts{"Format 1 «MFG_A» Replaced"});
  EXPECT_EQ(entry("MFG_A"), "MFG_A : MfgPPParameter\n  Format: %8.3f\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, FormatWithoutATextIsSetToTheEmptyText) {
  format("MFG_A", "%11.5f");
  EXPECT_EQ(reportOf("*START_FORMAT MFG_A\n*END\n"), Texts{"Format 1 «MFG_A» Replaced"});
  EXPECT_EQ(entry("MFG_A"), "MFG_A : MfgPPParameter\n  Format: \n");
}

TEST_F(TableLoad, FormatWithoutAReadableNameIsSkipped) {
  EXPECT_EQ(reportOf("*START_FORMAT X MFG_A\n%f\n*END\n*START_FORMAT MFG_B\n%e\n*END\n"),
            (Texts{"Format 1 «» NameUnreadable", "Format 2 «MFG_B» Created"}));
  EXPECT_EQ(entry("MFG_A"), "no type");
  EXPECT_EQ(entry("MFG_B"), "MFG_B : MfgPPParameter\n  Format: %e\n");
}

TEST_F(TableLoad, FormatWithAnUnreadableTextIsMadeOrUnset) {
  EXPECT_EQ(reportOf("*START_FORMAT MFG_NEW\n%f\n*ENDX\n"),
            Texts{"Format 1 «MFG_NEW» ContentUnreadable"});
  EXPECT_EQ(entry("MFG_NEW"), "MFG_NEW : MfgPPParameter\n  Format unset\n");
  format("MFG_OLD", "%11.5f");
  EXPECT_EQ(reportOf("*START_FORMAT MFG_OLD\n%f\n*ENDX\n"),
            Texts{"Format 1 «MFG_OLD» ContentUnreadable"});
  EXPECT_EQ(entry("MFG_OLD"), "MFG_OLD : MfgPPParameter\n  Format unset\n");
}

TEST_F(TableLoad, FormatIntoATypeThatDeclaresNoneChangesNothing) {
  make("MFG_BARE", "MfgPPParameter");
  multiList("MFG_WORDS", {"A"});
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf("*START_FORMAT MFG_BARE\n%f\n*END\n*START_FORMAT MFG_WORDS\n%f\n*END\n"),
            (Texts{"Format 1 «MFG_BARE» NotDeclared", "Format 2 «MFG_WORDS» NotDeclared"}));
  EXPECT_EQ(entry("MFG_BARE"), "MFG_BARE : MfgPPParameter\n");
  EXPECT_EQ(entry("MFG_WORDS"), "MFG_WORDS : MfgPPParameter\n  MultiListValue: A\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, ParameterNamedInBothSectionsKeepsTheFirstKind) {
  EXPECT_EQ(reportOf("*START_FORMAT MFG_A\n%f\n*END\n*START_LIST MFG_A\nV\n*END\n"),
            (Texts{"MultiList 1 «MFG_A» Created", "Format 1 «MFG_A» NotDeclared"}));
  EXPECT_EQ(entry("MFG_A"), "MFG_A : MfgPPParameter\n  MultiListValue: V\n");
}

TEST(LoadedDefaultCatalogue, KeepsWhatTheTableDoesNotMention) {
  const auto document = host::newDocument();
  std::vector<std::string> expected = listing(document->features());
  const auto replace = [&](std::string_view from, const char* to) {
    for (std::string& entry : expected) {
      if (entry == from) entry = to;
    }
  };
  replace("NC_RAPID : MfgPPSyntax\n  Syntaxe: RAPID\n",
          "NC_RAPID : MfgPPSyntax\n  Syntaxe: RAPID/FAST\n");
  replace("MFG_XAXIS : MfgPPParameter\n  Format: %9.6f\n",
          "MFG_XAXIS : MfgPPParameter\n  Format: %8.5f\n");
  expected.emplace_back("NC_OWN : MfgPPSyntax\n  Syntaxe: OWN/1\n");
  expected.emplace_back("MFG_OWN : MfgPPParameter\n  MultiListValue: A\n");

  const TableFile file(
      "*START_FORMAT MFG_XAXIS\n%8.5f\n*END\n"
      "*START_LIST MFG_OWN\nA\n*END\n"
      "*START_NC_INSTRUCTION NC_OWN\nOWN/1\n*END\n"
      "*START_NC_INSTRUCTION NC_RAPID\nRAPID/FAST\n*END\n");
  EXPECT_EQ(document->ppWordContainer()->LoadPPWordTable(KEPUnicodeString(file.path().View())),
            S_OK);
  EXPECT_EQ(listing(document->features()), expected);
}

TEST(LoadedDefaultCatalogue, IsBroughtUpToDateInTheMarkedInstructionsOnly) {
  const auto document = host::newDocument();
  const TableFile file(
      "*START_NC_INSTRUCTION NC_RAPID\nRAPID/FAST\n*END\n"
      "*START_NC_INSTRUCTION NC_CUTTER_LATHE\nCUTTER/OWN\n*END\n"
      "*START_FORMAT MFG_XAXIS\n%8.5f\n*END\n");
  const KEPIMfgPPWordContainer_var words = document->ppWordContainer();
  const auto entry = [&](const char* name) {
    return entryOf(KEPISpecObject_var::Adopt(words->FindPPWord(name)));
  };
  EXPECT_EQ(words->LoadPPWordTable(KEPUnicodeString(file.path().View())), S_OK);
  EXPECT_EQ(entry("NC_CUTTER_LATHE"), "NC_CUTTER_LATHE : MfgPPSyntax\n  Syntaxe: CUTTER/OWN\n");
  EXPECT_EQ(words->Initialize(false), S_OK);
  EXPECT_EQ(entry("NC_CUTTER_LATHE"),
            "NC_CUTTER_LATHE : MfgPPSyntax\n  Syntaxe: CUTTER/2*%MFG_NOSE_RADIUS\n");
  EXPECT_EQ(entry("NC_RAPID"), "NC_RAPID : MfgPPSyntax\n  Syntaxe: RAPID/FAST\n");
  EXPECT_EQ(entry("MFG_XAXIS"), "MFG_XAXIS : MfgPPParameter\n  Format: %8.5f\n");
}

}  // namespace
}  // namespace ppword::test
