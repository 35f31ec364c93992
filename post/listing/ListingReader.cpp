#include "post/listing/ListingReader.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <utility>

#include "post/listing/CallTable.h"
#include "post/listing/CanonicalCall.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

constexpr std::size_t kLinearAxes = 3;
constexpr std::size_t kRotaryWords = 3;
constexpr std::string_view kRotaryLetters = "ABC";
/// Where the rotary words of an arc begin.
constexpr std::size_t kArcRotaryWords = 6;
/// How much the radius of an arc's start and that of its end may differ, in millimetres: as much as
/// rounding to thousandths makes them. Listings have four decimals, which for inches, with start,
/// centre and end rounded, makes 0.00028 inch.
constexpr double kArcTolerance = 0.003;
constexpr double kArcToleranceOfInches = 0.0003 * 25.4;
/// How far a rotary word turns along a chord.
constexpr double kMostDegrees = 1.0;
/// How many events are held back until the unit is known.
constexpr std::size_t kMostHeldEvents = 10'000;

void checkToolOffset(const CanonicalCall& call, const CanonicalArguments& arguments,
                     const LinePlace& place) {
  for (std::size_t axis = kLinearAxes; axis < kLinearAxes + kRotaryWords; ++axis) {
    if (arguments.numbers[axis] == 0.0) continue;
    place.refuse(
        call.nameAt,
        "this tool offset turns rotary axes, so the tool axis no longer follows from the words of "
        "the moves; create the listing without rotary offsets in the tool table");
  }
}

bool isNear(double one, double other, double doubt) { return std::abs(one - other) <= doubt; }

/// Takes an arc that rises by no more than the doubt for flat. False for one whose ends are so near
/// to each other: it can be a tiny arc or a whole turn.
bool settleStart(ArcMove& arc, double doubt) {
  const auto isSame = [&](std::size_t axis) {
    return isNear(arc.start[axis], arc.end[axis], doubt);
  };
  const std::size_t normal = arc.plane.normal;
  if (isSame(normal)) arc.start[normal] = arc.center[normal] = arc.end[normal];
  return !isSame(arc.plane.first) || !isSame(arc.plane.second);
}

[[noreturn]] void refuseCompensation(const CanonicalCall& call, const LinePlace& place) {
  place.refuse(
      call.nameAt,
      "cutter compensation is left to the machine, so the positions after this are not those "
      "of the tool; create the listing with compensated positions");
}

}  // namespace

ListingReader::ListingReader(std::unique_ptr<LineReader> lines, ListingOptions options)
    : lines_(std::move(lines)),
      options_(std::move(options)),
      systems_(options_.vocabulary.origin, options_.convertsOrigins, options_.rotary.has_value()),
      multaxDue_(options_.rotary),
      modalCalls_(options_.vocabulary, options_.texts, options_.rotary.has_value(),
                  options_.tools.get(), events_) {}

ListingReader::~ListingReader() = default;

bool ListingReader::textStatesUnit() const {
  return options_.vocabulary.unit || options_.vocabulary.startMacro;
}

bool ListingReader::needsUnit() const { return textStatesUnit() || options_.tools; }

bool ListingReader::waitsForUnit() const {
  if (hasBegun_ || outputUnit_ || options_.unit) return false;
  return needsUnit() && events_.size() < kMostHeldEvents;
}

void ListingReader::begin() {
  hasBegun_ = true;
  const auto unit = outputUnit_ ? outputUnit_ : options_.unit;
  if (unit || needsUnit()) {
    modalCalls_.stateUnit(unit.value_or(inputUnit_.value_or(LengthUnit::Millimetre)));
  }
  if (!options_.vocabulary.startMacro) return;
  Element macro;
  macro.instruction = "NC_START_MACRO";
  macro.line = 1;
  // After the activity that begins a listing.
  events_.insert(events_.begin() + 1, std::move(macro));
}

