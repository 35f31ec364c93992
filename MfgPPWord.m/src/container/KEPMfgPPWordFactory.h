#pragma once

#include "KEPIMfgPPWordFactory.h"
#include "src/registration/Registered.h"

/// A factory that can make no command: asking it raises the null-handle error.
class KEPMfgPPWordFactory final
    : public ppword::Registered<KEPMfgPPWordFactory, KEPIMfgPPWordFactory> {
 public:
  void CreatePPCommand(KEPIMfgPPCommand_var& /*command*/, const KEPUnicodeString& /*name*/,
                       const int& /*number*/) override {
    KEPRaiseNullHandle();
  }
};
