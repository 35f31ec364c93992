#include <gtest/gtest.h>

#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "System/KEPError.h"
#include "host/modeler/Container.h"
#include "src/container/KEPMfgPPCommand.h"
#include "tests/container/Listing.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

/// A PP command in a container with the instruction NC_TWO of two sequences.
class PPCommand : public testing::Test, protected PPWordDocument {
 protected:
  PPCommand() {
    const KEPISpecAttrAccess_var two = instruction("NC_TWO", {"FIRST/1", "FIRST/2"});
    two->AddAttribute("Syntaxe2", KEPISpecAttribute::Kind::StringList);
    two->SetList("Syntaxe2", list({"SECOND/1"}));
    make("MFG_XPOINT", "MfgPPParameter");
  }

  /// Evaluates into a list that holds one line, with unchanged counts of references.
  [[nodiscard]] std::pair<bool, Texts> evaluate() const {
    const auto counts = referencesOf(document);
    KEPListValKEPUnicodeString lines = list({"BEFORE"});
    const bool done = command->Evaluate(lines);
    EXPECT_EQ(referencesOf(document), counts);
    return {done, texts(lines)};
  }

  const std::pair<bool, Texts> kNothing{false, {"BEFORE"}};
  KEPISpecObject_var feature =
      KEPISpecObject_var::Adopt(features->CreateInstance(find("MfgPPCommand"), ""));
  KEPIMfgPPCommand_var command = feature;
};

TEST_F(PPCommand, NameThatIsNotSetGivesABlank) {
  KEPUnicodeString name("before");
  EXPECT_FALSE(command->GetCommandName(name));
  EXPECT_EQ(name, KEPUnicodeString(" "));
}

TEST_F(PPCommand, NameIsKeptInTheFeature) {
  EXPECT_TRUE(command->SetCommandName("NC_TWO"));
  KEPUnicodeString name;
  EXPECT_TRUE(command->GetCommandName(name));
  EXPECT_EQ(name, KEPUnicodeString("NC_TWO"));
  EXPECT_EQ(entryOf(feature), " : MfgPPCommand\n  CommandName: NC_TWO\n  SequenceNumber unset\n");
}

TEST_F(PPCommand, EmptyNameThatWasSetIsAValue) {
  command->SetCommandName("");
  KEPUnicodeString name("before");
  EXPECT_TRUE(command->GetCommandName(name));
  EXPECT_EQ(name, KEPUnicodeString(""));
}

TEST_F(PPCommand, NameOfTheTypeIsInherited) {
  KEPMfgAttributeUtilities::SetString(find("MfgPPCommand"), "CommandName", "NC_TWO");
  KEPUnicodeString name;
  EXPECT_TRUE(command->GetCommandName(name));
  EXPECT_EQ(name, KEPUnicodeString("NC_TWO"));
}

TEST_F(PPCommand, NumberThatIsNotSetGivesZero) {
  int number = 7;
  EXPECT_FALSE(command->GetSequenceNumber(number));
  EXPECT_EQ(number, 0);
}

TEST_F(PPCommand, NumberIsKeptInTheFeature) {
  EXPECT_TRUE(command->SetSequenceNumber(-3));
  int number = 7;
  EXPECT_TRUE(command->GetSequenceNumber(number));
  EXPECT_EQ(number, -3);
  EXPECT_EQ(entryOf(feature), " : MfgPPCommand\n  CommandName unset\n  SequenceNumber: -3\n");
}

TEST_F(PPCommand, ZeroThatWasSetIsAValue) {
  command->SetSequenceNumber(0);
  int number = 7;
  EXPECT_TRUE(command->GetSequenceNumber(number));
  EXPECT_EQ(number, 0);
}

TEST_F(PPCommand, ObjectsAreNull) {
  int something = 0;
  void* first = &something;
  void* second = &something;
  EXPECT_TRUE(command->GetObjects(first, second));
  EXPECT_EQ(first, nullptr);
  EXPECT_EQ(second, nullptr);
}

