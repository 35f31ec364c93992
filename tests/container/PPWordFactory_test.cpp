#include <gtest/gtest.h>

#include "KEPIMfgPPWordFactory.h"
#include "System/KEPError.h"
#include "host/modeler/Container.h"
#include "src/container/KEPMfgPPWordFactory.h"
#include "tests/container/ContainerDouble.h"
#include "tests/container/Listing.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

class PPWordFactory : public testing::Test, protected PPWordDocument {
 protected:
  KEPIMfgPPWordFactory_var factory = features;
};

TEST_F(PPWordFactory, CommandIsANamelessInstanceWithItsNameAndNumber) {
  KEPIMfgPPCommand_var command;
  factory->CreatePPCommand(command, "NC_GOTO", 2);
  const KEPISpecObject_var feature = command;
  EXPECT_EQ(entryOf(feature), " : MfgPPCommand\n  CommandName: NC_GOTO\n  SequenceNumber: 2\n");
  EXPECT_EQ(feature->GetLateType(), "MfgPPCommand");
  EXPECT_EQ(feature->GetContainer(), features.Get());
}

TEST_F(PPWordFactory, EveryCallMakesAnotherCommandBehindTheMembers) {
  KEPIMfgPPCommand_var first;
  KEPIMfgPPCommand_var second;
  factory->CreatePPCommand(first, "NC_GOTO", 1);
  factory->CreatePPCommand(second, "NC_GOTO", 1);
  EXPECT_NE(first.Get(), second.Get());
  const auto entries = listing(features);
  ASSERT_EQ(entries.size(), 6U);
  EXPECT_EQ(entries[4], entries[5]);
}

TEST_F(PPWordFactory, NameAndNumberAreTakenAsTheyCome) {
  for (const auto& [name, number] :
       {std::pair{"", 0}, {"NC_NONE", -1}, {"NC_GOTO#SEQMOTION#3", 99}, {"\xE9", 1}}) {
    KEPIMfgPPCommand_var command;
    factory->CreatePPCommand(command, name, number);
    KEPUnicodeString storedName("before");
    int storedNumber = 7;
    EXPECT_TRUE(command->GetCommandName(storedName));
    EXPECT_TRUE(command->GetSequenceNumber(storedNumber));
    EXPECT_EQ(storedName.View(), name);
    EXPECT_EQ(storedNumber, number);
  }
}

TEST_F(PPWordFactory, CommandEvaluatesLikeItsInstruction) {
  const KEPISpecAttrAccess_var two = instruction("NC_TWO", {"FIRST/1"});
  two->AddAttribute("Syntaxe2", KEPISpecAttribute::Kind::StringList);
  two->SetList("Syntaxe2", list({"SECOND/1", "SECOND/2"}));
  KEPIMfgPPCommand_var command;
  factory->CreatePPCommand(command, "NC_TWO", 2);
  KEPListValKEPUnicodeString lines;
  EXPECT_TRUE(command->Evaluate(lines));
  EXPECT_EQ(texts(lines), (Texts{"SECOND/1", "SECOND/2"}));
}

TEST_F(PPWordFactory, HandleHoldsTheOnlyNewReference) {
  const auto type = find("MfgPPCommand");
  const int ofType = type->GetReferenceCount();
  const int ofContainer = features->GetReferenceCount();
  KEPIMfgPPCommand_var command;
  factory->CreatePPCommand(command, "NC_GOTO", 1);
  EXPECT_EQ(command->GetReferenceCount(), 2);  // The container's and the handle's.
  EXPECT_EQ(type->GetReferenceCount(), ofType + 1);
  EXPECT_EQ(features->GetReferenceCount(), ofContainer);
}

TEST_F(PPWordFactory, MissingTypeRaisesTheNullHandleErrorAndMakesNothing) {
  const auto container =
      KEPVar<host::Container>::Adopt(new host::Container(*document, "MfgPPWordCont"));
  const KEPIMfgPPWordFactory_var other = container;
  const KEPIMfgPPCommand_var before = find("MfgPPCommand");
  KEPIMfgPPCommand_var command = before;
  EXPECT_THROW(other->CreatePPCommand(command, "NC_GOTO", 1), KEPErrorNullHandle);
  EXPECT_EQ(command.Get(), before.Get());
  EXPECT_TRUE(listing(KEPIContainer_var(container)).empty());
}

TEST_F(PPWordFactory, InstanceThatIsNoCommandIsRemovedAndRaisesTheNullHandleError) {
  make("MFG_XPOINT", "MfgPPParameter");
  const auto entries = listing(features);
  const auto counts = referencesOf(document);
  {
    ContainerDouble double_(features);
    double_.otherName = "MFG_XPOINT";
    KEPMfgPPWordFactory other;
    other.BindTo(double_);
    KEPIMfgPPCommand_var command;
    EXPECT_THROW(other.CreatePPCommand(command, "NC_GOTO", 1), KEPErrorNullHandle);
    EXPECT_FALSE(command);
  }
  EXPECT_EQ(listing(features), entries);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(PPWordFactory, WithoutAContainerRaisesTheNullHandleError) {
  KEPMfgPPWordFactory alone;
  KEPIMfgPPCommand_var command;
  EXPECT_THROW(alone.CreatePPCommand(command, "NC_GOTO", 1), KEPErrorNullHandle);
}

TEST_F(PPWordFactory, LookUpByNameDoesNotFindWhatItMakes) {
  KEPIMfgPPCommand_var command;
  factory->CreatePPCommand(command, "NC_GOTO", 1);
  KEPIMfgPPCommand_var found = command;
  words->GetPPCommand(found, "NC_GOTO");
  EXPECT_FALSE(found);
}

}  // namespace
}  // namespace ppword::test
