#include "KEPIMfgBufferSpindle.h"
#include "tests/evaluation/SequentialMotions.h"

namespace ppword::test {
namespace {

class SpindleUnit : public SequentialMotions {
 protected:
  SpindleUnit() { setList("MFG_SPNDL_UNIT", {"RPM", "SMM"}); }

  void setBuffered(std::string_view type) const {
    KEPIMfgBufferSpindle_var(words)->SetSpindleParameter(host::createKnowledgeParameter("1", type));
  }
  /// Makes an ordinary operation with a speed of that type the activity.
  void setOrdinary(std::string_view type) const {
    const auto ordinary = newActivity();
    setSpeed(ordinary->add<TestFeedrates>(), "1", type);
    setActivity(ordinary);
  }
};

TEST_F(SpindleUnit, AngularIsTheFirstEntryAndLinearTheSecond) {
  words->SetObjects(nullptr);
  setBuffered("ANGULARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "RPM");
  setBuffered("LINEARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
}

TEST_F(SpindleUnit, SecondNameHasTheSameEvaluation) {
  words->SetObjects(nullptr);
  setList("MFG_SPINDL_UNIT", {"TR", "SURF"});
  setBuffered("LINEARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPINDL_UNIT"), "SURF");
}

TEST_F(SpindleUnit, OperationGivesTheUnitWhereTheBufferHasNone) {
  setOrdinary("ANGULARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "RPM");
  setOrdinary("LINEARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
  setOrdinary("LENGTH");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), kNoValue);
  setOrdinary("");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), kNoValue);
  setActivity(newActivity());
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), kNoValue);
  words->SetObjects(nullptr);
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), kNoValue);
}

TEST_F(SpindleUnit, BufferOverridesTheOperationWhenItAnswers) {
  setOrdinary("LINEARSPINDLESPEED");
  setBuffered("ANGULARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "RPM");
  setBuffered("LENGTH");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
  setBuffered("");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
  setOrdinary("ANGULARSPINDLESPEED");
  setBuffered("LINEARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
}

TEST_F(SpindleUnit, OperationOfAToolChangeTakesItsPlace) {
  const auto ordinary = newActivity();
  setSpeed(ordinary->add<TestFeedrates>(), "1", "LINEARSPINDLESPEED");
  setActivity(toolChangeFor(ordinary));
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  setSpeed(feed, "1", "ANGULARSPINDLESPEED");
  setActivity(toolChangeFor(operation));
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "RPM");
}

TEST_F(SpindleUnit, MotionsOwnSpeedOverridesTheBuffer) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  setBuffered("LINEARSPINDLESPEED");
  setSpeed(feed, "1", "ANGULARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "RPM");
  setBuffered("ANGULARSPINDLESPEED");
  setSpeed(feed, "1", "LINEARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
}

TEST_F(SpindleUnit, MotionWithoutOwnKindLeavesOperationAndBuffer) {
  setSpeed(feed, "1", "ANGULARSPINDLESPEED");
  auto& own = operation->add<TestFeedrates>();
  setSpeed(own, "1", "LINEARSPINDLESPEED");
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedGlobal");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  setSpeed(feed, "1", "LENGTH");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
  feed.parameters.clear();
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
  setBuffered("ANGULARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "RPM");
}

TEST_F(SpindleUnit, MotionThatCannotBeFoundGivesNoValue) {
  setBuffered("ANGULARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), kNoValue) << "no speed type";
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "RPM");
  for (const int number : {-1, 0, 1, 3}) {
    setMotionNumber(number);
    EXPECT_EQ(value("MFG_SPNDL_UNIT"), kNoValue) << number;
  }
  const auto groove = newActivity({"MfgSequentialGrooveOperation"});
  groove->add<TestMotions>().motions = *motions;
  setActivity(groove);
  setMotionNumber(0);
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), kNoValue);
  setMotionNumber(2);
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "RPM");
}

TEST_F(SpindleUnit, NeedsTheEntryOfItsList) {
  words->SetObjects(nullptr);
  setBuffered("LINEARSPINDLESPEED");
  setList("MFG_SPNDL_UNIT", {"RPM"});
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), kNoValue);
  setList("MFG_SPNDL_UNIT", {"RPM", ""});
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "");
}

TEST_F(SpindleUnit, WithoutContainerThereIsNoValue) {
  setBuffered("ANGULARSPINDLESPEED");
  EXPECT_EQ(valueOutside("MFG_SPNDL_UNIT"), kNoValue);
}

TEST_F(SpindleUnit, WithoutBufferTheOperationGivesTheUnit) {
  moveTo(BareWords(*document, {}));
  setList("MFG_SPNDL_UNIT", {"RPM", "SMM"});
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), kNoValue);
  setOrdinary("LINEARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_UNIT"), "SMM");
}

}  // namespace
}  // namespace ppword::test
