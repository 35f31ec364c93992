#include <limits>

#include "KEPIMfgBufferFeedrate.h"
#include "Manufacturing/KEPMfgNames.h"
#include "tests/evaluation/Evaluations.h"

namespace ppword::test {
namespace {

class FeedEvaluation : public Evaluations {
 protected:
  FeedEvaluation() {
    setFormat("MFG_FEED_VALUE", "%.2f");
    setList("MFG_FEED_UNIT", {"MMPM", "MMPR"});
    make("MFG_FEED_RATIO", "MfgPPParameter");
    make("MFG_FEED_TYPE", "MfgPPParameter");
  }
  [[nodiscard]] KEPIMfgBufferFeedrate& buffer() const { return *KEPIMfgBufferFeedrate_var(words); }
  void setFeed(std::string_view number, std::string_view type) const {
    buffer().SetFeedParameter(host::createKnowledgeParameter(number, type));
  }
};

TEST_F(FeedEvaluation, ValueIsTheParameterTimesTheFactor) {
  setFeed("1000", "LINEARFEEDRATE");
  buffer().SetFactor(0.5);
  EXPECT_EQ(value("MFG_FEED_VALUE"), "500.00");
  setFeed("0.000001", "");
  EXPECT_EQ(value("MFG_FEED_VALUE"), "0.00");
  setFeed("-1.5e2mm_mn", "");
  EXPECT_EQ(value("MFG_FEED_VALUE"), "-75.00");
}

TEST_F(FeedEvaluation, ValueWithoutAParameterIsZero) {
  buffer().SetFactor(3);
  EXPECT_EQ(value("MFG_FEED_VALUE"), "0.00");
  setFeed("fast", "");
  EXPECT_EQ(value("MFG_FEED_VALUE"), "0.00");
}

TEST_F(FeedEvaluation, ValueNeedsAFormat) {
  KEPISpecAttrAccess_var(find("MFG_FEED_VALUE"))->Unset("Format");
  EXPECT_EQ(value("MFG_FEED_VALUE"), kNoValue);
}

TEST_F(FeedEvaluation, RatioIsTheFactorInPercentCutToAWholeNumber) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const std::pair<double, const char*> expected[] = {{1.0, "100"},
                                                     {0.004, "1"},
                                                     {0.009, "1"},
                                                     {0.0, "0"},
                                                     {-0.0, "0"},
                                                     {1.239, "123"},
                                                     {0.999, "99"},
                                                     {0.01, "1"},
                                                     {1e-300, "1"},
                                                     {-0.004, "0"},
                                                     {-0.999, "-99"},
                                                     {21474836.47, "2147483647"},
                                                     {21474836.46, "2147483646"},
                                                     {1e300, "2147483647"},
                                                     {-1e300, "-2147483648"},
                                                     {kInfinity, "2147483647"},
                                                     {-kInfinity, "-2147483648"},
                                                     {kInfinity - kInfinity, "0"}};
  for (const auto& [factor, text] : expected) {
    buffer().SetFactor(factor);
    EXPECT_EQ(value("MFG_FEED_RATIO"), text) << factor;
  }
}

TEST_F(FeedEvaluation, TypeIsAWordForEachKindOfFeed) {
  const std::pair<const char*, const char*> expected[] = {
      {"TPMachiningFeedrate", "MACHINING"},   {"TPApproachFeedrate", "APPROACH"},
      {"TPRetractFeedrate", "RETRACT"},       {"TPFinishingFeedrate", "FINISHING"},
      {"TPChamferingFeedrate", "CHAMFERING"}, {"", "VALUE"},
      {"TPMachiningFeedrate ", "VALUE"},      {"tpmachiningfeedrate", "VALUE"}};
  for (const auto& [type, word] : expected) {
    buffer().SetFeedType(type);
    EXPECT_EQ(value("MFG_FEED_TYPE"), word) << type;
  }
}

TEST_F(FeedEvaluation, TypeOfAPlungeFeedIsASuccessThatLeavesTheText) {
  buffer().SetFeedType("TPPlungeFeedrate");
  EXPECT_EQ(value("MFG_FEED_TYPE"), kUntouched);
}

TEST_F(FeedEvaluation, UnitIsTheEntryForTheKindOfTheBuffersParameter) {
  setFeed("100", "LINEARFEEDRATE");
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPM");
  setFeed("100", "ANGULARFEEDRATE");
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPR");
}

TEST_F(FeedEvaluation, UnitsSecondNameHasTheSameEvaluation) {
  setList("MFG_FED_UNIT", {"IPM", "IPR"});
  setFeed("100", "ANGULARFEEDRATE");
  EXPECT_EQ(value("MFG_FED_UNIT"), "IPR");
}

TEST_F(FeedEvaluation, UnitIsTheOperationsWhereTheBufferHasNone) {
  setActivity(feedrates(Mfg_MachiningFeedrateValue, "100", "LINEARFEEDRATE"));
  // the activity must be one
  EXPECT_EQ(value("MFG_FEED_UNIT"), kNoValue);
  const auto operation = newActivity();
  auto& parameters = operation->add<TestFeedrates>().parameters;
  auto& feed = parameters[std::string(Mfg_MachiningFeedrateValue)];
  setActivity(operation);
  const std::pair<const char*, const char*> expected[] = {{"LINEARFEEDRATE", "MMPM"},
                                                          {"ANGULARFEEDRATE", "MMPR"},
                                                          {"LENGTH", kNoValue},
                                                          {"", kNoValue}};
  for (const auto& [type, word] : expected) {
    feed = host::createKnowledgeParameter("100", type);
    EXPECT_EQ(value("MFG_FEED_UNIT"), word) << type;
  }
  feed = newActivity();
  EXPECT_EQ(value("MFG_FEED_UNIT"), kNoValue);
  parameters.clear();
  EXPECT_EQ(value("MFG_FEED_UNIT"), kNoValue);
}

TEST_F(FeedEvaluation, BufferComesBeforeTheOperation) {
  const auto operation = newActivity();
  operation->add<TestFeedrates>().parameters[std::string(Mfg_MachiningFeedrateValue)] =
      host::createKnowledgeParameter("100", "LINEARFEEDRATE");
  setActivity(operation);
  setFeed("100", "ANGULARFEEDRATE");
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPR");
  // a type that is neither, and none at all, leave it to the operation
  setFeed("100", "LENGTH");
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPM");
  setFeed("100", "");
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPM");
  buffer().ResetFeedParameter();
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPM");
}

TEST_F(FeedEvaluation, OperationOfAToolChangeTakesItsPlace) {
  const auto operation = newActivity();
  operation->add<TestFeedrates>().parameters[std::string(Mfg_MachiningFeedrateValue)] =
      host::createKnowledgeParameter("100", "LINEARFEEDRATE");
  const auto toolChange = toolChangeFor(operation);
  setActivity(toolChange);
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPM");
}

TEST_F(FeedEvaluation, ToolChangeWithoutOperationStaysTheActivity) {
  const auto own = [](const KEPVar<TestObject>& toolChange) {
    toolChange->add<TestFeedrates>().parameters[std::string(Mfg_MachiningFeedrateValue)] =
        host::createKnowledgeParameter("100", "ANGULARFEEDRATE");
    return toolChange;
  };
  setActivity(own(toolChangeFor({})));
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPR");
  const auto loose = newActivity();
  loose->add<TestToolChange>();
  setActivity(own(loose));
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPR");
}

TEST_F(FeedEvaluation, SequenceThatFailsLeavesTheToolChange) {
  const auto operation = newActivity();
  operation->add<TestFeedrates>().parameters[std::string(Mfg_MachiningFeedrateValue)] =
      host::createKnowledgeParameter("100", "LINEARFEEDRATE");
  const auto sequence = object();
  auto& its = sequence->add<TestSequence>();
  its.operation = operation;
  const auto toolChange = newActivity();
  toolChange->add<TestToolChange>().sequence = sequence;
  setActivity(toolChange);
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPM");
  EXPECT_EQ(its.askedFor, KEPIMfgActivity_var(toolChange).Get());
  its.status = E_FAIL;
  EXPECT_EQ(value("MFG_FEED_UNIT"), kNoValue);
}

TEST_F(FeedEvaluation, UnitWithoutActivityOrKindHasNoValue) {
  EXPECT_EQ(value("MFG_FEED_UNIT"), kNoValue);
  setActivity(newActivity());
  EXPECT_EQ(value("MFG_FEED_UNIT"), kNoValue);
}

TEST_F(FeedEvaluation, UnitNeedsTheEntryOfItsList) {
  setFeed("100", "ANGULARFEEDRATE");
  setList("MFG_FEED_UNIT", {"MMPM"});
  EXPECT_EQ(value("MFG_FEED_UNIT"), kNoValue);
  setList("MFG_FEED_UNIT", {"MMPM", ""});
  EXPECT_EQ(value("MFG_FEED_UNIT"), "");
  setList("MFG_FEED_UNIT", {"", "%d MMPR "});
  EXPECT_EQ(value("MFG_FEED_UNIT"), "%d MMPR ");
  make("MFG_FED_UNIT", "MfgPPParameter");
  EXPECT_EQ(value("MFG_FED_UNIT"), kNoValue);
}

TEST_F(FeedEvaluation, WithoutBufferOnlyTheUnitHasAValue) {
  moveTo(BareWords(*document, {}));
  setFormat("MFG_FEED_VALUE", "%.2f");
  make("MFG_FEED_RATIO", "");
  make("MFG_FEED_TYPE", "");
  setList("MFG_FEED_UNIT", {"MMPM", "MMPR"});
  const auto operation = newActivity();
  operation->add<TestFeedrates>().parameters[std::string(Mfg_MachiningFeedrateValue)] =
      host::createKnowledgeParameter("100", "ANGULARFEEDRATE");
  setActivity(operation);
  EXPECT_EQ(value("MFG_FEED_VALUE"), kNoValue);
  EXPECT_EQ(value("MFG_FEED_RATIO"), kNoValue);
  EXPECT_EQ(value("MFG_FEED_TYPE"), kNoValue);
  EXPECT_EQ(value("MFG_FEED_UNIT"), "MMPR");
}

TEST_F(FeedEvaluation, WithoutContainerThereIsNoValue) {
  setFeed("100", "ANGULARFEEDRATE");
  for (const char* name : {"MFG_FEED_VALUE", "MFG_FEED_RATIO", "MFG_FEED_TYPE", "MFG_FEED_UNIT"}) {
    EXPECT_EQ(valueOutside(name), kNoValue) << name;
  }
}

}  // namespace
}  // namespace ppword::test