bool ListingReader::next(ToolPathEvent& event) {
  while (waitsForUnit() && readCall()) {
  }
  if (!hasBegun_) begin();
  while (delivered_ == events_.size()) {
    events_.clear();
    delivered_ = 0;
    if (!readCall()) return false;
  }
  event = std::move(events_[delivered_++]);
  return true;
}

bool ListingReader::readCall() {
  std::string_view line;
  if (!lines_->next(line)) {
    if (ended_) return false;
    throw InputError(placeOfListing().file, placeOfListing().line, 0,
                     "the listing ends without PROGRAM_END or FINISH; it is cut short, or rs274 "
                     "stopped at an error in the program");
  }
  if (line.ends_with('\r')) line.remove_suffix(1);
  const LinePlace listed = placeOfListing();
  if (line.size() > kLongestLine) {
    listed.refuse(kLongestLine, "the line is longer than 64 KiB (65536 bytes)");
  }
  const CanonicalCall call = parseCall(line, listed);
  checkRunningNumber(call, listed);
  const LinePlace place = options_.blocks ? placeOf(call) : listed;
  const std::size_t firstEvent = events_.size();
  const CallRule* const rule = findCallRule(call.name);
  count(call, rule != nullptr ? dispatch(*rule, call, place) : CallFate::Unknown, place);
  if (place.isCalled) noteFile(place, firstEvent);
  return true;
}

// Where a line that is not a call is reported: a scratch listing is of no interest to its reader.
LinePlace ListingReader::placeOfListing() const {
  if (options_.blocks) return options_.blocks->placeOf("");
  return {lines_->name(), lines_->lineNumber()};
}

LinePlace ListingReader::placeOf(const CanonicalCall& call) {
  const LinePlace place = options_.blocks->placeOf(call.block);
  const bool isEnd = call.name == "PROGRAM_END" && options_.blocks->isAfterProgram(call.block);
  endWasAdded_ = endWasAdded_ || isEnd;
  if (place.line > 0) block_ = place;
  if (block_.line > 0) return block_;
  LinePlace first = place;
  first.line = 1;
  return first;
}

void ListingReader::noteFile(const LinePlace& place, std::size_t firstEvent) {
  for (std::size_t i = firstEvent; i < events_.size(); ++i) {
    if (auto* const element = std::get_if<Element>(&events_[i])) element->file = place.file;
  }
}

void ListingReader::checkRunningNumber(const CanonicalCall& call, const LinePlace& place) {
  const long expected = lastRunningNumber_ + 1;
  if (call.runningNumber != expected) {
    place.refuse(0, "expected running number " + std::to_string(expected) + ", found " +
                        std::to_string(call.runningNumber) + "; calls are missing or out of order");
  }
  lastRunningNumber_ = expected;
}

void ListingReader::count(const CanonicalCall& call, CallFate fate, const LinePlace& place) {
  calls_.add(call.name, fate, place.source());
  if (calls_.names(CallFate::Unknown) <= kMostUnknownNames) return;
  place.refuse(call.nameAt, "more than " + std::to_string(kMostUnknownNames) +
                                " different calls are unknown; this is not a listing of rs274");
}

CallFate ListingReader::dispatch(const CallRule& rule, const CanonicalCall& call,
                                 const LinePlace& place) {
  if (rule.effect == CallEffect::Compensation) refuseCompensation(call, place);
  if (rule.effect == CallEffect::InterpreterError) {
    place.refuse(call.nameAt, "the interpreter reported an error in the program here");
  }
  const bool isRead = rule.shape != "*";
  return dispatch(rule, call,
                  isRead ? readArguments(call, rule.shape, place) : CanonicalArguments(), place);
}

