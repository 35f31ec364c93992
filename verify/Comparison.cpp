#include "verify/Comparison.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

#include "verify/StatementReader.h"

namespace verify {
namespace {

InputPlace placeOf(const host::Element& element) {
  return {element.line, std::string(element.file)};
}

std::string titleOf(const host::Element& element, std::string_view instruction, long point) {
  std::string title(instruction);
  if (element.positions.size() > 1) title += ", point " + std::to_string(point);
  return title;
}

void add(Comparison::Sightings& sightings, const std::string& name, InputPlace place) {
  Sighting& sighting = sightings[name];
  if (sighting.count++ == 0) sighting.first = std::move(place);
}

void add(Comparison::Sightings& sightings, const std::string& name, const host::Element& element) {
  add(sightings, name, placeOf(element));
}

/// True for a tool axis that does not point along Z.
bool isTilted(const std::optional<host::Triple>& axis) {
  return axis && !((*axis)[0] == 0.0 && (*axis)[1] == 0.0 && (*axis)[2] >= 0.0);
}

bool hasAxis(const host::Position& position) { return position.toolAxis.has_value(); }

bool statesAxis(const host::Element& element) {
  return isTilted(element.changes.toolAxis) ||
         std::ranges::any_of(element.positions, isTilted, &host::Position::toolAxis);
}

bool statesFeed(const host::Element& element) {
  return element.changes.feedrate && element.changes.feedrate->value;
}

bool statesSpeed(const host::Element& element) {
  return element.changes.spindle && element.changes.spindle->value;
}

/// A value that elements state, and whether the lines of an instruction print it.
struct StatedValue {
  std::string_view name;
  bool (*isStated)(const host::Element& element);
  bool InstructionLines::*isPrinted;
};
constexpr StatedValue kStatedValues[] = {
    {"tool axis of ", &statesAxis, &InstructionLines::printsAxis},
    {"feed rate of ", &statesFeed, &InstructionLines::printsFeed},
    {"spindle speed of ", &statesSpeed, &InstructionLines::printsSpeed}};

bool statesMotion(const host::Element& element) {
  return !element.positions.empty() || element.changes.circle || element.changes.helix;
}

constexpr double kSamePoint = 1e-6;

bool isSame(const host::Triple& one, const host::Triple& other) {
  return std::equal(one.begin(), one.end(), other.begin(),
                    [](double a, double b) { return std::abs(a - b) <= kSamePoint; });
}

/// The ends of a line, a circle and a helix; null for each that there is not.
using Ends = std::array<const host::Triple*, 3>;

/// The points that an element states as its end.
Ends statedEnds(const host::Element& element, const InputValues& values) {
  const auto& changes = element.changes;
  Ends ends{};
  if (!element.positions.empty()) ends[0] = &values.point();
  if (changes.circle && changes.circle->point) ends[1] = &*changes.circle->point;
  if (changes.helix && changes.helix->end) ends[2] = &*changes.helix->end;
  return ends;
}

/// The points that lines print as an end.
Ends printedEnds(const InstructionLines& lines, const InputValues& values) {
  Ends ends{};
  if (lines.printsPoint) ends[0] = &values.point();
  if (lines.printsCircleEnd) ends[1] = &values.circle().point;
  if (lines.printsHelixEnd) ends[2] = &values.helix().end;
  return ends;
}

bool isNone(const host::Triple* end) { return end == nullptr; }

bool isIn(const host::Triple* end, const Ends& ends) {
  return end != nullptr && std::ranges::any_of(ends, [end](const host::Triple* other) {
           return other != nullptr && isSame(*end, *other);
         });
}

}  // namespace

Comparison::Comparison(const DocumentWords& document, const Words& words, StatementSource next,
                       Generation generation)
    : document_(document),
      generation_(std::move(generation)),
      next_(std::move(next)),
      tables_(document, words, generation_),
      values_(document, generation_.angleFactor) {}

bool Comparison::put(const host::ToolPathEvent& event) {
  if (difference_) return false;
  if (const auto* const activity = std::get_if<host::ActivityStart>(&event)) {
    values_.begin(*activity);
    return true;
  }
  return putElement(std::get<host::Element>(event));
}

// The lines of the instruction and the sequence that an element names.
const InstructionLines& Comparison::linesOf(const host::Element& element) {
  int sequence = element.sequence;
  std::string instruction = element.instruction.substr(0, element.instruction.find('#'));
  if (element.ppCommand > 0) {
    const auto position = static_cast<std::size_t>(element.ppCommand);
    instruction = "PP command " + std::to_string(element.ppCommand);
    if (position <= document_.ppCommands.size()) {
      std::tie(instruction, sequence) = document_.ppCommands[position - 1];
    }
  }
  const InstructionLines* const lines = tables_.find(instruction, sequence);
  if (lines == nullptr) throw UnknownInstruction{instruction, placeOf(element)};
  return *lines;
}

// As linesOf; the first sequence of an instruction is looked for once.
const InstructionLines& Comparison::linesNamedBy(const host::Element& element) {
  if (element.ppCommand > 0 || element.sequence != 1) return linesOf(element);
  const std::string_view name =
      std::string_view(element.instruction).substr(0, element.instruction.find('#'));
  const auto known = firstSequences_.find(name);
  if (known != firstSequences_.end()) return *known->second;
  return *firstSequences_.emplace(std::string(name), &linesOf(element)).first->second;
}

// Most elements name what the one before them does.
void Comparison::chooseLines(const host::Element& element) {
  const bool isSame = lines_ != nullptr && element.ppCommand == 0 &&
                      element.sequence == sequence_ && element.instruction == named_;
  if (isSame) return;
  lines_ = &linesNamedBy(element);
  expected_ = &allExpected_[lines_];
  sequence_ = element.ppCommand == 0 ? element.sequence : 0;
  named_ = element.instruction;
}

bool Comparison::putElement(const host::Element& element) {
  chooseLines(element);
  values_.begin(element);
  noteLeftOut(element);
  noteValues(element);
  long point = 0;
  for (const host::Position& position : element.positions) {
    values_.apply(position);
    if (!write(element, ++point)) return false;
  }
  return !element.positions.empty() || write(element, 1);
}

void Comparison::noteLeftOut(const host::Element& element) {
  const bool isLacking = lines_->lines.empty() || (!lines_->printsMotion && statesMotion(element));
  if (isLacking) add(leftOut_, lines_->name, element);
}

// A value may be printed by a later element; it is left out when another one takes its place
// before.
void Comparison::noteValues(const host::Element& element) {
  const auto& changes = element.changes;
  const bool statesAny = changes.toolAxis || changes.feedrate || changes.spindle ||
                         std::ranges::any_of(element.positions, hasAxis);
  if (!statesAny && !hasUnprinted_) return;
  hasUnprinted_ = false;
  for (std::size_t at = 0; at < unprinted_.size(); ++at) {
    const StatedValue& value = kStatedValues[at];
    auto& unprinted = unprinted_[at];
    if (value.isStated(element)) {
      if (unprinted) add(leftOut_, unprinted->name, std::move(unprinted->place));
      unprinted = {std::string(value.name) + lines_->name, placeOf(element)};
    }
    if (lines_->*value.isPrinted) unprinted.reset();
    hasUnprinted_ = hasUnprinted_ || unprinted;
  }
}

// A point in other coordinates, and a circle or a helix whose end is not in its lines, but another
// point.
void Comparison::noteOtherPoint(const host::Element& element) {
  if (lines_->printsOtherPoint && !element.positions.empty()) {
    add(otherPoints_, lines_->name, element);
  }
  if (!element.changes.circle && !element.changes.helix) return;
  const Ends stated = statedEnds(element, values_);
  const Ends printed = printedEnds(*lines_, values_);
  if (std::ranges::all_of(stated, isNone) || std::ranges::all_of(printed, isNone)) return;
  const bool isThere =
      std::ranges::any_of(stated, [&](const host::Triple* end) { return isIn(end, printed); });
  if (!isThere) add(otherPoints_, lines_->name, element);
}

bool Comparison::write(const host::Element& element, long point) {
  ++elements_;
  noteOtherPoint(element);
  expected_->set(*lines_, values_, document_, consumer_);
  return std::ranges::all_of(*expected_, [&](const ExpectedStatement& expected) {
    return take(expected, element, point);
  });
}

// A line that is plainly as expected is the statement.
bool Comparison::takeLine(const ExpectedStatement& expected) {
  std::string_view line;
  if (reader_ == nullptr || !expected.fitsLine || !reader_->peek(line) || line.ends_with('$'))
    return false;
  if (!isPlainly(expected, line)) return false;
  reader_->skipLine();
  return true;
}

bool Comparison::take(const ExpectedStatement& expected, const host::Element& element, long point) {
  if (isLost_) return add(notVerified_, lines_->name, element), true;
  if (takeLine(expected)) {
    count(expected, element);
    return true;
  }
  const bool hasStatement = next_(statement_);
  if (hasStatement && isSame(expected, statement_, consumer_, mismatch_)) {
    count(expected, element);
    return true;
  }
  isLost_ = mayBeShifted_ || expected.mayBeEmpty();
  if (isLost_) return add(notVerified_, lines_->name, element), true;
  if (!hasStatement) mismatch_.expected = expected.text();
  differ(std::move(mismatch_), hasStatement);
  difference_->input = placeOf(element);
  difference_->element = titleOf(element, lines_->name, point);
  return false;
}

void Comparison::differ(Mismatch mismatch, bool hasStatement) {
  Difference& difference = difference_.emplace();
  difference.text = mismatch.place;
  if (hasStatement && statement_.joints.empty()) difference.line = statement_.text;
  difference.found = std::move(mismatch.found);
  difference.expected = std::move(mismatch.expected);
}

// Not verified is a statement with an end that is not known or with a statement that it may have
// swallowed, and one with a word that the reader does not understand, unless it is a text.
void Comparison::count(const ExpectedStatement& expected, const host::Element& element) {
  const bool isKnown = expected.isText || expected.isKnown;
  const bool isOpen = expected.isOpen();
  mayBeShifted_ =
      isOpen ? mayBeShifted_ || expected.mayBeEmpty() : mayBeShifted_ && !expected.hasValue;
  if (isOpen || expected.isDoubtful || !isKnown) {
    add(notVerified_, lines_->name, element);
    return;
  }
  ++verified_;
  if (!expected.hasValue) ++ownOfTable_;
}

bool Comparison::finish() {
  for (auto& unprinted : unprinted_) {
    if (unprinted) add(leftOut_, unprinted->name, std::move(unprinted->place));
    unprinted.reset();
  }
  constexpr std::size_t kLongestShown = 60;
  if (isLost_ || difference_) return isLost_;
  if (!next_(statement_)) return true;
  isLost_ = mayBeShifted_;
  if (isLost_) return true;
  differ({statement_.place, statement_.text.substr(0, kLongestShown), ""}, true);
  return false;
}

}  // namespace verify
