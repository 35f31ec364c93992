#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/system/TestComponent.h"

namespace {

using system_test::Absent;
using system_test::Component;
using system_test::Named;
using system_test::Number;
using system_test::Numbered;

class ComponentModel : public testing::Test {
 protected:
  void SetUp() override {
    Number::registerOnce();
    Component::alive = 0;
    Number::alive = 0;
    Number::made = 0;
  }
};

TEST_F(ComponentModel, RepeatedQueriesGiveTheSameExtension) {
  const KEPVar<Named> named = Component::make("a");
  const KEPVar<Numbered> first = named;
  first->number = 5;
  const KEPVar<Numbered> second = named;
  EXPECT_EQ(first.Get(), second.Get());
  EXPECT_EQ(second->number, 5);
  EXPECT_EQ(Number::made, 1);
}

TEST_F(ComponentModel, ExtensionLivesAsLongAsTheComponentWithoutAHandle) {
  KEPVar<Named> named = Component::make("a");
  KEPVar<Numbered>(named)->number = 7;
  EXPECT_EQ(Number::alive, 1);
  EXPECT_EQ(KEPVar<Numbered>(named)->number, 7);
  named = nullptr;
  EXPECT_EQ(Number::alive, 0);
}

TEST_F(ComponentModel, TwoComponentsHaveExtensionsOfTheirOwn) {
  const KEPVar<Named> first = Component::make("a");
  const KEPVar<Named> second = Component::make("b");
  EXPECT_NE(KEPVar<Numbered>(first).Get(), KEPVar<Numbered>(second).Get());
  EXPECT_EQ(Number::made, 2);
}

TEST_F(ComponentModel, ExtensionIsMadeOnlyWhenAskedFor) {
  const KEPVar<Named> named = Component::make("a");
  EXPECT_FALSE(KEPVar<Absent>(named));
  EXPECT_EQ(Number::made, 0);
}

TEST_F(ComponentModel, QueryAddsOneReferenceForTheCaller) {
  const KEPVar<Named> named = Component::make("a");
  KEPBaseUnknown* const object = named->QueryInterface(KEPInterfaceId<Numbered>());
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(named->GetReferenceCount(), 2);
  object->Release();
  EXPECT_EQ(named->GetReferenceCount(), 1);
}

TEST_F(ComponentModel, FailedQueryAddsNoReference) {
  const KEPVar<Named> named = Component::make("a");
  EXPECT_EQ(named->QueryInterface(KEPInterfaceId<Absent>()), nullptr);
  EXPECT_EQ(named->GetReferenceCount(), 1);
}

TEST_F(ComponentModel, UncountedQueryGivesTheSameObjectAndAddsNoReference) {
  const KEPVar<Named> named = Component::make("a");
  auto* const numbered = KEPBorrow<Numbered>(named.Get());
  ASSERT_NE(numbered, nullptr);
  EXPECT_EQ(numbered, KEPVar<Numbered>(named).Get());
  EXPECT_EQ(KEPBorrow<Named>(numbered), named.Get());
  EXPECT_EQ(KEPBorrow<Absent>(named.Get()), nullptr);
  EXPECT_EQ(KEPBorrow<Numbered>(nullptr), nullptr);
  EXPECT_EQ(named->FindInterface(nullptr), nullptr);
  EXPECT_EQ(named->GetReferenceCount(), 1);
  EXPECT_EQ(Number::made, 1);
}

/// A component that answers every interface there is with an extension of its own.
class Everything final : public KEPBaseUnknown {
 private:
  KEPBaseUnknown* Answer(const KEPMetaClass* /*interfaceClass*/) override {
    return extensions_.make(&Number::create, *this);
  }
  host::Extensions extensions_;
};

TEST_F(ComponentModel, ManyInterfacesKeepTheirAnswers) {
  const auto everything = KEPBaseUnknown_var::Adopt(new Everything);
  std::vector<std::pair<const KEPMetaClass*, KEPBaseUnknown*>> answers;
  for (int i = 0; i < 100; ++i) {
    const auto* const asked = KEPMetaClass::Interface("KEPITestMany" + std::to_string(i));
    answers.emplace_back(asked, everything->FindInterface(asked));
    for (const auto& [interfaceClass, answer] : answers) {
      ASSERT_EQ(everything->FindInterface(interfaceClass), answer) << i;
    }
  }
  EXPECT_EQ(Number::made, 100);
}

TEST_F(ComponentModel, EveryInterfaceHasANumberOfItsOwn) {
  EXPECT_NE(KEPInterfaceId<Named>()->GetNumber(), KEPInterfaceId<Numbered>()->GetNumber());
  EXPECT_EQ(KEPInterfaceId<Named>()->GetNumber(), KEPInterfaceId<Named>()->GetNumber());
}

TEST_F(ComponentModel, ClassThatIsNoInterfaceIsNotOffered) {
  const KEPMetaClass extension("KEPTestExtension", KEPMetaClass::TypeOfClass::CodeExtension,
                               nullptr, "", "");
  const auto everything = KEPBaseUnknown_var::Adopt(new Everything);
  EXPECT_EQ(extension.GetNumber(), 0U);
  EXPECT_EQ(everything->FindInterface(&extension), nullptr);
  EXPECT_EQ(everything->FindInterface(nullptr), nullptr);
}

TEST_F(ComponentModel, ExtensionBelongsToItsImplementation) {
  const KEPVar<Named> named = Component::make("a");
  const KEPVar<Numbered> numbered = named;
  EXPECT_EQ(numbered->GetImpl(), named.Get());
  EXPECT_EQ(named->GetImpl(), named.Get());
}

TEST_F(ComponentModel, ExtensionBoundToAnExtensionBelongsToTheImplementation) {
  const KEPVar<Named> named = Component::make("a");
  const KEPVar<Numbered> numbered = named;
  Number further(*numbered);
  EXPECT_EQ(further.GetImpl(), named.Get());
}

TEST_F(ComponentModel, ExtensionIsOfTheLateTypeOfItsComponent) {
  const KEPVar<Named> named = Component::make("a");
  const KEPVar<Numbered> numbered = named;
  EXPECT_TRUE(named->IsAKindOf("TestComponent"));
  EXPECT_TRUE(numbered->IsAKindOf("TestComponent"));
  EXPECT_FALSE(numbered->IsAKindOf("TestComponen"));
  EXPECT_FALSE(numbered->IsAKindOf(""));
}

TEST_F(ComponentModel, UnregisteredClassHasNoMetaObject) {
  EXPECT_EQ(Component::make("a")->GetMetaObject(), nullptr);
}

/// A component that offers nothing.
class Bare final : public KEPBaseUnknown {};

TEST_F(ComponentModel, BareComponentAnswersNothing) {
  const auto bare = KEPBaseUnknown_var::Adopt(new Bare);
  EXPECT_EQ(bare->QueryInterface(KEPInterfaceId<Named>()), nullptr);
  EXPECT_EQ(bare->QueryInterface(nullptr), nullptr);
  EXPECT_FALSE(bare->IsAKindOf("TestComponent"));
  EXPECT_EQ(bare->GetReferenceCount(), 1);
}

}  // namespace
