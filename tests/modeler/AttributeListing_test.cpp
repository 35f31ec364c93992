#include <gtest/gtest.h>

#include "System/KEPError.h"
#include "tests/support/PPWordDocument.h"

namespace {

using Kind = KEPISpecAttribute::Kind;
using ppword::test::Texts;

class AttributeListing : public testing::Test {
 protected:
  static void declare(const KEPISpecObject_var& feature, const Texts& names) {
    const KEPISpecAttrAccess_var attributes = feature;
    for (const std::string& name : names) attributes->AddAttribute(name, Kind::String);
  }
  static Texts names(const KEPISpecObject_var& feature) {
    Texts result;
    for (int i = 1; i <= feature->GetNumberOfAttributes(); ++i) {
      result.emplace_back(feature->GetAttribute(i).GetName());
    }
    return result;
  }

  ppword::test::PPWordDocument document_;
  KEPISpecObject_var base_ = document_.make("BASE", "");
  KEPISpecObject_var derived_ = document_.make("DERIVED", "BASE");
};

TEST_F(AttributeListing, FeatureWithoutAttributesListsNone) {
  EXPECT_EQ(base_->GetNumberOfAttributes(), 0);
  EXPECT_EQ(names(base_), Texts{});
}

TEST_F(AttributeListing, OrderIsThatOfDeclaration) {
  declare(base_, {"Syntaxe", "Syntaxe3", "Syntaxe2", "A", "B", "C"});
  EXPECT_EQ(names(base_), (Texts{"Syntaxe", "Syntaxe3", "Syntaxe2", "A", "B", "C"}));
}

TEST_F(AttributeListing, AttributesOfTheBaseTypeComeFirst) {
  declare(derived_, {"Own1", "Own2"});
  declare(base_, {"Base1", "Base2"});
  EXPECT_EQ(names(derived_), (Texts{"Base1", "Base2", "Own1", "Own2"}));
  const auto instance = KEPISpecObject_var::Adopt(document_.features->CreateInstance(derived_, ""));
  declare(instance, {"Last"});
  EXPECT_EQ(names(instance), (Texts{"Base1", "Base2", "Own1", "Own2", "Last"}));
  EXPECT_EQ(names(base_), (Texts{"Base1", "Base2"}));
}

TEST_F(AttributeListing, OwnValueOfAnInheritedAttributeIsListedOnce) {
  declare(base_, {"Base1"});
  declare(derived_, {"Own1"});
  KEPISpecAttrAccess_var(derived_)->SetString("Base1", "value");
  declare(derived_, {"Own2"});
  EXPECT_EQ(names(derived_), (Texts{"Base1", "Own1", "Own2"}));
  EXPECT_EQ(derived_->GetAttribute(1).GetTexts()[1].View(), "value");
  EXPECT_FALSE(base_->GetAttribute(1).IsSet());
}

// As a file from a stranger may have it: a walk over all of them for each would never end.
TEST_F(AttributeListing, OneInheritedValueDoesNotHoldUpManyAttributes) {
  declare(base_, {"Base1"});
  KEPISpecAttrAccess_var(derived_)->SetString("Base1", "value");
  Texts many;
  for (int i = 0; i < 200'000; ++i) many.push_back(std::to_string(i));
  declare(derived_, many);
  many.insert(many.begin(), "Base1");
  EXPECT_EQ(names(derived_), many);
}

TEST_F(AttributeListing, UnsetAttributeKeepsItsPlace) {
  declare(base_, {"A", "B", "C"});
  KEPISpecAttrAccess_var(base_)->SetString("B", "value");
  KEPISpecAttrAccess_var(base_)->Unset("B");
  EXPECT_EQ(names(base_), (Texts{"A", "B", "C"}));
}

TEST_F(AttributeListing, PositionOutsideRaisesTheHostsError) {
  declare(base_, {"A"});
  declare(derived_, {"B"});
  for (const int position : {0, -1, 3}) {
    try {
      static_cast<void>(derived_->GetAttribute(position));
      FAIL() << position;
    } catch (const KEPErrorPositionOutOfList& error) {
      EXPECT_EQ(error.GetNLSMessage().View(),
                "position " + std::to_string(position) + " is outside a list of 2 entries");
    }
  }
}

TEST_F(AttributeListing, ListingLeavesTheCountOfTheFeature) {
  declare(base_, {"A"});
  const int before = derived_->GetReferenceCount();
  static_cast<void>(names(derived_));
  EXPECT_THROW(static_cast<void>(derived_->GetAttribute(9)), KEPErrorPositionOutOfList);
  EXPECT_EQ(derived_->GetReferenceCount(), before);
}

}  // namespace
