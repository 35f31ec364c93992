#include <gtest/gtest.h>

#include "System/KEPError.h"
#include "tests/support/PPWordDocument.h"

namespace {

using Kind = KEPISpecAttribute::Kind;
using Utilities = KEPMfgAttributeUtilities;
using ppword::test::Texts;
using ppword::test::texts;

/// A type with a string, an integer and a list attribute.
class AttributeUtilities : public testing::Test {
 protected:
  AttributeUtilities() {
    attributes_->AddAttribute("Text", Kind::String);
    attributes_->AddAttribute("Number", Kind::Integer);
    attributes_->AddAttribute("List", Kind::StringList);
  }
  static KEPListValKEPString strings(const Texts& items) {
    KEPListValKEPString result;
    for (const std::string& item : items) result.Append(KEPString(item));
    return result;
  }
  HRESULT query(int kind, std::string_view name, int entry) {
    return Utilities::StandardQueryForPPWordEvaluation(type_, kind, name, entry, found_, text_);
  }
  [[nodiscard]] Texts items(std::string_view type, std::string_view name) const {
    return texts(KEPISpecAttrAccess_var(document_.find(type))->FindAttribute(name)->GetTexts());
  }

  ppword::test::PPWordDocument document_;
  KEPISpecObject_var type_ = document_.make("TYPE", "MfgPPParameter");
  KEPISpecAttrAccess_var attributes_ = type_;
  int found_ = 0;
  KEPUnicodeString text_ = "untouched";
};

TEST_F(AttributeUtilities, StringIsWrittenAndRead) {
  bool found = false;
  KEPUnicodeString text;
  EXPECT_EQ(Utilities::SetString(type_, "Text", "%.3f"), S_OK);
  EXPECT_EQ(Utilities::GetString(type_, "Text", found, text), S_OK);
  EXPECT_TRUE(found);
  EXPECT_EQ(text.View(), "%.3f");
}

TEST_F(AttributeUtilities, UnsetStringIsNotFoundAndLeavesTheText) {
  bool found = true;
  EXPECT_EQ(Utilities::GetString(type_, "Text", found, text_), S_OK);
  EXPECT_FALSE(found);
  EXPECT_EQ(text_.View(), "untouched");
}

TEST_F(AttributeUtilities, StringOfAnotherKindOrUndeclaredFails) {
  attributes_->SetInteger("Number", 3);
  attributes_->SetString("List", "item");
  for (const char* name : {"Number", "List", "None"}) {
    bool found = true;
    EXPECT_EQ(Utilities::GetString(type_, name, found, text_), E_FAIL) << name;
    EXPECT_FALSE(found) << name;
    EXPECT_EQ(text_.View(), "untouched") << name;
  }
  EXPECT_EQ(Utilities::SetString(type_, "Number", "a"), E_FAIL);
  EXPECT_EQ(Utilities::SetString(type_, "None", "a"), E_FAIL);
}

TEST_F(AttributeUtilities, StringSetOnAListLeavesExactlyThatItem) {
  Utilities::SetStringListString(type_, "List", strings({"a", "b"}));
  EXPECT_EQ(Utilities::SetString(type_, "List", "only"), S_OK);
  EXPECT_EQ(items("TYPE", "List"), Texts{"only"});
}

TEST_F(AttributeUtilities, IntegerIsWrittenAndRead) {
  bool found = false;
  int value = 0;
  EXPECT_EQ(Utilities::SetInteger(type_, "Number", 12), S_OK);
  EXPECT_EQ(Utilities::GetInteger(type_, "Number", found, value), S_OK);
  EXPECT_TRUE(found);
  EXPECT_EQ(value, 12);
}

TEST_F(AttributeUtilities, UnsetOrWrongIntegerLeavesTheValue) {
  bool found = true;
  int value = 7;
  EXPECT_EQ(Utilities::GetInteger(type_, "Number", found, value), S_OK);
  EXPECT_FALSE(found);
  found = true;
  EXPECT_EQ(Utilities::GetInteger(type_, "Text", found, value), E_FAIL);
  EXPECT_FALSE(found);
  EXPECT_EQ(Utilities::GetInteger(type_, "None", found, value), E_FAIL);
  EXPECT_EQ(value, 7);
  EXPECT_EQ(Utilities::SetInteger(type_, "Text", 1), E_FAIL);
  EXPECT_EQ(Utilities::SetInteger(type_, "None", 1), E_FAIL);
}

TEST_F(AttributeUtilities, ListIsReplacedAndEmptied) {
  EXPECT_EQ(Utilities::SetStringListString(type_, "List", strings({"a", "b"})), S_OK);
  EXPECT_EQ(items("TYPE", "List"), (Texts{"a", "b"}));
  EXPECT_EQ(Utilities::SetStringListString(type_, "List", strings({"c"})), S_OK);
  EXPECT_EQ(items("TYPE", "List"), Texts{"c"});
  EXPECT_EQ(Utilities::RemoveAll(type_, "List"), S_OK);
  EXPECT_EQ(items("TYPE", "List"), Texts{});
  EXPECT_TRUE(attributes_->FindAttribute("List")->IsSet());
}

TEST_F(AttributeUtilities, ListOperationsFailOnOtherKinds) {
  for (const char* name : {"Text", "Number", "None"}) {
    EXPECT_EQ(Utilities::SetStringListString(type_, name, strings({"a"})), E_FAIL) << name;
    EXPECT_EQ(Utilities::RemoveAll(type_, name), E_FAIL) << name;
  }
}

TEST_F(AttributeUtilities, UnsetFailsExactlyWhenNotDeclared) {
  Utilities::SetString(type_, "Text", "a");
  EXPECT_EQ(Utilities::UnsetAttributeValue(type_, "Text"), S_OK);
  EXPECT_EQ(Utilities::UnsetAttributeValue(type_, "Text"), S_OK);
  EXPECT_EQ(Utilities::UnsetAttributeValue(type_, "None"), E_FAIL);
}

TEST_F(AttributeUtilities, QueryGivesTheTextOfAStringAttribute) {
  attributes_->SetString("Text", "%.3f");
  EXPECT_EQ(query(-1, "Text", -1), S_OK);
  EXPECT_EQ(found_, 1);
  EXPECT_EQ(text_.View(), "%.3f");
}

TEST_F(AttributeUtilities, QueryGivesAnEmptyTextThatIsSet) {
  attributes_->SetString("Text", "");
  EXPECT_EQ(query(-1, "Text", -1), S_OK);
  EXPECT_EQ(found_, 1);
  EXPECT_EQ(text_.View(), "");
}

TEST_F(AttributeUtilities, QueryOfAnUnsetAttributeFindsNothing) {
  EXPECT_EQ(query(-1, "Text", -1), S_OK);
  EXPECT_EQ(found_, 0);
  EXPECT_EQ(text_.View(), "untouched");
}

TEST_F(AttributeUtilities, QueryGivesAnEntryOfAList) {
  Utilities::SetStringListString(type_, "List", strings({"a", "b"}));
  EXPECT_EQ(query(2, "List", 2), S_OK);
  EXPECT_EQ(found_, 1);
  EXPECT_EQ(text_.View(), "b");
}

TEST_F(AttributeUtilities, QueryOfAnEntryOutsideFindsNothing) {
  Utilities::SetStringListString(type_, "List", strings({"a", "b"}));
  for (const int entry : {-1, 0, 3}) {
    EXPECT_EQ(query(2, "List", entry), S_OK) << entry;
    EXPECT_EQ(found_, 0) << entry;
  }
  EXPECT_EQ(text_.View(), "untouched");
}

TEST_F(AttributeUtilities, QueryOfAnotherKindOrUndeclaredFails) {
  attributes_->SetString("Text", "%.3f");
  EXPECT_EQ(query(-1, "None", -1), E_FAIL);
  EXPECT_EQ(query(-1, "List", -1), E_FAIL);
  EXPECT_EQ(query(2, "Text", 1), E_FAIL);
  EXPECT_EQ(query(1, "Text", 1), E_FAIL);
  EXPECT_EQ(found_, 0);
  EXPECT_EQ(text_.View(), "untouched");
}

TEST_F(AttributeUtilities, NullFeatureRaisesTheNullHandleError) {
  bool found = false;
  EXPECT_THROW(Utilities::SetString(nullptr, "Text", "a"), KEPErrorNullHandle);
  EXPECT_THROW(Utilities::GetString(nullptr, "Text", found, text_), KEPErrorNullHandle);
  EXPECT_THROW(Utilities::UnsetAttributeValue(nullptr, "Text"), KEPErrorNullHandle);
}

TEST_F(AttributeUtilities, UpdateMakesTheInstructionUnderTheSyntaxType) {
  const KEPISpecObject_var syntax = document_.find("MfgPPSyntax");
  for (const int mode : {1, 2}) {
    const std::string name = "NC_NEW" + std::to_string(mode);
    EXPECT_EQ(Utilities::StandardUpdateForPPWordContainer(document_.features, syntax, name, "RAPID",
                                                          mode),
              S_OK);
    EXPECT_EQ(items(name, "Syntaxe"), Texts{"RAPID"});
    EXPECT_EQ(document_.find(name)->GetBaseType().Get(), syntax.Get());
  }
}

TEST_F(AttributeUtilities, UpdateReplacesTheLinesOfAnInstruction) {
  const KEPISpecObject_var syntax = document_.find("MfgPPSyntax");
  document_.instruction("NC_OLD", {"A", "B", "C"});
  for (const int mode : {1, 2}) {
    EXPECT_EQ(Utilities::StandardUpdateForPPWordContainerList(document_.features, syntax, "NC_OLD",
                                                              strings({"D", "E"}), mode),
              S_OK);
    EXPECT_EQ(items("NC_OLD", "Syntaxe"), (Texts{"D", "E"}));
  }
}

TEST_F(AttributeUtilities, UpdateDeclaresTheMissingAttribute) {
  document_.make("NC_BARE", "MfgPPSyntax");
  EXPECT_EQ(Utilities::StandardUpdateForPPWordContainer(
                document_.features, document_.find("MfgPPSyntax"), "NC_BARE", "RAPID", 1),
            S_OK);
  EXPECT_EQ(items("NC_BARE", "Syntaxe"), Texts{"RAPID"});
}

TEST_F(AttributeUtilities, OperationsLeaveTheCountsAsTheyWere) {
  const KEPISpecObject_var syntax = document_.find("MfgPPSyntax");
  const int type = type_->GetReferenceCount();
  const int container = document_.features->GetReferenceCount();
  bool found = false;
  int value = 0;
  Utilities::SetString(type_, "Text", "a");
  Utilities::SetString(type_, "None", "a");
  Utilities::GetString(type_, "Text", found, text_);
  Utilities::GetString(type_, "None", found, text_);
  Utilities::SetInteger(type_, "Number", 1);
  Utilities::GetInteger(type_, "None", found, value);
  Utilities::SetStringListString(type_, "List", strings({"a"}));
  Utilities::RemoveAll(type_, "None");
  Utilities::UnsetAttributeValue(type_, "None");
  query(-1, "Text", -1);
  query(-1, "None", -1);
  EXPECT_EQ(type_->GetReferenceCount(), type);
  Utilities::StandardUpdateForPPWordContainer(document_.features, syntax, "TYPE", "a", 1);
  EXPECT_EQ(type_->GetReferenceCount(), type);
  EXPECT_EQ(document_.features->GetReferenceCount(), container);
}

}  // namespace
