#pragma once

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferTLAxis.h"
#include "src/evaluation/NumericEvaluation.h"
#include "src/evaluation/SilentEvaluation.h"

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

#undef PPWORD_NUMBER

#define PPWORD_SILENT(Class) \
  class Class final : public ppword::SilentEvaluation<Class> {}

PPWORD_SILENT(KEPMfgCmpNoseRadiusEvaluation);
PPWORD_SILENT(KEPMfgCmpTlSetXEvaluation);
PPWORD_SILENT(KEPMfgCmpTlSetYEvaluation);
PPWORD_SILENT(KEPMfgCmpTlSetZEvaluation);
PPWORD_SILENT(KEPMfgMFGDELAYUNITEvaluation);
PPWORD_SILENT(KEPMfgMFGFEEDRATIOEvaluation);
PPWORD_SILENT(KEPMfgMFGFEEDTYPEEvaluation);
PPWORD_SILENT(KEPMfgMFGFEEDUNITEvaluation);
PPWORD_SILENT(KEPMfgMFGFEEDVALUEEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALANGLEEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALHEIGHTEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALIAXISEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALINDIRVIEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALINDIRVJEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALINDIRVKEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALJAXISEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALKAXISEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALPITCHEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALRADIUSEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALROUNDEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALXCENTEREvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALXENDEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALYCENTEREvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALYENDEvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALZCENTEREvaluation);
PPWORD_SILENT(KEPMfgMFGHELICALZENDEvaluation);
PPWORD_SILENT(KEPMfgMFGOUTPUTCOMMENTEvaluation);
PPWORD_SILENT(KEPMfgMFGSPNDLSPEEDEvaluation);
PPWORD_SILENT(KEPMfgMFGSPNDLUNITEvaluation);
PPWORD_SILENT(KEPMfgMFGSPNDLWAYEvaluation);
PPWORD_SILENT(KEPMfgMFGTOOLPATHTYPEEvaluation);

#undef PPWORD_SILENT
