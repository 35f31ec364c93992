#pragma once

#include "KEPIMfgPPWordTable.h"
#include "src/registration/Registered.h"

/// A table object that knows no instruction: every answer is false, every output untouched.
class KEPMfgPPWordTable final : public ppword::Registered<KEPMfgPPWordTable, KEPIMfgPPWordTable> {
 public:
  [[nodiscard]] bool GetNumberOfNCInstruction(int& /*count*/) override { return false; }
  [[nodiscard]] bool GetNameOfNCInstruction(int /*index*/, KEPString& /*name*/) override {
    return false;
  }
  [[nodiscard]] bool GetNumberOfSequenceForNCInstruction(int /*index*/, int& /*count*/) override {
    return false;
  }
  [[nodiscard]] bool GetSyntaxOfSequenceForNCInstruction(int /*index*/, int /*sequence*/,
                                                         KEPListValKEPString& /*lines*/) override {
    return false;
  }
  [[nodiscard]] bool GetIndexOfNCInstruction(const KEPString& /*name*/, int& /*index*/) override {
    return false;
  }
};
