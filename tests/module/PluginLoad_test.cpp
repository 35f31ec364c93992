#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "KEPIMfgBufferFeedrate.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgPPWordContainer.h"
#include "KEPIMfgParameterEvaluation.h"
#include "Manufacturing/KEPMfgInternalError.h"
#include "System/KEPError.h"
#include "host/modeler/Document.h"
#include "host/system/Dictionary.h"
#include "host/system/Module.h"

namespace {

namespace fs = std::filesystem;

std::string loadError(const fs::path& path) {
  try {
    host::loadModule(path);
  } catch (const host::ModuleError& error) {
    return error.what();
  }
  return "no error";
}

// These come first: nothing loads the module before them.

TEST(ModuleLoad, DefaultPathIsBesideTheHost) {
  EXPECT_EQ(host::defaultModulePath().filename(), "libMfgPPWord.so");
  EXPECT_EQ(fs::canonical(host::defaultModulePath()), fs::canonical(PPWORD_MODULE_PATH));
}

TEST(ModuleLoad, AbsentFileRaisesTheModuleError) {
  EXPECT_EQ(loadError("/nowhere/libMfgPPWord.so"),
            "cannot load the PP word module: /nowhere/libMfgPPWord.so: cannot open shared object "
            "file: No such file or directory");
}

TEST(ModuleLoad, FileThatIsNoLibraryRaisesTheModuleError) {
  const fs::path path = fs::path(testing::TempDir()) / "no_library.so";
  std::ofstream(path) << "no library\n";
  EXPECT_EQ(loadError(path),
            "cannot load the PP word module: " + path.string() + ": file too short");
  fs::remove(path);
}

TEST(ModuleLoad, AnotherLibraryRaisesTheModuleError) {
  EXPECT_EQ(loadError("libm.so.6"),
            "cannot load the PP word module: libm.so.6 is another library: it registers no PP word "
            "container");
}

TEST(ModuleLoad, DocumentWithoutTheModuleHasNoPPWordContainer) {
  ASSERT_FALSE(host::isLateTypeKnown("MfgPPWordCont"));
  EXPECT_FALSE(host::Document::create()->ppWordContainer());
  EXPECT_THROW(static_cast<void>(host::newDocument()), KEPErrorNullHandle);
}

TEST(ModuleLoad, LateTypesAreUnknownBeforeAndKnownAfter) {
  for (const char* type : {"MfgPPWordCont", "MFG_XPOINT", "MFG_FED_UNIT", "MFG_SPINDL_WAY"}) {
    EXPECT_FALSE(host::isLateTypeKnown(type)) << type;
  }
  host::loadModule(PPWORD_MODULE_PATH);
  for (const char* type : {"MfgPPWordCont", "MFG_XPOINT", "MFG_FED_UNIT", "MFG_SPINDL_WAY"}) {
    EXPECT_TRUE(host::isLateTypeKnown(type)) << type;
  }
}

/// The module as a plug-in, in a document with the default catalogue.
class Plugin : public testing::Test {
 protected:
  static void SetUpTestSuite() { host::loadModule(PPWORD_MODULE_PATH); }

  [[nodiscard]] KEPISpecObject_var type(std::string_view name) const {
    return KEPISpecObject_var::Adopt(document_->features()->FindStartUp(name));
  }

