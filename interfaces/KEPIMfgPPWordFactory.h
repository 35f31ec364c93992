#pragma once

#include "KEPIMfgPPCommand.h"
#include "System/KEPComponent.h"
#include "System/KEPString.h"

/// Creates PP commands in a PP word container.
class KEP_PLATFORM KEPIMfgPPWordFactory : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgPPWordFactory";

  /// Sets `command` to a new instance, without a name, of the type MfgPPCommand. It refers to the
  /// NC instruction `name` and its sequence `number`; neither is checked. Raises the null-handle
  /// error, with `command` and the container untouched, when the container has no such type or an
  /// instance of it is not a PP command.
  virtual void CreatePPCommand(KEPIMfgPPCommand_var& command, const KEPUnicodeString& name,
                               const int& number) = 0;
};

using KEPIMfgPPWordFactory_var = KEPVar<KEPIMfgPPWordFactory>;
