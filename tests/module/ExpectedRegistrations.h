#pragma once

#include <vector>

#include "System/KEPMetaClass.h"

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

struct ExpectedEvaluation {
  const char* lateType;
  const char* className;
};

/// The parameter evaluations, which follow them.
inline const std::vector<ExpectedEvaluation> kExpectedEvaluations = {
    {"MFG_CMP_NOSE_RADIUS", "KEPMfgCmpNoseRadiusEvaluation"},
    {"MFG_CMP_TL_SET_X", "KEPMfgCmpTlSetXEvaluation"},
    {"MFG_CMP_TL_SET_Y", "KEPMfgCmpTlSetYEvaluation"},
    {"MFG_CMP_TL_SET_Z", "KEPMfgCmpTlSetZEvaluation"},
    {"MFG_DELAY_UNIT", "KEPMfgMFGDELAYUNITEvaluation"},
    {"MFG_FEED_RATIO", "KEPMfgMFGFEEDRATIOEvaluation"},
    {"MFG_FEED_TYPE", "KEPMfgMFGFEEDTYPEEvaluation"},
    {"MFG_FEED_UNIT", "KEPMfgMFGFEEDUNITEvaluation"},
    {"MFG_FED_UNIT", "KEPMfgMFGFEEDUNITEvaluation"},
    {"MFG_FEED_VALUE", "KEPMfgMFGFEEDVALUEEvaluation"},
    {"MFG_HELICAL_ANGLE", "KEPMfgMFGHELICALANGLEEvaluation"},
    {"MFG_HELICAL_HEIGHT", "KEPMfgMFGHELICALHEIGHTEvaluation"},
    {"MFG_HELICAL_I_AXIS", "KEPMfgMFGHELICALIAXISEvaluation"},
    {"MFG_HELICAL_INDIRV_I", "KEPMfgMFGHELICALINDIRVIEvaluation"},
    {"MFG_HELICAL_INDIRV_J", "KEPMfgMFGHELICALINDIRVJEvaluation"},
    {"MFG_HELICAL_INDIRV_K", "KEPMfgMFGHELICALINDIRVKEvaluation"},
    {"MFG_HELICAL_J_AXIS", "KEPMfgMFGHELICALJAXISEvaluation"},
    {"MFG_HELICAL_K_AXIS", "KEPMfgMFGHELICALKAXISEvaluation"},
    {"MFG_HELICAL_PITCH", "KEPMfgMFGHELICALPITCHEvaluation"},
    {"MFG_HELICAL_RADIUS", "KEPMfgMFGHELICALRADIUSEvaluation"},
    {"MFG_HELICAL_ROUND", "KEPMfgMFGHELICALROUNDEvaluation"},
    {"MFG_HELICAL_X_CENTER", "KEPMfgMFGHELICALXCENTEREvaluation"},
    {"MFG_HELICAL_X_END", "KEPMfgMFGHELICALXENDEvaluation"},
    {"MFG_HELICAL_Y_CENTER", "KEPMfgMFGHELICALYCENTEREvaluation"},
    {"MFG_HELICAL_Y_END", "KEPMfgMFGHELICALYENDEvaluation"},
    {"MFG_HELICAL_Z_CENTER", "KEPMfgMFGHELICALZCENTEREvaluation"},
    {"MFG_HELICAL_Z_END", "KEPMfgMFGHELICALZENDEvaluation"},
    {"MFG_OUTPUT_COMMENT", "KEPMfgMFGOUTPUTCOMMENTEvaluation"},
    {"MFG_CIRCLE_RADIUS", "KEPMfgMFGRADIUSCIRCLEvaluation"},
    {"MFG_SPNDL_SPEED", "KEPMfgMFGSPNDLSPEEDEvaluation"},
    {"MFG_SPNDL_UNIT", "KEPMfgMFGSPNDLUNITEvaluation"},
    {"MFG_SPINDL_UNIT", "KEPMfgMFGSPNDLUNITEvaluation"},
    {"MFG_SPNDL_WAY", "KEPMfgMFGSPNDLWAYEvaluation"},
    {"MFG_SPINDL_WAY", "KEPMfgMFGSPNDLWAYEvaluation"},
    {"MFG_TOOLPATH_TYPE", "KEPMfgMFGTOOLPATHTYPEEvaluation"},
    {"MFG_XAXIS", "KEPMfgMFGXAXISEvaluation"},
    {"MFG_CIRCLE_X_CENTER", "KEPMfgMFGXCENTERCIRCLEvaluation"},
    {"MFG_CIRCLE_X_NORMAL", "KEPMfgMFGXNORMALCIRCLEvaluation"},
    {"MFG_XPOINT", "KEPMfgMFGXPOINTEvaluation"},
    {"MFG_CIRCLE_X_PT", "KEPMfgMFGXPTCIRCLEvaluation"},
    {"MFG_CIRCLE_X_TGT", "KEPMfgMFGXTGTCIRCLEvaluation"},
    {"MFG_YAXIS", "KEPMfgMFGYAXISEvaluation"},
    {"MFG_CIRCLE_Y_CENTER", "KEPMfgMFGYCENTERCIRCLEvaluation"},
    {"MFG_CIRCLE_Y_NORMAL", "KEPMfgMFGYNORMALCIRCLEvaluation"},
    {"MFG_YPOINT", "KEPMfgMFGYPOINTEvaluation"},
    {"MFG_CIRCLE_Y_PT", "KEPMfgMFGYPTCIRCLEvaluation"},
    {"MFG_CIRCLE_Y_TGT", "KEPMfgMFGYTGTCIRCLEvaluation"},
    {"MFG_ZAXIS", "KEPMfgMFGZAXISEvaluation"},
    {"MFG_CIRCLE_Z_CENTER", "KEPMfgMFGZCENTERCIRCLEvaluation"},
    {"MFG_CIRCLE_Z_NORMAL", "KEPMfgMFGZNORMALCIRCLEvaluation"},
    {"MFG_ZPOINT", "KEPMfgMFGZPOINTEvaluation"},
    {"MFG_CIRCLE_Z_PT", "KEPMfgMFGZPTCIRCLEvaluation"},
    {"MFG_CIRCLE_Z_TGT", "KEPMfgMFGZTGTCIRCLEvaluation"},
};

}  // namespace module_test