  KEPVar<host::Document> document_ = host::newDocument();
  KEPIMfgPPWordContainer_var words_ = document_->ppWordContainer();
};

TEST_F(Plugin, MainRoadGivesAnAptLine) {
  KEPIMfgBufferPoint_var(words_)->SetPoint(1.0, -2.5, 1234.567891);
  KEPIMfgSyntaxEvaluation_var evaluation;
  words_->GetSyntaxEvaluation(evaluation, "NC_GOTO");
  KEPListValKEPUnicodeString lines;
  ASSERT_TRUE(evaluation->InstantiateSyntax(lines, 1));
  ASSERT_EQ(lines.Size(), 1);
  EXPECT_EQ(lines[1].View(), "GOTO/    1.00000,   -2.50000, 1234.56789");
}

TEST_F(Plugin, ParameterTypeGivesItsEvaluationAndNothingElse) {
  const KEPIMfgParameterEvaluation_var evaluation(type("MFG_XPOINT"));
  ASSERT_TRUE(evaluation);
  EXPECT_EQ(evaluation->GetMetaObject()->GetName(), "KEPMfgMFGXPOINTEvaluation");
  const KEPISpecObject_var point = type("MFG_XPOINT");
  for (const host::Registration& made : host::registrations()) {
    if (made.interfaceClass->GetName() == "KEPIMfgParameterEvaluation") continue;
    EXPECT_EQ(point->QueryInterface(made.interfaceClass), nullptr)
        << made.interfaceClass->GetName();
  }
}

TEST_F(Plugin, SecondLateTypeReachesTheEvaluationOfTheFirst) {
  struct Second {
    const char* lateType;
    const char* className;
  };
  for (const auto& [lateType, className] :
       {Second{"MFG_FED_UNIT", "KEPMfgMFGFEEDUNITEvaluation"},
        Second{"MFG_SPINDL_UNIT", "KEPMfgMFGSPNDLUNITEvaluation"},
        Second{"MFG_SPINDL_WAY", "KEPMfgMFGSPNDLWAYEvaluation"}}) {
    const KEPIMfgParameterEvaluation_var evaluation(type(lateType));
    ASSERT_TRUE(evaluation) << lateType;
    EXPECT_EQ(evaluation->GetMetaObject()->GetName(), className);
  }
}

TEST_F(Plugin, InstanceOfAnInstructionTypeGivesAnEvaluationOfItsOwn) {
  const KEPISpecObject_var instruction = type("NC_GOTO");
  const auto instance =
      KEPISpecObject_var::Adopt(document_->features()->CreateInstance(instruction, "GOTO.1"));
  const KEPIMfgSyntaxEvaluation_var ofType(instruction);
  const KEPIMfgSyntaxEvaluation_var ofInstance(instance);
  ASSERT_TRUE(ofInstance);
  EXPECT_NE(ofInstance.Get(), ofType.Get());
  EXPECT_EQ(ofInstance->GetMetaObject()->GetName(), "KEPMfgSyntaxEvaluation");
}

TEST_F(Plugin, NullHandleErrorRaisedInTheModuleIsCaughtOutside) {
  KEPIMfgSyntaxEvaluation_var evaluation;
  try {
    words_->GetSyntaxEvaluation(evaluation, "NC_NOWHERE#SEQMOTION#3");
    FAIL() << "no error was raised";
  } catch (const KEPErrorNullHandle& error) {
    EXPECT_EQ(error.GetMessageKey().View(), "ERR_NULL_HANDLE");
    EXPECT_EQ(error.GetCatalogue().View(), "System");
    EXPECT_EQ(error.GetNLSMessage().View(), "a null handle was used");
  }
  EXPECT_FALSE(evaluation);
}

TEST_F(Plugin, NullHandleErrorIsCaughtAsItsBases) {
  KEPIMfgSyntaxEvaluation_var evaluation;
  EXPECT_THROW(words_->GetSyntaxEvaluation(evaluation, "NC_NOWHERE#SEQMOTION#3"), KEPError);
  EXPECT_THROW(words_->GetSyntaxEvaluation(evaluation, "NC_NOWHERE#SEQMOTION#3"), std::exception);
}

TEST_F(Plugin, ErrorMadeInTheModuleKeepsItsClassOutside) {
  KEPError::KEPCleanLastError();
  EXPECT_EQ(words_->LoadPPWordTable("/nowhere/table.pptable"), E_FAIL);
  const auto* const error = dynamic_cast<const KEPMfgInternalError*>(KEPError::KEPGetLastError());
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(error->GetMessageKey().View(), "ERR_5009");
  EXPECT_EQ(error->GetCatalogue().View(), "ManufacturingError");
  KEPError::KEPCleanLastError();
}

/// A knowledge parameter of an application that fails.
class FailingParameter final : public KEPICkeParm {
 public:
  [[nodiscard]] KEPUnicodeString GetValueText() const override { KEPRaiseNullHandle(); }
  [[nodiscard]] KEPICkeType_var GetType() const override { return nullptr; }

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return interfaceClass == KEPInterfaceId<KEPICkeParm>() ? this : nullptr;
  }
};

/// Dies after everything else of the process.
KEPVar<host::Document>& lastDocument() {
  static KEPVar<host::Document> document;
  return document;
}

TEST_F(Plugin, DocumentMayDieWithTheProcess) {
  lastDocument() = host::newDocument();
  EXPECT_TRUE(lastDocument()->ppWordContainer());
}

TEST_F(Plugin, ErrorOfTheApplicationPassesThroughTheModule) {
  const auto parameter = KEPICkeParm_var::Adopt(new FailingParameter);
  const KEPIMfgBufferFeedrate_var feed(words_);
  feed->SetFeedParameter(parameter);
  double value = 7.0;
  EXPECT_THROW(feed->GetValue(value), KEPErrorNullHandle);
  EXPECT_EQ(value, 0.0);
  feed->ResetFeedParameter();
  EXPECT_EQ(parameter->GetReferenceCount(), 1);
}

}  // namespace
