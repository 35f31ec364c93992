#include <gtest/gtest.h>

#include <iostream>
#include <set>
#include <string>
#include <string_view>

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "host/manufacturing/GeneratorData.h"
#include "host/system/Session.h"
#include "inspect/explain/Explanation.h"
#include "tests/support/Mutator.h"
#include "tests/support/PPWordDocument.h"
#include "tests/syntax/Instantiated.h"

namespace ppword::test {
namespace {

class Explain : public testing::Test, protected PPWordDocument {
 protected:
  [[nodiscard]] host::Explanation explained(const Texts& syntax, int sequence = 1) const {
    KEPISpecAttrAccess_var(instruction_)->SetList("Syntaxe", list(syntax));
    const KEPIMfgSyntaxEvaluation_var evaluation = instruction_;
    return host::explain(*evaluation, sequence);
  }
  /// The notes of all passes of one line.
  [[nodiscard]] Texts notes(const std::string& syntax) const {
    Texts all;
    const host::Explanation explanation = explained({syntax});
    for (const auto& pass : explanation.lines.at(0).passes) {
      all.insert(all.end(), pass.notes.begin(), pass.notes.end());
    }
    return all;
  }

  KEPISpecObject_var instruction_ = instruction("NC_X", {});
};

TEST_F(Explain, PassesAreInTheirOrderUnderDistinctNames) {
  std::set<std::string_view> names;
  int position = 0;
  for (const auto& entry : KEPMfgPPWordListener::kPasses) {
    EXPECT_EQ(static_cast<int>(entry.pass), position++) << entry.name;
    EXPECT_TRUE(names.insert(entry.name).second) << entry.name;
  }
  EXPECT_EQ(KEPMfgPPWordListener::kPasses.back().pass, KEPMfgPPWordListener::Pass::UnmaskEscapes);
}

TEST_F(Explain, ReferencesHaveThePrefixOfTheirPass) {
  const auto operation = activity();
  operation->parameters().set("I", host::integerValue(7));
  operation->parameters().set("J", host::integerValue(2));
  Texts references;
  const auto explanation = explained({"X/&W,%(D),(%I/%J),%K"});
  for (const auto& pass : explanation.lines.at(0).passes) {
    for (const auto& reference : pass.references) {
      references.push_back(std::string(KEPMfgPPWordListener::EntryOf(pass.pass).name) + ": " +
                           host::referenceText(reference));
    }
  }
  EXPECT_EQ(references, (Texts{"references &: &W", "references %(: %(D)", "groups %: %I",
                               "groups %: %J", "references %: %K"}));
}

TEST_F(Explain, FormatIsTheOneThatPrintedTheNumber) {
  format("MFG_XPOINT", "%11.5f");
  format("MFG_XAXIS", "%.1f");
  format("MFG_CIRCLE_RADIUS", "%.2f");
  const Texts syntax{"X/%MFG_XPOINT,%MFG_XAXIS,%MFG_CIRCLE_RADIUS"};
  const auto formats = [&] {
    Texts all;
    const auto explanation = explained(syntax);
    for (const auto& pass : explanation.lines.at(0).passes) {
      for (const auto& reference : pass.references)
        all.push_back(reference.format.value_or("none"));
    }
    return all;
  };
  EXPECT_EQ(formats(), (Texts{"%11.5f", "%.1f", "%.2f"}));
  host::setCurrentGeneratorData(host::GeneratorData::create("%,3f", "%.4f"));
  EXPECT_EQ(formats(), (Texts{"%.3f", "%.4f", "%.2f"}));
  host::setCurrentGeneratorData(host::GeneratorData::create("", "%.4f"));
  EXPECT_EQ(formats(), (Texts{"%11.5f", "%.4f", "%.2f"}));
  host::setCurrentGeneratorData(nullptr);
}

TEST_F(Explain, ListenerOfTheSessionIsAsBefore) {
  KEPMfgPPWordListener own;
  host::session().listener = &own;
  (void)explained({"X/1+1"});
  EXPECT_EQ(host::session().listener, &own);
  host::session().listener = nullptr;
}

TEST_F(Explain, MissingSequenceIsNotDone) {
  const auto explanation = explained({"X/1"}, 2);
  EXPECT_FALSE(explanation.isDone);
  EXPECT_TRUE(explanation.lines.empty());
}

TEST_F(Explain, InstructionWithoutLinesIsDone) {
  const auto explanation = explained({});
  EXPECT_TRUE(explanation.isDone);
  EXPECT_EQ(host::explanationText(explanation), "");
}

TEST_F(Explain, FormatThatPrintsNoNumberIsShownWithTheValue) {
  format("F", "%n");
  activity()->parameters().set("F", host::realValue(2));
  const auto text = host::explanationText(explained({"%F,1"}));
  EXPECT_NE(text.find("%F: type F under MfgPPParameter, parameter of the activity, real 2, format\n"
                      "      «%n»: «»\n"
                      "    ! «F» cannot be printed in its format and is dropped; the separators "
                      "around\n      it stay\n"),
            std::string::npos)
      << text;
}

TEST_F(Explain, ControlCharactersDoNotReachTheTerminal) {
  const auto text = host::explanationText(explained({"X/\x1B[2J"}));
  EXPECT_EQ(text.find('\x1B'), std::string::npos);
  EXPECT_NE(text.find("«X/\\x1b[2J»"), std::string::npos) << text;
}

TEST_F(Explain, LineFeedCutsTheCharacterInFrontOfIt) {
  EXPECT_EQ(notes("%AX\n1").back(), "«X» after the name «A» is cut off and lost");
}

TEST_F(Explain, LineFeedCutsTheOnlyCharacterOfAnExpression) {
  EXPECT_EQ(
      notes("X/%(\n1"),
      (Texts{"no \")\" ends the expression «»: it goes on to the next blank, or to the end of "
             "the line; close it",
             "«» cannot be evaluated and is dropped; the separators around it stay",
             "«(» after the name «» is cut off and lost"}));
}

TEST_F(Explain, ParameterDroppedBesideASignTellsBoth) {
  EXPECT_EQ(notes("X/%I-1"),
            (Texts{"the name «I» is cut by the \"-\" after it: a name holds no sign",
                   "«I» cannot be evaluated and is dropped; the separators around it stay"}));
}

TEST_F(Explain, SignIsToldOfTheReferenceInFrontOfIt) {
  const std::string cut = "the name «I» is cut by the \"-\" after it: a name holds no sign";
  const std::string dropped =
      "«I» cannot be evaluated and is dropped; the separators around it stay";
  EXPECT_EQ(notes("X/%I,%I-1"), (Texts{dropped, cut, dropped}));
  EXPECT_EQ(notes("X/%I-1,%I,2"), (Texts{cut, dropped, dropped}));
  EXPECT_EQ(notes("X/%I),%I-1"), (Texts{dropped, cut, dropped}));
  // the reference that is cut off with the end of the first name is none
  EXPECT_EQ(
      notes("X/%B)%I-%I,1"),
      (Texts{"«B» cannot be evaluated and is dropped; the separators around it stay", dropped,
             "«)%I» after the name «B» is cut off: each of its characters comes back as \")\"",
             "«-» is deleted: it has no operand"}));
}

TEST_F(Explain, KeptOperationIsToldWithTheEndOfALongLeftOperand) {
  const std::string operand(201, 'A');
  const std::string end =
      " is not computed and stays: not both operands are plain numbers, such as -1.5";
  EXPECT_EQ(notes("X/" + operand.substr(1) + "+1"), Texts{"«" + operand.substr(1) + "+1»" + end});
  EXPECT_EQ(notes("X/" + operand + "+1"), Texts{"«..." + operand.substr(1) + "+1»" + end});
  // a character is not cut into
  EXPECT_EQ(notes("X/\xC3\xA9" + operand.substr(2) + "+1"),
            Texts{"«..." + operand.substr(2) + "+1»" + end});
}

TEST_F(Explain, ExpressionWithoutEndIsShownWithoutIt) {
  const auto text = host::explanationText(explained({"X/%(A),%(A"}));
  EXPECT_NE(
      text.find("    %(A): no type, expression without a value: it is not an expression of the\n"
                "      document's design parameters: «»\n"
                "    %(A: no type, expression without a value: it is not an expression of the\n"
                "      document's design parameters: «»\n"
                "    ! «(A» cannot be evaluated and is dropped; the separators around it stay\n"
                "    ! no \")\" ends the expression «A»: it goes on to the next blank, or to the\n"
                "      end of the line; close it\n"),
      std::string::npos)
      << text;
  document->setDesignParameter("A", 2);
  EXPECT_EQ(notes("X/%(A MM"), Texts{"no \")\" ends the expression «A»: it goes on to the next "
                                     "blank, or to the end of the line; close it"});
}

TEST_F(Explain, ResultThatIsTooLargeIsTold) {
  EXPECT_EQ(notes("X/99999999999999999999*9"),
            Texts{"the result of «99999999999999999999*9» is above 1e20, the largest one, and "
                  "becomes 0"});
  EXPECT_EQ(notes("X/-9*-99999999999999999999+1"),
            Texts{"the result of «-9*-99999999999999999999» is above 1e20, the largest one, and "
                  "becomes 0"});
  EXPECT_EQ(notes("X/99999999999999999999*-9"), Texts{});
  EXPECT_EQ(notes("X/99999999999999999999+1"), Texts{});
  EXPECT_EQ(notes("X/9-9"), Texts{});
}

/// What explains the reference of a line.
class Reasons : public testing::Test {
 protected:
  [[nodiscard]] std::string reason(const std::string& syntax,
                                   const char* instruction = "NC_GOTO") const {
    KEPIMfgSyntaxEvaluation_var evaluation;
    document->ppWordContainer()->GetSyntaxEvaluation(evaluation, KEPUnicodeString(instruction));
    KEPISpecAttrAccess_var(evaluation)->SetList("Syntaxe", list({syntax}));
    std::string reasons;
    const host::Explanation explanation = host::explain(*evaluation, 1);
    for (const auto& pass : explanation.lines.at(0).passes) {
      for (const auto& reference : pass.references) reasons += host::lackText(reference);
    }
    return reasons;
  }
  void setActivity(host::ActivityValues values) const {
    document->ppWordContainer()->SetObjects(host::Activity::create(std::move(values)));
  }

