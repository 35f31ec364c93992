#include <memory>
#include <set>

#include "System/KEPError.h"
#include "host/system/Dictionary.h"
#include "tests/evaluation/Evaluations.h"
#include "tests/evaluation/ExpectedEvaluations.h"

namespace ppword::test {
namespace {

const std::set<std::string> kWithoutError = {"MFG_FEED_RATIO", "MFG_FEED_TYPE",
                                             "MFG_FEED_UNIT",  "MFG_FED_UNIT",
                                             "MFG_DELAY_UNIT", "MFG_TOOLPATH_TYPE"};

/// What the evaluation of a parameter does where it extends an object that is not a parameter type.
std::string outcome(const std::string& parameter) {
  const auto extended = object();
  const auto* const interfaceClass = KEPInterfaceId<KEPIMfgParameterEvaluation>();
  const KEPCreator create = host::findCreator(parameter, interfaceClass);
  const std::unique_ptr<KEPBaseUnknown> evaluation(create(extended.Get()));
  KEPString text = kUntouched;
  try {
    const bool done = static_cast<KEPIMfgParameterEvaluation&>(*evaluation).Evaluate(text);
    return (done ? "value, " : "no value, ") + std::string(text.View());
  } catch (const KEPErrorNullHandle&) {
    return "null handle, " + std::string(text.View());
  }
}

TEST(MissingParameter, FiveEvaluationsGiveNoValueAndTheOthersRaiseTheNullHandleError) {
  const auto rows = expectedEvaluations();
  ASSERT_EQ(rows.size(), 53U);
  for (const ExpectedEvaluation& row : rows) {
    const bool quiet = kWithoutError.contains(row.parameter);
    EXPECT_EQ(outcome(row.parameter), quiet ? kNoValue : "null handle, untouched") << row.parameter;
  }
}

}  // namespace
}  // namespace ppword::test