TEST_F(PPCommand, GettersAndSettersKeepTheReferences) {
  const auto counts = referencesOf(document);
  KEPUnicodeString name;
  int number = 0;
  EXPECT_FALSE(command->GetCommandName(name));
  EXPECT_FALSE(command->GetSequenceNumber(number));
  command->SetCommandName("NC_TWO");
  command->SetSequenceNumber(2);
  EXPECT_TRUE(command->GetCommandName(name));
  EXPECT_TRUE(command->GetSequenceNumber(number));
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(PPCommand, WithoutANameEvaluatesToFalse) {
  command->SetSequenceNumber(1);
  EXPECT_EQ(evaluate(), kNothing);
}

TEST_F(PPCommand, WithoutANumberEvaluatesToFalse) {
  command->SetCommandName("NC_TWO");
  EXPECT_EQ(evaluate(), kNothing);
}

TEST_F(PPCommand, LinesOfItsSequenceAreAppended) {
  command->SetCommandName("NC_TWO");
  command->SetSequenceNumber(1);
  EXPECT_EQ(evaluate(), (std::pair{true, Texts{"BEFORE", "FIRST/1", "FIRST/2"}}));
  command->SetSequenceNumber(2);
  EXPECT_EQ(evaluate(), (std::pair{true, Texts{"BEFORE", "SECOND/1"}}));
}

TEST_F(PPCommand, BookkeepingAttributesOfTheInstructionDoNotCount) {
  const auto attributes =
      declared("NC_MIXED", {"$OSM_Xts", "Syntaxe", "$OSM_LocalXts", "Syntaxe2"});
  attributes->SetList("Syntaxe2", list({"SECOND/1"}));
  command->SetCommandName("NC_MIXED");
  command->SetSequenceNumber(2);
  EXPECT_EQ(evaluate(), (std::pair{true, Texts{"BEFORE", "SECOND/1"}}));
}

TEST_F(PPCommand, NumberOfNoSequenceEvaluatesToFalse) {
  command->SetCommandName("NC_TWO");
  for (const int number : {0, -1, 3}) {
    command->SetSequenceNumber(number);
    EXPECT_EQ(evaluate(), kNothing) << number;
  }
}

TEST_F(PPCommand, NameOfNoInstructionEvaluatesToFalse) {
  command->SetSequenceNumber(1);
  for (const char* name : {"NC_NONE", "MFG_XPOINT", "MfgPPCommand", "", " "}) {
    command->SetCommandName(name);
    EXPECT_EQ(evaluate(), kNothing) << name;
  }
}

TEST_F(PPCommand, NameWithAMotionMarkerIsLookedUpPlainly) {
  command->SetCommandName("NC_TWO#SEQMOTION#3");
  command->SetSequenceNumber(1);
  EXPECT_EQ(evaluate(), kNothing);
  instruction("NC_TWO#SEQMOTION#3", {"WHOLE/1"});
  EXPECT_EQ(evaluate(), (std::pair{true, Texts{"BEFORE", "WHOLE/1"}}));
}

TEST_F(PPCommand, NumberOfTheSequentialMotionIsLeftAlone) {
  const KEPIMfgSyntaxEvaluation_var evaluation = find("NC_TWO");
  evaluation->SetSeqMotionNumber(5);
  command->SetCommandName("NC_TWO");
  command->SetSequenceNumber(1);
  EXPECT_TRUE(evaluate().first);
  EXPECT_EQ(evaluation->GetSeqMotionNumber(), 5);
}

TEST_F(PPCommand, RemovedCommandEvaluatesToFalse) {
  command->SetCommandName("NC_TWO");
  command->SetSequenceNumber(1);
  KEPILifeCycleObject_var(feature)->remove();
  EXPECT_EQ(evaluate(), kNothing);
}

TEST_F(PPCommand, FeatureWithoutItsAttributesKeepsNothing) {
  const auto container =
      KEPVar<host::Container>::Adopt(new host::Container(*document, "MfgPPWordCont"));
  const KEPIMfgPPCommand_var bare =
      KEPISpecObject_var::Adopt(container->CreateStartUp("MfgPPCommand", nullptr));
  EXPECT_TRUE(bare->SetCommandName("NC_TWO"));
  EXPECT_TRUE(bare->SetSequenceNumber(2));
  KEPUnicodeString name;
  int number = 7;
  EXPECT_FALSE(bare->GetCommandName(name));
  EXPECT_FALSE(bare->GetSequenceNumber(number));
  EXPECT_EQ(name, KEPUnicodeString(" "));
  EXPECT_EQ(number, 0);
  KEPListValKEPUnicodeString lines;
  EXPECT_FALSE(bare->Evaluate(lines));
}

TEST(PPCommandAlone, EvaluatesToFalseAndHasNoValues) {
  KEPMfgPPCommand alone;
  KEPListValKEPUnicodeString lines = list({"BEFORE"});
  EXPECT_FALSE(alone.Evaluate(lines));
  EXPECT_EQ(texts(lines), Texts{"BEFORE"});
  KEPUnicodeString name("before");
  int number = 7;
  EXPECT_THROW(alone.SetCommandName("NC_TWO"), KEPErrorNullHandle);
  EXPECT_THROW(static_cast<void>(alone.GetCommandName(name)), KEPErrorNullHandle);
  EXPECT_THROW(alone.SetSequenceNumber(1), KEPErrorNullHandle);
  EXPECT_THROW(static_cast<void>(alone.GetSequenceNumber(number)), KEPErrorNullHandle);
  EXPECT_EQ(name.View(), "before");
  EXPECT_EQ(number, 7);
}

}  // namespace
}  // namespace ppword::test
