#include <memory>

#include "System/KEPError.h"
#include "tests/evaluation/SequentialMotions.h"

namespace ppword::test {
namespace {

class DelayUnit : public SequentialMotions {
 protected:
  DelayUnit() {
    setList("MFG_DELAY_UNIT", {"REV", "________"});
    KEPError::GetReturn(std::make_unique<KEPError>("ERR_OTHER", "Test"));
  }

  [[nodiscard]] static bool isErrorKept() { return KEPError::KEPGetLastError() != nullptr; }
};

TEST_F(DelayUnit, ModeOfAnOperationPicksTheEntry) {
  const auto drilling = newActivity();
  auto& parameters = drilling->add<TestStrategy>();
  setActivity(drilling);
  const std::pair<const char*, const char*> expected[] = {
      {"MfgDwellRound", "REV"}, {"MfgDwellTime", ""}, {"MfgDwellNone", kNoValue}, {"", kNoValue}};
  for (const auto& [mode, word] : expected) {
    parameters.text("MfgDwellMode", mode);
    EXPECT_EQ(value("MFG_DELAY_UNIT"), word) << mode;
  }
  EXPECT_TRUE(isErrorKept());
}

TEST_F(DelayUnit, OnlyEightUnderscoresStandForTheEmptyText) {
  const auto drilling = newActivity();
  drilling->add<TestStrategy>().text("MfgDwellMode", "MfgDwellTime");
  setActivity(drilling);
  const std::pair<const char*, const char*> expected[] = {{"________", ""},
                                                          {"_______", "_______"},
                                                          {"_________", "_________"},
                                                          {"SEC", "SEC"},
                                                          {"", ""}};
  for (const auto& [entry, word] : expected) {
    setList("MFG_DELAY_UNIT", {"REV", entry});
    EXPECT_EQ(value("MFG_DELAY_UNIT"), word) << entry;
  }
  setList("MFG_DELAY_UNIT", {"________"});
  EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue);
}

TEST_F(DelayUnit, ModeThatCannotBeReadClearsTheLastError) {
  const auto drilling = newActivity();
  auto& parameters = drilling->add<TestStrategy>();
  setActivity(drilling);
  EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue);
  EXPECT_FALSE(isErrorKept());
  EXPECT_EQ(parameters.asked, Texts{"MfgDwellMode"});
}

TEST_F(DelayUnit, WithoutActivityOrStrategyThereIsNoValueAndTheErrorStays) {
  words->SetObjects(nullptr);
  EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue);
  setActivity(newActivity());
  EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue);
  EXPECT_TRUE(isErrorKept());
}

TEST_F(DelayUnit, ToolChangeIsNotReplacedByItsOperation) {
  const auto drilling = newActivity();
  drilling->add<TestStrategy>().text("MfgDwellMode", "MfgDwellRound");
  setActivity(toolChangeFor(drilling));
  EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue);
}

TEST_F(DelayUnit, ModeOfASequentialMotionPicksTheEntry) {
  const std::pair<const char*, const char*> expected[] = {{"MfgSpindleDwellByRevolution", "REV"},
                                                          {"MfgSpindleDwellByTimeUnit", ""},
                                                          {"MfgDwellRound", kNoValue},
                                                          {"", kNoValue}};
  for (const auto& [mode, word] : expected) {
    strategy.text("MfgSpindleDwellMode", mode);
    EXPECT_EQ(value("MFG_DELAY_UNIT"), word) << mode;
  }
}

TEST_F(DelayUnit, MissingLinkToTheMotionGivesNoValueAndTheErrorStays) {
  operation->add<TestStrategy>().text("MfgDwellMode", "MfgDwellRound");
  EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue) << "no mode";
  strategy.text("MfgSpindleDwellMode", "MfgSpindleDwellByRevolution");
  EXPECT_EQ(value("MFG_DELAY_UNIT"), "REV");
  for (const int number : {-1, 0, 1, 3}) {
    setMotionNumber(number);
    EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue) << number;
  }
  setMotionNumber(2);
  motion->strategy = nullptr;
  EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue) << "no strategy";
  setActivity(newActivity({"MfgSequentialGrooveOperation"}));
  EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue) << "no motions";
  EXPECT_TRUE(isErrorKept());
}

TEST_F(DelayUnit, WithoutContainerOrNumberThereIsNoValue) {
  strategy.text("MfgSpindleDwellMode", "MfgSpindleDwellByRevolution");
  EXPECT_EQ(valueOutside("MFG_DELAY_UNIT"), kNoValue);
  moveTo(BareWords(*document, {}));
  setList("MFG_DELAY_UNIT", {"REV", "SEC"});
  setActivity(operation);
  EXPECT_EQ(value("MFG_DELAY_UNIT"), kNoValue);
}

}  // namespace
}  // namespace ppword::test
