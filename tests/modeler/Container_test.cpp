#include <gtest/gtest.h>

#include <string>

#include "KEPIMfgParameterEvaluation.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "System/KEPError.h"
#include "tests/support/PPWordDocument.h"

namespace {

using ppword::test::Texts;

/// A document with the three roots.
class FeatureContainer : public testing::Test {
 protected:
  [[nodiscard]] Texts members() const {
    Texts names;
    for (const auto& member :
         document_.features->ListMembersHere(KEPInterfaceId<KEPISpecObject>())) {
      names.emplace_back(KEPISpecObject_var(member)->GetName());
    }
    return names;
  }
  [[nodiscard]] KEPISpecObject_var instance(const char* type, const char* name) const {
    return KEPISpecObject_var::Adopt(
        document_.features->CreateInstance(document_.find(type), name));
  }
  static HRESULT remove(const KEPISpecObject_var& feature) {
    return KEPILifeCycleObject_var(feature)->remove();
  }

  ppword::test::PPWordDocument document_;
};

TEST_F(FeatureContainer, NewContainerHoldsThePPCommandType) {
  const auto document = host::Document::create();
  const auto type = KEPISpecObject_var::Adopt(document->features()->FindStartUp("MfgPPCommand"));
  ASSERT_TRUE(type);
  EXPECT_FALSE(type->GetBaseType());
  ASSERT_EQ(type->GetNumberOfAttributes(), 2);
  EXPECT_EQ(type->GetAttribute(1).GetName(), "CommandName");
  EXPECT_EQ(type->GetAttribute(1).GetKind(), KEPISpecAttribute::Kind::String);
  EXPECT_EQ(type->GetAttribute(2).GetName(), "SequenceNumber");
  EXPECT_EQ(type->GetAttribute(2).GetKind(), KEPISpecAttribute::Kind::Integer);
  EXPECT_EQ(document->features()->ListMembersHere(KEPInterfaceId<KEPISpecObject>()).size(), 1U);
}

TEST_F(FeatureContainer, TypeIsFoundByItsExactName) {
  const KEPISpecObject_var type = document_.make("NC_GOTO", "MfgPPSyntax");
  EXPECT_EQ(document_.find("NC_GOTO").Get(), type.Get());
  EXPECT_EQ(type->GetName(), "NC_GOTO");
  for (const char* name : {"nc_goto", "NC_GOTO ", "NC_GOT", ""}) {
    EXPECT_FALSE(document_.find(name)) << name;
  }
}

TEST_F(FeatureContainer, TypeKnowsItsBaseTypeAndContainer) {
  const KEPISpecObject_var type = document_.make("NC_GOTO", "MfgPPSyntax");
  EXPECT_EQ(type->GetBaseType().Get(), document_.find("MfgPPSyntax").Get());
  EXPECT_FALSE(document_.find("MfgPPWordRoot")->GetBaseType());
  EXPECT_EQ(type->GetContainer(), document_.features.Get());
}

TEST_F(FeatureContainer, TakenOrEmptyNameMakesNothing) {
  document_.make("NC_GOTO", "MfgPPSyntax");
  const Texts before = members();
  EXPECT_EQ(document_.features->CreateStartUp("NC_GOTO", nullptr), nullptr);
  EXPECT_EQ(document_.features->CreateStartUp("", nullptr), nullptr);
  EXPECT_EQ(members(), before);
}

TEST_F(FeatureContainer, TypeIsAKindOfItsBaseTypes) {
  const KEPISpecObject_var type = document_.make("NC_GOTO", "MfgPPSyntax");
  for (const char* name : {"NC_GOTO", "MfgPPSyntax", "MfgPPWordRoot"}) {
    EXPECT_TRUE(type->IsAKindOf(name)) << name;
    EXPECT_TRUE(KEPISpecAttrAccess_var(type)->IsAKindOf(name)) << name;
  }
  EXPECT_FALSE(type->IsAKindOf("MfgPPParameter"));
  EXPECT_TRUE(document_.features->IsAKindOf("MfgPPWordCont"));
}

TEST_F(FeatureContainer, InstanceHasTheLateTypeOfItsTypeAndItsOwnName) {
  document_.make("NC_GOTO", "MfgPPSyntax");
  const KEPISpecObject_var made = instance("NC_GOTO", "First");
  EXPECT_EQ(made->GetName(), "First");
  EXPECT_EQ(made->GetBaseType().Get(), document_.find("NC_GOTO").Get());
  EXPECT_TRUE(made->IsAKindOf("NC_GOTO"));
  EXPECT_FALSE(made->IsAKindOf("First"));
  EXPECT_FALSE(document_.find("First"));
}

TEST_F(FeatureContainer, InstanceNamesMayBeEmptyOrTaken) {
  document_.make("NC_GOTO", "MfgPPSyntax");
  const KEPISpecObject_var first = instance("NC_GOTO", "");
  const KEPISpecObject_var second = instance("NC_GOTO", "NC_GOTO");
  const KEPISpecObject_var third = instance("NC_GOTO", "NC_GOTO");
  EXPECT_EQ(first->GetName(), "");
  EXPECT_NE(second.Get(), third.Get());
  EXPECT_EQ(document_.find("NC_GOTO")->GetBaseType()->GetName(), "MfgPPSyntax");
}

TEST_F(FeatureContainer, InstanceOfANullTypeRaisesTheNullHandleError) {
  const Texts before = members();
  EXPECT_THROW(static_cast<void>(document_.features->CreateInstance(nullptr, "A")),
               KEPErrorNullHandle);
  EXPECT_EQ(members(), before);
}

TEST_F(FeatureContainer, InterfaceIsLookedUpThroughTheBaseTypes) {
  document_.make("NC_GOTO", "MfgPPSyntax");
  const KEPISpecObject_var made = instance("NC_GOTO", "");
  EXPECT_TRUE(KEPIMfgSyntaxEvaluation_var(document_.find("MfgPPSyntax")));
  EXPECT_TRUE(KEPIMfgSyntaxEvaluation_var(document_.find("NC_GOTO")));
  EXPECT_TRUE(KEPIMfgSyntaxEvaluation_var(made));
  EXPECT_FALSE(KEPIMfgSyntaxEvaluation_var(document_.find("MfgPPWordRoot")));
  EXPECT_FALSE(KEPIMfgSyntaxEvaluation_var(document_.find("MfgPPParameter")));
}

TEST_F(FeatureContainer, EachFeatureHasAnExtensionOfItsOwn) {
  const KEPIMfgSyntaxEvaluation_var first = document_.make("NC_GOTO", "MfgPPSyntax");
  const KEPIMfgSyntaxEvaluation_var second = document_.make("NC_RAPID", "MfgPPSyntax");
  EXPECT_NE(first.Get(), second.Get());
  EXPECT_EQ(KEPIMfgSyntaxEvaluation_var(document_.find("NC_GOTO")).Get(), first.Get());
}

TEST_F(FeatureContainer, TypeNamedAfterALateTypeIsServedWhateverItsBase) {
  document_.make("MFG_XPOINT", "MfgPPWordRoot");
  EXPECT_TRUE(KEPIMfgParameterEvaluation_var(document_.find("MFG_XPOINT")));
  document_.make("MFG_SUB", "MFG_XPOINT");
  EXPECT_TRUE(KEPIMfgParameterEvaluation_var(document_.find("MFG_SUB")));
  EXPECT_FALSE(KEPIMfgParameterEvaluation_var(document_.find("MfgPPParameter")));
}

TEST_F(FeatureContainer, MembersAreListedInCreationOrder) {
  document_.make("NC_B", "MfgPPSyntax");
  document_.make("NC_A", "MfgPPSyntax");
  const KEPISpecObject_var made = instance("NC_A", "Instance");
  document_.make("NC_C", "MfgPPSyntax");
  EXPECT_EQ(members(), (Texts{"MfgPPCommand", "MfgPPWordRoot", "MfgPPSyntax", "MfgPPParameter",
                              "NC_B", "NC_A", "Instance", "NC_C"}));
}

TEST_F(FeatureContainer, OnlyMembersThatAnswerTheInterfaceAreListed) {
  document_.make("NC_A", "MfgPPSyntax");
  Texts names;
  for (const auto& member :
       document_.features->ListMembersHere(KEPInterfaceId<KEPIMfgSyntaxEvaluation>())) {
    EXPECT_TRUE(KEPIMfgSyntaxEvaluation_var(member));
    names.emplace_back(KEPISpecObject_var(member)->GetName());
  }
  EXPECT_EQ(names, (Texts{"MfgPPSyntax", "NC_A"}));
}

TEST_F(FeatureContainer, RemovedTypeIsGoneAndItsNameFree) {
  KEPISpecObject_var type = document_.make("NC_A", "MfgPPSyntax");
  document_.make("NC_B", "MfgPPSyntax");
  EXPECT_EQ(remove(type), S_OK);
  EXPECT_FALSE(document_.find("NC_A"));
  EXPECT_EQ(members().back(), "NC_B");
  EXPECT_FALSE(type->GetContainer());
  EXPECT_EQ(type->GetName(), "NC_A");
  EXPECT_EQ(type->GetReferenceCount(), 1);
  const KEPISpecObject_var again = document_.make("NC_A", "MfgPPSyntax");
  EXPECT_NE(again.Get(), type.Get());
  EXPECT_EQ(members().back(), "NC_A");
}

TEST_F(FeatureContainer, RemovingTwiceFails) {
  const KEPISpecObject_var type = document_.make("NC_A", "MfgPPSyntax");
  EXPECT_EQ(remove(type), S_OK);
  const KEPISpecObject_var again = document_.make("NC_A", "MfgPPSyntax");
  EXPECT_EQ(remove(type), E_FAIL);
  EXPECT_EQ(document_.find("NC_A").Get(), again.Get());
}

TEST_F(FeatureContainer, RemovedInstanceLeavesTheTypeOfTheSameName) {
  const KEPISpecObject_var type = document_.make("NC_A", "MfgPPSyntax");
  EXPECT_EQ(remove(instance("NC_A", "NC_A")), S_OK);
  EXPECT_EQ(document_.find("NC_A").Get(), type.Get());
}

TEST_F(FeatureContainer, RemovedBaseTypeStillGivesItsValues) {
  const KEPISpecObject_var base = document_.make("BASE", "MfgPPSyntax");
  const KEPISpecAttrAccess_var attributes = base;
  attributes->AddAttribute("Format", KEPISpecAttribute::Kind::String);
  attributes->SetString("Format", "%d");
  const KEPISpecAttrAccess_var derived = document_.make("DERIVED", "BASE");
  remove(base);
  EXPECT_EQ(derived->FindAttribute("Format")->GetTexts()[1].View(), "%d");
  EXPECT_TRUE(KEPIMfgSyntaxEvaluation_var(derived));
}

TEST_F(FeatureContainer, OperationsLeaveTheCountsAsTheyWere) {
  const KEPISpecObject_var type = document_.make("NC_A", "MfgPPSyntax");
  const KEPIContainer_var& features = document_.features;
  const int ofType = type->GetReferenceCount();
  const int ofContainer = features->GetReferenceCount();
  const int ofDocument = document_.document->GetReferenceCount();
  static_cast<void>(document_.find("NC_A"));
  static_cast<void>(document_.find("NC_NONE"));
  static_cast<void>(features->CreateStartUp("NC_A", type));
  static_cast<void>(type->GetBaseType());
  static_cast<void>(type->GetContainer());
  static_cast<void>(features->GetDocument());
  static_cast<void>(members());
  EXPECT_THROW(static_cast<void>(features->CreateInstance(nullptr, "")), KEPErrorNullHandle);
  EXPECT_EQ(type->GetReferenceCount(), ofType);
  EXPECT_EQ(features->GetReferenceCount(), ofContainer);
  EXPECT_EQ(document_.document->GetReferenceCount(), ofDocument);
}

TEST_F(FeatureContainer, FoundTypeCarriesOneReference) {
  const KEPISpecObject_var type = document_.make("NC_A", "MfgPPSyntax");
  const int before = type->GetReferenceCount();
  KEPISpecObject* const found = document_.features->FindStartUp("NC_A");
  EXPECT_EQ(type->GetReferenceCount(), before + 1);
  found->Release();
}

TEST_F(FeatureContainer, MadeFeatureHasTheReferencesOfContainerAndCaller) {
  const KEPISpecObject_var type = document_.make("NC_A", "MfgPPSyntax");
  EXPECT_EQ(type->GetReferenceCount(), 2);
  const KEPISpecObject_var made = instance("NC_A", "");
  EXPECT_EQ(made->GetReferenceCount(), 2);
  EXPECT_EQ(type->GetReferenceCount(), 3);
}

TEST_F(FeatureContainer, TypesStayFoundWhileOthersComeAndGo) {
  constexpr int kTypes = 500;
  const auto name = [](int number) { return "NC_TYPE_" + std::to_string(number); };
  for (int i = 0; i < kTypes; ++i) document_.make(name(i), "MfgPPSyntax");
  for (int i = 0; i < kTypes; i += 3) KEPILifeCycleObject_var(document_.find(name(i)))->remove();
  for (int i = 0; i < kTypes; ++i) {
    const KEPISpecObject_var found = document_.find(name(i));
    ASSERT_EQ(static_cast<bool>(found), i % 3 != 0) << i;
    if (!found) continue;
    EXPECT_EQ(found->GetName(), name(i));
  }
  for (int i = 0; i < kTypes; i += 3) document_.make(name(i), "MfgPPSyntax");
  for (int i = 0; i < kTypes; ++i) EXPECT_TRUE(document_.find(name(i))) << i;
}

}  // namespace
