#include <gtest/gtest.h>

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferFeedrate.h"
#include "KEPIMfgBufferHelix.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferTLAxis.h"
#include "tests/evaluation/Evaluations.h"
#include "tests/evaluation/ExpectedEvaluations.h"

namespace ppword::test {
namespace {

class GenerationWithoutSettings final : public KEPIMfgGeneratorData {
 public:
  [[nodiscard]] KEPIMfgOutputSettings_var GetOutputSettings() const override { return nullptr; }
  void GetAngleFactor(double& /*factor*/) const override {}

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return interfaceClass == KEPInterfaceId<KEPIMfgGeneratorData>() ? this : nullptr;
  }
};

class NumericEvaluation : public testing::Test, protected PPWordDocument {
 protected:
  NumericEvaluation() {
    KEPIMfgBufferPoint_var(words)->SetPoint(1, 2, 3);
    KEPIMfgBufferTLAxis_var(words)->SetTLAxis(0.25, 0.5, 0.75);
    const KEPIMfgBufferCircle_var circle = words;
    circle->SetTgt(11, 12, 13);
    circle->SetCenter(21, 22, 23);
    circle->SetRadius(30);
    circle->SetNormal(41, 42, 43);
    circle->SetPt(51, 52, 53);
    const KEPIMfgBufferHelix_var helix = words;
    helix->SetCenter(61, 62, 63);
    helix->SetInDirV(71, 72, 73);
    helix->SetAxis(0, 3, 4);
    helix->SetRadius(80);
    helix->SetPitch(10);
    // 90 * 0.6 + 90 * 0.8 along the axis: 12.6 turns
    helix->SetStart(1, 2, 3);
    helix->SetEnd(91, 92, 93);
    KEPIMfgBufferFeedrate_var(words)->SetFeedParameter(host::createKnowledgeParameter("100", ""));
  }
  ~NumericEvaluation() override { host::setCurrentGeneratorData(nullptr); }

  std::string evaluatedWith(std::string_view name, std::string_view printFormat) const {
    if (!find(name)) format(name, printFormat);
    KEPISpecAttrAccess_var(find(name))->SetString("Format", printFormat);
    return evaluated(find(name));
  }
};

TEST_F(NumericEvaluation, EachParameterReadsItsNumber) {
  int numbers = 0;
  for (const ExpectedEvaluation& row : expectedEvaluations()) {
    if (row.number.empty()) continue;
    EXPECT_EQ(evaluatedWith(row.parameter, "%.2f"), row.number) << row.parameter;
    ++numbers;
  }
  EXPECT_EQ(numbers, 37);
}

TEST_F(NumericEvaluation, TinyValueIsSnappedToZero) {
  const KEPIMfgBufferPoint_var point = words;
  point->SetPoint(-0.0000004, 0.000001, -0.0000009999);
  EXPECT_EQ(evaluatedWith("MFG_XPOINT", "%.3f"), "0.000");
  EXPECT_EQ(evaluatedWith("MFG_YPOINT", "%.7f"), "0.0000010");
  EXPECT_EQ(evaluatedWith("MFG_ZPOINT", "%.7f"), "0.0000000");
}

TEST_F(NumericEvaluation, GenerationFormatComesBeforeTheAttribute) {
  format("MFG_XPOINT", "%.1f");
  format("MFG_XAXIS", "%.1f");
  format("MFG_CIRCLE_RADIUS", "%.1f");
  host::setCurrentGeneratorData(host::GeneratorData::create("%8.3f", "%.4f"));
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), "   1.000");
  EXPECT_EQ(evaluated(find("MFG_XAXIS")), "0.2500");
  // circles never look at it
  EXPECT_EQ(evaluated(find("MFG_CIRCLE_RADIUS")), "30.0");
}

TEST_F(NumericEvaluation, EveryCommaOfTheGenerationFormatBecomesAPoint) {
  format("MFG_XPOINT", "%.1f");
  host::setCurrentGeneratorData(host::GeneratorData::create("%,2f,;,", ""));
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), "1.00.;.");
}

TEST_F(NumericEvaluation, EveryCommaOfTheGenerationFormatOfAxesBecomesAPoint) {
  format("MFG_ZAXIS", "%.1f");
  host::setCurrentGeneratorData(host::GeneratorData::create("", "%,4f,"));
  EXPECT_EQ(evaluated(find("MFG_ZAXIS")), "0.7500.");
}

TEST_F(NumericEvaluation, OnlyTheFirstCommaOfTheTextBecomesAPoint) {
  EXPECT_EQ(evaluatedWith("MFG_XPOINT", "%.1f,A,B"), "1.0.A,B");
}

