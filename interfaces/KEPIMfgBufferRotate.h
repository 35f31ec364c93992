#pragma once

#include "Mathematics/KEPMathAxis.h"
#include "System/KEPUnicodeString.h"
#include "System/KEPVar.h"

/// The current rotation of table or head: an angle, three texts and an axis system, kept as given.
/// Every operation returns true.
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

  /// Copies origin and directions; the origin and the three unit directions until set.
  virtual bool SetAxisSystem(const KEPMathAxis& axis) = 0;
  virtual bool GetAxisSystem(KEPMathAxis& axis) const = 0;

  virtual bool SetThirdText(const KEPUnicodeString& text) = 0;
  virtual bool GetThirdText(KEPUnicodeString& text) const = 0;
};

using KEPIMfgBufferRotate_var = KEPVar<KEPIMfgBufferRotate>;
