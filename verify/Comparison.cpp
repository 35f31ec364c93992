#include "verify/Comparison.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace verify {
namespace {

constexpr std::string_view kDwell = "NC_DELAY";

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

bool isIn(const host::Triple& point, const std::vector<host::Triple>& points) {
  return std::ranges::any_of(points, [&](const auto& each) { return isSame(each, point); });
}

/// The points that an element states as its end.
std::vector<host::Triple> statedEnds(const host::Element& element, const InputValues& values) {
  std::vector<host::Triple> ends;
  const auto& changes = element.changes;
  if (!element.positions.empty()) ends.push_back(values.point());
  if (changes.circle && changes.circle->point) ends.push_back(*changes.circle->point);
  if (changes.helix && changes.helix->end) ends.push_back(*changes.helix->end);
  return ends;
}

/// The points that lines print as an end.
std::vector<host::Triple> printedEnds(const std::vector<TableLine>& lines,
                                      const InputValues& values) {
  const std::pair<std::string_view, const host::Triple&> ends[] = {
      {"MFG_XPOINT", values.point()},
      {"MFG_CIRCLE_X_PT", values.circle().point},
      {"MFG_HELICAL_X_END", values.helix().end}};
  std::vector<host::Triple> printed;
  for (const auto& [name, point] : ends) {
    const bool isPrinted =
        std::ranges::any_of(lines, [&](const TableLine& line) { return line.refersTo(name); });
    if (isPrinted) printed.push_back(point);
  }
  return printed;
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
  const auto stated = statedEnds(element, values_);
  const auto printed = printedEnds(lines_->lines, values_);
  if (stated.empty() || printed.empty()) return;
  const bool isThere =
      std::ranges::any_of(stated, [&](const host::Triple& point) { return isIn(point, printed); });
  if (!isThere) add(otherPoints_, lines_->name, element);
}

bool Comparison::write(const host::Element& element, long point) {
  ++elements_;
  noteOtherPoint(element);
  expected_.set(lines_->lines, values_, document_, lines_->name == kDwell);
  return std::ranges::all_of(
      expected_, [&](const ExpectedStatement& expected) { return take(expected, element, point); });
}

bool Comparison::take(const ExpectedStatement& expected, const host::Element& element, long point) {
  const bool hasStatement = next_(statement_);
  auto mismatch = hasStatement ? compare(expected, statement_, consumer_)
                               : std::optional(Mismatch{{}, "", expected.text()});
  if (!mismatch) {
    count(expected, element);
    return true;
  }
  differ(*std::move(mismatch), hasStatement);
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
