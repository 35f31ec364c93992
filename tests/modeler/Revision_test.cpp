// Every change of documents raises the counter of the process.

#include <gtest/gtest.h>

#include <functional>

#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "ObjectSpecsModeler/KEPIRevision.h"
#include "host/manufacturing/GeneratorData.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

using Kind = KEPISpecAttribute::Kind;

class RevisionOf : public testing::Test, protected PPWordDocument {
 protected:
  [[nodiscard]] KEPIRevision::Count count() const {
    return KEPBorrow<KEPIRevision>(features.Get())->GetCount();
  }
  [[nodiscard]] bool raises(const std::function<void()>& change) const {
    const auto before = count();
    change();
    return count() > before;
  }
};

TEST_F(RevisionOf, AllContainersIsOneObject) {
  const auto other = host::Document::create();
  const auto counterOf = [](const KEPIContainer_var& container) {
    return &KEPBorrow<KEPIRevision>(container.Get())->GetCount();
  };
  EXPECT_EQ(counterOf(features), counterOf(other->features()));
  EXPECT_EQ(counterOf(features), counterOf(KEPIContainer_var(&document->addContainer("Other"))));
  EXPECT_NE(count(), 0U);
}

TEST_F(RevisionOf, WritesToAttributesAreCounted) {
  const KEPISpecAttrAccess_var root = find("MfgPPParameter");
  const KEPISpecAttrAccess_var type = make("A", "MfgPPParameter");
  EXPECT_TRUE(raises([&] { root->AddAttribute("Format", Kind::String); }));
  EXPECT_TRUE(raises([&] { root->AddAttribute("List", Kind::StringList); }));
  EXPECT_TRUE(raises([&] { root->AddAttribute("Number", Kind::Integer); }));
  EXPECT_TRUE(raises([&] { type->SetString("Format", "%f"); }));
  EXPECT_TRUE(raises([&] { type->SetInteger("Number", 1); }));
  EXPECT_TRUE(raises([&] { type->SetList("List", list({"A"})); }));
  EXPECT_TRUE(raises([&] { type->AppendToList("List", "B"); }));
  EXPECT_TRUE(raises([&] { type->RemoveAll("List"); }));
  EXPECT_TRUE(raises([&] { type->Unset("List"); }));
}

TEST_F(RevisionOf, WritesToFeaturesOutsideOfContainersAreCounted) {
  const auto type = make("A", "MfgPPParameter");
  KEPISpecAttrAccess_var(type)->AddAttribute("Format", Kind::String);
  KEPILifeCycleObject_var(type)->remove();
  EXPECT_TRUE(raises([&] { KEPISpecAttrAccess_var(type)->SetString("Format", "%f"); }));
}

// The feature gets a slot of its own, so views of its other attributes end.
TEST_F(RevisionOf, WriteThatFailsIsCountedWhereItMovesTheAttributes) {
  KEPISpecAttrAccess_var(find("MfgPPParameter"))->AddAttribute("Number", Kind::Integer);
  const KEPISpecAttrAccess_var type = make("A", "MfgPPParameter");
  EXPECT_TRUE(raises([&] { EXPECT_EQ(type->SetString("Number", "1"), E_FAIL); }));
}

TEST_F(RevisionOf, ReadingIsNotCounted) {
  format("A", "%f");
  EXPECT_FALSE(raises([&] {
    EXPECT_TRUE(find("A"));
    EXPECT_FALSE(find("B"));
    EXPECT_NE(KEPISpecAttrAccess_var(find("A"))->FindText("Format"), nullptr);
    EXPECT_EQ(find("A")->GetNumberOfAttributes(), 1);
  }));
}

TEST_F(RevisionOf, FeaturesThatComeAndGoAreCounted) {
  KEPISpecObject_var type;
  EXPECT_TRUE(raises([&] { type = make("A", "MfgPPParameter"); }));
  KEPISpecObject_var made;
  EXPECT_TRUE(
      raises([&] { made = KEPISpecObject_var::Adopt(features->CreateInstance(type, "")); }));
  EXPECT_TRUE(raises([&] { KEPILifeCycleObject_var(type)->remove(); }));
}

TEST_F(RevisionOf, EndOfAFeatureIsCounted) {
  auto type = make("A", "MfgPPParameter");
  KEPILifeCycleObject_var(type)->remove();
  EXPECT_TRUE(raises([&] { type = nullptr; }));
}

TEST_F(RevisionOf, EndOfADocumentAndOfItsContainerIsCounted) {
  auto other = host::Document::createEmpty();
  auto container = other->features();
  EXPECT_TRUE(raises([&] { other = nullptr; }));
  EXPECT_TRUE(raises([&] { container = nullptr; }));
}

TEST_F(RevisionOf, ValuesOfADocumentAreCounted) {
  EXPECT_TRUE(raises([&] { document->setDesignParameter("A", 1.0); }));
  EXPECT_TRUE(raises([&] { document->setNeedsUpgrade(true); }));
  EXPECT_TRUE(raises([&] { document->addContainer("Other"); }));
}

TEST_F(RevisionOf, UpgradeOfAttributesIsCounted) {
  const auto feature = KEPVar<host::Feature>(static_cast<host::Feature*>(make("A", "").Get()));
  EXPECT_TRUE(raises([&] { feature->publish(); }));
}

TEST_F(RevisionOf, StoredAttributesAreCounted) {
  const auto feature = KEPVar<host::Feature>(static_cast<host::Feature*>(make("A", "").Get()));
  EXPECT_TRUE(raises([&] { feature->setAttributes(host::AttributeTable()); }));
  EXPECT_TRUE(raises([&] { EXPECT_TRUE(feature->addStored({"Format", Kind::String, true})); }));
  EXPECT_FALSE(feature->addStored({"Format", Kind::Integer, true}));
  EXPECT_EQ(feature->GetAttribute(1).GetKind(), Kind::String);
}

TEST_F(RevisionOf, EntriesOfTheDictionaryAreCounted) {
  static KEPMetaClass meta("RevisionTest", KEPMetaClass::TypeOfClass::DataExtension, nullptr,
                           "RevisionTest1", "Tests");
  EXPECT_TRUE(raises([] { meta.Extend("RevisionTest2"); }));
  EXPECT_TRUE(raises(
      [] { KEPFillDictionary(&meta, KEPInterfaceId<KEPIRevision>(), nullptr, nullptr, 1); }));
}

TEST_F(RevisionOf, DataOfTheRunningGenerationAreCounted) {
  const auto data = host::GeneratorData::create("%f", "");
  EXPECT_TRUE(raises([&] { host::setCurrentGeneratorData(data); }));
  EXPECT_TRUE(raises([&] { data->setAngleFactor(2.0); }));
  EXPECT_TRUE(raises([] { host::setCurrentGeneratorData(nullptr); }));
}

}  // namespace
}  // namespace ppword::test
