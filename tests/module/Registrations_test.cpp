#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "KEPIMfgParameterEvaluation.h"
#include "System/KEPError.h"
#include "host/modeler/Document.h"
#include "host/system/Dictionary.h"
#include "host/system/Module.h"
#include "tests/evaluation/ExpectedEvaluations.h"
#include "tests/module/ExpectedRegistrations.h"

namespace {

using host::Registration;
using host::registrations;

constexpr std::size_t kComponents = 16;
constexpr std::size_t kEvaluations = 53;  // three of the fifty have a second late type

/// The dictionary after the module was loaded.
class Registrations : public testing::Test {
 protected:
  static void SetUpTestSuite() { host::loadModule(PPWORD_MODULE_PATH); }

  static void* exported(const std::string& name) {
    void* const module = dlopen(PPWORD_MODULE_PATH, RTLD_NOW | RTLD_NOLOAD);
    if (module == nullptr) return nullptr;
    void* const symbol = dlsym(module, name.c_str());
    dlclose(module);
    return symbol;
  }
  static void expectCreator(const Registration& registration, const std::string& name) {
    EXPECT_EQ(reinterpret_cast<void*>(registration.creator), exported(name)) << name;
  }
};

TEST_F(Registrations, ComponentsComeFirstInTheirOrder) {
  ASSERT_EQ(module_test::kExpectedComponents.size(), kComponents);
  ASSERT_EQ(registrations().size(), kComponents + kEvaluations);
  for (std::size_t i = 0; i < kComponents; ++i) {
    const auto& expected = module_test::kExpectedComponents[i];
    const Registration& made = registrations()[i];
    EXPECT_EQ(made.lateType, expected.lateType) << i;
    EXPECT_EQ(made.extension->GetName(), expected.className);
    EXPECT_EQ(made.extension->GetTypeOfClass(), expected.type) << expected.className;
    EXPECT_EQ(made.interfaceClass->GetName(), expected.interfaceName) << expected.className;
    expectCreator(made, expected.creator);
  }
}

TEST_F(Registrations, EvaluationsFollowInTheirOrder) {
  const auto evaluations = ppword::test::expectedEvaluations();
  ASSERT_EQ(evaluations.size(), kEvaluations);
  ASSERT_EQ(registrations().size(), kComponents + kEvaluations);
  for (std::size_t i = 0; i < kEvaluations; ++i) {
    const auto& expected = evaluations[i];
    const Registration& made = registrations()[kComponents + i];
    EXPECT_EQ(made.lateType, expected.parameter) << i;
    EXPECT_EQ(made.extension->GetName(), expected.className);
    EXPECT_EQ(made.extension->GetTypeOfClass(), KEPMetaClass::TypeOfClass::DataExtension);
    EXPECT_EQ(made.interfaceClass->GetName(), "KEPIMfgParameterEvaluation");
    expectCreator(made, "CreateTIEKEPIMfgParameterEvaluation" + expected.className);
  }
}

TEST_F(Registrations, EveryEntryHasNoDataAndFlagOne) {
  for (const Registration& made : registrations()) {
    EXPECT_EQ(made.data, nullptr) << made.lateType;
    EXPECT_EQ(made.flag, 1) << made.lateType;
    EXPECT_EQ(made.extension->GetFramework(), "Manufacturing") << made.lateType;
  }
}

TEST_F(Registrations, KindsHaveTheirCodes) {
  EXPECT_EQ(static_cast<int>(module_test::kData), 2);
  EXPECT_EQ(static_cast<int>(module_test::kCode), 4);
}

TEST_F(Registrations, ClassDerivesFromItsInterfaceOrWhenTiedFromTheRoot) {
  for (const Registration& made : registrations()) {
    const std::string& interfaceName = made.interfaceClass->GetName();
    const bool tied =
        interfaceName == "KEPIMfgParameterEvaluation" || interfaceName == "KEPIMfgPPWordContainer";
    ASSERT_NE(made.extension->GetBase(), nullptr);
    EXPECT_EQ(made.extension->GetBase()->GetName(), tied ? "KEPBaseUnknown" : interfaceName);
    EXPECT_EQ(made.extension->GetBase()->GetTypeOfClass(), KEPMetaClass::TypeOfClass::Interface);
  }
}

TEST_F(Registrations, ThreeClassesExtendASecondLateType) {
  using LateTypes = std::vector<std::string>;
  std::vector<LateTypes> several;
  for (const Registration& made : registrations()) {
    const LateTypes& types = made.extension->GetLateTypes();
    if (types.size() > 1 && made.lateType == types.front()) several.push_back(types);
  }
  EXPECT_EQ(several, (std::vector<LateTypes>{{"MFG_FEED_UNIT", "MFG_FED_UNIT"},
                                             {"MFG_SPNDL_UNIT", "MFG_SPINDL_UNIT"},
                                             {"MFG_SPNDL_WAY", "MFG_SPINDL_WAY"}}));
}

TEST_F(Registrations, SecondLateTypeHasTheMetaObjectOfTheFirst) {
  const KEPMetaClass* feedUnit = nullptr;
  const KEPMetaClass* fedUnit = nullptr;
  for (const Registration& made : registrations()) {
    if (made.lateType == "MFG_FEED_UNIT") feedUnit = made.extension;
    if (made.lateType == "MFG_FED_UNIT") fedUnit = made.extension;
  }
  ASSERT_NE(feedUnit, nullptr);
  EXPECT_EQ(feedUnit, fedUnit);
}

TEST_F(Registrations, TypeOfEveryParameterNameGivesTheEvaluationOfItsClass) {
  const auto document = host::Document::create();
  for (const auto& expected : ppword::test::expectedEvaluations()) {
    const std::string& name = expected.parameter;
    const auto type = KEPISpecObject_var::Adopt(document->features()->CreateStartUp(name, nullptr));
    const KEPIMfgParameterEvaluation_var evaluation(type);
    ASSERT_TRUE(evaluation) << name;
    ASSERT_NE(evaluation->GetMetaObject(), nullptr) << name;
    EXPECT_EQ(evaluation->GetMetaObject()->GetName(), expected.className) << name;
    EXPECT_EQ(evaluation->GetImpl(), type->GetImpl()) << name;
  }
}

TEST_F(Registrations, LoadingAgainRegistersNothingMore) {
  host::loadModule(PPWORD_MODULE_PATH);
  host::loadModule("/nowhere/libMfgPPWord.so");
  EXPECT_EQ(registrations().size(), kComponents + kEvaluations);
}

TEST_F(Registrations, CreatorWithoutAnObjectToExtendRaisesTheNullHandleError) {
  for (const Registration& made : {registrations().front(), registrations().back()}) {
    EXPECT_THROW(static_cast<void>(made.creator(nullptr)), KEPErrorNullHandle) << made.lateType;
  }
}

}  // namespace
