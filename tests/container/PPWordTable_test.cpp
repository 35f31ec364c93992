#include <gtest/gtest.h>

#include "KEPIMfgPPWordTable.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "host/modeler/Container.h"
#include "src/container/KEPMfgPPWordTable.h"
#include "tests/container/Listing.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

using Kind = KEPISpecAttribute::Kind;

Texts wordTexts(const KEPListValKEPString& list) {
  Texts result;
  for (const KEPString& text : list) result.emplace_back(text.View());
  return result;
}

/// The table object of a container whose members are MfgPPSyntax (which answers the interface too),
/// NC_SECOND and NC_THIRD.
class PPWordTable : public testing::Test, protected PPWordDocument {
 protected:
  PPWordTable() {
    instruction("NC_SECOND", {"SECOND/1", "SECOND/2"});
    instruction("NC_THIRD", {"THIRD/1"});
  }

  /// Adds the sequence 2 and the modeler's bookkeeping attributes to an instruction.
  void furnish(std::string_view name) const {
    const KEPISpecAttrAccess_var attributes = find(name);
    attributes->AddAttribute("Syntaxe2", Kind::StringList);
    attributes->SetList("Syntaxe2", list({"OTHER/1"}));
    attributes->AddAttribute("$OSM_LocalXts", Kind::String);
    // Attributes of the base type are listed first.
    KEPISpecAttrAccess_var(find("MfgPPSyntax"))->AddAttribute("$OSM_Xts", Kind::String);
  }

  [[nodiscard]] int count() const {
    int count = 77;
    EXPECT_TRUE(table->GetNumberOfNCInstruction(count));
    return count;
  }
  [[nodiscard]] std::string nameAt(int index) const {
    KEPString name("before");
    return table->GetNameOfNCInstruction(index, name) ? std::string(name.View()) : "none";
  }
  [[nodiscard]] int sequencesAt(int index) const {
    int count = 77;
    return table->GetNumberOfSequenceForNCInstruction(index, count) ? count : -1;
  }
  /// The lines of a sequence behind one that was there; the result with an exclamation mark first
  /// when the call failed.
  [[nodiscard]] Texts linesOf(int index, int sequence) const {
    KEPListValKEPString lines;
    lines.Append("BEFORE");
    const bool done = table->GetSyntaxOfSequenceForNCInstruction(index, sequence, lines);
    Texts result = wordTexts(lines);
    if (!done) result.insert(result.begin(), "!");
    return result;
  }

  const Texts kNothing{"!", "BEFORE"};
  KEPIMfgPPWordTable_var table = features;
};

TEST_F(PPWordTable, CountLeavesTheFirstMemberOut) { EXPECT_EQ(count(), 2); }

TEST_F(PPWordTable, CountFollowsTheContainer) {
  instruction("NC_FOURTH", {"FOURTH/1"});
  EXPECT_EQ(count(), 3);
  KEPILifeCycleObject_var(find("NC_SECOND"))->remove();
  EXPECT_EQ(count(), 2);
}

TEST_F(PPWordTable, CountOfAContainerWithoutMembersIsMinusOne) {
  const auto empty = host::Document::create();
  int count = 77;
  EXPECT_TRUE(KEPIMfgPPWordTable_var(empty->features())->GetNumberOfNCInstruction(count));
  EXPECT_EQ(count, -1);
}

TEST_F(PPWordTable, CountWithoutAContainerIsZeroAndFalse) {
  KEPMfgPPWordTable alone;
  int count = 77;
  EXPECT_FALSE(alone.GetNumberOfNCInstruction(count));
  EXPECT_EQ(count, 0);
}

TEST_F(PPWordTable, NameOfEveryIndexIsGivenTheFirstIncluded) {
  EXPECT_EQ(nameAt(0), "MfgPPSyntax");
  EXPECT_EQ(nameAt(1), "NC_SECOND");
  EXPECT_EQ(nameAt(2), "NC_THIRD");
}

TEST_F(PPWordTable, NameOfAnInstanceIsThatOfItsType) {
  const auto instance = KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_THIRD"), "X"));
  EXPECT_EQ(nameAt(3), "NC_THIRD");
  EXPECT_EQ(count(), 3);
}

TEST_F(PPWordTable, IndexOutsideIsRefusedAndTouchesNothing) {
  for (const int index : {-2147483647 - 1, -1, 3, 4, 2147483647}) {
    KEPString name("before");
    int count = 77;
    EXPECT_FALSE(table->GetNameOfNCInstruction(index, name)) << index;
    EXPECT_FALSE(table->GetNumberOfSequenceForNCInstruction(index, count)) << index;
    EXPECT_EQ(linesOf(index, 1), kNothing) << index;
    EXPECT_EQ(name.View(), "before");
    EXPECT_EQ(count, 77);
  }
}

TEST_F(PPWordTable, SequencesAreTheAttributesOfAnInstruction) {
  EXPECT_EQ(sequencesAt(0), 0);
  EXPECT_EQ(sequencesAt(1), 1);
}

TEST_F(PPWordTable, BookkeepingAttributesAreNoSequences) {
  furnish("NC_SECOND");
  EXPECT_EQ(sequencesAt(1), 2);
  EXPECT_EQ(linesOf(1, 1), (Texts{"BEFORE", "SECOND/1", "SECOND/2"}));
  EXPECT_EQ(linesOf(1, 2), (Texts{"BEFORE", "OTHER/1"}));
}

