#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "post/listing/CallCounts.h"
#include "post/listing/CallTable.h"
#include "post/listing/CanonicalCall.h"
#include "post/listing/ListingWords.h"
#include "post/listing/MachineState.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// A call of a listing with what is known where it stands.
struct ListedCall {
  const CallRule& rule;
  const CanonicalCall& call;
  const CanonicalArguments& arguments;
  const LinePlace& place;
  /// The units of lengths in the listing here, and in the text.
  LengthUnit unit;
  LengthUnit textUnit;
};

/// The calls of a listing that move nothing: feed rate, spindle, tool, dwell, texts, coolant,
/// stops. What they need in the text is appended to `events`.
class ModalCalls {
 public:
  /// `variesToolAxis` tells whether moves carry tool axes.
  ModalCalls(const ListingWords& words, bool variesToolAxis, std::vector<ToolPathEvent>& events);

  /// Obeys a call. An InputError for one whose meaning is in doubt.
  CallFate obey(const ListedCall& call);
  /// Tells the feed rate of the move at feed rate that follows, where the text has not told it.
  void tellFeedRate(LengthUnit textUnit, long line);

 private:
  CallFate setFeedMode(const ListedCall& call);
  CallFate startSynchronised(const ListedCall& call);
  CallFate obeySpindle(const ListedCall& call);
  CallFate setSpindleMode(double limit);
  CallFate changeTool(const ListedCall& call);
  CallFate dwell(const ListedCall& call);
  CallFate writeText(const ListedCall& call);
  CallFate obeyCoolant(const ListedCall& call);
  CallFate stopProgram(const ListedCall& call, bool hasInstruction, std::string_view instruction);
  CallFate putInstruction(const ListedCall& call, std::string_view instruction);

  void setParameter(std::string_view name, KEPMfgParameterValue value, long line);
  void put(std::optional<Element> element, long line);

  const ListingWords& words_;
  std::vector<ToolPathEvent>& events_;
  FeedState feed_;
  SpindleState spindle_;
  Coolant coolant_;
  std::optional<int> selectedTool_;
  ActivityStart activity_;
};

}  // namespace host
