#include <gtest/gtest.h>

#include <utility>

#include "System/KEPComponent.h"
#include "System/KEPError.h"
#include "tests/system/TestComponent.h"

namespace {

using system_test::Absent;
using system_test::Component;
using system_test::Named;
using system_test::Number;
using system_test::Numbered;

class Handle : public testing::Test {
 protected:
  void SetUp() override {
    Number::registerOnce();
    Component::alive = 0;
    Number::alive = 0;
  }
};

/// The error that an operation raises, as "catalogue key: message".
template <class Operation>
std::string handleErrorOf(Operation operation) {
  try {
    operation();
  } catch (const KEPErrorNullHandle& error) {
    return std::string(error.GetCatalogue().View()) + " " +
           std::string(error.GetMessageKey().View()) + ": " +
           std::string(error.GetNLSMessage().View());
  }
  return "nothing";
}

TEST_F(Handle, UseOfANullHandleRaisesTheNullHandleError) {
  const KEPVar<Named> handle;
  const std::string expected = "System ERR_NULL_HANDLE: a null handle was used";
  EXPECT_EQ(handleErrorOf([&] { static_cast<void>(handle->name()); }), expected);
  EXPECT_EQ(handleErrorOf([&] { static_cast<void>((*handle).name()); }), expected);
}

TEST_F(Handle, NullHandleErrorIsAHostErrorWithoutParameters) {
  const KEPErrorNullHandle error;
  EXPECT_STREQ(error.what(), "ERR_NULL_HANDLE");
  EXPECT_TRUE(error.GetNLSParameters().empty());
  EXPECT_TRUE((std::is_base_of_v<KEPError, KEPErrorNullHandle>));
}

TEST_F(Handle, NullHandlesCompareAsFalse) {
  EXPECT_FALSE(KEPVar<Named>());
  EXPECT_FALSE(KEPVar<Named>(nullptr));
  EXPECT_FALSE(KEPVar<Named>(static_cast<Named*>(nullptr)));
  EXPECT_EQ(KEPVar<Named>().Get(), nullptr);
}

TEST_F(Handle, AdoptedObjectKeepsItsOneReference) {
  const KEPVar<Named> handle = Component::make("a");
  EXPECT_TRUE(handle);
  EXPECT_EQ(handle->GetReferenceCount(), 1);
}

TEST_F(Handle, HandleOfAnObjectAddsAReferenceUntilItEnds) {
  const KEPVar<Named> first = Component::make("a");
  {
    const KEPVar<Named> second(first.Get());
    KEPVar<Named> third(second);
    EXPECT_EQ(first->GetReferenceCount(), 3);
    third = nullptr;
    EXPECT_EQ(first->GetReferenceCount(), 2);
  }
  EXPECT_EQ(first->GetReferenceCount(), 1);
}

TEST_F(Handle, MoveLeavesTheSourceNullAndTheCountAlone) {
  KEPVar<Named> first = Component::make("a");
  const KEPVar<Named>& source = first;
  const KEPVar<Named> second(std::move(first));
  EXPECT_EQ(source.Get(), nullptr);
  EXPECT_EQ(second->GetReferenceCount(), 1);
}

TEST_F(Handle, AssignmentReleasesTheOldObject) {
  KEPVar<Named> handle = Component::make("a");
  const KEPVar<Named> other = Component::make("b");
  EXPECT_EQ(Component::alive, 2);
  handle = other;
  EXPECT_EQ(Component::alive, 1);
  EXPECT_EQ(handle->name(), "b");
  EXPECT_EQ(other->GetReferenceCount(), 2);
  handle = nullptr;
  EXPECT_EQ(other->GetReferenceCount(), 1);
}

TEST_F(Handle, AssignmentToItselfChangesNothing) {
  KEPVar<Named> handle = Component::make("a");
  const KEPVar<Named>& same = handle;
  handle = same;
  EXPECT_EQ(handle->GetReferenceCount(), 1);
  EXPECT_EQ(handle->name(), "a");
}

TEST_F(Handle, LastReleaseDestroysTheComponent) {
  KEPVar<Named> handle = Component::make("a");
  handle = nullptr;
  EXPECT_EQ(Component::alive, 0);
}

TEST_F(Handle, DetachGivesTheReferenceAway) {
  KEPVar<Named> handle = Component::make("a");
  Named* const object = handle.Detach();
  EXPECT_FALSE(handle);
  EXPECT_EQ(object->GetReferenceCount(), 1);
  object->Release();
  EXPECT_EQ(Component::alive, 0);
}

TEST_F(Handle, HandleOnAnotherInterfaceAsksTheComponent) {
  const KEPVar<Named> named = Component::make("a");
  const KEPVar<Numbered> numbered = named;
  ASSERT_TRUE(numbered);
  EXPECT_EQ(named->GetReferenceCount(), 2);
  EXPECT_EQ(numbered->GetReferenceCount(), 2);
  EXPECT_EQ(KEPVar<Named>(numbered).Get(), named.Get());
}

TEST_F(Handle, InterfaceThatIsNotOfferedGivesNullAndNoReference) {
  const KEPVar<Named> named = Component::make("a");
  const KEPVar<Absent> absent = named;
  EXPECT_FALSE(absent);
  EXPECT_EQ(named->GetReferenceCount(), 1);
}

TEST_F(Handle, NullHandleGivesNullOfEveryInterface) {
  const KEPVar<Named> null;
  EXPECT_FALSE(KEPVar<Numbered>(null));
  EXPECT_FALSE(KEPBaseUnknown_var(null));
  EXPECT_FALSE(KEPVar<Numbered>::Of(nullptr));
}

TEST_F(Handle, HandleOnTheRootHoldsTheSameObject) {
  const KEPVar<Named> named = Component::make("a");
  const KEPBaseUnknown_var root = named;
  EXPECT_EQ(root.Get(), named.Get());
  EXPECT_EQ(named->GetReferenceCount(), 2);
  EXPECT_EQ(KEPVar<Named>(root).Get(), named.Get());
  EXPECT_EQ(named->GetReferenceCount(), 2);
}

TEST_F(Handle, OfAnObjectAsksItsComponent) {
  const KEPVar<Named> named = Component::make("a");
  EXPECT_TRUE(KEPVar<Numbered>::Of(named.Get()));
  EXPECT_FALSE(KEPVar<Absent>::Of(named.Get()));
  EXPECT_EQ(named->GetReferenceCount(), 1);
}

TEST_F(Handle, HandleOnAnExtensionKeepsTheComponentAlive) {
  KEPVar<Named> named = Component::make("a");
  KEPVar<Numbered> numbered = named;
  named = nullptr;
  EXPECT_EQ(Component::alive, 1);
  EXPECT_EQ(KEPVar<Named>(numbered)->name(), "a");
  numbered = nullptr;
  EXPECT_EQ(Component::alive, 0);
  EXPECT_EQ(Number::alive, 0);
}

}  // namespace
