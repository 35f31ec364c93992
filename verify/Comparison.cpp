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

void add(Comparison::Sightings& sightings, const std::string& name, const host::Element& element) {
  Sighting& sighting = sightings[name];
  if (sighting.count++ == 0) sighting.first = placeOf(element);
}

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
                       double angleFactor)
    : document_(document),
      next_(std::move(next)),
      tables_(document, words),
      values_(document, angleFactor) {}

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

// Most elements name what the one before them does.
void Comparison::chooseLines(const host::Element& element) {
  const bool isSame = lines_ != nullptr && element.ppCommand == 0 &&
                      element.sequence == sequence_ && element.instruction == named_;
  if (isSame) return;
  lines_ = &linesOf(element);
  sequence_ = element.ppCommand == 0 ? element.sequence : 0;
  named_ = element.instruction;
}

bool Comparison::putElement(const host::Element& element) {
  chooseLines(element);
  values_.begin(element);
  noteLeftOut(element);
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

// A circle or a helix whose end is not in its lines, but another point.
void Comparison::noteOtherPoint(const host::Element& element) {
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
  expected_.set(*lines_, values_, document_);
  return std::ranges::all_of(
      expected_, [&](const ExpectedStatement& expected) { return take(expected, element, point); });
}

// A line that is plainly as expected is the statement. A consumer that does not take each character
// can have other ones in it.
bool Comparison::takeLine(const ExpectedStatement& expected) {
  const bool canTake = reader_ != nullptr && expected.fitsLine &&
                       consumer_.characters == host::Consumer::Characters::Any;
  std::string_view line;
  if (!canTake || !reader_->peek(line) || line.ends_with('$')) return false;
  if (!isPlainly(expected, line)) return false;
  reader_->skipLine();
  return true;
}

bool Comparison::take(const ExpectedStatement& expected, const host::Element& element, long point) {
  if (takeLine(expected)) {
    count(expected, element);
    return true;
  }
  const bool hasStatement = next_(statement_);
  if (hasStatement && isSame(expected, statement_, consumer_, mismatch_)) {
    count(expected, element);
    return true;
  }
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
  if (expected.isOpen() || expected.isDoubtful || !isKnown) {
    add(notVerified_, lines_->name, element);
    return;
  }
  ++verified_;
  if (!expected.hasValue) ++ownOfTable_;
}

bool Comparison::finish() {
  constexpr std::size_t kLongestShown = 60;
  if (difference_ || !next_(statement_)) return !difference_;
  differ({statement_.place, statement_.text.substr(0, kLongestShown), ""}, true);
  return false;
}

}  // namespace verify
