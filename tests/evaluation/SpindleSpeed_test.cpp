#include "KEPIMfgBufferSpindle.h"
#include "tests/evaluation/SequentialMotions.h"

namespace ppword::test {
namespace {

class SpindleSpeed : public SequentialMotions {
 protected:
  SpindleSpeed() {
    setFormat("MFG_SPNDL_SPEED", "%.1f");
    KEPIMfgBufferSpindle_var(words)->SetSpindleParameter(
        host::createKnowledgeParameter("2400", "ANGULARSPINDLESPEED"));
    setSpeed(feed, "600turn_mn", "ANGULARSPINDLESPEED");
    setSpeed(operation->add<TestFeedrates>(), "900", "ANGULARSPINDLESPEED");
  }
};

TEST_F(SpindleSpeed, BufferGivesTheSpeedWithoutAnActivity) {
  words->SetObjects(nullptr);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "2400.0");
  KEPIMfgBufferSpindle_var(words)->SetFactor(0.5);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "1200.0");
}

TEST_F(SpindleSpeed, OrdinaryOperationDoesNotOverrideTheBuffer) {
  const auto ordinary = newActivity({"MfgDrilling"});
  setSpeed(ordinary->add<TestFeedrates>(), "900", "ANGULARSPINDLESPEED");
  setActivity(ordinary);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "2400.0");
}

TEST_F(SpindleSpeed, MotionsOwnSpeedOverridesTheBuffer) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "600.0");
}

TEST_F(SpindleSpeed, MotionWithoutOwnSpeedHasThatOfTheOperation) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedGlobal");
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "900.0");
}

TEST_F(SpindleSpeed, SpeedThatCannotBeReadLeavesTheBuffer) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  setSpeed(feed, "fast", "ANGULARSPINDLESPEED");
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "2400.0");
  feed.parameters["Mfg_SpindleSpeedValue"] = newActivity();
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "2400.0");
  feed.parameters.clear();
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "2400.0");
  feed.text("MfgSpindleSpeedType", "");
  operation->add<TestFeedrates>().parameters.clear();
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "2400.0");
}

TEST_F(SpindleSpeed, SequentialOperationWithoutFeedratesLeavesTheBuffer) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedGlobal");
  const auto groove = newActivity({"MfgSequentialGrooveOperation"});
  groove->add<TestMotions>().motions = *motions;
  setActivity(groove);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "2400.0");
}

TEST_F(SpindleSpeed, GrooveOperationIsSequentialToo) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  const auto groove = newActivity({"MfgSequentialGrooveOperation"});
  groove->add<TestMotions>().motions = *motions;
  setActivity(groove);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "600.0");
  setMotionNumber(0);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
}

TEST_F(SpindleSpeed, MotionThatCannotBeFoundGivesNoValue) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  // 1 has no parameters, 3 is one too many
  for (const int number : {-1, 0, 1, 3}) {
    setMotionNumber(number);
    EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue) << number;
  }
  setMotionNumber(2);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "600.0");
  motion->feedrates = nullptr;
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
}

TEST_F(SpindleSpeed, MotionWithoutSpeedTypeGivesNoValue) {
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
  // a speed type is a text
  feed.integer("MfgSpindleSpeedType", 1);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
}

TEST_F(SpindleSpeed, SequentialOperationWithoutMotionsGivesNoValue) {
  setActivity(newActivity({"MfgSequentialAxialOperation"}));
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
}

TEST_F(SpindleSpeed, ToolChangeIsNotReplacedByItsOperation) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  setActivity(toolChangeFor(operation));
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "2400.0");
}

TEST_F(SpindleSpeed, WithoutAUsableFormatThereIsNoValue) {
  words->SetObjects(nullptr);
  setFormat("MFG_SPNDL_SPEED", "%s");
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
  KEPISpecAttrAccess_var(find("MFG_SPNDL_SPEED"))->Unset("Format");
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
}

TEST_F(SpindleSpeed, TinySpeedIsZero) {
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  setSpeed(feed, "-9e-7", "");
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "0.0");
}

TEST_F(SpindleSpeed, WithoutContainerThereIsNoValue) {
  EXPECT_EQ(valueOutside("MFG_SPNDL_SPEED"), kNoValue);
}

TEST_F(SpindleSpeed, WithoutSpindleBufferOnlyAMotionGivesTheSpeed) {
  moveTo(BareWords(*document, {KEPInterfaceId<KEPIMfgBufferSeqMotionNumber>()}));
  setFormat("MFG_SPNDL_SPEED", "%.1f");
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  setActivity(operation);
  setMotionNumber(2);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), "600.0");
  feed.parameters.clear();
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
}

TEST_F(SpindleSpeed, WithoutMotionNumberBufferNoMotionIsFound) {
  moveTo(BareWords(*document, {KEPInterfaceId<KEPIMfgBufferSpindle>()}));
  setFormat("MFG_SPNDL_SPEED", "%.1f");
  feed.text("MfgSpindleSpeedType", "MfgSpindleSpeedLocal");
  setActivity(operation);
  EXPECT_EQ(value("MFG_SPNDL_SPEED"), kNoValue);
}

}  // namespace
}  // namespace ppword::test
