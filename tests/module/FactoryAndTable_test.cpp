#include <gtest/gtest.h>

#include "KEPIMfgPPWordFactory.h"
#include "KEPIMfgPPWordTable.h"
#include "host/modeler/Document.h"

namespace {

class FactoryAndTable : public testing::Test {
 protected:
  KEPVar<host::Document> document_ = host::newDocument();
  KEPIContainer_var features_ = document_->features();
};

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
