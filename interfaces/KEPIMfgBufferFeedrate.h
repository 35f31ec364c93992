#pragma once

#include "Knowledge/KEPICkeParm.h"
#include "System/KEPComponent.h"
#include "System/KEPString.h"

/// The current feed rate: a knowledge parameter, a factor for its value and the type of the feed.
class KEP_PLATFORM KEPIMfgBufferFeedrate : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferFeedrate";

  /// Stores `parameter`, or null when it is not a knowledge parameter. Null until set.
  virtual void SetFeedParameter(const KEPBaseUnknown_var& parameter) = 0;

  /// The number at the start of the parameter's value text, times the factor; 0 without a parameter
  /// or a number.
  virtual void GetValue(double& value) const = 0;

  /// 1 until set.
  virtual void SetFactor(const double& factor) = 0;
  virtual void GetFactor(double& factor) const = 0;

  /// Empty until set.
  virtual void SetFeedType(const KEPUnicodeString& type) = 0;
  virtual void GetFeedType(KEPUnicodeString& type) const = 0;

  /// Sets `linear` (`angular`) to whether the type of the parameter has the name LINEARFEEDRATE
  /// (ANGULARFEEDRATE). Returns false, and the flag is false, when there is no parameter or it has
  /// no type.
  virtual bool IsLinear(bool& linear) const = 0;
  virtual bool IsAngular(bool& angular) const = 0;

  [[nodiscard]] virtual bool HasFeedParameter() const = 0;
  /// Sets the parameter to null; factor and type stay.
  virtual void ResetFeedParameter() = 0;
};

using KEPIMfgBufferFeedrate_var = KEPVar<KEPIMfgBufferFeedrate>;