CallFate ListingReader::dispatch(const CallRule& rule, const CanonicalCall& call,
                                 const CanonicalArguments& arguments, const LinePlace& place) {
  switch (rule.effect) {
    case CallEffect::Traverse:
    case CallEffect::Feed:
    case CallEffect::Arc:
      return dispatchMove(rule, call, arguments, place);
    case CallEffect::Plane:
      plane_ = arcPlane(arguments.text);
      return CallFate::Other;
    case CallEffect::UnsupportedMove:
      lastPoint_.reset();
      nearPoint_.reset();
      return CallFate::UnsupportedMove;
    case CallEffect::Units:
      useUnits(arguments, place);
      return CallFate::Other;
    case CallEffect::FixtureOffset:
    case CallEffect::ProgramOffset:
    case CallEffect::PlaneRotation:
      changeSystem(rule, arguments, place);
      return CallFate::Other;
    case CallEffect::ToolOffset:
      checkToolOffset(call, arguments, place);
      changeToolOffset(arguments);
      return CallFate::Other;
    default:
      return dispatchModal(rule, call, arguments, place);
  }
}

CallFate ListingReader::dispatchModal(const CallRule& rule, const CanonicalCall& call,
                                      const CanonicalArguments& arguments, const LinePlace& place) {
  if (ended_) return CallFate::Other;
  ended_ = rule.effect == CallEffect::End || rule.effect == CallEffect::ProgramEnd;
  const bool isFeed =
      rule.effect == CallEffect::FeedRate || rule.effect == CallEffect::SynchronisedOn;
  if (isFeed && arguments.numbers[0] != 0.0) requireUnit(call, "a feed rate", place);
  const LengthUnit here = inputUnit_.value_or(options_.unit.value_or(LengthUnit::Millimetre));
  const LengthUnit text = outputUnit_.value_or(options_.unit.value_or(here));
  return modalCalls_.dispatch({rule, call, arguments, place, here, text});
}

void ListingReader::useUnits(const CanonicalArguments& arguments, const LinePlace& place) {
  inputUnit_ = canonicalUnit(arguments.text);
  if (inputUnit_) return;
  place.refuse(
      arguments.at[0],
      "unknown length unit; CANON_UNITS_MM, CANON_UNITS_INCHES or CANON_UNITS_CM is expected");
}

CallFate ListingReader::dispatchMove(const CallRule& rule, const CanonicalCall& call,
                                     const CanonicalArguments& arguments, const LinePlace& place) {
  const std::size_t first = events_.size();
  CallFate fate = CallFate::Move;
  if (rule.effect == CallEffect::Arc) {
    fate = moveAlongArc(call, arguments, place);
  } else {
    move(rule, call, arguments, place);
  }
  systems_.convert(std::span(events_).subspan(first));
  return fate;
}

void ListingReader::move(const CallRule& rule, const CanonicalCall& call,
                         const CanonicalArguments& arguments, const LinePlace& place) {
  prepareMove(call, arguments, kLinearAxes, place);
  const Position position = positionOf(arguments);
  const Triple words{arguments.numbers[3], arguments.numbers[4], arguments.numbers[5]};
  if (std::exchange(multaxDue_, false)) put("NC_MULTAX_ON", place.line);
  if (rule.effect == CallEffect::Traverse) {
    put("NC_RAPID", place.line);
  } else if (onlyTurns(position, words)) {
    // Its feed rate is in degrees, which no word of the output can state.
    calls_.add(call.name, CallFate::Dropped, place.source());
  } else {
    modalCalls_.writeFeedRate(*outputUnit_, place.line);
  }
  put(moveInstruction(), place.line, position);
  lastPoint_ = nearPoint_ = position.point;
  lastUnit_ = inputUnit_;
  lastWords_ = words;
}

