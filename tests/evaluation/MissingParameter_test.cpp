#include "System/KEPError.h"
#include "src/evaluation/ParameterEvaluations.h"
#include "tests/evaluation/Evaluations.h"

namespace ppword::test {
namespace {

/// What an evaluation that extends no parameter type does.
template <class Evaluation>
std::string outcome() {
  const Evaluation evaluation;
  KEPString text = kUntouched;
  try {
    const bool done = evaluation.Evaluate(text);
    return (done ? "value, " : "no value, ") + std::string(text.View());
  } catch (const KEPErrorNullHandle&) {
    return "null handle, " + std::string(text.View());
  }
}

template <class... Classes>
Texts outcomes() {
  return {outcome<Classes>()...};
}

TEST(MissingParameter, FiveEvaluationsGiveNoValue) {
  EXPECT_EQ((outcomes<KEPMfgMFGFEEDRATIOEvaluation, KEPMfgMFGFEEDTYPEEvaluation,
                      KEPMfgMFGFEEDUNITEvaluation, KEPMfgMFGDELAYUNITEvaluation,
                      KEPMfgMFGTOOLPATHTYPEEvaluation>()),
            Texts(5, "no value, untouched"));
}

TEST(MissingParameter, OtherEvaluationsRaiseTheNullHandleError) {
  EXPECT_EQ(
      (outcomes<KEPMfgMFGFEEDVALUEEvaluation, KEPMfgMFGSPNDLSPEEDEvaluation,
                KEPMfgMFGSPNDLUNITEvaluation, KEPMfgMFGSPNDLWAYEvaluation,
                KEPMfgMFGOUTPUTCOMMENTEvaluation, KEPMfgCmpNoseRadiusEvaluation,
                KEPMfgCmpTlSetXEvaluation, KEPMfgCmpTlSetYEvaluation, KEPMfgCmpTlSetZEvaluation>()),
      Texts(9, "null handle, untouched"));
  EXPECT_EQ((outcomes<KEPMfgMFGHELICALANGLEEvaluation, KEPMfgMFGHELICALHEIGHTEvaluation,
                      KEPMfgMFGHELICALROUNDEvaluation, KEPMfgMFGHELICALXCENTEREvaluation,
                      KEPMfgMFGHELICALYCENTEREvaluation, KEPMfgMFGHELICALZCENTEREvaluation,
                      KEPMfgMFGHELICALXENDEvaluation, KEPMfgMFGHELICALYENDEvaluation,
                      KEPMfgMFGHELICALZENDEvaluation, KEPMfgMFGHELICALIAXISEvaluation,
                      KEPMfgMFGHELICALJAXISEvaluation, KEPMfgMFGHELICALKAXISEvaluation,
                      KEPMfgMFGHELICALINDIRVIEvaluation, KEPMfgMFGHELICALINDIRVJEvaluation,
                      KEPMfgMFGHELICALINDIRVKEvaluation, KEPMfgMFGHELICALRADIUSEvaluation,
                      KEPMfgMFGHELICALPITCHEvaluation>()),
            Texts(17, "null handle, untouched"));
}

}  // namespace
}  // namespace ppword::test
