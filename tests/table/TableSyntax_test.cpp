#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/table/TableFiles.h"

namespace {

using Syntax = std::optional<Texts>;

// What a command of a table gives; nothing for false, which must leave the list alone.
Syntax syntaxOf(std::string_view table, const KEPString& command) {
  const TableFile file(table);
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  if (reader.GetSyntaxOfCommand(command, syntaxes)) return texts(syntaxes);
  EXPECT_EQ(syntaxes.Size(), 0);
  return std::nullopt;
}

// What the command of a table gives that has this body and a command behind it.
Syntax syntaxOfBody(const std::string& body) {
  return syntaxOf("*START_NC_COMMAND NC_A\n" + body + "\n*START_NC_COMMAND NC_Z\nZ1\n*END\n",
                  "NC_A");
}

struct BodyCase {
  std::string body;
  Syntax elements;
};

void expectBodies(const std::vector<BodyCase>& cases) {
  for (const auto& [body, elements] : cases) EXPECT_EQ(syntaxOfBody(body), elements) << body;
}

TEST(TableSyntax, EveryTokenIsOneElement) {
  expectBodies({{"*END", Texts{}},
                {"RAPID\nGOTO/%MFG_X,%MFG_Y\n*END", Texts{"RAPID", "GOTO/%MFG_X,%MFG_Y"}},
                {"A B\tC\n\n D *END", Texts{"A", "B", "C", "D"}},
                {"*START_FORMAT %5.1f *END", Texts{"*START_FORMAT", "%5.1f"}}});
}

TEST(TableSyntax, AbsentCommandGivesFalse) {
  EXPECT_EQ(syntaxOf("*START_NC_COMMAND NC_A A1 *END", "NC_B"), std::nullopt);
}

TEST(TableSyntax, ListIsAppendedToAndLeftAloneByFalse) {
  const TableFile file("*START_NC_COMMAND NC_A A1 *END *START_NC_COMMAND NC_B B1");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes = listOf({"before"});
  EXPECT_TRUE(reader.GetSyntaxOfCommand("NC_A", syntaxes));
  EXPECT_FALSE(reader.GetSyntaxOfCommand("NC_B", syntaxes));
  EXPECT_FALSE(reader.GetSyntaxOfCommand("NC_C", syntaxes));
  EXPECT_FALSE(reader.GetSyntaxOfCommand(3, syntaxes));
  EXPECT_TRUE(reader.GetSyntaxOfCommand(1, syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"before", "A1", "A1"}));
}

TEST(TableSyntax, IndexFollowsTheNumbering) {
  const TableFile file(
      "*START_NC_INSTRUCTION NC_I I1 *END *START_NC_COMMAND MY_C X1 *END "
      "*START_NC_COMMAND NC_C C1 *END");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_FALSE(reader.GetSyntaxOfCommand(0, syntaxes));
  EXPECT_FALSE(reader.GetSyntaxOfCommand(1, syntaxes));
  EXPECT_TRUE(reader.GetSyntaxOfCommand(2, syntaxes));
  EXPECT_TRUE(reader.GetSyntaxOfCommand(3, syntaxes));
  EXPECT_FALSE(reader.GetSyntaxOfCommand(4, syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"C1", "I1"}));
}

TEST(TableSyntax, RepeatedNameGivesItsFirstBodyByNameAndEachByIndex) {
  const TableFile file("*START_NC_COMMAND NC_A FIRST *END *START_NC_COMMAND NC_A SECOND *END");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetSyntaxOfCommand("NC_A", syntaxes));
  EXPECT_TRUE(reader.GetSyntaxOfCommand(2, syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"FIRST", "SECOND"}));
}

TEST(TableSyntax, SlashTokensArePassedOver) {
  expectBodies({{"/A B /*END /*INSERT C /PPRINT D *END", Texts{"B", "C", "D"}}});
}

TEST(TableSyntax, AnyTokenThatContainsEndEndsTheBody) {
  expectBodies({{"A *ENDX B *END", Texts{"A"}}, {"A X*END B *END", Texts{"A"}}});
}

TEST(TableSyntax, NestedListsAreSkipped) {
  expectBodies({{"A *START_LIST MFG_L L1,L2 *END B *END", Texts{"A", "B"}},
                {"A X*START_LISTS MFG_L /*END L2 X*ENDX B *END", Texts{"A", "B"}},
                {"*START_LIST *START_SEQUENCE *INSERT PPRINT *END B *END", Texts{"B"}}});
}

TEST(TableSyntax, NestedListWithoutEndGivesFalse) {
  EXPECT_EQ(syntaxOf("*START_NC_COMMAND NC_A A *START_LIST MFG_L L1", "NC_A"), std::nullopt);
}

TEST(TableSyntax, FirstSequenceBelongsToTheBodyAndEndsIt) {
  expectBodies({{"A *START_SEQUENCE S1 *END B *START_SEQUENCE S2 *END *END", Texts{"A", "S1"}},
                {"A X*START_SEQUENCES S1 *END *END", Texts{"A", "S1"}}});
}

