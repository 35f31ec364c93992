#include <gtest/gtest.h>

#include "KEPIMfgParameterEvaluation.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "tests/support/PPWordDocument.h"

namespace {

using Kind = KEPISpecAttribute::Kind;
using ppword::test::list;
using ppword::test::Texts;
using ppword::test::texts;

/// A type, a type under it and an instance of that.
class Attributes : public testing::Test {
 protected:
  static KEPISpecAttrAccess_var attributes(const KEPISpecObject_var& feature) { return feature; }

  /// The text of a string attribute as it holds for a feature; nothing when it is not set.
  static std::optional<std::string> text(const KEPISpecAttrAccess_var& feature,
                                         std::string_view name) {
    const auto attribute = feature->FindAttribute(name);
    if (!attribute || !attribute->IsSet()) return std::nullopt;
    return std::string(attribute->GetTexts()[1].View());
  }
  static std::optional<Texts> items(const KEPISpecAttrAccess_var& feature, std::string_view name) {
    const auto attribute = feature->FindAttribute(name);
    if (!attribute || !attribute->IsSet()) return std::nullopt;
    return texts(attribute->GetTexts());
  }

  ppword::test::PPWordDocument document_;
  KEPISpecAttrAccess_var base_ = attributes(document_.make("BASE", ""));
  KEPISpecAttrAccess_var derived_ = attributes(document_.make("DERIVED", "BASE"));
  KEPISpecAttrAccess_var instance_ = attributes(KEPISpecObject_var::Adopt(
      document_.features->CreateInstance(document_.find("DERIVED"), "DERIVED.1")));
};

TEST_F(Attributes, DeclaredAttributeIsThereAndUnset) {
  EXPECT_EQ(base_->AddAttribute("Format", Kind::String), S_OK);
  const auto attribute = base_->FindAttribute("Format");
  ASSERT_TRUE(attribute.has_value());
  EXPECT_EQ(attribute->GetName(), "Format");
  EXPECT_EQ(attribute->GetKind(), Kind::String);
  EXPECT_FALSE(attribute->IsAList());
  EXPECT_FALSE(attribute->IsSet());
  EXPECT_EQ(attribute->GetTexts().Size(), 0);
  EXPECT_EQ(attribute->GetInteger(), 0);
}

TEST_F(Attributes, NamesAreExact) {
  base_->AddAttribute("Format", Kind::String);
  EXPECT_FALSE(base_->FindAttribute("format").has_value());
  EXPECT_FALSE(base_->FindAttribute("Format ").has_value());
  EXPECT_FALSE(base_->FindAttribute("").has_value());
}

TEST_F(Attributes, TextIsFoundOnlyWhereAStringIsSet) {
  base_->AddAttribute("Text", Kind::String);
  base_->AddAttribute("Number", Kind::Integer);
  base_->AddAttribute("List", Kind::StringList);
  EXPECT_EQ(base_->FindText("Text"), nullptr);
  base_->SetString("Text", "%7.2f");
  base_->SetInteger("Number", 4);
  base_->SetString("List", "entry");
  ASSERT_NE(base_->FindText("Text"), nullptr);
  EXPECT_EQ(base_->FindText("Text")->View(), "%7.2f");
  EXPECT_EQ(base_->FindText("Number"), nullptr);
  EXPECT_EQ(base_->FindText("List"), nullptr);
  EXPECT_EQ(base_->FindText("Absent"), nullptr);
}

TEST_F(Attributes, TextIsFoundThroughTheBaseTypesUntilTheOwnIsSet) {
  base_->AddAttribute("Text", Kind::String);
  base_->SetString("Text", "base");
  ASSERT_NE(instance_->FindText("Text"), nullptr);
  EXPECT_EQ(instance_->FindText("Text")->View(), "base");
  derived_->SetString("Text", "derived");
  EXPECT_EQ(instance_->FindText("Text")->View(), "derived");
  EXPECT_EQ(base_->FindText("Text")->View(), "base");
  derived_->Unset("Text");
  EXPECT_EQ(instance_->FindText("Text")->View(), "base");
}

TEST_F(Attributes, EveryKindKeepsItsValue) {
  base_->AddAttribute("Text", Kind::String);
  base_->AddAttribute("Number", Kind::Integer);
  base_->AddAttribute("List", Kind::StringList);
  EXPECT_EQ(base_->SetString("Text", "%11.5f"), S_OK);
  EXPECT_EQ(base_->SetInteger("Number", -4), S_OK);
  EXPECT_EQ(base_->SetList("List", list({"a", "b"})), S_OK);
  EXPECT_EQ(text(base_, "Text"), "%11.5f");
  EXPECT_EQ(base_->FindAttribute("Number")->GetInteger(), -4);
  EXPECT_TRUE(base_->FindAttribute("Number")->IsSet());
  EXPECT_EQ(items(base_, "List"), (Texts{"a", "b"}));
  EXPECT_TRUE(base_->FindAttribute("List")->IsAList());
}

TEST_F(Attributes, EmptyTextIsAValue) {
  base_->AddAttribute("Format", Kind::String);
  base_->SetString("Format", "");
  EXPECT_EQ(text(base_, "Format"), "");
}

TEST_F(Attributes, DeclaringTwiceHasNoEffect) {
  base_->AddAttribute("Format", Kind::String);
  base_->SetString("Format", "%d");
  EXPECT_EQ(base_->AddAttribute("Format", Kind::String), S_OK);
  EXPECT_EQ(base_->AddAttribute("Format", Kind::StringList), S_OK);
  EXPECT_EQ(text(base_, "Format"), "%d");
  EXPECT_EQ(base_->FindAttribute("Format")->GetKind(), Kind::String);
  EXPECT_EQ(document_.find("BASE")->GetNumberOfAttributes(), 1);
}

TEST_F(Attributes, DeclaringAnInheritedAttributeHasNoEffect) {
  base_->AddAttribute("Format", Kind::String);
  EXPECT_EQ(derived_->AddAttribute("Format", Kind::Integer), S_OK);
  EXPECT_EQ(derived_->FindAttribute("Format")->GetKind(), Kind::String);
  EXPECT_EQ(document_.find("DERIVED")->GetNumberOfAttributes(), 1);
}

TEST_F(Attributes, UndeclaredAttributeRefusesEveryWrite) {
  EXPECT_EQ(base_->SetString("None", "a"), E_FAIL);
  EXPECT_EQ(base_->SetInteger("None", 1), E_FAIL);
  EXPECT_EQ(base_->SetList("None", list({"a"})), E_FAIL);
  EXPECT_EQ(base_->AppendToList("None", "a"), E_FAIL);
  EXPECT_EQ(base_->RemoveAll("None"), E_FAIL);
  EXPECT_EQ(base_->Unset("None"), E_FAIL);
  EXPECT_FALSE(base_->FindAttribute("None").has_value());
  EXPECT_EQ(document_.find("BASE")->GetNumberOfAttributes(), 0);
}

TEST_F(Attributes, ValueOfAnotherKindIsRefusedAndChangesNothing) {
  base_->AddAttribute("Text", Kind::String);
  base_->AddAttribute("Number", Kind::Integer);
  base_->AddAttribute("List", Kind::StringList);
  base_->SetString("Text", "a");
  base_->SetInteger("Number", 1);
  base_->SetList("List", list({"a"}));
  EXPECT_EQ(base_->SetInteger("Text", 2), E_FAIL);
  EXPECT_EQ(base_->SetList("Text", list({"b"})), E_FAIL);
  EXPECT_EQ(base_->AppendToList("Text", "b"), E_FAIL);
  EXPECT_EQ(base_->RemoveAll("Text"), E_FAIL);
  EXPECT_EQ(base_->SetString("Number", "b"), E_FAIL);
  EXPECT_EQ(base_->SetList("Number", list({"b"})), E_FAIL);
  EXPECT_EQ(base_->SetInteger("List", 2), E_FAIL);
  EXPECT_EQ(text(base_, "Text"), "a");
  EXPECT_EQ(base_->FindAttribute("Number")->GetInteger(), 1);
  EXPECT_EQ(items(base_, "List"), Texts{"a"});
}

TEST_F(Attributes, RefusedWriteLeavesTheInheritedValue) {
  base_->AddAttribute("Text", Kind::String);
  base_->SetString("Text", "a");
  EXPECT_EQ(derived_->SetInteger("Text", 2), E_FAIL);
  EXPECT_EQ(text(derived_, "Text"), "a");
  base_->SetString("Text", "b");
  EXPECT_EQ(text(derived_, "Text"), "b");
}

TEST_F(Attributes, ValueIsInheritedThroughTypesAndInstance) {
  base_->AddAttribute("Format", Kind::String);
  EXPECT_EQ(text(instance_, "Format"), std::nullopt);
  base_->SetString("Format", "base");
  EXPECT_EQ(text(derived_, "Format"), "base");
  EXPECT_EQ(text(instance_, "Format"), "base");
  derived_->SetString("Format", "derived");
  EXPECT_EQ(text(base_, "Format"), "base");
  EXPECT_EQ(text(instance_, "Format"), "derived");
  instance_->SetString("Format", "instance");
  EXPECT_EQ(text(derived_, "Format"), "derived");
  EXPECT_EQ(text(instance_, "Format"), "instance");
}

TEST_F(Attributes, UnsetShowsTheInheritedValueAgain) {
  base_->AddAttribute("Format", Kind::String);
  base_->SetString("Format", "base");
  derived_->SetString("Format", "derived");
  EXPECT_EQ(derived_->Unset("Format"), S_OK);
  EXPECT_EQ(text(derived_, "Format"), "base");
  EXPECT_EQ(base_->Unset("Format"), S_OK);
  EXPECT_EQ(text(derived_, "Format"), std::nullopt);
}

TEST_F(Attributes, UnsetKeepsTheDeclaration) {
  base_->AddAttribute("Format", Kind::String);
  base_->SetString("Format", "a");
  EXPECT_EQ(base_->Unset("Format"), S_OK);
  ASSERT_TRUE(base_->FindAttribute("Format").has_value());
  EXPECT_FALSE(base_->FindAttribute("Format")->IsSet());
  EXPECT_EQ(document_.find("BASE")->GetNumberOfAttributes(), 1);
}

TEST_F(Attributes, UnsetOfAnUnsetAttributeSucceeds) {
  base_->AddAttribute("Format", Kind::String);
  EXPECT_EQ(base_->Unset("Format"), S_OK);
  EXPECT_EQ(base_->Unset("Format"), S_OK);
  EXPECT_EQ(derived_->Unset("Format"), S_OK);
  EXPECT_EQ(derived_->Unset("Formats"), E_FAIL);
}

TEST_F(Attributes, UnsetIntegerReadsZeroAgain) {
  base_->AddAttribute("Number", Kind::Integer);
  base_->SetInteger("Number", 5);
  base_->Unset("Number");
  EXPECT_FALSE(base_->FindAttribute("Number")->IsSet());
  EXPECT_EQ(base_->FindAttribute("Number")->GetInteger(), 0);
}

TEST_F(Attributes, StringSetOnAListLeavesExactlyThatItem) {
  base_->AddAttribute("List", Kind::StringList);
  base_->SetList("List", list({"a", "b", "c"}));
  EXPECT_EQ(base_->SetString("List", "only"), S_OK);
  EXPECT_EQ(items(base_, "List"), Texts{"only"});
}

TEST_F(Attributes, EmptiedListIsSetAndEmpty) {
  base_->AddAttribute("List", Kind::StringList);
  base_->SetList("List", list({"a"}));
  EXPECT_EQ(base_->RemoveAll("List"), S_OK);
  EXPECT_EQ(items(base_, "List"), Texts{});
}

TEST_F(Attributes, EmptiedListHidesTheInheritedOne) {
  base_->AddAttribute("List", Kind::StringList);
  base_->SetList("List", list({"a"}));
  derived_->RemoveAll("List");
  EXPECT_EQ(items(derived_, "List"), Texts{});
  EXPECT_EQ(items(base_, "List"), Texts{"a"});
}

TEST_F(Attributes, AppendAddsAtTheEnd) {
  base_->AddAttribute("List", Kind::StringList);
  EXPECT_EQ(base_->AppendToList("List", "a"), S_OK);
  EXPECT_EQ(base_->AppendToList("List", "b"), S_OK);
  EXPECT_EQ(items(base_, "List"), (Texts{"a", "b"}));
}

TEST_F(Attributes, AppendCopiesAnInheritedListFirst) {
  base_->AddAttribute("List", Kind::StringList);
  base_->SetList("List", list({"a"}));
  derived_->AppendToList("List", "b");
  EXPECT_EQ(items(derived_, "List"), (Texts{"a", "b"}));
  EXPECT_EQ(items(base_, "List"), Texts{"a"});
}

TEST_F(Attributes, AppendAfterUnsetStartsFromTheInheritedList) {
  base_->AddAttribute("List", Kind::StringList);
  base_->SetList("List", list({"a", "b"}));
  base_->Unset("List");
  base_->AppendToList("List", "c");
  EXPECT_EQ(items(base_, "List"), Texts{"c"});
}

TEST_F(Attributes, ValueTakenFromTheFeatureItselfIsKeptWhole) {
  base_->AddAttribute("Text", Kind::String);
  base_->AddAttribute("List", Kind::StringList);
  base_->SetString("Text", "a text that is too long to lie inside of a string object");
  base_->SetString("Text", base_->FindAttribute("Text")->GetTexts()[1].View());
  EXPECT_EQ(text(base_, "Text"), "a text that is too long to lie inside of a string object");
  base_->SetList("List", list({"first", "second"}));
  base_->SetList("List", base_->FindAttribute("List")->GetTexts());
  base_->AppendToList("List", base_->FindAttribute("List")->GetTexts()[1].View());
  EXPECT_EQ(items(base_, "List"), (Texts{"first", "second", "first"}));
}

TEST_F(Attributes, ListTakenFromTheFeatureItselfIsCopiedWhole) {
  base_->AddAttribute("L1", Kind::StringList);
  base_->AddAttribute("L2", Kind::StringList);
  derived_->SetList("L1", list({"one of some length", "two of some length"}));
  derived_->SetList("L2", derived_->FindAttribute("L1")->GetTexts());
  EXPECT_EQ(items(derived_, "L2"), (Texts{"one of some length", "two of some length"}));
}

TEST_F(Attributes, ValueOfABaseTypeOfAnotherKindIsNotInherited) {
  derived_->AddAttribute("Format", Kind::String);
  base_->AddAttribute("Format", Kind::Integer);
  base_->SetInteger("Format", 5);
  EXPECT_EQ(text(derived_, "Format"), std::nullopt);
  derived_->SetString("Format", "%f");
  EXPECT_EQ(text(derived_, "Format"), "%f");
}

TEST_F(Attributes, InstanceAnswersForItsTypeAndNotForItsOwnName) {
  document_.make("MFG_XPOINT", "MfgPPParameter");
  document_.make("PLAIN", "MfgPPParameter");
  const auto instance = [&](std::string_view type, std::string_view name) {
    return KEPISpecObject_var::Adopt(
        document_.features->CreateInstance(document_.find(type), name));
  };
  EXPECT_TRUE(KEPIMfgParameterEvaluation_var(instance("MFG_XPOINT", "PLAIN")));
  EXPECT_FALSE(KEPIMfgParameterEvaluation_var(instance("PLAIN", "MFG_XPOINT")));
}

TEST_F(Attributes, ManyAttributesKeepTheirValues) {
  for (const char* name : {"A", "B", "C", "D", "E", "F", "G", "H"}) {
    base_->AddAttribute(name, Kind::String);
    base_->SetString(name, std::string("value ") + name);
  }
  derived_->SetString("G", "own");
  for (const char* name : {"A", "D", "E", "H"}) {
    EXPECT_EQ(text(derived_, name), std::string("value ") + name);
  }
  EXPECT_EQ(text(derived_, "G"), "own");
  EXPECT_FALSE(base_->FindAttribute("I").has_value());
}

TEST_F(Attributes, OperationsLeaveTheCountOfTheFeature) {
  const KEPISpecObject_var type = document_.find("BASE");
  base_->AddAttribute("List", Kind::StringList);
  const int before = type->GetReferenceCount();
  base_->AddAttribute("Text", Kind::String);
  static_cast<void>(base_->FindAttribute("List"));
  static_cast<void>(base_->FindAttribute("None"));
  base_->SetString("Text", "a");
  base_->SetInteger("Text", 1);
  base_->SetList("List", list({"a"}));
  base_->AppendToList("List", "a");
  base_->RemoveAll("List");
  base_->Unset("List");
  base_->Unset("None");
  EXPECT_EQ(type->GetReferenceCount(), before);
}

}  // namespace
