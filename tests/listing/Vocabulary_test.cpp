#include "post/listing/Vocabulary.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "host/modeler/Document.h"
#include "tests/support/InputFile.h"

namespace {

using host::LengthUnit;

host::Vocabulary wordsWith(std::string_view table, const host::TableWords& words = {}) {
  const KEPVar<host::Document> document = host::newDocument();
  const InputFile file(table);
  EXPECT_EQ(document->ppWordContainer()->LoadPPWordTable(KEPUnicodeString(file.path())), S_OK);
  return host::vocabularyOf(*document, words);
}

TEST(Vocabulary, DefaultCatalogueNamesMillimetresAndPutsTextsBare) {
  const host::Vocabulary words = host::vocabularyOf(*host::newDocument());
  EXPECT_EQ(words.feedPerMinute, LengthUnit::Millimetre);
  EXPECT_EQ(words.feedPerRevolution, LengthUnit::Millimetre);
  EXPECT_EQ(words.surfaceSpeed, LengthUnit::Millimetre);
  EXPECT_FALSE(words.coolant);
  EXPECT_FALSE(words.programStop);
  EXPECT_FALSE(words.optionalStop);
  EXPECT_TRUE(words.bareTexts);
}

TEST(Vocabulary, ListsNameTheUnits) {
  const host::Vocabulary inches = wordsWith(
      "*START_LIST MFG_FEED_UNIT\nIPM,IPR\n*END\n*START_LIST MFG_SPNDL_UNIT\nRPM,SFM\n*END\n");
  EXPECT_EQ(inches.feedPerMinute, LengthUnit::Inch);
  EXPECT_EQ(inches.feedPerRevolution, LengthUnit::Inch);
  EXPECT_EQ(inches.surfaceSpeed, LengthUnit::Inch);
  const host::Vocabulary others =
      wordsWith("*START_LIST MFG_FEED_UNIT\nPERMIN\n*END\n*START_LIST MFG_SPNDL_UNIT\nRPM\n*END\n");
  EXPECT_EQ(others.feedPerMinute, std::nullopt);
  EXPECT_EQ(others.feedPerRevolution, std::nullopt);
  EXPECT_EQ(others.surfaceSpeed, std::nullopt);
}

TEST(Vocabulary, WordThatNoInstructionPrintsNamesNoUnit) {
  const host::Vocabulary words = wordsWith(
      "*START_NC_INSTRUCTION NC_FEEDRATE\nFEDRAT/%MFG_FEED_VALUE,IPM\n*END\n"
      "*START_NC_INSTRUCTION NC_SPINDLE_START\nSPINDL/%MFG_SPNDL_SPEED\n*END\n");
  EXPECT_EQ(words.feedPerMinute, std::nullopt);
  EXPECT_EQ(words.feedPerRevolution, std::nullopt);
  EXPECT_EQ(words.surfaceSpeed, std::nullopt);
}

TEST(Vocabulary, CoolantNeedsItsThreeSequences) {
  const std::string two =
      "*START_NC_COMMAND NC_COOLANT\n*START_SEQUENCE\nA\n*END\n*START_SEQUENCE\nB\n*END\n";
  EXPECT_FALSE(wordsWith(two + "*END\n").coolant);
  EXPECT_TRUE(wordsWith(two + "*START_SEQUENCE\nC\n*END\n*END\n").coolant);
}

TEST(Vocabulary, InstructionsOfATableAreFound) {
  const host::Vocabulary words = wordsWith(
      "*START_NC_INSTRUCTION NC_PROGRAM_STOP\nSTOP\n*END\n"
      "*START_NC_INSTRUCTION NC_OPTIONAL_STOP\nOPSTOP\n*END\n"
      "*START_NC_INSTRUCTION NC_OUTPUT_COMMENT\nPPRINT %MFG_OUTPUT_COMMENT\n*END\n");
  EXPECT_TRUE(words.programStop);
  EXPECT_TRUE(words.optionalStop);
  EXPECT_FALSE(words.bareTexts);
}

TEST(Vocabulary, CommentIsAStatementUnlessItsWordHasText) {
  const auto isBare = [](const std::string& lines, const host::TableWords& table = {}) {
    const KEPVar<host::Document> document = host::newDocument();
    const InputFile file("*START_NC_INSTRUCTION NC_OUTPUT_COMMENT\n" + lines + "\n*END\n");
    EXPECT_EQ(document->ppWordContainer()->LoadPPWordTable(KEPUnicodeString(file.path())), S_OK);
    return host::vocabularyOf(*document, table).bareTexts;
  };
  for (const char* const line :
       {"PPRINT %MFG_OUTPUT_COMMENT", "PPRINT/%MFG_OUTPUT_COMMENT", "$$ %MFG_OUTPUT_COMMENT",
        "$$%MFG_OUTPUT_COMMENT", "REMARK/%MFG_OUTPUT_COMMENT", "INSERT %MFG_OUTPUT_COMMENT",
        "PPRINT", "OPSTOP"}) {
    EXPECT_FALSE(isBare(line)) << line;
  }
  for (const char* const line :
       {"%MFG_OUTPUT_COMMENT", "&MFG_OUTPUT_COMMENT", "MSG/%MFG_OUTPUT_COMMENT",
        "REMARKS/%MFG_OUTPUT_COMMENT", "PPRINT A\nMSG,&MFG_OUTPUT_COMMENT"}) {
    EXPECT_TRUE(isBare(line)) << line;
  }
  EXPECT_FALSE(isBare("MSG/%MFG_OUTPUT_COMMENT", {{"LETTER", "MSG"}, false}));
  EXPECT_TRUE(isBare("MSGS/%MFG_OUTPUT_COMMENT", {{"LETTER", "MSG"}, false}));
}

TEST(Vocabulary, UnitIsAskedForByAnyLineOfAnInstruction) {
  EXPECT_FALSE(wordsWith("").unit);
  EXPECT_TRUE(wordsWith("*START_NC_COMMAND NC_OWN\nUNITS/&MFG_UNIT\n*END\n").unit);
  EXPECT_TRUE(wordsWith("*START_NC_COMMAND NC_OWN\n*START_SEQUENCE\nA\n*END\n"
                        "*START_SEQUENCE\nUNITS/%MFG_UNIT\n*END\n*END\n")
                  .unit);
  EXPECT_FALSE(wordsWith("*START_NC_COMMAND NC_OWN\nUNITS/MFG_UNIT\n*END\n").unit);
}

TEST(Vocabulary, StartMacroIsThatOfATable) {
  const KEPVar<host::Document> document = host::newDocument();
  EXPECT_FALSE(host::vocabularyOf(*document).startMacro);
  EXPECT_TRUE(host::vocabularyOf(*document, {{}, true}).startMacro);
}

host::Vocabulary withOrigin(std::string_view lines, bool isOwn = true) {
  return wordsWith("*START_NC_INSTRUCTION NC_ORIGIN\n" + std::string(lines) + "\n*END\n",
                   {{}, false, isOwn});
}

TEST(Vocabulary, OriginIsThatOfATableOnly) {
  EXPECT_FALSE(host::vocabularyOf(*host::newDocument(), {}).origin);
  EXPECT_FALSE(withOrigin("ORIGIN/%MFG_ORIGIN_NUMBER", false).origin);
  EXPECT_TRUE(withOrigin("ORIGIN/%MFG_ORIGIN_NUMBER").origin);
}

TEST(Vocabulary, OriginPrintsWhatItsLinesReferTo) {
  const auto number = withOrigin("ORIGIN/MFG_NCAXIS_X_ORIG,%MFG_ORIGIN_NUMBER").origin;
  EXPECT_TRUE(number->number);
  EXPECT_FALSE(number->coordinates);
  EXPECT_FALSE(number->rotation);
  const auto two = withOrigin("ORIGIN/%MFG_NCAXIS_X_ORIG,&MFG_NCAXIS_Y_ORIG").origin;
  EXPECT_FALSE(two->coordinates);
  const auto all = withOrigin(
                       "ORIGIN/%MFG_NCAXIS_X_ORIG,&MFG_NCAXIS_Y_ORIG,$\n%MFG_NCAXIS_Z_ORIG\n"
                       "ROTATE/%MFG_NCAXIS_X_VECX,%MFG_NCAXIS_Y_VECX")
                       .origin;
  EXPECT_FALSE(all->number);
  EXPECT_TRUE(all->coordinates);
  EXPECT_TRUE(all->rotation);
}

TEST(Vocabulary, OriginPrintsNothingInComments) {
  const auto comment = withOrigin(
                           "PPRINT %MFG_NCAXIS_X_ORIG,%MFG_NCAXIS_Y_ORIG,%MFG_NCAXIS_Z_ORIG\n"
                           "$$ %MFG_NCAXIS_X_VECX,%MFG_NCAXIS_Y_VECX\nORIGIN/%MFG_ORIGIN_NUMBER")
                           .origin;
  EXPECT_TRUE(comment->number);
  EXPECT_FALSE(comment->coordinates);
  EXPECT_FALSE(comment->rotation);
}

TEST(Vocabulary, OriginNeedsAWord) {
  // The load of a table cuts a line at a blank, unless its word takes a text.
  for (const std::string_view lines : {"%MFG_ORIGIN_NUMBER", "REMARK %MFG_ORIGIN_NUMBER"}) {
    EXPECT_FALSE(withOrigin(lines).origin->number) << lines;
  }
}

}  // namespace
