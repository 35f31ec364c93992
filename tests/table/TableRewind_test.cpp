#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>

#include "System/KEPError.h"
#include "language/table/CommandQueries.h"
#include "language/table/SectionQueries.h"
#include "src/table/FileSource.h"
#include "tests/table/TableFiles.h"

namespace {

constexpr std::string_view kRewoundTable =
    "*START_NC_COMMAND NC_A\nA1\n*END\n"
    "*START_NC_INSTRUCTION NC_B\nB1\n*END\n"
    "*START_LIST MFG_L\nL1\n*END\n"
    "*START_FORMAT MFG_F\n%5.1f\n*END\n"
    "*START_SYNTAXES\nRAPID\n*END\n"
    "*START_MAJOR_WORDS_WITHOUT_PARAMETERS\nFINI,1\n*END\n"
    "*START_MINOR_WORDS\nNOTE,181\n*END\n";

// A reader whose next rewind fails to close its stream.
class TableRewind : public testing::Test {
 protected:
  void SetUp() override {
    int count = 0;
    ASSERT_TRUE(reader_.GetNumberOfCommand(count));
    KEPMfgPPTableTxtTest(reader_).breakClose();
  }

  TableFile file_{kRewoundTable};
  KEPMfgPPTableTxt reader_{file_.path()};
};

TEST_F(TableRewind, FailedCloseIsEndOfFileUntilTheNextRewind) {
  KEPListValKEPString syntaxes = listOf({"cleared"});
  EXPECT_TRUE(reader_.GetListOfSyntaxes(syntaxes));
  EXPECT_EQ(texts(syntaxes), Texts{});
  EXPECT_FALSE(KEPMfgPPTableTxtTest(reader_).findString("*END"));
  EXPECT_TRUE(reader_.GetListOfSyntaxes(syntaxes));
  EXPECT_EQ(texts(syntaxes), Texts{"RAPID"});
}

TEST_F(TableRewind, FailedCloseLetsACheckPassOnce) {
  file_.write("*COMMENT\n");
  EXPECT_EQ(reader_.CheckFileSyntax(), S_OK);
  EXPECT_EQ(reader_.CheckFileSyntax(), E_FAIL);
}

TEST_F(TableRewind, FailedCloseLosesTheFirstPassOfTheCommandCount) {
  int count = -1;
  EXPECT_TRUE(reader_.GetNumberOfCommand(count));
  EXPECT_EQ(count, 1);
  EXPECT_TRUE(reader_.GetNumberOfCommand(count));
  EXPECT_EQ(count, 2);
}

TEST_F(TableRewind, FailedCloseLosesTheFirstPassOfTheCommandName) {
  KEPString name;
  EXPECT_TRUE(reader_.GetNameOfCommand(1, name));
  EXPECT_EQ(name, KEPString("NC_B"));
  EXPECT_TRUE(reader_.GetNameOfCommand(1, name));
  EXPECT_EQ(name, KEPString("NC_A"));
}

TEST_F(TableRewind, FailedCloseLosesTheFirstPassOfTheCommandRange) {
  int range = -1;
  EXPECT_FALSE(reader_.GetRangeOfCommand("NC_A", range));
  EXPECT_EQ(range, 1);
  EXPECT_TRUE(reader_.GetRangeOfCommand("NC_A", range));
  EXPECT_EQ(range, 1);
}

TEST_F(TableRewind, FailedCloseLosesTheFirstWordSection) {
  KEPRawCollint kinds;
  KEPListValKEPString words;
  EXPECT_TRUE(reader_.GetListOfAptWord(kinds, words));
  EXPECT_EQ(texts(words), Texts{"NOTE"});
  EXPECT_EQ(numbers(kinds), std::vector<int>{4});
}

TEST_F(TableRewind, FailedCloseStopsTheListCountWithTrueAnd0) {
  int count = -1;
  EXPECT_TRUE(reader_.GetNumberOfMultiListParameter(count));
  EXPECT_EQ(count, 0);
  EXPECT_TRUE(reader_.GetNumberOfMultiListParameter(count));
  EXPECT_EQ(count, 1);
}

TEST_F(TableRewind, FailedCloseStopsTheFormatCountWithTrueAnd0) {
  int count = -1;
  EXPECT_TRUE(reader_.GetNumberOfFormatParameter(count));
  EXPECT_EQ(count, 0);
  EXPECT_TRUE(reader_.GetNumberOfFormatParameter(count));
  EXPECT_EQ(count, 1);
}

TEST_F(TableRewind, FailedCloseMakesTheListNameFalse) {
  KEPString name = "untouched";
  EXPECT_FALSE(reader_.GetNameOfMultiListParameter(1, name));
  EXPECT_EQ(name, KEPString("untouched"));
  EXPECT_TRUE(reader_.GetNameOfMultiListParameter(1, name));
  EXPECT_EQ(name, KEPString("MFG_L"));
}

TEST_F(TableRewind, FailedCloseMakesTheListValuesFalse) {
  KEPListValKEPString values = listOf({"cleared"});
  EXPECT_FALSE(reader_.GetValuesOfMultiListParameter(1, values));
  EXPECT_EQ(values.Size(), 0);
  EXPECT_TRUE(reader_.GetValuesOfMultiListParameter(1, values));
  EXPECT_EQ(texts(values), Texts{"L1"});
}

TEST_F(TableRewind, FailedCloseMakesTheFormatNameFalse) {
  KEPString name = "untouched";
  EXPECT_FALSE(reader_.GetNameOfFormatParameter(1, name));
  EXPECT_EQ(name, KEPString("untouched"));
  EXPECT_TRUE(reader_.GetNameOfFormatParameter(1, name));
  EXPECT_EQ(name, KEPString("MFG_F"));
}

TEST_F(TableRewind, FailedCloseMakesTheFormatValueFalse) {
  KEPString value = "untouched";
  EXPECT_FALSE(reader_.GetValueOfFormatParameter(1, value));
  EXPECT_EQ(value, KEPString("untouched"));
  EXPECT_TRUE(reader_.GetValueOfFormatParameter(1, value));
  EXPECT_EQ(value, KEPString("%5.1f"));
}

TEST_F(TableRewind, FailedCloseIsForgottenByTheDestructor) {
  auto copy = std::make_unique<KEPMfgPPTableTxt>(reader_);
  copy.reset();
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader_.GetListOfSyntaxes(syntaxes));
  EXPECT_EQ(syntaxes.Size(), 0);
}

