#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/table/TableFiles.h"

namespace {

constexpr std::string_view kSequenceTable =
    "*START_NC_INSTRUCTION NC_I\nI1\n*START_SEQUENCE\nIS1\n*END\nI2\n"
    "*START_SEQUENCE\nIS2\nPPRINT SECOND ONE\n*END\n*END\n"
    "*START_NC_COMMAND NC_NONE\nN1\n*END\n"
    "*START_NC_COMMAND NC_LIST\n*START_SEQUENCE\nL1\n*END\n*START_LIST MFG_L\n*END\n"
    "*START_SEQUENCE\nL2\n*END\n*END\n"
    "*START_NC_COMMAND NC_INSERT\n*START_SEQUENCE\nX1\n*INSERT NC_NONE\nX2\n*END\n*END\n";

class TableSequences : public testing::Test {
 protected:
  // The number of sequences of a command, by name or by index; nothing for false.
  template <class Command>
  std::optional<int> numberOf(const Command& command) {
    int count = -7;
    if (reader_.GetNumberOfSequenceForCommand(command, count)) return count;
    EXPECT_EQ(count, -7);
    return std::nullopt;
  }

  template <class Command>
  std::optional<Texts> elementsOf(const Command& command, int sequence) {
    KEPListValKEPString syntaxes;
    if (reader_.GetSyntaxOfSequenceForCommand(command, sequence, syntaxes)) return texts(syntaxes);
    EXPECT_EQ(syntaxes.Size(), 0);
    return std::nullopt;
  }

  TableFile file_{kSequenceTable};
  KEPMfgPPTableTxt reader_{file_.path()};
};

TEST_F(TableSequences, NumberIsFoundByNameAndIndex) {
  EXPECT_EQ(numberOf("NC_I"), 2);
  EXPECT_EQ(numberOf("NC_NONE"), 0);
  EXPECT_EQ(numberOf(4), 2);
  EXPECT_EQ(numberOf(1), 0);
}

TEST_F(TableSequences, AbsentCommandGivesFalse) {
  EXPECT_EQ(numberOf("NC_ABSENT"), std::nullopt);
  EXPECT_EQ(numberOf(0), std::nullopt);
  EXPECT_EQ(numberOf(5), std::nullopt);
  EXPECT_EQ(elementsOf("NC_ABSENT", 1), std::nullopt);
  EXPECT_EQ(elementsOf(5, 1), std::nullopt);
}

TEST_F(TableSequences, ElementsAreFoundByNameAndIndex) {
  EXPECT_EQ(elementsOf("NC_I", 1), Texts{"IS1"});
  EXPECT_EQ(elementsOf("NC_I", 2), (Texts{"IS2", "PPRINT SECOND ONE"}));
  EXPECT_EQ(elementsOf(4, 2), (Texts{"IS2", "PPRINT SECOND ONE"}));
}

TEST_F(TableSequences, IndexOutsideTheCommandGivesFalse) {
  for (const int index : {-1, 0, 3}) {
    EXPECT_EQ(elementsOf("NC_I", index), std::nullopt) << index;
    EXPECT_EQ(elementsOf(4, index), std::nullopt) << index;
  }
  EXPECT_EQ(elementsOf("NC_NONE", 1), std::nullopt);
}

TEST_F(TableSequences, NestedListEndsTheCount) {
  EXPECT_EQ(numberOf("NC_LIST"), 1);
  EXPECT_EQ(elementsOf("NC_LIST", 1), Texts{"L1"});
  EXPECT_EQ(elementsOf("NC_LIST", 2), std::nullopt);
}

TEST_F(TableSequences, InsertsOfASequenceAreExpanded) {
  EXPECT_EQ(elementsOf("NC_INSERT", 1), (Texts{"X1", "N1", "X2"}));
}

TEST_F(TableSequences, ListIsAppendedTo) {
  KEPListValKEPString syntaxes = listOf({"before"});
  EXPECT_TRUE(reader_.GetSyntaxOfSequenceForCommand("NC_I", 1, syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"before", "IS1"}));
}

TEST_F(TableSequences, StreamStandsBehindTheEnd) {
  KEPMfgPPTableTxtTest inside(reader_);
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader_.GetSyntaxOfSequenceForCommand("NC_I", 1, syntaxes));
  EXPECT_EQ(inside.nextToken(), "I2");
  EXPECT_EQ(numberOf("NC_I"), 2);
  EXPECT_EQ(inside.nextToken(), "*START_NC_COMMAND");
}

// The count from the first body on, of a table that goes on like this.
std::optional<int> countIn(const std::string& body) {
  const TableFile file("*START_NC_COMMAND NC_A " + body);
  KEPMfgPPTableTxt reader(file.path());
  int count = -7;
  if (reader.GetNumberOfSequenceForCommand("NC_A", count)) return count;
  EXPECT_EQ(count, -7);
  return std::nullopt;
}

TEST(TableSequenceCount, KeywordsAreFoundInsideTokens) {
  EXPECT_EQ(countIn("X*START_SEQUENCES A X*ENDX *END"), 1);
  EXPECT_EQ(countIn("*START_SEQUENCE*END *END"), 1);
}

TEST(TableSequenceCount, SlashTokensArePassedOver) {
  EXPECT_EQ(countIn("/*START_SEQUENCE /*END *END"), 0);
}

TEST(TableSequenceCount, NestedSequencesAllCount) {
  EXPECT_EQ(countIn("*START_SEQUENCE *START_SEQUENCE *END *END *END"), 2);
}

TEST(TableSequenceCount, EndOfFileGivesFalse) {
  EXPECT_EQ(countIn(""), std::nullopt);
  EXPECT_EQ(countIn("*START_SEQUENCE A *END"), std::nullopt);
}

TEST(TableSequenceCount, SequenceWithoutEndGivesFalse) {
  const TableFile file("*START_NC_COMMAND NC_A *START_SEQUENCE A");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes = listOf({"before"});
  EXPECT_FALSE(reader.GetSyntaxOfSequenceForCommand("NC_A", 1, syntaxes));
  EXPECT_FALSE(reader.GetSyntaxOfSequenceForCommand("NC_A", 2, syntaxes));
  EXPECT_EQ(texts(syntaxes), Texts{"before"});
}

TEST(TableSequenceCount, PrivateOperationsReadOnFromThePosition) {
  const TableFile file(
      "*START_NC_COMMAND NC_A *START_SEQUENCE A1 *END *START_SEQUENCE A2 *END *END "
      "*START_SEQUENCE OUTSIDE *END *END");
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxtTest inside(reader);
  int range = 0;
  ASSERT_TRUE(reader.GetRangeOfCommand("NC_A", range));
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(inside.syntaxOfSequence("NC_A", 1, syntaxes));
  EXPECT_TRUE(inside.syntaxOfSequence("NC_A", 1, syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"A1", "A2"}));
  EXPECT_EQ(inside.nextToken(), "*END");
  int count = 0;
  EXPECT_TRUE(inside.numberOfSequence(count));
  EXPECT_EQ(count, 1);
  EXPECT_FALSE(inside.numberOfSequence(count));
  EXPECT_EQ(count, 1);
}

}  // namespace
