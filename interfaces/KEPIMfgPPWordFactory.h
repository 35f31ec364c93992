#pragma once

#include "KEPIMfgPPCommand.h"
#include "System/KEPUnicodeString.h"
#include "System/KEPVar.h"

/// Makes PP commands in a PP word container.
class KEP_PLATFORM KEPIMfgPPWordFactory : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgPPWordFactory";

  /// Sets `command` to a new, nameless instance of the type MfgPPCommand that stands for the NC
  /// instruction `name` and its sequence `number`, neither of them checked. Raises the null-handle
  /// error, with `command` and the container untouched, when the container has no such type or
  /// what it makes of it is no PP command.
  virtual void CreatePPCommand(KEPIMfgPPCommand_var& command, const KEPUnicodeString& name,
                               const int& number) = 0;
};

using KEPIMfgPPWordFactory_var = KEPVar<KEPIMfgPPWordFactory>;
