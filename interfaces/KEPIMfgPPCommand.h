#pragma once

#include "System/KEPList.h"
#include "System/KEPUnicodeString.h"
#include "System/KEPVar.h"

/// A feature that names an NC instruction of its container and one of its sequences.
class KEP_PLATFORM KEPIMfgPPCommand : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgPPCommand";

  /// Writes the name of the NC instruction, which may be empty; true.
  virtual bool SetCommandName(const KEPUnicodeString& name) = 0;
  /// True and the name when one is set; otherwise false and a single blank.
  [[nodiscard]] virtual bool GetCommandName(KEPUnicodeString& name) const = 0;

  /// Sets both pointers to null; true. No data is kept behind it.
  virtual bool GetObjects(void*& first, void*& second) const = 0;

  /// Has the instruction's syntax evaluated with the sequence number as index and gives that
  /// result; `lines` is passed on. The name is looked up as it stands, without the rule of
  /// "#SEQMOTION#"; a number that is not set counts as 0. False, and `lines` untouched, when there
  /// is no container, no command name or no such instruction.
  [[nodiscard]] virtual bool Evaluate(KEPListValKEPUnicodeString& lines) = 0;

  /// Writes the number of the sequence (1: the lines of "Syntaxe"); true.
  virtual bool SetSequenceNumber(const int& number) = 0;
  /// True and the number when one is set; otherwise false and 0.
  [[nodiscard]] virtual bool GetSequenceNumber(int& number) const = 0;
};

using KEPIMfgPPCommand_var = KEPVar<KEPIMfgPPCommand>;
