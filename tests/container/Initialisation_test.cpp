#include <gtest/gtest.h>

#include <stdexcept>

#include "Manufacturing/KEPMfgInternalError.h"
#include "System/KEPError.h"
#include "host/modeler/Container.h"
#include "src/container/KEPMfgPPWordContainerTie.h"
#include "tests/container/ContainerDouble.h"
#include "tests/container/Listing.h"
#include "tests/container/Publishing.h"

namespace ppword::test {
namespace {

TEST(Initialisation, DocumentUpToDateGivesSuccessAndPublishesNothing) {
  EXPECT_EQ(initialised({.needsUpgrade = false, .skip = false}), kNotPublished);
  EXPECT_EQ(initialised({.needsUpgrade = false, .skip = true}), kNotPublished);
}

TEST(Initialisation, DocumentToUpgradeIsPublished) {
  EXPECT_EQ(initialised({.needsUpgrade = true, .skip = false}), kPublished);
}

TEST(Initialisation, SkippedUpgradeGivesTheUnexpectedFailureCode) {
  EXPECT_EQ(initialised({.needsUpgrade = true, .skip = true}), kSkipped);
  EXPECT_EQ(static_cast<std::uint32_t>(E_UNEXPECTED), 0x8000FFFFU);
}

TEST(Initialisation, EveryMemberIsPublished) {
  const auto document = host::newDocument();
  document->setNeedsUpgrade(true);
  const KEPIContainer_var features = document->features();
  const auto command = KEPISpecObject_var::Adopt(features->FindStartUp("MfgPPCommand"));
  const auto instance = KEPISpecObject_var::Adopt(features->CreateInstance(command, ""));
  const auto counts = referencesOf(document);
  EXPECT_EQ(document->ppWordContainer()->Initialize(false), S_OK);
  EXPECT_EQ(referencesOf(document), counts);
  const auto members = features->ListMembersHere(KEPInterfaceId<KEPISpecObject>());
  EXPECT_EQ(members.size(), 157U);
  for (const KEPVar<host::Feature> feature : members) {
    EXPECT_TRUE(feature->isPublished()) << feature->GetName();
  }
}

TEST(Initialisation, MembersWithoutAttributesArePassedOverFromLastToFirst) {
  const auto document = host::Document::create();
  document->setNeedsUpgrade(true);
  Log log;
  LoggingMember first("first", log);
  LoggingMember last("last", log);
  ContainerDouble features(document->features());
  features.members = [&](const KEPMetaClass* interfaceClass) {
    log.push_back("list " + interfaceClass->GetName());
    return std::vector<KEPBaseUnknown_var>{&first, &last};
  };
  KEPMfgPPWordContainerTie words(features);
  EXPECT_EQ(words.Initialize(false), S_OK);
  EXPECT_EQ(log, (Log{"list KEPISpecObject", "ask last for KEPISpecAttrAccess",
                      "ask first for KEPISpecAttrAccess"}));
  EXPECT_EQ(first.GetReferenceCount(), 1);
  EXPECT_EQ(last.GetReferenceCount(), 1);
}

TEST(Initialisation, HostErrorBecomesTheLastErrorAndTheFailureCode) {
  KEPIContainer_var features;
  {
    const auto document = host::Document::create();
    features = document->features();
  }
  const KEPIMfgPPWordContainer_var words = features;
  const int count = features->GetReferenceCount();
  KEPError::KEPCleanLastError();
  EXPECT_EQ(static_cast<std::uint32_t>(words->Initialize(false)), 0x80004005U);
  ASSERT_NE(KEPError::KEPGetLastError(), nullptr);
  EXPECT_EQ(KEPError::KEPGetLastError()->GetMessageKey(), KEPString("ERR_NULL_HANDLE"));
  EXPECT_EQ(KEPError::KEPGetLastError()->GetNLSMessage(),
            KEPUnicodeString("a null handle was used"));
  EXPECT_EQ(listing(features), std::vector<std::string>{});
  EXPECT_EQ(features->GetReferenceCount(), count);
}

TEST(Initialisation, CaughtErrorKeepsItsClass) {
  const auto document = host::Document::create();
  ContainerDouble features(document->features());
  features.document = []() -> KEPIDocument_var {
    KEPMfgInternalError error("ERR_5011", "ManufacturingError");
    error.SetInformationOnErrorType(3);
    throw error;
  };
  KEPMfgPPWordContainerTie words(features);
  EXPECT_EQ(words.Initialize(false), E_FAIL);
  const auto* const error = dynamic_cast<const KEPMfgInternalError*>(KEPError::KEPGetLastError());
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(error->GetMessageKey(), KEPString("ERR_5011"));
  EXPECT_EQ(error->GetInformationOnErrorType(), 3);
}

TEST(Initialisation, AttributesArePublishedBeforeTheCatalogueIsMade) {
  const auto document = host::Document::create();
  document->setNeedsUpgrade(true);
  EXPECT_EQ(document->ppWordContainer()->Initialize(false), S_OK);
  const auto isPublished = [&](std::string_view name) {
    const auto type = KEPISpecObject_var::Adopt(document->features()->FindStartUp(name));
    return static_cast<const host::Feature&>(*type).isPublished();
  };
  EXPECT_TRUE(isPublished("MfgPPCommand"));
  EXPECT_FALSE(isPublished("MFG_XPOINT"));
}

TEST(Initialisation, OtherExceptionPassesOn) {
  const auto document = host::Document::create();
  ContainerDouble features(document->features());
  features.document = []() -> KEPIDocument_var { throw std::length_error("foreign"); };
  KEPMfgPPWordContainerTie words(features);
  KEPError::KEPCleanLastError();
  EXPECT_THROW(words.Initialize(false), std::length_error);
  EXPECT_EQ(KEPError::KEPGetLastError(), nullptr);
  EXPECT_EQ(features.GetReferenceCount(), 1);
}

TEST(Initialisation, TwiceChangesNothing) {
  const auto document = host::newDocument();
  const auto once = listing(document->features());
  const auto counts = referencesOf(document);
  EXPECT_EQ(document->ppWordContainer()->Initialize(false), S_OK);
  EXPECT_EQ(listing(document->features()), once);
  EXPECT_EQ(referencesOf(document), counts);
}

}  // namespace
}  // namespace ppword::test