enum class Rewind { Opened, NotOpened, CloseFailed };

// A file whose rewinds have the given outcomes; the file itself is read after an opening.
class ScriptedSource final : public ppword::TableSource {
 public:
  ScriptedSource(const KEPString& path, std::deque<Rewind> outcomes)
      : path_(path), outcomes_(std::move(outcomes)) {}

  bool rewind() override {
    const Rewind outcome = outcomes_.front();
    outcomes_.pop_front();
    if (outcome == Rewind::Opened) return file_.rewind();
    stream_.reset();
    isOpen_ = false;
    return outcome == Rewind::CloseFailed;
  }
  std::optional<std::string_view> nextToken() override { return file_.nextToken(); }
  [[nodiscard]] bool tooLong() const override { return file_.tooLong(); }
  std::optional<std::string_view> nextLine() override { return file_.nextLine(); }
  long position() override { return file_.position(); }
  bool seek(long position) override { return file_.seek(position); }

 private:
  KEPString path_;
  std::deque<Rewind> outcomes_;
  std::shared_ptr<ppword::TableStream> stream_;
  bool isOpen_ = false;
  ppword::FileSource file_{stream_, path_, isOpen_};
};

TEST(TableRewindOfAPass, FailedReopenLeavesTheCountReachedSoFar) {
  const TableFile file(kRewoundTable);
  ScriptedSource source(file.path(), {Rewind::Opened, Rewind::NotOpened});
  int count = -1;
  EXPECT_FALSE(ppword::numberOfCommands(source, count));
  EXPECT_EQ(count, 1);
}

TEST(TableRewindOfAPass, FailedReopenMakesNameAndRangeFalse) {
  const TableFile file(kRewoundTable);
  ScriptedSource forName(file.path(), {Rewind::Opened, Rewind::NotOpened});
  ScriptedSource forRange(file.path(), {Rewind::Opened, Rewind::NotOpened});
  std::string name = "untouched";
  int range = -1;
  EXPECT_FALSE(ppword::nameOfCommand(forName, 2, name));
  EXPECT_EQ(name, "untouched");
  EXPECT_FALSE(ppword::rangeOfCommand(forRange, "NC_B", range));
  EXPECT_EQ(range, 1);
}

TEST(TableRewindOfAPass, FailedReopenMakesTheWordsFalseWithThePiecesFound) {
  const TableFile file(kRewoundTable);
  ScriptedSource source(file.path(), {Rewind::Opened, Rewind::NotOpened});
  std::vector<int> kinds;
  Texts pieces;
  EXPECT_FALSE(ppword::listOfPPValues(source, kinds, pieces));
  EXPECT_EQ(pieces, (Texts{"FINI", "1"}));
}

TEST(TableRewindOfAPass, FailedCloseLosesOnlyThatPass) {
  const TableFile file(kRewoundTable);
  ScriptedSource source(file.path(), {Rewind::Opened, Rewind::CloseFailed});
  int count = -1;
  EXPECT_TRUE(ppword::numberOfCommands(source, count));
  EXPECT_EQ(count, 1);
}

}  // namespace
