// The engine as evaluations and listeners see it.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "KEPIMfgParameterEvaluation.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "System/KEPError.h"
#include "host/system/Session.h"
#include "tests/support/PPWordDocument.h"
#include "tests/syntax/Instantiated.h"

namespace ppword::test {
namespace {

using host::integerValue;
using host::realValue;
using host::textValue;

/// Evaluation of the parameter types HOOK: calls what the running test set.
std::function<bool(KEPString&)>* hook = nullptr;

class HookEvaluation final : public KEPIMfgParameterEvaluation {
 public:
  [[nodiscard]] bool Evaluate(KEPString& value) override { return (*hook)(value); }
};

KEPBaseUnknown* createHook(KEPBaseUnknown* extended) {
  auto* const evaluation = new HookEvaluation;
  evaluation->BindTo(*extended);
  return evaluation;
}

class HookedSyntax : public testing::Test, protected PPWordDocument {
 protected:
  HookedSyntax() {
    static const KEPMetaClass meta("HookEvaluation", KEPMetaClass::TypeOfClass::DataExtension,
                                   nullptr, "HOOK", "Tests");
    KEPFillDictionary(&meta, KEPInterfaceId<KEPIMfgParameterEvaluation>(), &createHook, nullptr, 1);
    hook = &called;
    make("HOOK", "MfgPPParameter");
  }
  ~HookedSyntax() override { hook = nullptr; }

  std::function<bool(KEPString&)> called = [](KEPString&) { return true; };
};

TEST_F(HookedSyntax, EvaluationThatAssignsNothingPrintsNothing) {
  int count = 0;
  called = [&count](KEPString& value) {
    if (++count == 1) value = "v";
    return true;
  };
  EXPECT_EQ(instantiate(instruction("NC_X", {"%HOOK,%HOOK,1"})).lines, Texts{"v,,1"});
}

TEST_F(HookedSyntax, TextOfAnEvaluationThatFailsIsNotPrinted) {
  called = [](KEPString& value) {
    value = "half";
    return false;
  };
  EXPECT_EQ(instantiate(instruction("NC_X", {"%HOOK,1"})).lines, Texts{",1"});
}

TEST_F(HookedSyntax, SyntaxMayBeInstantiatedAgainByAnEvaluation) {
  activity()->parameters().set("A", integerValue(5));
  const auto instr = instruction("NC_X", {"ONE/%HOOK,%A", "TWO/%A"});
  int depth = 0;
  called = [&](KEPString& value) {
    if (++depth == 1) {
      EXPECT_EQ(instantiate(instr).lines, (Texts{"ONE/in,5", "TWO/5"}));
    }
    value = "in";
    return true;
  };
  EXPECT_EQ(instantiate(instr).lines, (Texts{"ONE/in,5", "TWO/5"}));
}

TEST_F(HookedSyntax, SyntaxMayBeRewrittenByAnEvaluation) {
  const auto instr = instruction("NC_X", {"ONE/%HOOK,AND SOME LENGTH OF ITS OWN", "TWO", "THREE"});
  called = [&](KEPString& value) {
    KEPISpecAttrAccess_var(instr)->SetList("Syntaxe", list({"NEW ONE", "NEW TWO", "NEW THREE"}));
    value = "v";
    return true;
  };
  EXPECT_EQ(instantiate(instr),
            (Instantiated{true, {"ONE/v,AND SOME LENGTH OF ITS OWN", "NEW TWO", "NEW THREE"}}));
}

TEST_F(HookedSyntax, SyntaxThatLosesItsLinesFails) {
  const auto instr = instruction("NC_X", {"ONE/%HOOK,1", "TWO"});
  called = [&](KEPString&) {
    KEPISpecAttrAccess_var(instr)->RemoveAll("Syntaxe");
    return true;
  };
  EXPECT_EQ(instantiate(instr), (Instantiated{false, {"ONE/,1"}}));
}

TEST_F(HookedSyntax, ErrorOfAnEvaluationLeavesTheFinishedLines) {
  called = [](KEPString&) -> bool { throw KEPErrorNullHandle(); };
  const KEPIMfgSyntaxEvaluation_var evaluation = instruction("NC_X", {"ONE,", "TWO/%HOOK"});
  KEPListValKEPUnicodeString lines;
  const int first = 1;
  EXPECT_THROW((void)evaluation->InstantiateSyntax(lines, first), KEPErrorNullHandle);
  EXPECT_EQ(texts(lines), Texts{"ONE,"});
}

class ListenedSyntax : public testing::Test, protected PPWordDocument {};

/// Writes down what the engine tells.
class Notes final : public KEPMfgPPWordListener {
 public:
  Notes() { host::session().listener = this; }
  ~Notes() override { host::session().listener = nullptr; }
  Notes(const Notes&) = delete;
  Notes& operator=(const Notes&) = delete;

