#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "post/listing/CallCounts.h"
#include "post/listing/CallTable.h"
#include "post/listing/CanonicalCall.h"
#include "post/listing/MachineState.h"
#include "post/listing/ToolTable.h"
#include "post/listing/Vocabulary.h"
#include "post/listing/WorkFrame.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// Which texts of a listing become lines: all, those of the program, without those that the
/// interpreter adds, or none.
enum class ListedTexts { All, Program, None };

/// A call of a listing, with its place and the units there.
struct ListedCall {
  const CallRule& rule;
  const CanonicalCall& call;
  const CanonicalArguments& arguments;
  const LinePlace& place;
  /// The units of lengths in the listing at this call, and in the output.
  LengthUnit unit;
  LengthUnit textUnit;
};

/// The calls of a listing without motion: feed rate, spindle, tool, dwell, texts, coolant, stops.
/// What they need in the output is appended to `events`.
class ModalCalls {
 public:
  /// `variesToolAxis`: whether moves have tool axes. `tools`: null when they are unknown; what the
  /// table says of a tool is stated in the activity from its change on.
  ModalCalls(const Vocabulary& vocabulary, ListedTexts texts, bool variesToolAxis,
             const ToolTable* tools, std::vector<ToolPathEvent>& events);

  /// States the unit of the text in the activity, also in the events that are there already.
  void stateUnit(LengthUnit unit);
  /// What is stated.
  [[nodiscard]] std::optional<LengthUnit> unit() const noexcept { return unit_; }
  /// States it from here on.
  void changeUnit(LengthUnit unit, long line);

  /// States a coordinate system in the activity, and writes NC_ORIGIN.
  void writeOrigin(const WorkFrame& system, LengthUnit unit, long line);

  /// Handles a call. Raises an InputError for one whose meaning is in doubt.
  CallFate dispatch(const ListedCall& call);
  /// Writes the feed rate before a move at feed rate, unless it was written last.
  void writeFeedRate(LengthUnit textUnit, long line);

 private:
  CallFate setFeedMode(const ListedCall& call);
  CallFate startSynchronised(const ListedCall& call);
  CallFate switchSpindle(const ListedCall& call);
  CallFate setSpindleMode(double limit);
  CallFate changeTool(const ListedCall& call);
  CallFate dwell(const ListedCall& call);
  [[nodiscard]] bool isWanted(std::string_view text) const;
  CallFate writeText(const ListedCall& call);
  CallFate switchCoolant(const ListedCall& call);
  CallFate stopProgram(const ListedCall& call, bool hasInstruction, std::string_view instruction);
  CallFate putInstruction(const ListedCall& call, std::string_view instruction);

  void stateTool(ActivityStart& activity, LengthUnit unit) const;
  void setParameter(std::string_view name, KEPMfgParameterValue value, long line);
  void put(std::optional<Element> element, long line);

  const Vocabulary& vocabulary_;
  ListedTexts texts_;
  std::optional<LengthUnit> unit_;
  const ToolTable* tools_;
  std::vector<ToolPathEvent>& events_;
  FeedState feed_;
  SpindleState spindle_;
  Coolant coolant_;
  std::optional<int> selectedTool_;
  ActivityStart activity_;
};

}  // namespace host