  KEPVar<host::Document> document = host::newDocument();
};

TEST_F(Reasons, AreSaidForAMissingActivity) {
  const std::string none = "there is no activity";
  EXPECT_EQ(reason("X/%DEPTH"), none);
  EXPECT_EQ(reason("X/&MFG_DELAY_UNIT"), none);
  EXPECT_EQ(reason("X/&MFG_TOOLPATH_TYPE"), none);
  EXPECT_EQ(reason("X/%MFG_CMP_NOSE_RADIUS"), none);
  EXPECT_EQ(reason("X/%MFG_CMP_TL_SET_X"), none);
  EXPECT_EQ(reason("X/(2/%DEPTH)"), none + none);
}

TEST_F(Reasons, AreSaidForWhatAnActivityLacks) {
  setActivity({});
  EXPECT_EQ(
      reason("X/%DEPTH"),
      "neither the activity nor its tool, the assembly or the tool insert has this parameter");
  EXPECT_EQ(reason("X/&MFG_DELAY_UNIT"),
            "neither a dwell by revolutions nor one by time is stated by the operation or its "
            "sequential motion");
  EXPECT_EQ(reason("X/&MFG_TOOLPATH_TYPE"), "the activity has no tool path of a known type");
  EXPECT_EQ(reason("X/&MFG_SPNDL_WAY"), "the activity has no tool, whose hand decides");
  host::ActivityValues values;
  values.tool.emplace();
  setActivity(values);
  EXPECT_EQ(reason("X/&MFG_SPNDL_WAY"),
            "the tool is neither right-handed nor left-handed (MFG_WAY_OF_ROT)");
  values.kind = host::ActivityKind::SequentialAxial;
  values.motions.emplace();
  setActivity(values);
  EXPECT_EQ(reason("X/%MFG_SPNDL_SPEED"),
            "the sequential motion does not exist, or states nothing about its spindle speed");
  EXPECT_EQ(reason("X/&MFG_SPNDL_UNIT"),
            "the sequential motion does not exist, or states nothing about its spindle speed");
}

TEST_F(Reasons, AreSaidForLengthsThatAreTakenAsZero) {
  setActivity({});
  const std::string zero = "the assembly or its insert does not state the length: it is taken as 0";
  EXPECT_EQ(reason("X/%MFG_CMP_TL_SET_Y"), zero);
  EXPECT_EQ(reason("X/%MFG_CMP_NOSE_RADIUS"), zero);
  host::ActivityValues values;
  values.assembly.emplace();
  values.assembly->parameters = {{"MFG_TL_SET_Y", host::realValue(2.0)}};
  values.assembly->insert.emplace();
  values.assembly->insert->type = "MfgGrooveInsert";
  values.assembly->insert->dimensions = {{"MfgLeftNoseRadius", host::realValue(0.5)}};
  setActivity(values);
  EXPECT_EQ(reason("X/%MFG_CMP_TL_SET_Y"), "");
  EXPECT_EQ(reason("X/%MFG_CMP_TL_SET_X"), zero);
  // The radius at P9 is the left one, and only that is asked for.
  EXPECT_EQ(reason("X/%MFG_CMP_NOSE_RADIUS"), "");
}

TEST_F(Reasons, AreSaidForTheMotionAndItsType) {
  EXPECT_EQ(reason("X/&MFG_FEED_UNIT"),
            "neither the feed rate nor the machining feed rate of the operation is linear or "
            "angular");
  EXPECT_EQ(reason("X/&MFG_SPNDL_UNIT"),
            "neither the spindle speed nor that of the operation is angular or linear");
  EXPECT_EQ(reason("X/%MFG_HELICAL_ROUND"),
            "the pitch of the helix is below 0.000001: there are no turns and no angle");
  EXPECT_EQ(reason("X/%(A/B)"), "it is not an expression of the document's design parameters");
  const auto type = [this](const char* name) {
    return KEPISpecAttrAccess_var(
        KEPISpecObject_var::Adopt(document->features()->FindStartUp(name)));
  };
  type("MFG_XPOINT")->SetString("Format", "%n");
  EXPECT_EQ(reason("X/%MFG_XPOINT"), "its type has no format that prints the number");
  type("MFG_SPNDL_WAY")->SetList("MultiListValue", list({"CLW"}));
  EXPECT_EQ(reason("X/&MFG_SPNDL_WAY"), "the list of its type has no entry for it");
}

TEST_F(Reasons, AreShownInPlaceOfTheClass) {
  KEPIMfgSyntaxEvaluation_var evaluation;
  document->ppWordContainer()->GetSyntaxEvaluation(evaluation, "NC_GOTO");
  KEPISpecAttrAccess_var(evaluation)
      ->SetList("Syntaxe", list({"X/%MFG_CMP_TL_SET_X,&MFG_DELAY_UNIT"}));
  const auto text = host::explanationText(host::explain(*evaluation, 1));
  EXPECT_NE(text.find("    &MFG_DELAY_UNIT: type MFG_DELAY_UNIT under MfgPPParameter, no value: "
                      "there\n      is no activity: «»\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find(" with nothing to print: there is no activity,"), std::string::npos) << text;
}

TEST_F(Explain, NegativeValueBehindAMinusIsTold) {
  activity()->parameters().set("A", host::realValue(-2));
  EXPECT_EQ(notes("X/-%A"),
            Texts{"two minus signs stay: what follows a sign is negative; write 0-%NAME"});
  EXPECT_EQ(notes("X/1-%A"), Texts{});
}

TEST_F(Explain, TextThatIsCutIsTold) {
  auto& parameters = activity()->parameters();
  parameters.set("T", host::textValue(std::string(79, 'X')));
  EXPECT_EQ(notes("&T"), Texts{});
  parameters.set("T", host::textValue(std::string(80, 'X')));
  EXPECT_EQ(notes("&T"), Texts{"only the first 79 characters of the text are written"});
}

TEST_F(Explain, DivisionInANameTellsHowToDivide) {
  activity()->parameters().set("A/2", host::realValue(1));
  EXPECT_EQ(notes("%A/2"), Texts{"the \"/\" is part of the name «A/2»: the first one of a line "
                                 "divides nothing, and a reference is divided by a number that is "
                                 "not 0, or in parentheses, (%A/%B)"});
}

TEST_F(Explain, DetailsAreFoldedAtColumn80BetweenQuotes) {
  activity()->parameters().set("A", host::textValue("one two " + std::string(60, 'X')));
  const auto text = host::explanationText(explained({"&A"}));
  EXPECT_NE(text.find("\n    &A: no type, parameter of the activity, text\n      «one two "),
            std::string::npos)
      << text;
}

TEST_F(Explain, SignsOfUnchangedCommasAreNotMoved) {
  activity()->parameters().set("W", host::textValue("A,B"));
  // the sign stands in front of the word with the comma
  EXPECT_EQ(
      notes("PSIS/A+B,&W"),
      Texts{"«A+B» is not computed and stays: not both operands are plain numbers, such as -1.5"});
}

TEST_F(Explain, GroupThatLosesACommaMovesTheSignBehindIt) {
  EXPECT_EQ(notes("X/(1,8/4)+5,6"),
            Texts{"the \"+\" after «4)» is after «5» now: it goes back to comma 2, and the "
                  "commas in front of it have become more or fewer"});
}

TEST_F(Explain, DamagedLinesAreExplainedAsTheyComeOut) {
  auto& parameters = activity()->parameters();
  parameters.set("A", host::realValue(-1.5));
  parameters.set("I", host::integerValue(7));
  parameters.set("W", host::textValue("%A,1"));
  document->setDesignParameter("D", 3);
  const unsigned seed = chosenSeed();
  std::cout << "seed " << seed << " (PPWORD_TEST_SEED repeats it)\n";
  Mutator mutator(seed, "%&(),/+-*$\\ \n\"AIWD1=");
  for (int i = 0; i < 1000; ++i) {
    const std::string line = mutator.mutate("X/%A+&W,(%I/2),(7/%I)*%(D),-%A,%(D/2,%A )$,\\%");
    const host::Explanation explanation = explained({line});
    ASSERT_TRUE(explanation.isDone) << line;
    ASSERT_EQ(explanation.lines.at(0).output, instantiate(instruction_).lines.at(0)) << line;
    ASSERT_NE(host::explanationText(explanation), "") << line;
  }
}

}  // namespace
}  // namespace ppword::test
