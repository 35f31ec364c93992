#include "KEPIMfgBufferSpindle.h"
#include "tests/evaluation/SequentialMotions.h"

namespace ppword::test {
namespace {

class SpindleWay : public SequentialMotions {
 protected:
  SpindleWay() {
    setList("MFG_SPNDL_WAY", {"CLW", "CCLW"});
    setTool(*operation, "MfgLeftHand");
  }

  /// Gives the activity of a component a tool with a hand.
  static void setTool(TestObject& component, const char* hand) {
    const auto tool = object();
    tool->add<TestTool>().text("MFG_WAY_OF_ROT", hand);
    component.add<TestActivity>().tool = tool;
  }
  /// Makes an operation with a tool of that hand the activity.
  void setMilling(const char* hand) const {
    const auto milling = object();
    setTool(*milling, hand);
    setActivity(milling);
  }
  void setWay(int way) const { KEPIMfgBufferSpindle_var(words)->SetWay(way); }
};

TEST_F(SpindleWay, WithoutActivityItIsTheFirstEntry) {
  words->SetObjects(nullptr);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CLW");
}

TEST_F(SpindleWay, SecondNameHasTheSameEvaluation) {
  words->SetObjects(nullptr);
  setList("MFG_SPINDL_WAY", {"RIGHT", "LEFT"});
  EXPECT_EQ(value("MFG_SPINDL_WAY"), "RIGHT");
}

TEST_F(SpindleWay, BothEntriesOfTheListAreNeeded) {
  words->SetObjects(nullptr);
  setList("MFG_SPNDL_WAY", {"CLW"});
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue);
  setList("MFG_SPNDL_WAY", {});
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue);
  setList("MFG_SPNDL_WAY", {"", "CCLW"});
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "");
  make("MFG_SPINDL_WAY", "MfgPPParameter");
  EXPECT_EQ(value("MFG_SPINDL_WAY"), kNoValue);
}

TEST_F(SpindleWay, TurningOperationHasACode) {
  const auto turning = newActivity();
  auto& lathe = turning->add<TestLatheOperation>();
  setActivity(turning);
  const std::pair<int, const char*> expected[] = {
      {-1, "CCLW"}, {1, "CLW"}, {0, "CLW"}, {2, "CLW"}, {-2, "CLW"}};
  for (const auto& [code, word] : expected) {
    lathe.way = code;
    EXPECT_EQ(value("MFG_SPNDL_WAY"), word) << code;
  }
}

TEST_F(SpindleWay, ToolChangeHasTheCodeOfItsTurningOperation) {
  const auto turning = newActivity();
  turning->add<TestLatheOperation>().way = -1;
  setActivity(toolChangeFor(turning));
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW");
}

TEST_F(SpindleWay, TurningToolChangeHasItsOwnCode) {
  const auto turning = newActivity();
  turning->add<TestLatheOperation>().way = -1;
  const auto toolChange = toolChangeFor(turning);
  toolChange->add<TestLatheOperation>().way = 1;
  setActivity(toolChange);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CLW");
}

TEST_F(SpindleWay, CodeThatCannotBeReadLeavesTheTool) {
  const auto turning = object();
  setTool(*turning, "MfgLeftHand");
  turning->add<TestLatheOperation>().wayStatus = E_FAIL;
  setActivity(turning);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW");
}

TEST_F(SpindleWay, ToolChangeOfAMillingOperationHasItsOwnTool) {
  const auto milling = object();
  setTool(*milling, "MfgRightHand");
  const auto toolChange = toolChangeFor(milling);
  setTool(*toolChange, "MfgLeftHand");
  setActivity(toolChange);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW");
  setActivity(toolChangeFor({}));
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue);
}

TEST_F(SpindleWay, ToolChangeOfASequentialOperationIsNotSequential) {
  // its number would find no motion
  setMotionNumber(3);
  const auto toolChange = toolChangeFor(operation);
  setTool(*toolChange, "MfgRightHand");
  setActivity(toolChange);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CLW");
}

TEST_F(SpindleWay, MotionsOwnWayComesBeforeTheTool) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  const std::pair<const char*, const char*> expected[] = {{"MfgSpindleCLW", "CLW"},
                                                          {"MfgSpindleCCLW", "CCLW"},
                                                          {"", "CCLW"},
                                                          {"MfgSpindleclw", "CCLW"}};
  setTool(*operation, "MfgRightHand");
  setWay(2);
  for (const auto& [way, word] : expected) {
    feed.text("MfgSpindleWayOfRotation", way);
    EXPECT_EQ(value("MFG_SPNDL_WAY"), word) << way;
  }
}

TEST_F(SpindleWay, MotionWithoutOwnWayLeavesTheTool) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedGlobal");
  feed.text("MfgSpindleWayOfRotation", "MfgSpindleCLW");
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW");
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CLW");
  feed.values.erase("MfgSpindleWayOfRotation");
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW");
}

TEST_F(SpindleWay, NoMotionNumberLeavesTheTool) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  feed.text("MfgSpindleWayOfRotation", "MfgSpindleCLW");
  for (const int number : {0, -1}) {
    setMotionNumber(number);
    EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW") << number;
  }
}

TEST_F(SpindleWay, MotionThatCannotBeFoundGivesNoValueWhateverTheTool) {
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue) << "no speed type";
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedGlobal");
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW");
  for (const int number : {1, 3}) {
    setMotionNumber(number);
    EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue) << number;
  }
  setMotionNumber(2);
  motion->feedrates = nullptr;
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue) << "no feed rate parameters";
  const auto groove = object({"MfgSequentialGrooveOperation"});
  setTool(*groove, "MfgRightHand");
  setActivity(groove);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue) << "no motions";
}

TEST_F(SpindleWay, HandOfTheToolDecidesForOtherOperations) {
  const std::pair<const char*, const char*> expected[] = {
      {"MfgRightHand", "CLW"}, {"MfgLeftHand", "CCLW"}, {"Neutral", kNoValue}, {"", kNoValue}};
  for (const auto& [hand, word] : expected) {
    setMilling(hand);
    EXPECT_EQ(value("MFG_SPNDL_WAY"), word) << hand;
  }
}

TEST_F(SpindleWay, SpindleThatTurnsTheOtherWaySwapsTheHands) {
  setMilling("MfgRightHand");
  setWay(2);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW");
  setMilling("MfgLeftHand");
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CLW");
  setMilling("Neutral");
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue);
  setMilling("MfgLeftHand");
  for (const int way : {1, 0, -1, 3}) {
    setWay(way);
    EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW") << way;
  }
}

TEST_F(SpindleWay, ToolWithoutAHandGivesNoValue) {
  const auto tool = object();
  auto& parameters = tool->add<TestTool>();
  const auto milling = object();
  auto& its = milling->add<TestActivity>();
  setActivity(milling);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue) << "no tool";
  its.tool = object();
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue) << "something else";
  its.tool = tool;
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue) << "no parameter";
  parameters.integer("MFG_WAY_OF_ROT", 1);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), kNoValue) << "no text";
}

TEST_F(SpindleWay, WithoutContainerItIsTheFirstEntry) {
  EXPECT_EQ(valueOutside("MFG_SPNDL_WAY"), "CLW");
}

TEST_F(SpindleWay, WithoutBuffersTheHandDecides) {
  moveTo(BareWords(*document, {}));
  setList("MFG_SPNDL_WAY", {"CLW", "CCLW"});
  setMilling("MfgLeftHand");
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW");
  setActivity(operation);
  EXPECT_EQ(value("MFG_SPNDL_WAY"), "CCLW");
}

}  // namespace
}  // namespace ppword::test
