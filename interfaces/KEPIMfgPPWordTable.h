#pragma once

#include "System/KEPComponent.h"
#include "System/KEPList.h"
#include "System/KEPString.h"

/// The NC instructions of a PP word container by index. An index is the position, from 0, among the
/// members that offer KEPIMfgSyntaxEvaluation. The member at 0 is neither counted nor found by its
/// name, but can be read by index. Every function returns true for success; after false its output
/// is untouched unless the function says otherwise.
class KEP_PLATFORM KEPIMfgPPWordTable : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgPPWordTable";

  /// The number of members minus one: -1 when there are none. False, with a count of 0, when the
  /// object does not extend a container.
  [[nodiscard]] virtual bool GetNumberOfNCInstruction(int& count) = 0;

  /// The late type name of the member at an index. False when there is no such member.
  [[nodiscard]] virtual bool GetNameOfNCInstruction(int index, KEPString& name) = 0;

  /// The number of attributes of the member at an index, those without a value included and the
  /// modeler's bookkeeping attributes excluded. False when there is no such member.
  [[nodiscard]] virtual bool GetNumberOfSequenceForNCInstruction(int index, int& count) = 0;

  /// Appends the items of the list attribute at position `sequence` (from 1, bookkeeping attributes
  /// not counted) to `lines`. False when there is no such member or attribute, or it is not a list.
  [[nodiscard]] virtual bool GetSyntaxOfSequenceForNCInstruction(int index, int sequence,
                                                                 KEPListValKEPString& lines) = 0;

  /// The index of the first member from 1 on with this late type name. False, with an index of 0,
  /// when there is none.
  [[nodiscard]] virtual bool GetIndexOfNCInstruction(const KEPString& name, int& index) = 0;
};

using KEPIMfgPPWordTable_var = KEPVar<KEPIMfgPPWordTable>;
