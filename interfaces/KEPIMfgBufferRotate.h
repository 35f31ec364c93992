#pragma once

#include "Mathematics/KEPMathVector.h"
#include "System/KEPComponent.h"
#include "System/KEPString.h"

/// The current rotation of the table or head: an angle, three texts and an axis system, stored
/// unchanged. Every function returns true.
class KEP_PLATFORM KEPIMfgBufferRotate : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferRotate";

  /// 0 until set.
  virtual bool SetAngle(double angle) = 0;
  virtual bool GetAngle(double& angle) const = 0;

  /// The texts are empty until set.
  virtual bool SetFirstText(const KEPUnicodeString& text) = 0;
  virtual bool GetFirstText(KEPUnicodeString& text) const = 0;
  virtual bool SetSecondText(const KEPUnicodeString& text) = 0;
  virtual bool GetSecondText(KEPUnicodeString& text) const = 0;

  /// Copies origin and directions. Until set: the point 0, 0, 0 and the three unit directions.
  virtual bool SetAxisSystem(const KEPMathAxis& axis) = 0;
  virtual bool GetAxisSystem(KEPMathAxis& axis) const = 0;

  virtual bool SetThirdText(const KEPUnicodeString& text) = 0;
  virtual bool GetThirdText(KEPUnicodeString& text) const = 0;
};

using KEPIMfgBufferRotate_var = KEPVar<KEPIMfgBufferRotate>;
