#include <limits>

#include "KEPIMfgBufferCorrectorNumber.h"
#include "tests/evaluation/Evaluations.h"

namespace ppword::test {
namespace {

/// A turning operation whose assembly holds a groove insert of radii 0.2 (left) and 0.4 (right).
class NoseRadius : public Evaluations {
 protected:
  NoseRadius() {
    make("MFG_CMP_NOSE_RADIUS", "MfgPPParameter");
    insert.real("MfgNoseRadius", 0.8)
        .real("MfgLeftNoseRadius", 0.2)
        .real("MfgRightNoseRadius", 0.4);
    resource.type = "MfgGrooveInsert";
    assembly.insert = insertObject_;
    its.assembly = assemblyObject;
    its.tool = toolObject;
    setActivity(operation);
  }

  void setCorrector(int number) const {
    KEPIMfgBufferCorrectorNumber_var(words)->SetNumber(number);
  }
  [[nodiscard]] std::string radius() const { return value("MFG_CMP_NOSE_RADIUS"); }

 private:
  KEPVar<TestObject> insertObject_ = object();

 protected:
  KEPVar<TestObject> operation = object();
  KEPVar<TestObject> assemblyObject = object();
  KEPVar<TestObject> toolObject = object();
  TestActivity& its = operation->add<TestActivity>();
  TestAssembly& assembly = assemblyObject->add<TestAssembly>();
  TestInsert& insert = insertObject_->add<TestInsert>();
  TestResource& resource = insertObject_->add<TestResource>();
};

TEST_F(NoseRadius, TurningInsertHasOneRadius) {
  auto& lathe = operation->add<TestLatheOperation>();
  for (const char* type : {"MfgDiamondInsert", "", "MfgGrooveInsert2"}) {
    resource.type = type;
    for (const char* point : {"P9", "P3", "P1"}) {
      lathe.defaultPoint = point;
      EXPECT_EQ(radius(), "0.800000") << type << point;
    }
  }
  EXPECT_EQ(assembly.asked, Texts{});
}

TEST_F(NoseRadius, GrooveInsertHasALeftRadiusForP9AndP3AndARightOne) {
  auto& lathe = operation->add<TestLatheOperation>();
  const std::pair<const char*, const char*> expected[] = {{"P9", "0.200000"},
                                                          {"P3", "0.200000"},
                                                          {"P1", "0.400000"},
                                                          {"p9", "0.400000"},
                                                          {"P99", "0.400000"}};
  for (const char* type : {"MfgGrooveInsert", "KEPEMfgGrooveInsert"}) {
    resource.type = type;
    for (const auto& [point, text] : expected) {
      lathe.defaultPoint = point;
      EXPECT_EQ(radius(), text) << type << point;
    }
  }
}

TEST_F(NoseRadius, InvertedAssemblyIsAskedAndMakesNoDifference) {
  assembly.integer("MfgInvertedAssembly", 1);
  EXPECT_EQ(radius(), "0.200000");
  EXPECT_EQ(assembly.asked, Texts{"MfgInvertedAssembly"});
}

TEST_F(NoseRadius, CorrectorOfATurningOperationNamesThePoint) {
  auto& lathe = operation->add<TestLatheOperation>();
  lathe.defaultPoint = "P1";
  lathe.points = {{1, "P3"}, {2, "P2"}};
  const std::pair<int, const char*> expected[] = {
      {0, "0.400000"}, {-1, "0.400000"}, {1, "0.200000"}, {2, "0.400000"}, {3, "0.200000"}};
  for (const auto& [number, text] : expected) {
    setCorrector(number);
    EXPECT_EQ(radius(), text) << number;
  }
  setCorrector(0);
  lathe.defaultPoint = "";
  EXPECT_EQ(radius(), "0.200000") << "no default corrector: P9";
}

TEST_F(NoseRadius, TurningOperationDoesNotAskTheTool) {
  operation->add<TestLatheOperation>();
  toolObject->add<TestToolCompensation>().points = {{0, "P1"}, {4, "P1"}};
  assemblyObject->add<TestReference>().number = 4;
  EXPECT_EQ(radius(), "0.200000");
}

TEST_F(NoseRadius, ToolOfAnotherOperationNamesThePoint) {
  toolObject->add<TestToolCompensation>().points = {{0, "P1"}, {2, "P3"}, {5, "P1"}};
  EXPECT_EQ(radius(), "0.400000");
  setCorrector(2);
  EXPECT_EQ(radius(), "0.200000");
  setCorrector(3);
  EXPECT_EQ(radius(), "0.200000") << "no such corrector: P9";
}

TEST_F(NoseRadius, ReferenceCompensationGivesTheCorrectorOfAnotherOperation) {
  toolObject->add<TestToolCompensation>().points = {{2, "P3"}, {5, "P1"}};
  auto& reference = assemblyObject->add<TestReference>();
  reference.number = 5;
  setCorrector(2);
  EXPECT_EQ(radius(), "0.400000");
  reference.status = E_FAIL;
  EXPECT_EQ(radius(), "0.200000");
}

TEST_F(NoseRadius, NobodyToNameThePointLeavesP9) {
  assemblyObject->add<TestReference>().number = 5;
  EXPECT_EQ(radius(), "0.200000");
  its.tool = nullptr;
  EXPECT_EQ(radius(), "0.200000");
}

TEST_F(NoseRadius, ToolWithoutAssemblyIsNotAsked) {
  auto& compensation = toolObject->add<TestToolCompensation>();
  setCorrector(2);
  (void)radius();
  EXPECT_EQ(compensation.asked, std::vector{2});
  its.assembly = nullptr;
  EXPECT_EQ(radius(), "0.000000");
  EXPECT_EQ(compensation.asked, std::vector{2});
}

TEST_F(NoseRadius, InsertUtilitiesAnswerForGrooveInserts) {
  auto& utilities = assemblyObject->add<TestInsertUtilities>();
  utilities.radii = {{"P3", 0.25}};
  auto& lathe = operation->add<TestLatheOperation>();
  lathe.defaultPoint = "P3";
  EXPECT_EQ(radius(), "0.250000");
  EXPECT_EQ(utilities.askedFor, KEPIMfgActivity_var(operation).Get());
  lathe.defaultPoint = "P1";
  EXPECT_EQ(radius(), "0.400000");
  resource.type = "MfgDiamondInsert";
  lathe.defaultPoint = "P3";
  EXPECT_EQ(radius(), "0.800000");
}

TEST_F(NoseRadius, InsertThatIsNoneOrNoResourceHasNoRadius) {
  const auto onlyInsert = object();
  onlyInsert->add<TestInsert>().real("MfgNoseRadius", 0.8);
  assembly.insert = onlyInsert;
  EXPECT_EQ(radius(), "0.000000");
  const auto onlyResource = object();
  onlyResource->add<TestResource>();
  assembly.insert = onlyResource;
  EXPECT_EQ(radius(), "0.000000");
  assembly.insert = nullptr;
  EXPECT_EQ(radius(), "0.000000");
  its.assembly = object();
  EXPECT_EQ(radius(), "0.000000");
}

TEST_F(NoseRadius, RadiusThatIsNotThereIsZero) {
  insert.values.clear();
  EXPECT_EQ(radius(), "0.000000");
  insert.text("MfgLeftNoseRadius", "0.3");
  EXPECT_EQ(radius(), "0.000000");
  insert.integer("MfgLeftNoseRadius", 3);
  EXPECT_EQ(radius(), "3.000000");
}

TEST_F(NoseRadius, NumberIsPrintedWithSixDecimalsAndNoSnap) {
  resource.type = "";
  const std::pair<double, const char*> expected[] = {
      {0.0000009, "0.000001"}, {-0.0000001, "-0.000000"}, {1234567.1234565, "1234567.123457"}};
  for (const auto& [number, text] : expected) {
    insert.real("MfgNoseRadius", number);
    EXPECT_EQ(radius(), text);
  }
  setFormat("MFG_CMP_NOSE_RADIUS", "%.1f");
  EXPECT_EQ(radius(), "1234567.123457") << "the format is not asked";
}

TEST_F(NoseRadius, RadiusThatIsNotFiniteIsASuccessThatLeavesTheText) {
  resource.type = "";
  insert.real("MfgNoseRadius", std::numeric_limits<double>::infinity());
  EXPECT_EQ(radius(), kUntouched);
  insert.real("MfgNoseRadius", std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(radius(), kUntouched);
}

TEST_F(NoseRadius, WithoutActivityOrContainerItIsASuccessThatLeavesTheText) {
  words->SetObjects(nullptr);
  EXPECT_EQ(radius(), kUntouched);
  setActivity(operation);
  EXPECT_EQ(valueOutside("MFG_CMP_NOSE_RADIUS"), kUntouched);
}

TEST_F(NoseRadius, WithoutCorrectorBufferThereIsNoCorrector) {
  moveTo(BareWords(*document, {}));
  make("MFG_CMP_NOSE_RADIUS", "");
  auto& lathe = operation->add<TestLatheOperation>();
  lathe.defaultPoint = "P1";
  setActivity(operation);
  EXPECT_EQ(radius(), "0.400000");
}

}  // namespace
}  // namespace ppword::test
