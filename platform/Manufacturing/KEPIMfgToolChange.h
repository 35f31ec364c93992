#pragma once

#include "Manufacturing/KEPIMfgActivity.h"

/// The activities that a program puts one after the other.
class KEP_PLATFORM KEPIMfgSequence : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgSequence";

  /// Sets `activity` to the activity that a tool change is made for and that offers the interface
  /// `interfaceClass`. A negative status, or a null activity, means that there is none.
  virtual HRESULT GetActivityOfToolChange(const KEPIMfgActivity_var& toolChange,
                                          const KEPMetaClass* interfaceClass,
                                          KEPIMfgActivity_var& activity) const = 0;
};

using KEPIMfgSequence_var = KEPVar<KEPIMfgSequence>;

/// An activity that puts another tool into the spindle or the turret.
class KEP_PLATFORM KEPIMfgToolChange : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgToolChange";

  /// The sequence that it belongs to; null when it belongs to none.
  [[nodiscard]] virtual KEPIMfgSequence_var GetSequence() const = 0;
};

using KEPIMfgToolChange_var = KEPVar<KEPIMfgToolChange>;
