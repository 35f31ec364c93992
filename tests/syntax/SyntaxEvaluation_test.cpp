#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "System/KEPError.h"
#include "host/modeler/Container.h"
#include "src/syntax/KEPMfgSyntaxEvaluation.h"
#include "tests/support/PPWordDocument.h"
#include "tests/syntax/Instantiated.h"

namespace ppword::test {
namespace {

using host::integerValue;
using host::realValue;
using host::textValue;

struct Case {
  const char* syntax;
  const char* line;
};

/// One line of syntax with the activity's parameters A = 1.5, B = -2, I = 7, T = "END MILL".
class SyntaxLine : public testing::TestWithParam<Case>, protected PPWordDocument {
 protected:
  void SetUp() override {
    auto operation = activity();
    operation->parameters().set("A", realValue(1.5));
    operation->parameters().set("B", realValue(-2));
    operation->parameters().set("I", integerValue(7));
    operation->parameters().set("T", textValue("END MILL"));
    operation->parameters().set("TINY", realValue(-0.0000001));
    document->setDesignParameter("LENGTH", 12.5);
  }
};

TEST_P(SyntaxLine, GivesLine) {
  EXPECT_EQ(instantiate(instruction("NC_X", {GetParam().syntax})),
            (Instantiated{true, {GetParam().line}}));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, SyntaxLine,
    testing::Values(Case{"GOTO/%A,%B", "GOTO/    1.500000,   -2.000000"},
                    Case{"CYCLE/ON", "CYCLE/ON"}, Case{"", ""}, Case{"LOADTL/%I", "LOADTL/7"},
                    Case{"TPRINT/%T", "TPRINT/END MILL"}, Case{"TPRINT/&T,%I", "TPRINT/END MILL,7"},
                    Case{"GOTO/% A ,1", "GOTO/    1.500000,1"}, Case{"GOTO/%BAD,1", "GOTO/,1"},
                    Case{"GOTO/%TINY", "GOTO/    0.000000"}, Case{"%A %B,X", ",X"},
                    // an escaped percent is no reference
                    Case{"$$ 100\\% %I", "$$ 100% 7"}, Case{"\\%A", "%A"}, Case{"\\\\%A", "\\%A"},
                    Case{"@#@#@#@#A", "%A"},
                    // expressions over the design parameters
                    Case{"DELAY/%(LENGTH)", "DELAY/   12.500000"},
                    Case{"DELAY/%(LENGTH/LENGTH),1", "DELAY/    1.000000,1"},
                    Case{"DELAY/%(LENGTH^2),1", "DELAY/  156.250000,1"},
                    // the sign is masked, and the host is asked for the masked text
                    Case{"DELAY/%(LENGTH*2),1", "DELAY/"}, Case{"DELAY/%(LENGTH/0),1", "DELAY/,1"},
                    Case{"DELAY/%(NOBODY),1", "DELAY/,1"},
                    Case{"DELAY/%((LENGTH)*2),1", "DELAY/),1"}, Case{"DELAY/%(),1", "DELAY/,1"}));

class SyntaxEvaluation : public testing::Test, protected PPWordDocument {};

TEST_F(SyntaxEvaluation, PointGivesItsCoordinates) {
  format("MFG_XPOINT", "%11.5f");
  format("MFG_YPOINT", "%11.5f");
  format("MFG_ZPOINT", "%11.5f");
  KEPIMfgBufferPoint_var(words)->SetPoint(10, -20.125, 0.0000001);
  EXPECT_EQ(instantiate(instruction("NC_GOTO", {"GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT"})),
            (Instantiated{true, {"GOTO/   10.00000,  -20.12500,    0.00000"}}));
}

TEST_F(SyntaxEvaluation, TypeChangedBetweenTwoCallsShowsAtTheNextCall) {
  activity()->parameters().set("A", realValue(1.5));
  const auto instr = instruction("NC_X", {"GOTO/%A"});
  EXPECT_EQ(instantiate(instr).lines, Texts{"GOTO/    1.500000"});
  format("A", "%.1f");
  EXPECT_EQ(instantiate(instr).lines, Texts{"GOTO/1.5"});
  KEPISpecAttrAccess_var(find("A"))->SetString("Format", "%.2f");
  EXPECT_EQ(instantiate(instr).lines, Texts{"GOTO/1.50"});
  KEPISpecAttrAccess_var(instr)->SetList("Syntaxe", list({"FROM/%A"}));
  EXPECT_EQ(instantiate(instr).lines, Texts{"FROM/1.50"});
}

TEST_F(SyntaxEvaluation, FormatOfATypeAppliesToRealNumbersOnly) {
  auto operation = activity();
  operation->parameters().set("R", realValue(2));
  operation->parameters().set("I", integerValue(-3));
  operation->parameters().set("T", textValue("abc"));
  operation->parameters().set("BADFORMAT", realValue(2));
  make("NOFORMAT", "MfgPPParameter");
  operation->parameters().set("NOFORMAT", realValue(2));
  for (const auto* name : {"R", "I", "T"}) format(name, "%08.3f,");
  format("BADFORMAT", "%n");
  const auto instr = instruction("NC_X", {"%R,%I,%T,%NOFORMAT,%BADFORMAT,%GONE"});
  EXPECT_EQ(instantiate(instr).lines, Texts{"0002.000.,-3,abc,    2.000000,,"});
}

TEST_F(SyntaxEvaluation, LongTextIsCut) {
  const std::string hundred(100, 'x');
  std::string accents;
  for (int i = 0; i < 100; ++i) accents += "\xC3\xA9";
  auto operation = activity();
  operation->parameters().set("X", textValue(hundred));
  operation->parameters().set("E", textValue(accents));
  operation->parameters().set("F", textValue(accents));
  format("F", "%f");
  EXPECT_EQ(instantiate(instruction("NC_X", {"%X"})).lines, Texts{hundred.substr(0, 79)});
  // 39 characters of two bytes fit into 79 bytes
  EXPECT_EQ(instantiate(instruction("NC_E", {"%E"})).lines, Texts{accents.substr(0, 78)});
  EXPECT_EQ(instantiate(instruction("NC_F", {"%F"})).lines, Texts{accents.substr(0, 158)});
}

TEST_F(SyntaxEvaluation, ValueOfAnotherKindOrNotFiniteIsUnevaluated) {
  auto operation = activity();
  operation->parameters().set("K", KEPMfgParameterValue{4, 1, 1.0, "x"});
  operation->parameters().set("N", realValue(std::numeric_limits<double>::infinity()));
  format("F", "%f");
  operation->parameters().set("F", KEPMfgParameterValue{0, 1, 1.0, "x"});
  EXPECT_EQ(instantiate(instruction("NC_X", {"%K,%N,%F,1"})).lines, Texts{",,,1"});
}

TEST_F(SyntaxEvaluation, UsersParameterIsAskedBeforeTheActivitysOwn) {
  auto operation = activity();
  operation->parameters().set("A", integerValue(1));
  operation->parameters().set("B", integerValue(2));
  operation->customParameters().set("A", integerValue(3));
  EXPECT_EQ(instantiate(instruction("NC_X", {"%A,%B"})).lines, Texts{"3,2"});
}

TEST_F(SyntaxEvaluation, VirtualActivityLeadsToTheRealOne) {
  auto real = host::Activity::create("Pocket.2");
  real->parameters().set("A", integerValue(5));
  const auto instr = instruction("NC_X", {"%A"});
  const auto standIn = host::Activity::createVirtual("Stand-in", real);
  standIn->parameters().set("A", integerValue(4));
  words->SetObjects(standIn);
  EXPECT_EQ(instantiate(instr).lines, Texts{"5"});
  words->SetObjects(host::Activity::createVirtual("Stand-in", nullptr));
  EXPECT_EQ(instantiate(instr).lines, Texts{""});
  words->SetObjects(real);
  EXPECT_EQ(instantiate(instr).lines, Texts{"5"});
}

/// An activity of somebody else's.
class ForeignActivity final : public KEPIMfgActivity {
 public:
  [[nodiscard]] KEPUnicodeString GetName() const override { return "Foreign"; }
  HRESULT GetToolAndAssembly(KEPBaseUnknown_var& /*tool*/,
                             KEPBaseUnknown_var& /*assembly*/) const override {
    return E_FAIL;
  }

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return interfaceClass == KEPInterfaceId<KEPIMfgActivity>() ? this : nullptr;
  }
};

TEST_F(SyntaxEvaluation, ActivityOfAnotherKindKnowsNoParameters) {
  words->SetObjects(KEPBaseUnknown_var::Adopt(new ForeignActivity));
  EXPECT_EQ(instantiate(instruction("NC_X", {"GOTO/%A,1"})).lines, Texts{"GOTO/,1"});
}

TEST_F(SyntaxEvaluation, WithoutActivityParametersAreUnevaluated) {
  EXPECT_EQ(instantiate(instruction("NC_X", {"GOTO/%A,1"})), (Instantiated{true, {"GOTO/,1"}}));
}

TEST_F(SyntaxEvaluation, LinesAreAppendedInOrder) {
  EXPECT_EQ(instantiate(instruction("NC_X", {"ONE", "TWO"}), 1, {"BEFORE"}),
            (Instantiated{true, {"BEFORE", "ONE", "TWO"}}));
  EXPECT_EQ(instantiate(instruction("NC_EMPTY", {})), (Instantiated{true, {}}));
}

TEST_F(SyntaxEvaluation, IndexPicksAmongTheAttributesWithoutBookkeeping) {
  const auto attributes =
      declared("NC_X", {"$OSM_Xts", "Syntaxe", "$OSM_LocalXts", "Syntaxe2", "$OSM_Xts2"});
  attributes->SetList("Syntaxe", list({"FIRST"}));
  attributes->SetList("Syntaxe2", list({"SECOND"}));
  const KEPISpecObject_var instr = attributes;
  EXPECT_EQ(instantiate(instr, 1), (Instantiated{true, {"FIRST"}}));
  EXPECT_EQ(instantiate(instr, 2), (Instantiated{true, {"SECOND"}}));
  // a string attribute is no list; the name is not one of the two
  EXPECT_EQ(instantiate(instr, 3), (Instantiated{false, {}}));
  for (const int outside : {0, -1, 4, 5, 2147483647}) {
    EXPECT_EQ(instantiate(instr, outside), (Instantiated{false, {}})) << outside;
  }
}

TEST_F(SyntaxEvaluation, UnsetSequenceGivesNoLine) {
  const auto instr = instruction("NC_X", {"FIRST"});
  const KEPISpecAttrAccess_var attributes = instr;
  attributes->AddAttribute("Syntaxe2", KEPISpecAttribute::Kind::StringList);
  EXPECT_EQ(instantiate(instr, 2), (Instantiated{true, {}}));
}

TEST_F(SyntaxEvaluation, ContinuationMarksCoverTheWholeList) {
  struct Marks {
    Texts before, after;
  };
  const std::vector<Marks> cases = {
      {{"GOTO/1,", "2,3"}, {"GOTO/1,$", "2,3"}},
      {{"GOTO/1", ",2,3"}, {"GOTO/1$", ",2,3"}},
      {{"GOTO/1$", ",2,3"}, {"GOTO/1$", ",2,3"}},
      {{"GOTO/1,", "FEDRAT/2"}, {"GOTO/1,", "FEDRAT/2"}},
      {{"GOTO/1", ",X/2"}, {"GOTO/1", ",X/2"}},
      {{"  GOTO/1,  ", "  2  "}, {"  GOTO/1,  $", "  2  "}},
      {{"A,", "", ",B"}, {"A,$", "$", ",B"}},
      {{"A,", "B,", "C"}, {"A,$", "B,$", "C"}},
      {{"GOTO/1,$", "2"}, {"GOTO/1,$", "2"}},
      {{"A", "B"}, {"A", "B"}},
      {{"A,"}, {"A,"}},
  };
  int number = 0;
  for (const auto& [before, after] : cases) {
    const auto instr = instruction("NC_" + std::to_string(++number), before);
    EXPECT_EQ(instantiate(instr), (Instantiated{true, after})) << number;
  }
  // lines of the list before the call are looked at too
  EXPECT_EQ(instantiate(instruction("NC_X", {",2"}), 1, {"GOTO/1", "PPRINT A,", "B"}).lines,
            (Texts{"GOTO/1", "PPRINT A,$", "B$", ",2"}));
}

TEST_F(SyntaxEvaluation, ContinuationMarksFollowTheFailuresBeforeTheLines) {
  const auto instr = declared("NC_X", {"Syntaxe", "$OTHER"});
  EXPECT_EQ(instantiate(instr, 2, {"A,", "B"}), (Instantiated{false, {"A,$", "B"}}));
  // an index outside ends the call at once
  EXPECT_EQ(instantiate(instr, 9, {"A,", "B"}), (Instantiated{false, {"A,", "B"}}));
  // no attribute at all
  EXPECT_EQ(instantiate(find("MfgPPSyntax"), 1, {"A,", "B"}), (Instantiated{false, {"A,$", "B"}}));
}

TEST_F(SyntaxEvaluation, DelayLosesTheCommaOfItsOneLine) {
  const auto delay = instruction("NC_DELAY", {"DELAY/2,%GONE"});
  EXPECT_EQ(instantiate(delay).lines, Texts{"DELAY/2"});
  EXPECT_EQ(instantiate(delay, 1, {"BEFORE"}).lines, (Texts{"BEFORE", "DELAY/2,"}));
  const KEPISpecAttrAccess_var attributes = delay;
  attributes->SetList("Syntaxe", list({"DELAY/2, "}));
  EXPECT_EQ(instantiate(delay).lines, Texts{"DELAY/2, "});
  attributes->SetList("Syntaxe", list({"DELAY/2,,"}));
  EXPECT_EQ(instantiate(delay).lines, Texts{"DELAY/2,"});
  attributes->SetList("Syntaxe", list({","}));
  EXPECT_EQ(instantiate(delay).lines, Texts{""});
  EXPECT_EQ(instantiate(instruction("NC_OTHER", {"DELAY/2,"})).lines, Texts{"DELAY/2,"});
}

TEST_F(SyntaxEvaluation, DelayRuleFollowsTheFailuresBeforeTheLines) {
  const auto delay = declared("NC_DELAY", {"Syntaxe", "$OTHER"});
  EXPECT_EQ(instantiate(delay, 2, {"DELAY/3,"}), (Instantiated{false, {"DELAY/3"}}));
  EXPECT_EQ(instantiate(delay, 7, {"DELAY/3,"}), (Instantiated{false, {"DELAY/3,"}}));
}

TEST_F(SyntaxEvaluation, TypeUnderDelayFollowsTheDelayRule) {
  instruction("NC_DELAY", {"DELAY/2,"});
  EXPECT_EQ(instantiate(make("NC_DELAY_LONG", "NC_DELAY")).lines, Texts{"DELAY/2"});
}

TEST_F(SyntaxEvaluation, SequentialMotionNumberGoesIntoItsBuffer) {
  const auto instr = instruction("NC_X", {"X"});
  const KEPIMfgSyntaxEvaluation_var evaluation = instr;
  const KEPIMfgBufferSeqMotionNumber_var buffer = words;
  buffer->SetNumber(77);
  int number = 0;
  EXPECT_EQ(evaluation->SetSeqMotionNumber(12), 0);
  (void)instantiate(instr);
  buffer->GetNumber(number);
  EXPECT_EQ(number, 12);
  EXPECT_EQ(evaluation->SetSeqMotionNumber(-1), 0);
  (void)instantiate(instr, 99);
  buffer->GetNumber(number);
  EXPECT_EQ(number, -1);
}

TEST_F(SyntaxEvaluation, NumbersAreMinusOneUntilSet) {
  const KEPIMfgSyntaxEvaluation_var evaluation = instruction("NC_X", {"X"});
  EXPECT_EQ(evaluation->GetAuxNumber(), -1);
  EXPECT_EQ(evaluation->GetSeqMotionNumber(), -1);
  EXPECT_EQ(evaluation->SetAuxNumber(42), 0);
  EXPECT_EQ(evaluation->GetAuxNumber(), 42);
  EXPECT_EQ(evaluation->GetSeqMotionNumber(), -1);
}

TEST_F(SyntaxEvaluation, FeatureOfAnotherContainerFailsAtItsFirstLine) {
  auto other = KEPIContainer_var::Adopt(new host::Container(*document, "MfgOtherCont"));
  const auto root = KEPISpecObject_var::Adopt(other->CreateStartUp("MfgPPSyntax", {}));
  const auto instr = KEPISpecObject_var::Adopt(other->CreateStartUp("NC_X", root));
  const KEPISpecAttrAccess_var attributes = instr;
  attributes->AddAttribute("Syntaxe", KEPISpecAttribute::Kind::StringList);
  EXPECT_EQ(instantiate(instr, 1, {"A,", "B"}), (Instantiated{true, {"A,$", "B"}}));
  attributes->SetList("Syntaxe", list({"CYCLE/ON"}));
  EXPECT_EQ(instantiate(instr, 1, {"A,", "B"}), (Instantiated{false, {"A,", "B"}}));
}

TEST_F(SyntaxEvaluation, RemovedFeatureFails) {
  const auto instr = instruction("NC_X", {"CYCLE/ON"});
  KEPILifeCycleObject_var(instr)->remove();
  EXPECT_EQ(instantiate(instr), (Instantiated{false, {}}));
}

TEST(SyntaxEngine, WithoutFeatureGivesFalseAndSetsMarks) {
  KEPMfgSyntaxEvaluation engine;
  KEPListValKEPUnicodeString lines = list({"A,", "B"});
  const int first = 1;
  EXPECT_FALSE(engine.InstantiateSyntax(lines, first));
  EXPECT_EQ(texts(lines), (Texts{"A,$", "B"}));
}

TEST_F(SyntaxEvaluation, ReferenceCountsAreAsBefore) {
  format("MFG_XPOINT", "%11.5f");
  const auto type = find("MFG_XPOINT");
  const auto instr = instruction("NC_X", {"GOTO/%MFG_XPOINT,%A,%BAD,%(LENGTH)"});
  auto operation = activity();
  operation->parameters().set("A", realValue(1));
  (void)instantiate(instr);
  const auto counts = [&] {
    return std::vector<int>{instr->GetReferenceCount(), type->GetReferenceCount(),
                            operation->GetReferenceCount(), words->GetReferenceCount(),
                            document->GetReferenceCount()};
  };
  const auto before = counts();
  EXPECT_TRUE(instantiate(instr).done);
  EXPECT_FALSE(instantiate(instr, 2).done);
  EXPECT_EQ(counts(), before);
}

TEST_F(SyntaxEvaluation, EvaluationWithoutValueIsNotLookedUpFurther) {
  make("MFG_XPOINT", "MfgPPParameter");
  activity()->parameters().set("MFG_XPOINT", realValue(5));
  EXPECT_EQ(instantiate(instruction("NC_X", {"X/%MFG_XPOINT,1"})).lines, Texts{"X/,1"});
}

TEST_F(SyntaxEvaluation, TypeIsLookedForWithTheBlanksOfTheName) {
  format("A", "%.1f");
  activity()->parameters().set("A", realValue(1.5));
  EXPECT_EQ(instantiate(instruction("NC_X", {"X/% A ,1"})).lines, Texts{"X/    1.500000,1"});
}

TEST_F(SyntaxEvaluation, FormatThatIsSetAndEmptyPrintsNothing) {
  format("A", "");
  activity()->parameters().set("A", realValue(1.5));
  const auto instr = instruction("NC_X", {"X/%A,1"});
  EXPECT_EQ(instantiate(instr).lines, Texts{"X/,1"});
  KEPISpecAttrAccess_var(find("A"))->Unset("Format");
  EXPECT_EQ(instantiate(instr).lines, Texts{"X/    1.500000,1"});
}

TEST_F(SyntaxEvaluation, EscapesAndMarkersGoThroughEveryPass) {
  auto operation = activity();
  operation->parameters().set("A", integerValue(7));
  operation->parameters().set("Q", textValue("5\\%A"));
  operation->parameters().set("M", textValue("@#@#@#@#A"));
  const std::pair<const char*, const char*> cases[] = {
      {"A\\%B\\%C", "A%B%C"}, {"X/&Q,1", "X/5\\7,1"}, {"X/&M,1", "X/%A,1"}, {"@#\\%", "%@#"}};
  int number = 0;
  for (const auto& [syntax, line] : cases) {
    EXPECT_EQ(instantiate(instruction("NC_" + std::to_string(++number), {syntax})).lines,
              Texts{line});
  }
}

TEST_F(SyntaxEvaluation, ExpressionOfAnotherPrefixIsComputedToo) {
  EXPECT_EQ(instantiate(instruction("NC_X", {"X/&(1+1)"})).lines, Texts{"X/    2.000000)"});
  EXPECT_EQ(instantiate(instruction("NC_Y", {"X/% (1+1,1"})).lines, Texts{"X/    2.000000,1"});
}

TEST_F(SyntaxEvaluation, TextIsCutAtItsLimits) {
  const std::string many(78, 'x');
  auto operation = activity();
  operation->parameters().set("T", textValue(many + "\xC3\xA9"));
  operation->parameters().set("F", textValue(many + "\xC3\xA9"));
  operation->parameters().set("N", textValue(many + "\xC3\xA9"));
  operation->parameters().set("L", textValue(many + "xx"));
  format("F", "%f");
  make("N", "MfgPPParameter");
  EXPECT_EQ(instantiate(instruction("NC_T", {"%T"})).lines, Texts{many});
  EXPECT_EQ(instantiate(instruction("NC_F", {"%F"})).lines, Texts{many + "\xC3\xA9"});
  EXPECT_EQ(instantiate(instruction("NC_N", {"%N"})).lines, Texts{many});
  EXPECT_EQ(instantiate(instruction("NC_L", {"%L"})).lines, Texts{many + "x"});
}

TEST_F(SyntaxEvaluation, IndexOfBookkeepingOnlyEndsTheCallAtOnce) {
  const auto instr = declared("NC_X", {"$OSM_Xts"});
  EXPECT_EQ(instantiate(instr, 1, {"A,", "B"}), (Instantiated{false, {"A,", "B"}}));
}

TEST_F(SyntaxEvaluation, InstanceIsInstantiatedAsItsType) {
  const auto delay = instruction("NC_DELAY", {"DELAY/2,%GONE"});
  const auto instance = KEPISpecObject_var::Adopt(features->CreateInstance(delay, ""));
  EXPECT_EQ(instantiate(instance).lines, Texts{"DELAY/2"});
}

TEST_F(SyntaxEvaluation, BytesThatAreNotUtf8ComeOutUnchanged) {
  EXPECT_EQ(instantiate(instruction("NC_X", {"PPRINT \xE9\xFF\x80%A"})).lines,
            Texts{"PPRINT \xE9\xFF\x80"});
}

}  // namespace
}  // namespace ppword::test