  void LineAfterPass(Pass pass, std::string_view line) override {
    passes.push_back(std::string(EntryOf(pass).name) + " " + std::string(line));
  }
  void ReferenceReplaced(std::string_view name, Source source, std::string_view text) override {
    references.push_back(std::string(name) + " " + std::to_string(static_cast<int>(source)) + " " +
                         std::string(text));
  }
  void TextDropped(std::string_view name, std::string_view text) override {
    dropped.push_back(std::string(name) + " " + std::string(text));
  }

  void OperationEnded(Operation, std::string_view operation, std::string_view result) override {
    operations.push_back(std::string(operation) + " " + std::string(result));
  }
  [[nodiscard]] bool ReceivesLines() const override { return receivesLines; }

  bool receivesLines = true;
  Texts passes, references, dropped, operations;
};

TEST_F(ListenedSyntax, EngineTellsOfPassesAndReferences) {
  format("MFG_XPOINT", "%.1f");
  format("F", "%.2f");
  auto operation = activity();
  operation->parameters().set("F", realValue(2));
  operation->parameters().set("W", textValue("RPM"));
  const Notes notes;
  EXPECT_EQ(instantiate(instruction("NC_X", {"&W,%F,%MFG_XPOINT,%BAD\\%,%F$"})).lines,
            Texts{"RPM,2.00,0.0,,2.00"});
  EXPECT_EQ(notes.references,
            (Texts{"W 2 RPM", "F 1 2.00", "MFG_XPOINT 0 0.0", "BAD\\% 3 ", "F 1 2.00"}));
  EXPECT_EQ(notes.dropped, Texts{"F $"});
  EXPECT_EQ(notes.passes,
            (Texts{"syntax &W,%F,%MFG_XPOINT,%BAD\\%,%F$",
                   "mask escapes &W,%F,%MFG_XPOINT,%BAD@#@#@#@#,%F$",
                   "rewrite divisions &W,%F,%MFG_XPOINT,%BAD@#@#@#@#,%F$",
                   "mask signs &W,%F,%MFG_XPOINT,%BAD@#@#@#@#,%F$",
                   "groups & &W,%F,%MFG_XPOINT,%BAD@#@#@#@#,%F$",
                   "references & RPM,%F,%MFG_XPOINT,%BAD@#@#@#@#,%F$",
                   "groups %( RPM,%F,%MFG_XPOINT,%BAD@#@#@#@#,%F$",
                   "references %( RPM,%F,%MFG_XPOINT,%BAD@#@#@#@#,%F$",
                   "groups % RPM,%F,%MFG_XPOINT,%BAD@#@#@#@#,%F$",
                   "references % RPM,2.00,0.0,,2.00", "restore signs RPM,2.00,0.0,,2.00",
                   "evaluate RPM,2.00,0.0,,2.00", "unmask escapes RPM,2.00,0.0,,2.00"}));
}

TEST_F(ListenedSyntax, ListenerWithoutLinesGetsEverythingElse) {
  activity()->parameters().set("F", realValue(2));
  const auto instr = instruction("NC_X", {"X/%F$,2*3,%BAD\\%", "Y/%F+1"});
  Notes notes;
  for (const bool receivesLines : {true, false, true, false}) {
    notes.receivesLines = receivesLines;
    notes.passes = notes.references = notes.dropped = notes.operations = {};
    EXPECT_EQ(instantiate(instr).lines, (Texts{"X/    2.000000,    6.000000,", "Y/    3.000000"}));
    EXPECT_EQ(notes.references, (Texts{"F 2     2.000000", "BAD\\% 3 ", "F 2     2.000000"}));
    EXPECT_EQ(notes.dropped, Texts{"F $"});
    EXPECT_EQ(notes.operations, (Texts{"2*3     6.000000", "    2.000000+1     3.000000"}));
    EXPECT_EQ(notes.passes.empty(), !receivesLines);
  }
}

}  // namespace
}  // namespace ppword::test
