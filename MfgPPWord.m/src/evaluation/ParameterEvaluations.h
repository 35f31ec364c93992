#pragma once

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferFeedrate.h"
#include "KEPIMfgBufferHelix.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferTLAxis.h"
#include "src/evaluation/HelixEvaluation.h"
#include "src/evaluation/NumericEvaluation.h"
#include "src/evaluation/ToolSettingEvaluation.h"

// One class for each parameter name, registered under it. A class that differs from its sisters
// only in what it reads is a row.

#define PPWORD_NUMBER(Class, Getter, Component, Source)                                   \
  class Class final : public ppword::NumericEvaluation<Class, &Getter, ppword::Component, \
                                                       ppword::FormatSource::Source> {}

PPWORD_NUMBER(KEPMfgMFGXPOINTEvaluation, KEPIMfgBufferPoint::GetPoint, kFirst, Points);
PPWORD_NUMBER(KEPMfgMFGYPOINTEvaluation, KEPIMfgBufferPoint::GetPoint, kSecond, Points);
PPWORD_NUMBER(KEPMfgMFGZPOINTEvaluation, KEPIMfgBufferPoint::GetPoint, kThird, Points);

PPWORD_NUMBER(KEPMfgMFGXAXISEvaluation, KEPIMfgBufferTLAxis::GetTLAxis, kFirst, Axes);
PPWORD_NUMBER(KEPMfgMFGYAXISEvaluation, KEPIMfgBufferTLAxis::GetTLAxis, kSecond, Axes);
PPWORD_NUMBER(KEPMfgMFGZAXISEvaluation, KEPIMfgBufferTLAxis::GetTLAxis, kThird, Axes);

// The letter E between CIRCLE and Evaluation is shared: these are the registered names.
PPWORD_NUMBER(KEPMfgMFGXCENTERCIRCLEvaluation, KEPIMfgBufferCircle::GetCenter, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGYCENTERCIRCLEvaluation, KEPIMfgBufferCircle::GetCenter, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGZCENTERCIRCLEvaluation, KEPIMfgBufferCircle::GetCenter, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGXNORMALCIRCLEvaluation, KEPIMfgBufferCircle::GetNormal, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGYNORMALCIRCLEvaluation, KEPIMfgBufferCircle::GetNormal, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGZNORMALCIRCLEvaluation, KEPIMfgBufferCircle::GetNormal, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGXPTCIRCLEvaluation, KEPIMfgBufferCircle::GetPt, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGYPTCIRCLEvaluation, KEPIMfgBufferCircle::GetPt, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGZPTCIRCLEvaluation, KEPIMfgBufferCircle::GetPt, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGXTGTCIRCLEvaluation, KEPIMfgBufferCircle::GetTgt, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGYTGTCIRCLEvaluation, KEPIMfgBufferCircle::GetTgt, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGZTGTCIRCLEvaluation, KEPIMfgBufferCircle::GetTgt, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGRADIUSCIRCLEvaluation, KEPIMfgBufferCircle::GetRadius, kFirst, Attribute);

PPWORD_NUMBER(KEPMfgMFGFEEDVALUEEvaluation, KEPIMfgBufferFeedrate::GetValue, kFirst, Attribute);

PPWORD_NUMBER(KEPMfgMFGHELICALXCENTEREvaluation, KEPIMfgBufferHelix::GetCenter, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALYCENTEREvaluation, KEPIMfgBufferHelix::GetCenter, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALZCENTEREvaluation, KEPIMfgBufferHelix::GetCenter, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALXENDEvaluation, KEPIMfgBufferHelix::GetEnd, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALYENDEvaluation, KEPIMfgBufferHelix::GetEnd, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALZENDEvaluation, KEPIMfgBufferHelix::GetEnd, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALIAXISEvaluation, KEPIMfgBufferHelix::GetAxis, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALJAXISEvaluation, KEPIMfgBufferHelix::GetAxis, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALKAXISEvaluation, KEPIMfgBufferHelix::GetAxis, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALINDIRVIEvaluation, KEPIMfgBufferHelix::GetInDirV, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALINDIRVJEvaluation, KEPIMfgBufferHelix::GetInDirV, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALINDIRVKEvaluation, KEPIMfgBufferHelix::GetInDirV, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALRADIUSEvaluation, KEPIMfgBufferHelix::GetRadius, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALPITCHEvaluation, KEPIMfgBufferHelix::GetPitch, kFirst, Attribute);

#undef PPWORD_NUMBER

#define PPWORD_HELIX(Class, number) \
  class Class final : public ppword::HelixEvaluation<Class, &ppword::number> {}

PPWORD_HELIX(KEPMfgMFGHELICALHEIGHTEvaluation, helixHeight);
PPWORD_HELIX(KEPMfgMFGHELICALROUNDEvaluation, helixTurns);
PPWORD_HELIX(KEPMfgMFGHELICALANGLEEvaluation, helixAngle);

#undef PPWORD_HELIX

#define PPWORD_TOOL_SETTING(Class, axis) \
  class Class final : public ppword::ToolSettingEvaluation<Class, ppword::axis> {}

PPWORD_TOOL_SETTING(KEPMfgCmpTlSetXEvaluation, kToolSettingX);
PPWORD_TOOL_SETTING(KEPMfgCmpTlSetYEvaluation, kToolSettingY);
PPWORD_TOOL_SETTING(KEPMfgCmpTlSetZEvaluation, kToolSettingZ);

#undef PPWORD_TOOL_SETTING

// These have code of their own, in a source named after the class.
#define PPWORD_OWN(Class)                                \
  class Class final : public ppword::Registered<Class> { \
   public:                                               \
    /* As KEPIMfgParameterEvaluation::Evaluate. */       \
    [[nodiscard]] bool Evaluate(KEPString& value) const; \
  }

PPWORD_OWN(KEPMfgCmpNoseRadiusEvaluation);
PPWORD_OWN(KEPMfgMFGDELAYUNITEvaluation);
PPWORD_OWN(KEPMfgMFGFEEDRATIOEvaluation);
PPWORD_OWN(KEPMfgMFGFEEDTYPEEvaluation);
PPWORD_OWN(KEPMfgMFGFEEDUNITEvaluation);
PPWORD_OWN(KEPMfgMFGOUTPUTCOMMENTEvaluation);
PPWORD_OWN(KEPMfgMFGSPNDLSPEEDEvaluation);
PPWORD_OWN(KEPMfgMFGSPNDLUNITEvaluation);
PPWORD_OWN(KEPMfgMFGSPNDLWAYEvaluation);
PPWORD_OWN(KEPMfgMFGTOOLPATHTYPEEvaluation);

#undef PPWORD_OWN
