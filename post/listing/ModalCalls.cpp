#include "post/listing/ModalCalls.h"

#include <algorithm>
#include <string>
#include <utility>

#include "Manufacturing/KEPMfgNames.h"
#include "System/KEPString.h"
#include "host/manufacturing/Activity.h"
#include "post/parameters/Parameters.h"

namespace host {
namespace {

/// Listings print this limit of the spindle's speed, or more, where the program sets none.
constexpr double kNoLimit = 1e29;

int wholeArgument(const ListedCall& call, std::size_t index) {
  return static_cast<int>(call.arguments.numbers[index]);
}

Element elementOf(std::string_view name, int sequence = 1) {
  Element element;
  element.instruction = name;
  element.sequence = sequence;
  return element;
}

void setValue(NamedValues& values, std::string_view name, KEPMfgParameterValue value) {
  const auto known = std::ranges::find(values, name, &NamedValues::value_type::first);
  if (known == values.end()) {
    values.emplace_back(name, std::move(value));
  } else {
    known->second = std::move(value);
  }
}

// The origin and the axes of a coordinate system.
constexpr std::string_view kAxisSystem = "MFG_NCAXIS_";

constexpr std::string_view kToolNumber = "MFG_TOOL_NUMBER";
// What a tool table says of a tool.
constexpr std::string_view kToolName = "MFG_TOOL_NAME";
constexpr std::string_view kToolDiameter = "MFG_NOMINAL_DIAM";
constexpr std::string_view kToolPocket = "MFG_TOOL_POCKET";

bool isOfTool(std::string_view name) {
  return name == kToolName || name == kToolDiameter || name == kToolPocket;
}

/// The activity that a whole listing belongs to.
ActivityStart listedActivity(bool variesToolAxis) {
  ActivityStart activity;
  activity.name = "Listing";
  activity.kind = ActivityKind::Machining;
  activity.tool.emplace().parameters = {{"MFG_WAY_OF_ROT", textValue(MfgRightHand)}};
  activity.strategy = {{std::string(MfgDwellMode), textValue(MfgDwellTime)}};
  activity.toolPath.emplace().type = variesToolAxis ? 2 : 1;
  return activity;
}

/// How many bytes of a text are in one line: after a word of seven columns they end before
/// column 72.
constexpr std::size_t kLongestCommentPiece = 64;

std::string_view withoutTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Where a text that is too long for one piece is cut.
std::size_t cutOf(std::string_view text) {
  const std::size_t blank = text.rfind(' ', kLongestCommentPiece);
  if (blank != std::string_view::npos && text.find_first_not_of(' ') < blank) return blank;
  std::size_t cut = kLongestCommentPiece;
  while (cut > 0 && !KEPUnicodeString::StartsCharacter(text[cut])) --cut;
  return cut > 0 ? cut : kLongestCommentPiece;
}

/// A text in pieces of at most 64 bytes: cut at blanks, which are dropped there, or between
/// characters where a word is longer. Blanks at the end of the text are dropped. An empty text has
/// no piece. The pieces lie in the text.
std::vector<std::string_view> commentPieces(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::string_view rest = withoutTrailingBlanks(text);
  while (rest.size() > kLongestCommentPiece) {
    const std::size_t cut = cutOf(rest);
    const std::string_view piece = withoutTrailingBlanks(rest.substr(0, cut));
    if (!piece.empty()) pieces.push_back(piece);
    rest.remove_prefix(cut);
    rest.remove_prefix(rest.find_first_not_of(' '));
  }
  if (!rest.empty()) pieces.push_back(rest);
  return pieces;
}

}  // namespace

ModalCalls::ModalCalls(const Vocabulary& vocabulary, ListedTexts texts, bool variesToolAxis,
                       const ToolTable* tools, std::vector<ToolPathEvent>& events)
    : vocabulary_(vocabulary),
      texts_(texts),
      tools_(tools),
      events_(events),
      activity_(listedActivity(variesToolAxis)) {
  events_.emplace_back(activity_);
}

void ModalCalls::stateUnit(LengthUnit unit) {
  unit_ = unit;
  const auto state = [this, unit](ActivityStart& activity) {
    setValue(activity.parameters, kUnitParameter, textValue(unitWord(unit)));
    stateTool(activity, unit);
  };
  state(activity_);
  for (ToolPathEvent& event : events_) {
    if (auto* const activity = std::get_if<ActivityStart>(&event)) state(*activity);
  }
}

void ModalCalls::changeUnit(LengthUnit unit, long line) {
  const bool isSame = std::exchange(unit_, unit) == unit;
  if (isSame && tools_ == nullptr) return;
  stateTool(activity_, unit);
  setParameter(kUnitParameter, textValue(unitWord(unit)), line);
}

void ModalCalls::writeOrigin(const WorkFrame& system, LengthUnit unit, long line) {
  auto& parameters = activity_.parameters;
  const auto state = [&parameters](std::string_view of, const Triple& values) {
    for (std::size_t axis = 0; axis < values.size(); ++axis) {
      std::string name(kAxisSystem);
      setValue(parameters, (((name += "XYZ"[axis]) += '_') += of), realValue(values[axis]));
    }
  };
  state("ORIG", system.origin(unit));
  state("VECX", turnedAboutZ({1.0, 0.0, 0.0}, system.rotation()));
  state("VECY", turnedAboutZ({0.0, 1.0, 0.0}, system.rotation()));
  state("VECZ", {0.0, 0.0, 1.0});
  setParameter("MFG_ORIGIN_NUMBER", integerValue(system.number()), line);
  put(elementOf("NC_ORIGIN"), line);
}

// States what the table says of the tool of an activity, and takes away what it said of another.
void ModalCalls::stateTool(ActivityStart& activity, LengthUnit unit) const {
  if (tools_ == nullptr) return;
  auto& parameters = activity.parameters;
  std::erase_if(parameters, [](const auto& value) { return isOfTool(value.first); });
  activity.assembly.reset();
  const auto number = std::ranges::find(parameters, kToolNumber, &NamedValues::value_type::first);
  if (number == parameters.end()) return;
  const auto tool = tools_->tools.find(number->second.integer);
  if (tool == tools_->tools.end()) return;
  const auto length = [&](double value) { return realValue(converted(value, tools_->unit, unit)); };
  const TableTool& row = tool->second;
  if (!row.comment.empty()) setValue(parameters, kToolName, textValue(row.comment));
  setValue(parameters, kToolDiameter, length(row.diameter));
  setValue(parameters, kToolPocket, integerValue(row.pocket));
  activity.assembly.emplace().parameters = {{"MFG_TL_SET_X", length(row.offset[0])},
                                            {"MFG_TL_SET_Y", length(row.offset[1])},
                                            {"MFG_TL_SET_Z", length(row.offset[2])}};
}

CallFate ModalCalls::dispatch(const ListedCall& call) {
  switch (call.rule.effect) {
    case CallEffect::FeedRate:
      feed_.setRate(call.arguments.numbers[0], call.unit);
      return CallFate::Written;
    case CallEffect::FeedMode:
      return setFeedMode(call);
    case CallEffect::SynchronisedOn:
      return startSynchronised(call);
    case CallEffect::SynchronisedOff:
      feed_.stopSynchronised();
      return CallFate::Written;
    case CallEffect::SpindleSpeed:
    case CallEffect::SpindleMode:
    case CallEffect::Clockwise:
    case CallEffect::Counterclockwise:
    case CallEffect::SpindleOff:
      return switchSpindle(call);
    case CallEffect::SelectTool:
      selectedTool_ = wholeArgument(call, 0);
      return CallFate::Written;
    case CallEffect::ChangeTool:
      return changeTool(call);
    case CallEffect::Dwell:
      return dwell(call);
    case CallEffect::Text:
      return writeText(call);
    case CallEffect::FloodOn:
    case CallEffect::FloodOff:
    case CallEffect::MistOn:
    case CallEffect::MistOff:
      return switchCoolant(call);
    case CallEffect::ProgramStop:
      return stopProgram(call, vocabulary_.programStop, "NC_PROGRAM_STOP");
    case CallEffect::OptionalStop:
      return stopProgram(call, vocabulary_.optionalStop, "NC_OPTIONAL_STOP");
    case CallEffect::ProgramEnd:
      return putInstruction(call, "NC_END_MACRO");
    case CallEffect::Dropped:
      return CallFate::Dropped;
    default:
      return CallFate::Other;
  }
}

void ModalCalls::writeFeedRate(LengthUnit textUnit, long line) {
  auto change = feed_.pendingChange(vocabulary_, textUnit);
  if (!change) return;
  Element element = elementOf("NC_FEEDRATE");
  element.changes.feedrate = std::move(change);
  put(std::move(element), line);
}

CallFate ModalCalls::setFeedMode(const ListedCall& call) {
  const int mode = wholeArgument(call, 1);
  if (mode != 0 && mode != 1) {
    call.place.refuse(call.arguments.at[1],
                      "SET_FEED_MODE: the mode is neither 0 (per minute) nor 1 (per revolution)");
  }
  feed_.setPerRevolution(mode == 1);
  const bool otherSpindle = mode == 1 && wholeArgument(call, 0) != 0;
  return otherSpindle ? CallFate::Dropped : CallFate::Written;
}

CallFate ModalCalls::startSynchronised(const ListedCall& call) {
  feed_.startSynchronised(call.arguments.numbers[0], call.unit);
  // The output states the feed, but not that the move waits for the spindle's index.
  return CallFate::Dropped;
}

CallFate ModalCalls::switchSpindle(const ListedCall& call) {
  if (wholeArgument(call, 0) != 0) return CallFate::Dropped;
  const LengthUnit surface = vocabulary_.surfaceSpeed.value_or(call.textUnit);
  const double value = call.arguments.numbers[1];
  switch (call.rule.effect) {
    case CallEffect::SpindleMode:
      return setSpindleMode(value);
    case CallEffect::SpindleSpeed:
      put(spindle_.setSpeed(value, call.unit, surface), call.place.line);
      return CallFate::Written;
    case CallEffect::Clockwise:
      put(spindle_.start(SpindleState::Way::Clockwise, surface), call.place.line);
      return CallFate::Written;
    case CallEffect::Counterclockwise:
      put(spindle_.start(SpindleState::Way::Counterclockwise, surface), call.place.line);
      return CallFate::Written;
    default:
      put(spindle_.stop(), call.place.line);
      return CallFate::Written;
  }
}

CallFate ModalCalls::setSpindleMode(double limit) {
  spindle_.setSurfaceSpeeds(limit != 0.0);
  const bool isLimited = limit != 0.0 && limit < kNoLimit;
  return isLimited ? CallFate::Dropped : CallFate::Written;
}

CallFate ModalCalls::changeTool(const ListedCall& call) {
  if (!selectedTool_ || *selectedTool_ < 0) {
    call.place.refuse(call.call.nameAt,
                      "no SELECT_TOOL before this selects a tool: CHANGE_TOOL names the pocket of "
                      "the tool, not its number");
  }
  setValue(activity_.parameters, kToolNumber, integerValue(*selectedTool_));
  stateTool(activity_, call.textUnit);
  setParameter(kToolNumber, integerValue(*selectedTool_), call.place.line);
  return putInstruction(call, "NC_TOOL_CHANGE");
}

CallFate ModalCalls::dwell(const ListedCall& call) {
  setParameter("MFG_DELAY_VALUE", realValue(call.arguments.numbers[0]), call.place.line);
  return putInstruction(call, "NC_DELAY");
}

bool ModalCalls::isWanted(std::string_view text) const {
  if (texts_ == ListedTexts::Program) return !text.starts_with("interpreter: ");
  return texts_ == ListedTexts::All;
}

CallFate ModalCalls::writeText(const ListedCall& call) {
  if (!isWanted(call.arguments.text)) return CallFate::Other;
  const auto pieces = commentPieces(call.arguments.text);
  for (const std::string_view piece : pieces) {
    Element element = elementOf("NC_OUTPUT_COMMENT");
    element.changes.comment = piece;
    put(std::move(element), call.place.line);
  }
  return pieces.empty() ? CallFate::Other : CallFate::Written;
}

CallFate ModalCalls::switchCoolant(const ListedCall& call) {
  if (!vocabulary_.coolant) return CallFate::Other;
  const CallEffect effect = call.rule.effect;
  const bool isFlood = effect == CallEffect::FloodOn || effect == CallEffect::FloodOff;
  const Coolant::Kind kind = isFlood ? Coolant::Kind::Flood : Coolant::Kind::Mist;
  const bool isOn = effect == CallEffect::FloodOn || effect == CallEffect::MistOn;
  for (const int sequence : isOn ? coolant_.on(kind) : coolant_.off(kind)) {
    put(elementOf("NC_COOLANT", sequence), call.place.line);
  }
  return CallFate::Written;
}

CallFate ModalCalls::stopProgram(const ListedCall& call, bool hasInstruction,
                                 std::string_view instruction) {
  return hasInstruction ? putInstruction(call, instruction) : CallFate::Dropped;
}

CallFate ModalCalls::putInstruction(const ListedCall& call, std::string_view instruction) {
  put(elementOf(instruction), call.place.line);
  return CallFate::Written;
}

void ModalCalls::setParameter(std::string_view name, KEPMfgParameterValue value, long line) {
  setValue(activity_.parameters, name, std::move(value));
  activity_.line = line;
  events_.emplace_back(activity_);
}

void ModalCalls::put(std::optional<Element> element, long line) {
  if (!element) return;
  element->line = line;
  events_.emplace_back(*std::move(element));
}

}  // namespace host
