#include <gtest/gtest.h>

#include <limits>

#include "System/KEPError.h"
#include "tests/container/Listing.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

/// A container with the instruction NC_GOTO and the parameter MFG_XPOINT.
class SyntaxLookup : public testing::Test, protected PPWordDocument {
 protected:
  SyntaxLookup() {
    instruction("NC_GOTO", {"GOTO/1"});
    format("MFG_XPOINT", "%11.5f");
  }

  [[nodiscard]] KEPIMfgSyntaxEvaluation_var ask(const KEPUnicodeString& name) const {
    KEPIMfgSyntaxEvaluation_var evaluation;
    words->GetSyntaxEvaluation(evaluation, name);
    return evaluation;
  }
  [[nodiscard]] KEPIMfgSyntaxEvaluation_var evaluationOf(std::string_view name) const {
    return find(name);
  }
  /// The number that the evaluation of NC_GOTO is told when it is asked for by this name.
  [[nodiscard]] int numberToldBy(const KEPUnicodeString& name) const {
    evaluationOf("NC_GOTO")->SetSeqMotionNumber(99);
    const auto evaluation = ask(name);
    EXPECT_EQ(evaluation.Get(), evaluationOf("NC_GOTO").Get());
    return evaluationOf("NC_GOTO")->GetSeqMotionNumber();
  }
  void expectNullHandleError(const KEPUnicodeString& name) const {
    KEPIMfgSyntaxEvaluation_var evaluation = evaluationOf("NC_GOTO");
    const auto counts = referencesOf(document);
    try {
      words->GetSyntaxEvaluation(evaluation, name);
      FAIL() << "no error for " << name.View();
    } catch (const KEPErrorNullHandle& error) {
      EXPECT_STREQ(error.GetMessageKey().CastToCharPtr(), "ERR_NULL_HANDLE");
      EXPECT_EQ(error.GetNLSMessage(), KEPUnicodeString("a null handle was used"));
    }
    EXPECT_EQ(evaluation.Get(), evaluationOf("NC_GOTO").Get());
    EXPECT_EQ(referencesOf(document), counts);
  }
};

TEST_F(SyntaxLookup, PlainNameGivesMinusOne) { EXPECT_EQ(numberToldBy("NC_GOTO"), -1); }

TEST_F(SyntaxLookup, NumberBehindTheMarkerIsTold) {
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#12"), 12);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#1"), 1);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#0"), 0);
}

TEST_F(SyntaxLookup, PlainNameAfterAMotionGivesMinusOneAgain) {
  const auto first = ask("NC_GOTO#SEQMOTION#12");
  EXPECT_EQ(first->GetSeqMotionNumber(), 12);
  const auto second = ask("NC_GOTO");
  EXPECT_EQ(second.Get(), first.Get());
  EXPECT_EQ(second->GetSeqMotionNumber(), -1);
}

TEST_F(SyntaxLookup, NumberIsReadAsAPrefix) {
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#12abc"), 12);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION# \t7"), 7);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#+4"), 4);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#-5"), -5);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#007"), 7);
}

TEST_F(SyntaxLookup, NumberBeyond32BitsSaturates) {
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#99999999999"), kMost);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#-99999999999"), kLeast);
}

TEST_F(SyntaxLookup, MarkerWithoutANumberGivesMinusOne) {
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#"), -1);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#X1"), -1);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#-"), -1);
}

TEST_F(SyntaxLookup, FirstOfTwoMarkersCounts) {
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION#3#SEQMOTION#5"), 3);
  EXPECT_EQ(numberToldBy("NC_GOTO#SEQMOTION##SEQMOTION#5"), -1);
}

TEST_F(SyntaxLookup, MarkerAtTheStartGivesNothing) {
  EXPECT_FALSE(ask("#SEQMOTION#5"));
  EXPECT_FALSE(ask("#SEQMOTION#NC_GOTO#SEQMOTION#5"));
}

TEST_F(SyntaxLookup, MarkerInAnotherCaseIsNoMarker) {
  EXPECT_FALSE(ask("NC_GOTO#seqmotion#3"));
  EXPECT_FALSE(ask("NC_GOTO#SEQMOTION3"));
}

TEST_F(SyntaxLookup, WholeNameOfATypeIsServedWithMinusOne) {
  instruction("NC_GOTO#SEQMOTION#12", {"GOTO/WHOLE"});
  instruction("#SEQMOTION#5", {"GOTO/START"});
  for (const char* name : {"NC_GOTO#SEQMOTION#12", "#SEQMOTION#5"}) {
    evaluationOf(name)->SetSeqMotionNumber(99);
    EXPECT_EQ(ask(name).Get(), evaluationOf(name).Get()) << name;
    EXPECT_EQ(evaluationOf(name)->GetSeqMotionNumber(), -1) << name;
  }
}

TEST_F(SyntaxLookup, WholeNameThatIsNoInstructionGivesNothing) {
  make("NC_GOTO#SEQMOTION#12", "MfgPPParameter");
  EXPECT_FALSE(ask("NC_GOTO#SEQMOTION#12"));
}

TEST_F(SyntaxLookup, RootOfTheInstructionsIsServed) {
  EXPECT_EQ(ask("MfgPPSyntax").Get(), evaluationOf("MfgPPSyntax").Get());
  EXPECT_EQ(ask("MfgPPSyntax")->GetSeqMotionNumber(), -1);
}

TEST_F(SyntaxLookup, UnknownNameGivesNothing) {
  KEPIMfgSyntaxEvaluation_var evaluation = evaluationOf("NC_GOTO");
  for (const char* name :
       {"", "NC_NONE", "nc_goto", "MFG_XPOINT", "MfgPPWordRoot", "NC_NONE#SEQMOTION#0",
        "NC_NONE#SEQMOTION#-3", "NC_NONE#SEQMOTION#", "MFG_XPOINT#SEQMOTION#0"}) {
    evaluation = evaluationOf("NC_GOTO");
    const auto counts = referencesOf(document);
    words->GetSyntaxEvaluation(evaluation, name);
    EXPECT_FALSE(evaluation) << name;
    evaluation = evaluationOf("NC_GOTO");
    EXPECT_EQ(referencesOf(document), counts) << name;
  }
}

TEST_F(SyntaxLookup, MotionOfAnUnknownInstructionRaisesTheNullHandleError) {
  expectNullHandleError("NC_NONE#SEQMOTION#3");
  expectNullHandleError("NC_NONE#SEQMOTION#1");
  expectNullHandleError("MFG_XPOINT#SEQMOTION#2");
}

TEST_F(SyntaxLookup, HandleIsTheOnlyReferenceAdded) {
  const auto counts = referencesOf(document);
  const int before = find("NC_GOTO")->GetReferenceCount();
  {
    const auto evaluation = ask("NC_GOTO#SEQMOTION#2");
    EXPECT_EQ(find("NC_GOTO")->GetReferenceCount(), before + 1);
  }
  EXPECT_EQ(referencesOf(document), counts);
}

}  // namespace
}  // namespace ppword::test