CallFate ListingReader::moveAlongArc(const CanonicalCall& call, const CanonicalArguments& arguments,
                                     const LinePlace& place) {
  prepareMove(call, arguments, kArcRotaryWords, place);
  const auto start = std::exchange(lastPoint_, std::nullopt);
  nearPoint_.reset();
  // An arc begins at the last position of the output.
  if (!start || !plane_) return CallFate::UnsupportedMove;
  ArcMove arc = arcOf(arguments, *start);
  if (const double doubt = doubtOfStart(); doubt > 0.0 && !settleStart(arc, doubt)) {
    return CallFate::UnsupportedMove;
  }
  const bool rises = arc.start[plane_->normal] != arc.end[plane_->normal];
  // Instructions of arcs state no tool axis.
  const bool asChords = options_.rotary || (rises && options_.helicesAsChords);
  std::vector<Element> elements = asChords ? std::vector<Element>() : arcElements(arc);
  if (elements.empty()) {
    if (hasTooManyTurns(arc)) {
      place.refuse(arguments.at[4], std::string(call.name) + ": an arc has at most " +
                                        std::to_string(kMostTurns) +
                                        " turns, unless it is written as a helix");
    }
    const auto& number = arguments.numbers;
    return moveAlongChords(arc, {number[6], number[7], number[8]}, place);
  }
  modalCalls_.writeFeedRate(*outputUnit_, place.line);
  for (Element& element : elements) {
    element.line = place.line;
    events_.emplace_back(std::move(element));
  }
  lastPoint_ = nearPoint_ = arc.end;
  lastUnit_ = inputUnit_;
  return CallFate::Move;
}

/// How far the start of an arc can be from the point that the program means, seen from its end: 0
/// unless the unit changed after the move before, since both are printed with four decimals.
double ListingReader::doubtOfStart() const {
  if (lastUnit_ == inputUnit_ || !lastUnit_) return 0.0;
  constexpr double kHalfOfLastDigit = 0.00005;
  return converted(kHalfOfLastDigit, *lastUnit_, *outputUnit_) +
         converted(kHalfOfLastDigit, *inputUnit_, *outputUnit_);
}

CallFate ListingReader::moveAlongChords(const ArcMove& arc, const Triple& words,
                                        const LinePlace& place) {
  const double deviation = converted(options_.chordDeviation, LengthUnit::Millimetre, *outputUnit_);
  double turn = 0.0;
  for (std::size_t word = 0; word < words.size(); ++word) {
    turn = std::max(turn, std::abs(words[word] - lastWords_[word]));
  }
  const double least = options_.rotary ? std::ceil(turn / kMostDegrees) : 1.0;
  const std::vector<ArcPoint> points = arcChords(arc, deviation, least);
  if (points.empty()) return CallFate::UnsupportedMove;
  if (std::exchange(multaxDue_, false)) put("NC_MULTAX_ON", place.line);
  modalCalls_.writeFeedRate(*outputUnit_, place.line);
  Element element;
  element.instruction = moveInstruction();
  element.line = place.line;
  element.positions.reserve(points.size());
  for (const auto& [point, share] : points) {
    Triple here{};
    for (std::size_t word = 0; word < here.size(); ++word) {
      here[word] = std::lerp(lastWords_[word], words[word], share);
    }
    element.positions.push_back(positionAt(point, here));
  }
  events_.emplace_back(std::move(element));
  lastPoint_ = nearPoint_ = arc.end;
  lastUnit_ = inputUnit_;
  lastWords_ = words;
  return CallFate::Chords;
}

ArcMove ListingReader::arcOf(const CanonicalArguments& arguments, const Triple& start) const {
  const auto length = [&](std::size_t index) {
    return converted(arguments.numbers[index], *inputUnit_, *outputUnit_);
  };
  ArcMove arc;
  arc.plane = *plane_;
  arc.start = arc.center = start;
  arc.end[plane_->first] = length(0);
  arc.end[plane_->second] = length(1);
  arc.end[plane_->normal] = length(5);
  arc.center[plane_->first] = length(2);
  arc.center[plane_->second] = length(3);
  arc.turns = static_cast<int>(arguments.numbers[4]);
  const bool isInch = inputUnit_ == LengthUnit::Inch;
  arc.tolerance = converted(isInch ? kArcToleranceOfInches : kArcTolerance, LengthUnit::Millimetre,
                            *outputUnit_);
  return arc;
}

