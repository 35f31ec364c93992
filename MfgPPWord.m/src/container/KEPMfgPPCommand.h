#pragma once

#include "KEPIMfgPPCommand.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "src/registration/Registered.h"

/// The behaviour of a PP command, as an extension of the feature that holds its name and number.
class KEPMfgPPCommand final : public ppword::Registered<KEPMfgPPCommand, KEPIMfgPPCommand> {
 public:
  bool SetCommandName(const KEPUnicodeString& name) override;
  [[nodiscard]] bool GetCommandName(KEPUnicodeString& name) const override;
  bool GetObjects(void*& first, void*& second) const override;
  [[nodiscard]] bool Evaluate(KEPListValKEPUnicodeString& lines) override;
  bool SetSequenceNumber(const int& number) override;
  [[nodiscard]] bool GetSequenceNumber(int& number) const override;

 private:
  [[nodiscard]] KEPISpecObject_var feature() const;
};
