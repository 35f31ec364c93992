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

#define PPWORD_NUMBER(Class, Buffer, Getter, Component, Source)                                    \
  class Class final                                                                                \
      : public ppword::NumericEvaluation<Class, &KEPIMfgBuffer##Buffer::Getter, ppword::Component, \
                                         ppword::FormatSource::Source> {}

PPWORD_NUMBER(KEPMfgMFGXPOINTEvaluation, Point, GetPoint, kFirst, Points);
PPWORD_NUMBER(KEPMfgMFGYPOINTEvaluation, Point, GetPoint, kSecond, Points);
PPWORD_NUMBER(KEPMfgMFGZPOINTEvaluation, Point, GetPoint, kThird, Points);

PPWORD_NUMBER(KEPMfgMFGXAXISEvaluation, TLAxis, GetTLAxis, kFirst, Axes);
PPWORD_NUMBER(KEPMfgMFGYAXISEvaluation, TLAxis, GetTLAxis, kSecond, Axes);
PPWORD_NUMBER(KEPMfgMFGZAXISEvaluation, TLAxis, GetTLAxis, kThird, Axes);

// The letter E between CIRCLE and Evaluation is shared: these are the registered names.
PPWORD_NUMBER(KEPMfgMFGXCENTERCIRCLEvaluation, Circle, GetCenter, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGYCENTERCIRCLEvaluation, Circle, GetCenter, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGZCENTERCIRCLEvaluation, Circle, GetCenter, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGXNORMALCIRCLEvaluation, Circle, GetNormal, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGYNORMALCIRCLEvaluation, Circle, GetNormal, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGZNORMALCIRCLEvaluation, Circle, GetNormal, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGXPTCIRCLEvaluation, Circle, GetPt, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGYPTCIRCLEvaluation, Circle, GetPt, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGZPTCIRCLEvaluation, Circle, GetPt, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGXTGTCIRCLEvaluation, Circle, GetTgt, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGYTGTCIRCLEvaluation, Circle, GetTgt, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGZTGTCIRCLEvaluation, Circle, GetTgt, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGRADIUSCIRCLEvaluation, Circle, GetRadius, kFirst, Attribute);

PPWORD_NUMBER(KEPMfgMFGFEEDVALUEEvaluation, Feedrate, GetValue, kFirst, Attribute);

PPWORD_NUMBER(KEPMfgMFGHELICALXCENTEREvaluation, Helix, GetCenter, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALYCENTEREvaluation, Helix, GetCenter, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALZCENTEREvaluation, Helix, GetCenter, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALXENDEvaluation, Helix, GetEnd, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALYENDEvaluation, Helix, GetEnd, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALZENDEvaluation, Helix, GetEnd, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALIAXISEvaluation, Helix, GetAxis, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALJAXISEvaluation, Helix, GetAxis, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALKAXISEvaluation, Helix, GetAxis, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALINDIRVIEvaluation, Helix, GetInDirV, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALINDIRVJEvaluation, Helix, GetInDirV, kSecond, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALINDIRVKEvaluation, Helix, GetInDirV, kThird, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALRADIUSEvaluation, Helix, GetRadius, kFirst, Attribute);
PPWORD_NUMBER(KEPMfgMFGHELICALPITCHEvaluation, Helix, GetPitch, kFirst, Attribute);

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
