#pragma once

#include <vector>

#include "System/KEPComponent.h"

namespace module_test {

struct ExpectedRegistration {
  const char* lateType;
  const char* className;
  const char* interfaceName;
  const char* creator;
  KEPMetaClass::TypeOfClass type;
};

inline constexpr auto kData = KEPMetaClass::TypeOfClass::DataExtension;
inline constexpr auto kCode = KEPMetaClass::TypeOfClass::CodeExtension;

/// The classes of the container, the PP command and the syntaxes, in the order of registration.
inline const std::vector<ExpectedRegistration> kExpectedComponents = {
    {"MfgPPWordCont", "KEPMfgBufferCircle", "KEPIMfgBufferCircle",
     "CreateBOAKEPIMfgBufferCircleKEPMfgBufferCircle", kData},
    {"MfgPPWordCont", "KEPMfgBufferComment", "KEPIMfgBufferComment",
     "CreateBOAKEPIMfgBufferCommentKEPMfgBufferComment", kData},
    {"MfgPPWordCont", "KEPMfgBufferCorrectorNumber", "KEPIMfgBufferCorrectorNumber",
     "CreateBOAKEPIMfgBufferCorrectorNumberKEPMfgBufferCorrectorNumber", kData},
    {"MfgPPWordCont", "KEPMfgBufferFeedrate", "KEPIMfgBufferFeedrate",
     "CreateBOAKEPIMfgBufferFeedrateKEPMfgBufferFeedrate", kData},
    {"MfgPPWordCont", "KEPMfgBufferHelix", "KEPIMfgBufferHelix",
     "CreateBOAKEPIMfgBufferHelixKEPMfgBufferHelix", kData},
    {"MfgPPWordCont", "KEPMfgBufferHoleNumber", "KEPIMfgBufferHoleNumber",
     "CreateBOAKEPIMfgBufferHoleNumberKEPMfgBufferHoleNumber", kData},
    {"MfgPPWordCont", "KEPMfgBufferPoint", "KEPIMfgBufferPoint",
     "CreateBOAKEPIMfgBufferPointKEPMfgBufferPoint", kData},
    {"MfgPPWordCont", "KEPMfgBufferRotate", "KEPIMfgBufferRotate",
     "CreateBOAKEPIMfgBufferRotateKEPMfgBufferRotate", kData},
    {"MfgPPWordCont", "KEPMfgBufferSeqMotionNumber", "KEPIMfgBufferSeqMotionNumber",
     "CreateBOAKEPIMfgBufferSeqMotionNumberKEPMfgBufferSeqMotionNumber", kData},
    {"MfgPPWordCont", "KEPMfgBufferSpindle", "KEPIMfgBufferSpindle",
     "CreateBOAKEPIMfgBufferSpindleKEPMfgBufferSpindle", kData},
    {"MfgPPWordCont", "KEPMfgBufferTLAxis", "KEPIMfgBufferTLAxis",
     "CreateBOAKEPIMfgBufferTLAxisKEPMfgBufferTLAxis", kData},
    {"MfgPPCommand", "KEPMfgPPCommand", "KEPIMfgPPCommand",
     "CreateBOAKEPIMfgPPCommandKEPMfgPPCommand", kCode},
    {"MfgPPWordCont", "KEPMfgPPWordContainer", "KEPIMfgPPWordContainer",
     "CreateTIEKEPIMfgPPWordContainerKEPMfgPPWordContainer", kData},
    {"MfgPPWordCont", "KEPMfgPPWordFactory", "KEPIMfgPPWordFactory",
     "CreateBOAKEPIMfgPPWordFactoryKEPMfgPPWordFactory", kCode},
    {"MfgPPWordCont", "KEPMfgPPWordTable", "KEPIMfgPPWordTable",
     "CreateBOAKEPIMfgPPWordTableKEPMfgPPWordTable", kCode},
    {"MfgPPSyntax", "KEPMfgSyntaxEvaluation", "KEPIMfgSyntaxEvaluation",
     "CreateBOAKEPIMfgSyntaxEvaluationKEPMfgSyntaxEvaluation", kData},
};

}  // namespace module_test
