#include "host/generator/ListingReader.h"

#include <span>
#include <string>
#include <utility>

#include "host/generator/CallTable.h"
#include "host/generator/CanonicalCall.h"
#include "host/generator/InputError.h"
#include "host/generator/LineReader.h"

namespace host {
namespace {

constexpr std::size_t kLengths = 3;
constexpr std::size_t kRotaryWords = 3;
constexpr std::string_view kRotaryLetters = "ABC";

CallFate fateOf(const CallRule* rule) {
  if (rule == nullptr) return CallFate::Unknown;
  switch (rule->effect) {
    case CallEffect::Traverse:
    case CallEffect::Feed:
      return CallFate::Move;
    case CallEffect::Waiting:
      return CallFate::Waiting;
    case CallEffect::LostMove:
      return CallFate::LostMove;
    default:
      return CallFate::Other;
  }
}

/// The x y z a b c among the arguments of a call.
std::span<const double, WorkFrame::kAxes> axes(const CanonicalArguments& arguments,
                                               std::size_t first) {
  return std::span(arguments.numbers).subspan(first).first<WorkFrame::kAxes>();
}

void checkToolOffset(const CanonicalCall& call, const CanonicalArguments& arguments,
                     const LinePlace& place) {
  for (std::size_t axis = kLengths; axis < kLengths + kRotaryWords; ++axis) {
    if (arguments.numbers[axis] == 0.0) continue;
    place.refuse(call.nameAt,
                 "this tool offset turns rotary axes, so that the words of the moves no longer "
                 "tell the tool axis; make the listing without rotary offsets in the tool table");
  }
}

[[noreturn]] void refuseCompensation(const CanonicalCall& call, const LinePlace& place) {
  place.refuse(call.nameAt,
               "cutter compensation is left to the machine, so that the positions behind are not "
               "those of the tool; make the listing with compensated positions");
}

}  // namespace

ListingReader::ListingReader(std::unique_ptr<LineReader> lines, ListingOptions options)
    : lines_(std::move(lines)), options_(std::move(options)), multaxDue_(options_.rotary) {}

ListingReader::~ListingReader() = default;

bool ListingReader::next(ToolPathEvent& event) {
  while (!move_) {
    if (!readCall()) return false;
  }
  event = nextElement();
  return true;
}

Element ListingReader::nextElement() {
  Element element;
  element.line = lines_->lineNumber();
  if (std::exchange(multaxDue_, false)) {
    element.instruction = "NC_MULTAX_ON";
  } else if (std::exchange(rapidDue_, false)) {
    element.instruction = "NC_RAPID";
  } else {
    element.instruction = options_.rotary ? "NC_GOTO_VARIABLE_AXIS" : "NC_GOTO";
    element.positions.push_back(*std::exchange(move_, std::nullopt));
  }
  return element;
}

bool ListingReader::readCall() {
  std::string_view line;
  if (!lines_->next(line)) {
    if (ended_) return false;
    throw InputError(lines_->name(), lines_->lineNumber(), 0,
                     "the listing ends without PROGRAM_END or FINISH; it is cut, or rs274 stopped "
                     "at an error of the program");
  }
  if (line.ends_with('\r')) line.remove_suffix(1);
  const LinePlace place{lines_->name(), lines_->lineNumber()};
  if (line.size() > kLongestLine) {
    place.refuse(kLongestLine, "the line is longer than 64 KiB (65536 bytes)");
  }
  const CanonicalCall call = parseCall(line, place);
  checkRunningNumber(call, place);
  const CallRule* const rule = findCallRule(call.name);
  count(call, rule, place);
  if (rule != nullptr) obey(*rule, call, place);
  return true;
}

void ListingReader::checkRunningNumber(const CanonicalCall& call, const LinePlace& place) {
  const long due = lastRunningNumber_ + 1;
  if (call.runningNumber != due) {
    place.refuse(0, "the running number is " + std::to_string(call.runningNumber) + " where " +
                        std::to_string(due) + " is due; calls are missing or out of order");
  }
  lastRunningNumber_ = due;
}

void ListingReader::count(const CanonicalCall& call, const CallRule* rule, const LinePlace& place) {
  calls_.add(call.name, fateOf(rule), place.line);
  if (calls_.names(CallFate::Unknown) <= kMostUnknownNames) return;
  place.refuse(call.nameAt, "more than " + std::to_string(kMostUnknownNames) +
                                " different calls are unknown; this is not a listing of rs274");
}

void ListingReader::obey(const CallRule& rule, const CanonicalCall& call, const LinePlace& place) {
  if (rule.effect == CallEffect::Compensation) refuseCompensation(call, place);
  if (rule.effect == CallEffect::InterpreterError) {
    place.refuse(call.nameAt, "the interpreter reports an error of the program here");
  }
  if (rule.shape == "*") return;
  const CanonicalArguments arguments = readArguments(call, rule.shape, place);
  switch (rule.effect) {
    case CallEffect::Traverse:
    case CallEffect::Feed:
      return move(rule, call, arguments, place);
    case CallEffect::Units:
      return useUnits(arguments, place);
    case CallEffect::FixtureOffset:
    case CallEffect::ProgramOffset:
    case CallEffect::PlaneRotation:
      return changeFrame(rule, arguments, place);
    case CallEffect::ToolOffset:
      return checkToolOffset(call, arguments, place);
    case CallEffect::End:
      ended_ = true;
      return;
    default:
      return;
  }
}

void ListingReader::useUnits(const CanonicalArguments& arguments, const LinePlace& place) {
  inputUnit_ = canonicalUnit(arguments.text);
  if (inputUnit_) return;
  place.refuse(arguments.at[0],
               "the length unit is none of CANON_UNITS_MM, CANON_UNITS_INCHES, CANON_UNITS_CM");
}

void ListingReader::changeFrame(const CallRule& rule, const CanonicalArguments& arguments,
                                const LinePlace& place) {
  const double millimetres =
      converted(1.0, inputUnit_.value_or(LengthUnit::Millimetre), LengthUnit::Millimetre);
  const WorkFrame before = frame_;
  if (rule.effect == CallEffect::FixtureOffset) {
    frame_.setFixtureOffset(axes(arguments, 1), millimetres);
  } else if (rule.effect == CallEffect::ProgramOffset) {
    frame_.setProgramOffset(axes(arguments, 0), millimetres);
  } else {
    frame_.setRotation(arguments.numbers[0]);
  }
  frameChanged_ = true;
  if (frame_.isSameAs(before)) return;
  frameCall_ = rule.name;
  frameLine_ = place.line;
}

void ListingReader::move(const CallRule& rule, const CanonicalCall& call,
                         const CanonicalArguments& arguments, const LinePlace& place) {
  if (ended_) place.refuse(call.nameAt, "a move stands behind the end of the program");
  settleUnits(call, place);
  checkFrame(call, place);
  checkRotaryWords(arguments, place);
  move_ = positionOf(arguments);
  rapidDue_ = rule.effect == CallEffect::Traverse;
}

void ListingReader::settleUnits(const CanonicalCall& call, const LinePlace& place) {
  if (!inputUnit_) inputUnit_ = options_.unit;
  if (!inputUnit_) {
    place.refuse(call.nameAt,
                 "a move stands before any length unit is named; name it with --units mm or "
                 "--units inch");
  }
  if (!outputUnit_) outputUnit_ = options_.unit ? options_.unit : inputUnit_;
}

void ListingReader::checkFrame(const CanonicalCall& call, const LinePlace& place) {
  if (!std::exchange(frameChanged_, false)) return;
  if (!frameOfMoves_) frameOfMoves_ = frame_;
  if (options_.rotary && frame_.isTurned()) {
    place.refuse(call.nameAt,
                 "positions are given in a system with rotary offsets or a rotated XY plane (" +
                     std::string(frameCall_) + " in line " + std::to_string(frameLine_) +
                     "), in which the tool axis cannot be told; make the listing without them");
  }
  if (frame_.isSameAs(*frameOfMoves_)) return;
  place.refuse(call.nameAt,
               "this move is given in another coordinate system than the moves before it (" +
                   std::string(frameCall_) + " in line " + std::to_string(frameLine_) +
                   "); make a listing of its own for each coordinate system");
}

void ListingReader::checkRotaryWords(const CanonicalArguments& arguments,
                                     const LinePlace& place) const {
  for (std::size_t word = 0; word < kRotaryWords; ++word) {
    const std::size_t index = kLengths + word;
    if (arguments.numbers[index] == 0.0) continue;
    if (options_.rotary && options_.rotary->names(word)) continue;
    place.refuse(arguments.at[index],
                 std::string("the rotary word ") + kRotaryLetters[word] +
                     " moves, but nothing says what it turns; name every rotary axis from the "
                     "part to the tool, for example --rotary C:table:Z,A:table:X");
  }
}

Position ListingReader::positionOf(const CanonicalArguments& arguments) const {
  const auto& number = arguments.numbers;
  Position position;
  for (std::size_t axis = 0; axis < kLengths; ++axis) {
    position.point[axis] = converted(number[axis], *inputUnit_, *outputUnit_);
  }
  if (options_.rotary)
    position.toolAxis = options_.rotary->toolAxis({number[3], number[4], number[5]});
  return position;
}

}  // namespace host
