#pragma once

#include "Manufacturing/KEPIMfgActivity.h"

/// The activities of a program in their order.
class KEP_PLATFORM KEPIMfgSequence : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgSequence";

  /// Sets `activity` to the activity for which a tool is changed, if it offers the interface
  /// `interfaceClass`. A negative status, or a null activity, means that there is none.
  virtual HRESULT GetActivityOfToolChange(const KEPIMfgActivity_var& toolChange,
                                          const KEPMetaClass* interfaceClass,
                                          KEPIMfgActivity_var& activity) const = 0;
};

using KEPIMfgSequence_var = KEPVar<KEPIMfgSequence>;

/// An activity that changes the tool in the spindle or the turret.
class KEP_PLATFORM KEPIMfgToolChange : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgToolChange";

  /// The sequence that it belongs to; null when it belongs to none.
  [[nodiscard]] virtual KEPIMfgSequence_var GetSequence() const = 0;
};

using KEPIMfgToolChange_var = KEPVar<KEPIMfgToolChange>;
