#include "host/system/Dictionary.h"

#include <gtest/gtest.h>

#include "tests/system/TestComponent.h"

namespace {

using system_test::Absent;
using system_test::Named;
using system_test::Numbered;
using TypeOfClass = KEPMetaClass::TypeOfClass;

KEPBaseUnknown* createFirst(KEPBaseUnknown* /*extended*/) { return nullptr; }
KEPBaseUnknown* createSecond(KEPBaseUnknown* /*extended*/) { return nullptr; }

/// A class for one test; what enters the dictionary must live as long as the process.
KEPMetaClass makeClass(std::string_view lateType) {
  return {"TestClass", TypeOfClass::CodeExtension, KEPInterfaceId<Named>(), lateType, "TestFrame"};
}

TEST(MetaClass, KeepsWhatItWasMadeFrom) {
  const KEPMetaClass meta = makeClass("TestMeta");
  EXPECT_EQ(meta.GetName(), "TestClass");
  EXPECT_EQ(meta.GetTypeOfClass(), TypeOfClass::CodeExtension);
  EXPECT_EQ(meta.GetBase(), KEPInterfaceId<Named>());
  EXPECT_EQ(meta.GetFramework(), "TestFrame");
  EXPECT_EQ(meta.GetLateTypes(), std::vector<std::string>{"TestMeta"});
}

TEST(MetaClass, InterfaceHasOneMetaObjectForEachName) {
  const KEPMetaClass* const first = KEPMetaClass::Interface("KEPITestInterface");
  EXPECT_EQ(KEPMetaClass::Interface("KEPITestInterface"), first);
  EXPECT_NE(KEPMetaClass::Interface("KEPITestInterfac"), first);
  EXPECT_EQ(first->GetName(), "KEPITestInterface");
  EXPECT_EQ(first->GetTypeOfClass(), TypeOfClass::Interface);
  EXPECT_EQ(first->GetBase(), nullptr);
  EXPECT_TRUE(first->GetLateTypes().empty());
  EXPECT_EQ(KEPInterfaceId<Named>(), KEPMetaClass::Interface("KEPITestNamed"));
}

TEST(Dictionary, LateTypeThatIsUnknownWhenNamedIsMade) {
  EXPECT_FALSE(host::isLateTypeKnown("TestUnknown1"));
  KEPMetaClass meta = makeClass("TestUnknown1");
  EXPECT_TRUE(host::isLateTypeKnown("TestUnknown1"));
  EXPECT_FALSE(host::isLateTypeKnown("TestUnknown2"));
  meta.Extend("TestUnknown2");
  EXPECT_TRUE(host::isLateTypeKnown("TestUnknown2"));
  EXPECT_EQ(host::findCreator("TestUnknown2", KEPInterfaceId<Named>()), nullptr);
}

TEST(Dictionary, EntryProvidesTheInterfaceForTheLateType) {
  static const KEPMetaClass meta = makeClass("TestEntry");
  KEPFillDictionary(&meta, KEPInterfaceId<Named>(), &createFirst, nullptr, 1);
  EXPECT_EQ(host::findCreator("TestEntry", KEPInterfaceId<Named>()), &createFirst);
  EXPECT_EQ(host::findCreator("TestEntry", KEPInterfaceId<Absent>()), nullptr);
  EXPECT_EQ(host::findCreator("TestEntr", KEPInterfaceId<Named>()), nullptr);
  EXPECT_EQ(host::findCreator("", KEPInterfaceId<Named>()), nullptr);
}

TEST(Dictionary, EntryHoldsForEveryLateTypeOfTheClass) {
  static KEPMetaClass meta = makeClass("TestTwo1");
  meta.Extend("TestTwo2");
  const std::size_t before = host::registrations().size();
  KEPFillDictionary(&meta, KEPInterfaceId<Named>(), &createFirst, nullptr, 1);
  EXPECT_EQ(host::findCreator("TestTwo1", KEPInterfaceId<Named>()), &createFirst);
  EXPECT_EQ(host::findCreator("TestTwo2", KEPInterfaceId<Named>()), &createFirst);
  ASSERT_EQ(host::registrations().size(), before + 2);
  EXPECT_EQ(host::registrations()[before].lateType, "TestTwo1");
  EXPECT_EQ(host::registrations()[before + 1].lateType, "TestTwo2");
}

TEST(Dictionary, LateTypeNamedAfterTheEntryIsNotServed) {
  static KEPMetaClass meta = makeClass("TestLate1");
  KEPFillDictionary(&meta, KEPInterfaceId<Named>(), &createFirst, nullptr, 1);
  meta.Extend("TestLate2");
  EXPECT_EQ(host::findCreator("TestLate2", KEPInterfaceId<Named>()), nullptr);
}

TEST(Dictionary, FirstEntryHolds) {
  static const KEPMetaClass first = makeClass("TestFirst");
  static const KEPMetaClass second = makeClass("TestFirst");
  KEPFillDictionary(&first, KEPInterfaceId<Named>(), &createFirst, nullptr, 1);
  const std::size_t before = host::registrations().size();
  KEPFillDictionary(&second, KEPInterfaceId<Named>(), &createSecond, nullptr, 1);
  EXPECT_EQ(host::findCreator("TestFirst", KEPInterfaceId<Named>()), &createFirst);
  EXPECT_EQ(host::registrations().size(), before);
  KEPFillDictionary(&second, KEPInterfaceId<Numbered>(), &createSecond, nullptr, 1);
  EXPECT_EQ(host::findCreator("TestFirst", KEPInterfaceId<Numbered>()), &createSecond);
}

TEST(Dictionary, RegistrationKeepsItsArguments) {
  static const KEPMetaClass kMeta = makeClass("TestArguments");
  static const int kData = 0;
  KEPFillDictionary(&kMeta, KEPInterfaceId<Named>(), &createFirst, &kData, 7);
  const host::Registration& made = host::registrations().back();
  EXPECT_EQ(made.lateType, "TestArguments");
  EXPECT_EQ(made.extension, &kMeta);
  EXPECT_EQ(made.interfaceClass, KEPInterfaceId<Named>());
  EXPECT_EQ(made.creator, &createFirst);
  EXPECT_EQ(made.data, &kData);
  EXPECT_EQ(made.flag, 7);
}

}  // namespace
