#include "host/modeler/Document.h"

#include <gtest/gtest.h>

#include "Manufacturing/KEPMfgDesignParameter.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "Manufacturing/KEPMfgUtilities.h"
#include "System/KEPError.h"
#include "host/manufacturing/Activity.h"

namespace {

KEPISpecObject_var ppCommandType(const KEPVar<host::Document>& document) {
  return KEPISpecObject_var::Adopt(document->features()->FindStartUp("MfgPPCommand"));
}

TEST(Document, NewDocumentNeedsNoUpgradeUntilTold) {
  const auto document = host::Document::create();
  EXPECT_FALSE(document->NeedsUpgrade());
  document->setNeedsUpgrade(true);
  EXPECT_TRUE(document->NeedsUpgrade());
}

TEST(Document, ContainersLeadToEachOther) {
  const auto document = host::Document::create();
  const KEPIMfgPPWordContainer_var words = document->ppWordContainer();
  ASSERT_TRUE(words);
  EXPECT_EQ(document->rootContainer()->GetPPWordContainer().Get(), words.Get());
  EXPECT_EQ(KEPIContainer_var(words).Get(), document->features().Get());
  EXPECT_EQ(document->features()->GetDocument().Get(), document.Get());
}

TEST(Document, NewDocumentFromTheCatalogueHoldsNcGoto) {
  const KEPVar<host::Document> document = host::newDocument();
  EXPECT_TRUE(KEPISpecObject_var::Adopt(document->features()->FindStartUp("NC_GOTO")));
}

TEST(Document, AccessLeavesTheCountsAsTheyWere) {
  const auto document = host::Document::create();
  const KEPIContainer_var features = document->features();
  const int ofDocument = document->GetReferenceCount();
  const int ofContainer = features->GetReferenceCount();
  static_cast<void>(document->ppWordContainer());
  static_cast<void>(document->rootContainer()->GetPPWordContainer());
  static_cast<void>(document->features());
  static_cast<void>(features->GetDocument());
  EXPECT_EQ(document->GetReferenceCount(), ofDocument);
  EXPECT_EQ(features->GetReferenceCount(), ofContainer);
}

TEST(Document, FeatureThatOutlivesItsDocumentHasNoContainer) {
  auto document = host::Document::create();
  const KEPISpecObject_var type = ppCommandType(document);
  document = nullptr;
  EXPECT_FALSE(type->GetContainer());
  EXPECT_EQ(type->GetReferenceCount(), 1);
  EXPECT_EQ(type->GetName(), "MfgPPCommand");
  EXPECT_EQ(type->GetNumberOfAttributes(), 2);
  EXPECT_TRUE(KEPIMfgPPCommand_var(type));
}

TEST(Document, ContainerThatOutlivesItsDocumentIsEmpty) {
  auto document = host::Document::create();
  const KEPIContainer_var features = document->features();
  document = nullptr;
  EXPECT_FALSE(features->GetDocument());
  EXPECT_TRUE(features->ListMembersHere(KEPInterfaceId<KEPISpecObject>()).empty());
  EXPECT_EQ(features->FindStartUp("MfgPPCommand"), nullptr);
  EXPECT_EQ(features->GetReferenceCount(), 1);
}

TEST(Document, RootContainerThatOutlivesItsDocumentHasNoPPWordContainer) {
  auto document = host::Document::create();
  const KEPIMfgRootContainer_var root = document->rootContainer();
  document = nullptr;
  EXPECT_FALSE(root->GetPPWordContainer());
}

TEST(Document, ObjectsOfTheContainerAreReleasedWithTheDocument) {
  auto document = host::Document::create();
  const KEPVar<host::Activity> activity = host::Activity::create("Pocket.1");
  const KEPIMfgPPWordContainer_var words = document->ppWordContainer();
  words->SetObjects(activity);
  EXPECT_EQ(activity->GetReferenceCount(), 3);
  document = nullptr;
  EXPECT_EQ(activity->GetReferenceCount(), 1);
}

TEST(Document, ContainerThatKeepsItsOwnFeatureDiesWithTheDocument) {
  auto document = host::Document::create();
  const KEPISpecObject_var type = ppCommandType(document);
  document->ppWordContainer()->SetObjects(type);
  EXPECT_EQ(type->GetReferenceCount(), 4);
  document = nullptr;
  EXPECT_EQ(type->GetReferenceCount(), 1);
}

/// An object that asks for the document of a container when it dies.
class LastQuestion final : public KEPBaseUnknown {
 public:
  LastQuestion(KEPIContainer_var container, bool& found)
      : container_(std::move(container)), found_(found) {}
  ~LastQuestion() override { found_ = static_cast<bool>(container_->GetDocument()); }

