#pragma once

#include "System/KEPComponent.h"
#include "System/KEPString.h"

/// The type of a knowledge parameter.
class KEP_PLATFORM KEPICkeType : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPICkeType";

  [[nodiscard]] virtual KEPUnicodeString GetName() const = 0;
};

using KEPICkeType_var = KEPVar<KEPICkeType>;

/// A knowledge parameter: a typed value of the application, such as a feed rate.
class KEP_PLATFORM KEPICkeParm : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPICkeParm";

  /// The value as text.
  [[nodiscard]] virtual KEPUnicodeString GetValueText() const = 0;
  /// The type; null when the parameter has none.
  [[nodiscard]] virtual KEPICkeType_var GetType() const = 0;
};

using KEPICkeParm_var = KEPVar<KEPICkeParm>;