TEST(TableSyntax, TextWordTakesTheRestOfItsLine) {
  expectBodies({
      {"PPRINT MOVE TO POINT\n*END", Texts{"PPRINT MOVE TO POINT"}},
      {"PPRINTXY MOVE TO\n*END", Texts{"PPRINTXY MOVE TO"}},
      {"PARTNO PART 12\n*END", Texts{"PARTNO PART 12"}},
      {"$$ A COMMENT *END *INSERT X\n*END", Texts{"$$ A COMMENT *END *INSERT X"}},
      {"INSERT G01 X1\n*END", Texts{"INSERT G01 X1"}},
      {"DNCMSG HELLO\n*END", Texts{"DNCMSG HELLO"}},
      {"RAPID PPRINT A B\nC\n*END", Texts{"RAPID", "PPRINT A B", "C"}},
      {"PPRINT\n*END", Texts{"PPRINT"}},
      {"PPRINT   A  B   \n*END", Texts{"PPRINT   A  B"}},
      {"PPRINT\tA\t\n*END", Texts{"PPRINT\tA\t"}},
      {"PPRINT A\rB\n*END", Texts{"PPRINT A\rB"}},
      {"PPRINT A\r\n*END", Texts{"PPRINT A"}},
      {"PPRINT A\r\r\n*END", Texts{"PPRINT A\r"}},
      {"PPRINT\r\nB\r\n*END", Texts{"PPRINT", "B"}},
      {"PPRINT \xE9\xFF\xC3\xA9\n*END", Texts{"PPRINT \xE9\xFF\xC3\xA9"}},
  });
}

TEST(TableSyntax, OtherTokensAreNoTextWords) {
  expectBodies({{"XPPRINT A\n*END", Texts{"XPPRINT", "A"}},
                {"PARTNO/A B\n*END", Texts{"PARTNO/A", "B"}},
                {"$$A B\n*END", Texts{"$$A", "B"}},
                {"$ A\n*END", Texts{"$", "A"}},
                {"INSERTS A\n*END", Texts{"INSERTS", "A"}},
                {"DNCMSGS A\n*END", Texts{"DNCMSGS", "A"}},
                {"pprint A\n*END", Texts{"pprint", "A"}}});
}

TEST(TableSyntax, KeywordCountsMoreThanTextWord) {
  expectBodies({{"PPRINT*END A\n*END", Texts{}},
                {"PPRINT*START_SEQUENCE A\n*END", Texts{"A"}},
                {"PPRINT*START_LIST A *END B *END", Texts{"B"}}});
}

TEST(TableSyntax, NulByteOfATextWordIsKept) {
  using namespace std::string_literals;
  expectBodies({{"PPRINT A\0B\nC\0D\n*END"s, Texts{"PPRINT A\0B"s, "C\0D"s}}});
}

TEST(TableSyntax, TextWordReads1023CharactersAndDropsTheLast) {
  // The blank behind the word and the line feed are two of the characters read.
  const std::string fits(1021, 'x');
  expectBodies({{"PPRINT " + fits + "\nB\n*END", Texts{"PPRINT " + fits, "B"}},
                {"PPRINT " + fits + "\r\nB\r\n*END", Texts{"PPRINT " + fits, "B"}},
                {"PPRINT " + fits + "y\nB\n*END", Texts{"PPRINT " + fits, "B"}},
                {"PPRINT " + fits + "y z\nB\n*END", Texts{"PPRINT " + fits, "z", "B"}}});
}

TEST(TableSyntax, ElementOfATextWordMayExceed1023Characters) {
  const std::string word = "PPRINT" + std::string(1017, 'w');
  const std::string rest = " " + std::string(1021, 'r');
  expectBodies({{word + rest + "\n*END", Texts{word + rest}}});
}

TEST(TableSyntax, BodyWithoutEndGivesFalse) {
  for (const char* body :
       {"", "A", "PPRINT", "PPRINT TEXT", "PPRINT TEXT\n", "A /*END", "*INSERT"}) {
    const std::string table = "*START_NC_COMMAND NC_A " + std::string(body);
    EXPECT_EQ(syntaxOf(table, "NC_A"), std::nullopt) << body;
  }
}

TEST(TableSyntax, BodyOfManyElementsWithoutInsertIsRead) {
  std::string body;
  for (int i = 0; i < 100'001; ++i) body += "A\n";
  const Syntax elements = syntaxOfBody(body + "*END");
  ASSERT_TRUE(elements);
  EXPECT_EQ(elements->size(), 100'001U);
}

TEST(TableSyntax, StreamStandsBehindTheEnd) {
  const TableFile file("*START_NC_COMMAND NC_A A1 *END NEXT");
  KEPMfgPPTableTxt reader(file.path());
  KEPListValKEPString syntaxes;
  EXPECT_TRUE(reader.GetSyntaxOfCommand(1, syntaxes));
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "NEXT");
}

TEST(TableSyntax, ReadingGoesOnFromThePosition) {
  const TableFile file("*START_NC_COMMAND NC_A A1 A2 A3 *END B1 *END");
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxtTest inside(reader);
  int range = 0;
  ASSERT_TRUE(reader.GetRangeOfCommand("NC_A", range));
  ASSERT_EQ(inside.nextToken(), "A1");
  KEPListValKEPString syntaxes = listOf({"before"});
  EXPECT_TRUE(inside.syntaxFromPosition("NC_A", syntaxes));
  EXPECT_TRUE(inside.syntaxFromPosition("NC_A", syntaxes));
  EXPECT_FALSE(inside.syntaxFromPosition("NC_A", syntaxes));
  EXPECT_EQ(texts(syntaxes), (Texts{"before", "A2", "A3", "B1"}));
}

TEST(TableSyntax, CutElementsAreMended) {
  const std::string cut = "GOTO/" + std::string(66, '1') + ",%MFG_YPO";
  ASSERT_EQ(cut.size(), 80U);
  expectBodies({{cut + "\nINT,%MFG_ZPOINT\n*END", Texts{cut + "INT,", "%MFG_ZPOINT"}}});
}

}  // namespace
