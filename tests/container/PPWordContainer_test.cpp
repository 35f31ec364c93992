#include <gtest/gtest.h>

#include "KEPIMfgPPCommand.h"
#include "System/KEPError.h"
#include "src/container/KEPMfgPPWordContainerTie.h"
#include "tests/container/Listing.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

constexpr const char* kUserInstruction = "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX";

class PPWordContainer : public testing::Test, protected PPWordDocument {
 protected:
  [[nodiscard]] std::string entry(std::string_view name) const { return entryOf(find(name)); }
};

TEST_F(PPWordContainer, FindGivesTheTypeWithOneReference) {
  const KEPISpecObject_var type = instruction("NC_GOTO", {"GOTO/1"});
  const int before = type->GetReferenceCount();
  KEPISpecObject* const found = words->FindPPWord("NC_GOTO");
  EXPECT_EQ(found, type.Get());
  EXPECT_EQ(type->GetReferenceCount(), before + 1);
  found->Release();
}

TEST_F(PPWordContainer, FindIsExact) {
  const KEPISpecObject_var type = instruction("NC_GOTO", {"GOTO/1"});
  const auto counts = referencesOf(document);
  for (const char* name : {"", "nc_goto", "NC_GOTO ", "NC_GOT", "NC_GOTO#SEQMOTION#1"}) {
    EXPECT_EQ(words->FindPPWord(name), nullptr) << name;
  }
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(PPWordContainer, GetGivesAHandleThatHoldsTheOnlyNewReference) {
  const KEPISpecObject_var type = instruction("NC_GOTO", {"GOTO/1"});
  const auto counts = referencesOf(document);
  {
    KEPISpecObject_var word;
    words->GetPPWord(word, "NC_GOTO");
    EXPECT_EQ(word.Get(), type.Get());
    EXPECT_NE(referencesOf(document), counts);
  }
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(PPWordContainer, GetOfAnUnknownNameEmptiesTheHandle) {
  KEPISpecObject_var word = find("MfgPPSyntax");
  words->GetPPWord(word, "NC_NONE");
  EXPECT_FALSE(word);
}

TEST_F(PPWordContainer, RefreshChangesNothing) {
  const auto before = listing(features);
  const auto counts = referencesOf(document);
  EXPECT_EQ(words->Refresh(), 0);
  EXPECT_EQ(listing(features), before);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(PPWordContainer, ObjectsAreEmptyAtFirst) {
  KEPBaseUnknown_var first = find("MfgPPSyntax");
  KEPBaseUnknown_var second = first;
  EXPECT_TRUE(words->GetFirstObject(first));
  EXPECT_EQ(words->GetSecondObject(second), 0);
  EXPECT_FALSE(first);
  EXPECT_FALSE(second);
}

TEST_F(PPWordContainer, SetObjectsSetsBoth) {
  const auto object = host::Activity::create("Pocket.1");
  EXPECT_TRUE(words->SetObjects(object));
  KEPBaseUnknown_var first;
  KEPBaseUnknown_var second;
  EXPECT_TRUE(words->GetFirstObject(first));
  EXPECT_EQ(words->GetSecondObject(second), 0);
  EXPECT_EQ(first.Get(), object.Get());
  EXPECT_EQ(second.Get(), object.Get());
}

TEST_F(PPWordContainer, SetSecondObjectLeavesTheFirst) {
  const auto object = host::Activity::create("Pocket.1");
  const auto other = host::Activity::create("Pocket.2");
  words->SetObjects(object);
  EXPECT_EQ(words->SetSecondObject(other), 0);
  KEPBaseUnknown_var first;
  KEPBaseUnknown_var second;
  words->GetFirstObject(first);
  words->GetSecondObject(second);
  EXPECT_EQ(first.Get(), object.Get());
  EXPECT_EQ(second.Get(), other.Get());
}

TEST_F(PPWordContainer, ObjectsHoldOneReferenceEach) {
  const auto object = host::Activity::create("Pocket.1");
  const auto other = host::Activity::create("Pocket.2");
  words->SetObjects(object);
  EXPECT_EQ(object->GetReferenceCount(), 3);
  words->SetSecondObject(other);
  EXPECT_EQ(object->GetReferenceCount(), 2);
  EXPECT_EQ(other->GetReferenceCount(), 2);
  words->SetObjects(nullptr);
  EXPECT_EQ(object->GetReferenceCount(), 1);
  EXPECT_EQ(other->GetReferenceCount(), 1);
}

TEST_F(PPWordContainer, ObjectsDieWithTheContainer) {
  const auto object = host::Activity::create("Pocket.1");
  {
    const auto other = host::Document::create();
    other->ppWordContainer()->SetObjects(object);
  }
  EXPECT_EQ(object->GetReferenceCount(), 1);
}

TEST_F(PPWordContainer, TypeOfThePPCommandsIsACommand) {
  const auto counts = referencesOf(document);
  {
    KEPIMfgPPCommand_var command;
    words->GetPPCommand(command, "MfgPPCommand");
    ASSERT_TRUE(command);
    EXPECT_EQ(command->GetImpl(), find("MfgPPCommand").Get());
  }
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(PPWordContainer, WhatIsNoCommandEmptiesTheHandle) {
  instruction("NC_GOTO", {"GOTO/1"});
  KEPIMfgPPCommand_var command;
  for (const char* name : {"NC_GOTO", "NC_NONE", "", "mfgppcommand"}) {
    words->GetPPCommand(command, "MfgPPCommand");
    words->GetPPCommand(command, name);
    EXPECT_FALSE(command) << name;
  }
}

TEST_F(PPWordContainer, InstanceOfACommandIsNotFoundByItsName) {
  const auto instance =
      KEPISpecObject_var::Adopt(features->CreateInstance(find("MfgPPCommand"), "Command.1"));
  KEPIMfgPPCommand_var command;
  words->GetPPCommand(command, "Command.1");
  EXPECT_FALSE(command);
}

TEST_F(PPWordContainer, UserSyntaxIsMadeWithItsOneLine) {
  const int container = features->GetReferenceCount();
  EXPECT_EQ(words->SetUserSyntax("USER/%MFG_XPOINT"), 0);
  EXPECT_EQ(entry(kUserInstruction), std::string(kUserInstruction) +
                                         " : MfgPPSyntax\n"
                                         "  Syntaxe: USER/%MFG_XPOINT\n");
  EXPECT_EQ(find(kUserInstruction)->GetReferenceCount(), 2);
  EXPECT_EQ(features->GetReferenceCount(), container);
}

TEST_F(PPWordContainer, UserSyntaxReplacesTheLineBefore) {
  words->SetUserSyntax("FIRST/1");
  const auto counts = referencesOf(document);
  EXPECT_EQ(words->SetUserSyntax("SECOND/2"), 0);
  EXPECT_EQ(entry(kUserInstruction),
            std::string(kUserInstruction) + " : MfgPPSyntax\n  Syntaxe: SECOND/2\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(PPWordContainer, UserSyntaxReplacesSeveralLines) {
  instruction(kUserInstruction, {"A", "B", "C"});
  words->SetUserSyntax("ONE/1");
  EXPECT_EQ(entry(kUserInstruction),
            std::string(kUserInstruction) + " : MfgPPSyntax\n  Syntaxe: ONE/1\n");
}

TEST_F(PPWordContainer, UserSyntaxLeavesFurtherSequencesAlone) {
  const KEPISpecAttrAccess_var type = instruction(kUserInstruction, {"A"});
  type->AddAttribute("Syntaxe2", KEPISpecAttribute::Kind::StringList);
  type->SetList("Syntaxe2", list({"B/1", "B/2"}));
  words->SetUserSyntax("ONE/1");
  EXPECT_EQ(entry(kUserInstruction), std::string(kUserInstruction) +
                                         " : MfgPPSyntax\n"
                                         "  Syntaxe: ONE/1\n"
                                         "  Syntaxe2: B/1\n"
                                         "  Syntaxe2: B/2\n");
}

TEST_F(PPWordContainer, EmptyUserSyntaxIsOneEmptyLine) {
  words->SetUserSyntax("");
  EXPECT_EQ(entry(kUserInstruction),
            std::string(kUserInstruction) + " : MfgPPSyntax\n  Syntaxe: \n");
}

TEST_F(PPWordContainer, UserSyntaxOfATypeThatDeclaresNoneChangesNothing) {
  make(kUserInstruction, "MfgPPSyntax");
  const auto counts = referencesOf(document);
  EXPECT_EQ(words->SetUserSyntax("USER/1"), 0);
  EXPECT_EQ(entry(kUserInstruction), std::string(kUserInstruction) + " : MfgPPSyntax\n");
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(PPWordContainer, UserSyntaxIsEvaluatedLikeAnyOther) {
  words->SetUserSyntax("USER/1");
  KEPIMfgSyntaxEvaluation_var evaluation;
  words->GetSyntaxEvaluation(evaluation, kUserInstruction);
  KEPListValKEPUnicodeString lines;
  ASSERT_TRUE(evaluation);
  EXPECT_TRUE(evaluation->InstantiateSyntax(lines, 1));
  EXPECT_EQ(texts(lines), Texts{"USER/1"});
}

TEST(BareContainer, UserSyntaxMakesTheTypesItDerivesFrom) {
  const auto document = host::Document::create();
  EXPECT_EQ(document->ppWordContainer()->SetUserSyntax("USER/1"), 0);
  const auto entries = listing(document->features());
  const Texts expected = {"MfgPPWordRoot\n", "MfgPPSyntax : MfgPPWordRoot\n",
                          std::string(kUserInstruction) + " : MfgPPSyntax\n  Syntaxe: USER/1\n"};
  EXPECT_EQ(Texts(entries.begin() + 1, entries.end()), expected);
}

TEST(Tie, SharesTheMetaObjectOfTheClassItServes) {
  const auto document = host::Document::create();
  const KEPIMfgPPWordContainer_var words = document->ppWordContainer();
  ASSERT_NE(words->GetMetaObject(), nullptr);
  EXPECT_EQ(words->GetMetaObject()->GetName(), "KEPMfgPPWordContainer");
  EXPECT_EQ(words->GetMetaObject(), metaObjectSlot<KEPMfgPPWordContainer>);
}

TEST(Tie, ExtendingWhatIsNoContainerRaisesTheNullHandleError) {
  const auto activity = host::Activity::create("Pocket.1");
  KEPMfgPPWordContainerTie words(*activity);
  KEPISpecObject_var word;
  EXPECT_THROW(words.GetPPWord(word, "NC_GOTO"), KEPErrorNullHandle);
  EXPECT_THROW(words.ResetToDefault(), KEPErrorNullHandle);
  EXPECT_EQ(activity->GetReferenceCount(), 1);
}

}  // namespace
}  // namespace ppword::test
