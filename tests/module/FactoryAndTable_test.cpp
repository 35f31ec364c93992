#include <gtest/gtest.h>

#include "KEPIMfgPPWordFactory.h"
#include "KEPIMfgPPWordTable.h"
#include "System/KEPError.h"
#include "host/modeler/Document.h"

namespace {

class FactoryAndTable : public testing::Test {
 protected:
  KEPVar<host::Document> document_ = host::newDocument();
  KEPIContainer_var features_ = document_->features();
};

TEST_F(FactoryAndTable, FactoryThatMakesNoCommandRaisesTheNullHandleError) {
  const KEPIMfgPPWordFactory_var factory(features_);
  ASSERT_TRUE(factory);
  const auto type = KEPISpecObject_var::Adopt(features_->FindStartUp("MfgPPCommand"));
  const KEPIMfgPPCommand_var before(type);
  KEPIMfgPPCommand_var command = before;
  const std::size_t members = features_->ListMembersHere(KEPInterfaceId<KEPISpecObject>()).size();
  const int ofContainer = features_->GetReferenceCount();
  const int ofType = type->GetReferenceCount();
  EXPECT_THROW(factory->CreatePPCommand(command, "NC_GOTO", 1), KEPErrorNullHandle);
  EXPECT_EQ(command.Get(), before.Get());
  EXPECT_EQ(features_->ListMembersHere(KEPInterfaceId<KEPISpecObject>()).size(), members);
  EXPECT_EQ(features_->GetReferenceCount(), ofContainer);
  EXPECT_EQ(type->GetReferenceCount(), ofType);
}

TEST_F(FactoryAndTable, TableAnswersFalseAndTouchesNothing) {
  const KEPIMfgPPWordTable_var table(features_);
  ASSERT_TRUE(table);
  const int ofContainer = features_->GetReferenceCount();
  int number = 7;
  KEPString name("before");
  KEPListValKEPString lines;
  lines.Append("before");
  EXPECT_FALSE(table->GetNumberOfNCInstruction(number));
  EXPECT_FALSE(table->GetNameOfNCInstruction(0, name));
  EXPECT_FALSE(table->GetNumberOfSequenceForNCInstruction(0, number));
  EXPECT_FALSE(table->GetSyntaxOfSequenceForNCInstruction(0, 1, lines));
  EXPECT_FALSE(table->GetIndexOfNCInstruction("NC_GOTO", number));
  EXPECT_EQ(number, 7);
  EXPECT_EQ(name.View(), "before");
  ASSERT_EQ(lines.Size(), 1);
  EXPECT_EQ(lines[1].View(), "before");
  EXPECT_EQ(features_->GetReferenceCount(), ofContainer);
}

TEST_F(FactoryAndTable, EveryExtensionOfTheContainerIsAnObjectOfItsOwn) {
  const KEPBaseUnknown* const factory = KEPIMfgPPWordFactory_var(features_).Get();
  const KEPBaseUnknown* const table = KEPIMfgPPWordTable_var(features_).Get();
  const KEPBaseUnknown* const words = KEPIMfgPPWordContainer_var(features_).Get();
  EXPECT_NE(factory, table);
  EXPECT_NE(factory, words);
  EXPECT_NE(table, words);
  EXPECT_EQ(factory, KEPIMfgPPWordFactory_var(features_).Get());
  EXPECT_EQ(factory->GetMetaObject()->GetName(), "KEPMfgPPWordFactory");
  EXPECT_EQ(table->GetMetaObject()->GetName(), "KEPMfgPPWordTable");
  EXPECT_EQ(words->GetMetaObject()->GetName(), "KEPMfgPPWordContainer");
}

}  // namespace