void ListingReader::prepareMove(const CanonicalCall& call, const CanonicalArguments& arguments,
                                std::size_t firstRotaryWord, const LinePlace& place) {
  if (ended_) place.refuse(call.nameAt, "a move follows the end of the program");
  requireUnit(call, "a move", place);
  if (!outputUnit_) {
    outputUnit_ = options_.unit ? options_.unit : inputUnit_;
    if (hasBegun_) changeUnit(call, place);
  }
  if (const WorkFrame* const system = systems_.beforeMove(call, *outputUnit_, place)) {
    modalCalls_.writeOrigin(*system, *outputUnit_, place.line);
  }
  checkRotaryWords(arguments, firstRotaryWord, place);
}

void ListingReader::changeUnit(const CanonicalCall& call, const LinePlace& place) {
  if (textStatesUnit() && modalCalls_.unit() != outputUnit_) {
    place.refuse(call.nameAt,
                 "the unit of the first move comes too late for the start of the text, which "
                 "states another one; name it with --units mm or --units inch");
  }
  modalCalls_.changeUnit(*outputUnit_, place.line);
}

void ListingReader::changeSystem(const CallRule& rule, const CanonicalArguments& arguments,
                                 const LinePlace& place) {
  const WorkFrame before = systems_.current();
  const LengthUnit unit = inputUnit_.value_or(LengthUnit::Millimetre);
  if (!systems_.change(rule, arguments, unit, place.source())) return;
  lastPoint_.reset();
  if (nearPoint_) FrameMotion(before, systems_.current(), *outputUnit_).movePoint(*nearPoint_);
}

void ListingReader::changeToolOffset(const CanonicalArguments& arguments) {
  const double step = tenthsOf(inputUnit_.value_or(LengthUnit::Millimetre));
  for (std::size_t axis = 0; axis < kLinearAxes; ++axis) {
    const double now = arguments.numbers[axis] * step;
    const double before = std::exchange(toolOffset_[axis], now);
    if (now == before) continue;
    lastPoint_.reset();
    if (nearPoint_) (*nearPoint_)[axis] += (before - now) / tenthsOf(*outputUnit_);
  }
}

bool ListingReader::onlyTurns(const Position& position, const Triple& words) const {
  if (lastWords_ == words) return false;
  if (lastPoint_) return *lastPoint_ == position.point;
  // The offsets before and after, and both points, are rounded to four decimals.
  const double doubt = converted(0.0003, *inputUnit_, *outputUnit_);
  const auto isSame = [doubt](double one, double other) { return isNear(one, other, doubt); };
  return nearPoint_ && std::ranges::equal(*nearPoint_, position.point, isSame);
}

void ListingReader::put(std::string_view instruction, long line, std::optional<Position> position) {
  Element element;
  element.instruction = instruction;
  element.line = line;
  if (position) element.positions.push_back(*position);
  events_.emplace_back(std::move(element));
}

void ListingReader::requireUnit(const CanonicalCall& call, std::string_view what,
                                const LinePlace& place) {
  if (!inputUnit_) inputUnit_ = options_.unit;
  if (inputUnit_) return;
  place.refuse(call.nameAt, std::string(what) +
                                " comes before any length unit; name the unit with --units mm "
                                "or --units inch");
}

void ListingReader::checkRotaryWords(const CanonicalArguments& arguments, std::size_t first,
                                     const LinePlace& place) const {
  for (std::size_t word = 0; word < kRotaryWords; ++word) {
    const std::size_t index = first + word;
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
  Triple point{};
  for (std::size_t axis = 0; axis < kLinearAxes; ++axis) {
    point[axis] = converted(number[axis], *inputUnit_, *outputUnit_);
  }
  return positionAt(point, {number[3], number[4], number[5]});
}

Position ListingReader::positionAt(const Triple& point, const Triple& words) const {
  Position position{point, {}};
  if (options_.rotary) position.toolAxis = options_.rotary->toolAxis(words);
  return position;
}

}  // namespace host
