#pragma once

#include "KEPIMfgPPWordFactory.h"
#include "src/registration/Registered.h"

/// The PP word factory, as an extension of the container that the commands are made in.
class KEPMfgPPWordFactory final
    : public ppword::Registered<KEPMfgPPWordFactory, KEPIMfgPPWordFactory> {
 public:
  void CreatePPCommand(KEPIMfgPPCommand_var& command, const KEPUnicodeString& name,
                       const int& number) override;
};