TEST_F(PPWordTable, SequenceOutsideIsRefusedAndLeavesTheListAsItWas) {
  furnish("NC_SECOND");
  for (const int sequence : {-2147483647 - 1, -1, 0, 3, 2147483647}) {
    EXPECT_EQ(linesOf(1, sequence), kNothing) << sequence;
  }
}

TEST_F(PPWordTable, SequenceWithoutValueCountsAndHasNoLines) {
  furnish("NC_SECOND");
  KEPISpecAttrAccess_var(find("NC_SECOND"))->Unset("Syntaxe");
  EXPECT_EQ(sequencesAt(1), 2);
  EXPECT_EQ(linesOf(1, 1), (Texts{"BEFORE"}));
  EXPECT_EQ(linesOf(1, 2), (Texts{"BEFORE", "OTHER/1"}));
}

TEST_F(PPWordTable, SequencesAreCountedByPositionNotByName) {
  const KEPISpecAttrAccess_var third = find("NC_THIRD");
  third->AddAttribute("Syntaxe7", Kind::StringList);
  third->SetList("Syntaxe7", list({"SEVENTH/1"}));
  EXPECT_EQ(sequencesAt(2), 2);
  EXPECT_EQ(linesOf(2, 2), (Texts{"BEFORE", "SEVENTH/1"}));
  EXPECT_EQ(linesOf(2, 7), kNothing);
}

TEST_F(PPWordTable, AttributeThatIsNoListIsRefused) {
  const KEPISpecAttrAccess_var third = find("NC_THIRD");
  third->AddAttribute("Remark", Kind::String);
  third->SetString("Remark", "TEXT");
  EXPECT_EQ(sequencesAt(2), 2);
  EXPECT_EQ(linesOf(2, 2), kNothing);
}

TEST_F(PPWordTable, LinesInheritedFromTheTypeAreGiven) {
  const auto instance = KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_SECOND"), ""));
  EXPECT_EQ(linesOf(3, 1), (Texts{"BEFORE", "SECOND/1", "SECOND/2"}));
}

TEST_F(PPWordTable, IndexOfANameLeavesTheFirstMemberOut) {
  int index = 77;
  EXPECT_FALSE(table->GetIndexOfNCInstruction("MfgPPSyntax", index));
  EXPECT_EQ(index, 0);
  EXPECT_TRUE(table->GetIndexOfNCInstruction("NC_THIRD", index));
  EXPECT_EQ(index, 2);
}

TEST_F(PPWordTable, IndexOfANameIsThatOfTheFirstMember) {
  const auto instance = KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_SECOND"), ""));
  int index = 77;
  EXPECT_TRUE(table->GetIndexOfNCInstruction("NC_SECOND", index));
  EXPECT_EQ(index, 1);
}

TEST_F(PPWordTable, NamesAreExact) {
  for (const char* name : {"", "nc_third", "NC_THIRD ", "NC_THIR", "MfgPPParameter"}) {
    int index = 77;
    EXPECT_FALSE(table->GetIndexOfNCInstruction(name, index)) << name;
    EXPECT_EQ(index, 0) << name;
  }
}

TEST_F(PPWordTable, ParametersAndCommandsAreNoInstructions) {
  make("MFG_XPOINT", "MfgPPParameter");
  const auto command =
      KEPISpecObject_var::Adopt(features->CreateInstance(find("MfgPPCommand"), ""));
  EXPECT_EQ(count(), 2);
}

TEST_F(PPWordTable, EveryQueryKeepsTheReferences) {
  furnish("NC_SECOND");
  const auto counts = referencesOf(document);
  KEPListValKEPString lines;
  KEPString name;
  int number = 0;
  for (const int index : {-1, 0, 1, 2, 3}) {
    static_cast<void>(table->GetNameOfNCInstruction(index, name));
    static_cast<void>(table->GetNumberOfSequenceForNCInstruction(index, number));
    for (const int sequence : {0, 1, 3}) {
      static_cast<void>(table->GetSyntaxOfSequenceForNCInstruction(index, sequence, lines));
    }
  }
  static_cast<void>(table->GetNumberOfNCInstruction(number));
  static_cast<void>(table->GetIndexOfNCInstruction("NC_THIRD", number));
  static_cast<void>(table->GetIndexOfNCInstruction("NC_NONE", number));
  EXPECT_EQ(referencesOf(document), counts);
}

TEST(DefaultCatalogueTable, HasEightyInstructionsFromOneOn) {
  const auto document = host::newDocument();
  const KEPIMfgPPWordTable_var table = document->features();
  int count = 0;
  EXPECT_TRUE(table->GetNumberOfNCInstruction(count));
  EXPECT_EQ(count, 80);
  int index = 0;
  EXPECT_TRUE(table->GetIndexOfNCInstruction("NC_CYCLE_LOCATION_POINT_V1", index));
  EXPECT_EQ(index, 1);
  EXPECT_TRUE(table->GetIndexOfNCInstruction("NC_PROBING_MULTIPOINTS", index));
  EXPECT_EQ(index, 80);
  KEPListValKEPString lines;
  EXPECT_TRUE(table->GetSyntaxOfSequenceForNCInstruction(28, 1, lines));
  EXPECT_EQ(wordTexts(lines), (Texts{"CUTCOM/SAME, NORMDS", "CUTCOM/NORMDS"}));
}

}  // namespace
}  // namespace ppword::test
