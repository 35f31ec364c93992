#pragma once

#include "KEPIMfgPPWordTable.h"
#include "src/registration/Registered.h"

/// The PP word table object, as an extension of the container whose NC instructions it shows. It
/// holds nothing: every answer is computed from the container.
class KEPMfgPPWordTable final : public ppword::Registered<KEPMfgPPWordTable, KEPIMfgPPWordTable> {
 public:
  [[nodiscard]] bool GetNumberOfNCInstruction(int& count) override;
  [[nodiscard]] bool GetNameOfNCInstruction(int index, KEPString& name) override;
  [[nodiscard]] bool GetNumberOfSequenceForNCInstruction(int index, int& count) override;
  [[nodiscard]] bool GetSyntaxOfSequenceForNCInstruction(int index, int sequence,
                                                         KEPListValKEPString& lines) override;
  [[nodiscard]] bool GetIndexOfNCInstruction(const KEPString& name, int& index) override;
};