 private:
  KEPIContainer_var container_;
  bool& found_;
};

TEST(Document, DyingDocumentIsNotFoundByWhatItsContainerKept) {
  bool found = true;
  auto document = host::Document::create();
  document->ppWordContainer()->SetObjects(
      KEPBaseUnknown_var::Adopt(new LastQuestion(document->features(), found)));
  document = nullptr;
  EXPECT_FALSE(found);
}

TEST(Document, EveryContainerClosesWithTheDocument) {
  auto document = host::Document::create();
  const auto second = KEPIContainer_var::Adopt(new host::Container(*document, "MfgOtherCont"));
  const auto type = KEPISpecObject_var::Adopt(second->CreateStartUp("TYPE", {}));
  document = nullptr;
  EXPECT_FALSE(second->GetDocument());
  EXPECT_FALSE(type->GetContainer());
}

TEST(Document, ContainerMayDieBeforeTheDocument) {
  const auto document = host::Document::create();
  (void)KEPIContainer_var::Adopt(new host::Container(*document, "MfgOtherCont"));
  EXPECT_EQ(document->GetReferenceCount(), 1);
}

TEST(Document, DesignParameterThatIsNoIdentifierLeavesTheOthers) {
  const auto document = host::Document::create();
  document->setDesignParameter("Pad.1 Length", 1);
  document->setDesignParameter("depth", 12.5);
  KEPMfgParameterValue value;
  EXPECT_EQ(KEPMfgDesignParameter::GetExtendedValue(document->features(), "(depth*2", value), S_OK);
  EXPECT_EQ(value.real, 25.0);
  EXPECT_EQ(KEPMfgDesignParameter::GetExtendedValue(document->features(), "(Pad.1 Length", value),
            E_FAIL);
}

TEST(Document, EveryComponentAnswersTheRootInterface) {
  const auto document = host::Document::create();
  const auto root =
      KEPBaseUnknown_var::Adopt(document->QueryInterface(KEPInterfaceId<KEPBaseUnknown>()));
  EXPECT_EQ(root.Get(), document.Get());
  EXPECT_EQ(document->features()->ListMembersHere(KEPInterfaceId<KEPBaseUnknown>()).size(), 1U);
}

TEST(ModelUtilities, MissingContainerHasNoCurrentActivity) {
  KEPIMfgActivity_var activity = host::Activity::create("Pocket.1");
  EXPECT_EQ(KEPMfgModelUtilities::GetCurrentActivity(nullptr, activity), E_FAIL);
  EXPECT_FALSE(activity);
}

TEST(ModelUtilities, PublishingMarksTheFeatureAndNamesIt) {
  const auto document = host::Document::create();
  const KEPISpecObject_var type = ppCommandType(document);
  const auto& feature = static_cast<const host::Feature&>(*type);
  EXPECT_EQ(KEPMfgUtilities::UpgradeComponentAttributes(type, nullptr, 0, 0), S_OK);
  EXPECT_FALSE(feature.isPublished());
  KEPListVal<KEPBaseUnknown_var> objects;
  EXPECT_EQ(KEPMfgUtilities::UpgradeComponentAttributes(type, &objects, 1, 0), S_OK);
  EXPECT_TRUE(feature.isPublished());
  ASSERT_EQ(objects.Size(), 1);
  EXPECT_EQ(objects[1].Get(), type.Get());
}

TEST(ModelUtilities, FeatureLeadsToItsContainers) {
  const auto document = host::Document::create();
  const KEPISpecObject_var type = ppCommandType(document);
  KEPIMfgPPWordContainer_var words;
  KEPIMfgRootContainer_var root;
  EXPECT_EQ(KEPMfgModelUtilities::GetPPWordContainer(type, words), S_OK);
  EXPECT_EQ(KEPMfgModelUtilities::GetRootContainer(type, root), S_OK);
  EXPECT_EQ(words.Get(), document->ppWordContainer().Get());
  EXPECT_EQ(root.Get(), document->rootContainer().Get());
}

TEST(ModelUtilities, WayFromAFeatureWithoutAContainerEndsInNull) {
  auto document = host::Document::create();
  const KEPISpecObject_var type = ppCommandType(document);
  KEPIMfgPPWordContainer_var words = document->ppWordContainer();
  KEPIMfgRootContainer_var root = document->rootContainer();
  document = nullptr;
  EXPECT_EQ(KEPMfgModelUtilities::GetPPWordContainer(type, words), E_FAIL);
  EXPECT_EQ(KEPMfgModelUtilities::GetRootContainer(type, root), E_FAIL);
  EXPECT_FALSE(words);
  EXPECT_FALSE(root);
}

TEST(ModelUtilities, ContainerLeadsToItsCurrentActivity) {
  const auto document = host::Document::create();
  const KEPIMfgPPWordContainer_var words = document->ppWordContainer();
  KEPIMfgActivity_var activity;
  EXPECT_EQ(KEPMfgModelUtilities::GetCurrentActivity(words, activity), E_FAIL);
  EXPECT_FALSE(activity);
  const KEPVar<host::Activity> pocket = host::Activity::create("Pocket.1");
  words->SetObjects(pocket);
  EXPECT_EQ(KEPMfgModelUtilities::GetCurrentActivity(words, activity), S_OK);
  EXPECT_EQ(activity->GetName().View(), "Pocket.1");
}

TEST(ModelUtilities, WaysLeaveTheCountsAsTheyWere) {
  const auto document = host::Document::create();
  const KEPISpecObject_var type = ppCommandType(document);
  const int ofType = type->GetReferenceCount();
  const int ofContainer = document->features()->GetReferenceCount();
  const int ofDocument = document->GetReferenceCount();
  {
    KEPIMfgPPWordContainer_var words;
    KEPIMfgRootContainer_var root;
    KEPMfgModelUtilities::GetPPWordContainer(type, words);
    KEPMfgModelUtilities::GetRootContainer(type, root);
    KEPMfgModelUtilities::GetRootContainer(nullptr, root);
  }
  EXPECT_EQ(type->GetReferenceCount(), ofType);
  EXPECT_EQ(document->features()->GetReferenceCount(), ofContainer);
  EXPECT_EQ(document->GetReferenceCount(), ofDocument);
}

}  // namespace