TEST_F(NumericEvaluation, EmptyGenerationFormatLeavesTheAttribute) {
  format("MFG_XPOINT", "%.1f");
  host::setCurrentGeneratorData(host::GeneratorData::create("", ""));
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), "1.0");
  host::setCurrentGeneratorData(KEPIMfgGeneratorData_var::Adopt(new GenerationWithoutSettings));
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), "1.0");
}

TEST_F(NumericEvaluation, WithoutAnyFormatThereIsNoValue) {
  make("MFG_XPOINT", "MfgPPParameter");
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), kNoValue);
  // declared and not set
  KEPISpecAttrAccess_var(find("MFG_XPOINT"))
      ->AddAttribute("Format", KEPISpecAttribute::Kind::String);
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), kNoValue);
  // the generation's format needs no attribute
  host::setCurrentGeneratorData(host::GeneratorData::create("%.1f", ""));
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), "1.0");
}

TEST_F(NumericEvaluation, FormatOfAListAttributeIsNoFormat) {
  const KEPISpecAttrAccess_var type = make("MFG_XPOINT", "MfgPPParameter");
  type->AddAttribute("Format", KEPISpecAttribute::Kind::StringList);
  type->SetString("Format", "%.1f");
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), kNoValue);
}

TEST_F(NumericEvaluation, EmptyFormatThatIsSetPrintsNothing) {
  EXPECT_EQ(evaluatedWith("MFG_XPOINT", ""), "");
}

TEST_F(NumericEvaluation, FormatWithoutConversionPrintsItself) {
  EXPECT_EQ(evaluatedWith("MFG_XPOINT", "here"), "here");
}

TEST_F(NumericEvaluation, UnusableFormatGivesNoValue) {
  for (const char* unusable : {"%n", "%s", "%d", "%f %f", "%.99999999f"}) {
    EXPECT_EQ(evaluatedWith("MFG_XPOINT", unusable), kNoValue) << unusable;
  }
  // of the generation too: the attribute does not step in
  KEPISpecAttrAccess_var(find("MFG_XPOINT"))->SetString("Format", "%.1f");
  host::setCurrentGeneratorData(host::GeneratorData::create("%s", ""));
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), kNoValue);
}

TEST_F(NumericEvaluation, ValueThatIsNotFiniteGivesNoValue) {
  format("MFG_XPOINT", "%.1f");
  KEPIMfgBufferPoint_var(words)->SetPoint(std::numeric_limits<double>::quiet_NaN(), 0, 0);
  EXPECT_EQ(evaluated(find("MFG_XPOINT")), kNoValue);
}

TEST_F(NumericEvaluation, FreshBuffersPrintZeros) {
  PPWordDocument fresh;
  for (const char* name : {"MFG_XPOINT", "MFG_ZAXIS", "MFG_CIRCLE_RADIUS", "MFG_CIRCLE_Z_PT"}) {
    fresh.format(name, "%.1f");
    EXPECT_EQ(evaluated(fresh.find(name)), "0.0") << name;
  }
}

TEST_F(NumericEvaluation, ParameterOutsideAPPWordContainerGivesNoValue) {
  format("MFG_XPOINT", "%.1f");
  const auto parameter = find("MFG_XPOINT");
  KEPILifeCycleObject_var(parameter)->remove();
  EXPECT_EQ(evaluated(parameter), kNoValue);
  auto other = KEPIContainer_var::Adopt(new host::Container(*document, "MfgOtherCont"));
  const auto foreign = KEPISpecObject_var::Adopt(other->CreateStartUp("MFG_XPOINT", {}));
  KEPISpecAttrAccess_var(foreign)->AddAttribute("Format", KEPISpecAttribute::Kind::String);
  KEPISpecAttrAccess_var(foreign)->SetString("Format", "%.1f");
  EXPECT_EQ(evaluated(foreign), kNoValue);
}

TEST_F(NumericEvaluation, ReferenceCountsAreAsBefore) {
  format("MFG_XPOINT", "%.1f");
  const auto parameter = find("MFG_XPOINT");
  const auto generation = host::GeneratorData::create("%.2f", "");
  host::setCurrentGeneratorData(generation);
  (void)evaluated(parameter);
  const int before =
      parameter->GetReferenceCount() + words->GetReferenceCount() + generation->GetReferenceCount();
  EXPECT_EQ(evaluated(parameter), "1.00");
  KEPISpecAttrAccess_var(parameter)->SetString("Format", "%n");
  host::setCurrentGeneratorData(nullptr);
  EXPECT_EQ(evaluated(parameter), kNoValue);
  EXPECT_EQ(
      parameter->GetReferenceCount() + words->GetReferenceCount() + generation->GetReferenceCount(),
      before - 1);
}

}  // namespace
}  // namespace ppword::test
