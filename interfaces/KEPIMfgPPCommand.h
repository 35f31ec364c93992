#pragma once

#include "System/KEPComponent.h"
#include "System/KEPList.h"
#include "System/KEPString.h"

/// A feature that refers to an NC instruction of its container, and to one of its sequences.
class KEP_PLATFORM KEPIMfgPPCommand : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgPPCommand";

  /// Sets the name of the NC instruction, which may be empty. Always true.
  virtual bool SetCommandName(const KEPUnicodeString& name) = 0;
  /// True, with the name, when one is set; otherwise false, with a single blank.
  [[nodiscard]] virtual bool GetCommandName(KEPUnicodeString& name) const = 0;

  /// Sets both pointers to null: there is no data to point to. Always true.
  virtual bool GetObjects(void*& first, void*& second) const = 0;

  /// Evaluates the instruction's syntax with the sequence number as index and returns the result of
  /// that; `lines` is passed on. The name is looked up as it is, without the rule of "#SEQMOTION#";
  /// a number that is not set counts as 0. False, with `lines` untouched, when there is no
  /// container, no command name or no such instruction.
  [[nodiscard]] virtual bool Evaluate(KEPListValKEPUnicodeString& lines) = 0;

  /// Sets the number of the sequence (1: the lines of the attribute "Syntaxe"). Always true.
  virtual bool SetSequenceNumber(const int& number) = 0;
  /// True, with the number, when one is set; otherwise false, with 0.
  [[nodiscard]] virtual bool GetSequenceNumber(int& number) const = 0;
};

using KEPIMfgPPCommand_var = KEPVar<KEPIMfgPPCommand>;
