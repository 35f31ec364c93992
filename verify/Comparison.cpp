#include "verify/Comparison.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace verify {
namespace {

constexpr std::string_view kDwell = "NC_DELAY";
/// What the parameters of points have in their names.
constexpr std::string_view kMotionNames[] = {"MFG_XPOINT", "MFG_YPOINT", "MFG_ZPOINT",
                                             "MFG_CIRCLE_", "MFG_HELICAL_"};

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

bool printsMotion(const TableLines::Lines& lines) {
  return std::ranges::any_of(lines, [](const TableLine& line) {
    return line.isComputed() || std::ranges::any_of(kMotionNames, [&](std::string_view name) {
             return line.refersTo(name);
           });
  });
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
std::vector<host::Triple> printedEnds(const TableLines::Lines& lines, const InputValues& values) {
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

bool isInOneLine(const Statement& statement) {
  return statement.tokens.empty() || statement.tokens.back().place.line == statement.place.line;
}

}  // namespace

Comparison::Comparison(const DocumentWords& document, const Words& words, StatementSource next)
    : document_(document),
      words_(words),
      next_(std::move(next)),
      tables_(document, words),
      values_(document) {}

bool Comparison::put(const host::ToolPathEvent& event) {
  if (difference_) return false;
  if (const auto* const activity = std::get_if<host::ActivityStart>(&event)) {
    values_.begin(*activity);
    return true;
  }
  return putElement(std::get<host::Element>(event));
}

// The lines of the instruction and the sequence that an element names.
const TableLines::Lines& Comparison::linesOf(const host::Element& element) {
  int sequence = element.sequence;
  instruction_ = element.instruction.substr(0, element.instruction.find('#'));
  if (element.ppCommand > 0) {
    const auto position = static_cast<std::size_t>(element.ppCommand);
    instruction_ = "PP command " + std::to_string(element.ppCommand);
    if (position <= document_.ppCommands.size()) {
      std::tie(instruction_, sequence) = document_.ppCommands[position - 1];
    }
  }
  const TableLines::Lines* const lines = tables_.find(instruction_, sequence);
  if (lines == nullptr) throw UnknownInstruction{instruction_, placeOf(element)};
  return *lines;
}

bool Comparison::putElement(const host::Element& element) {
  lines_ = &linesOf(element);
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
  const bool isLacking = lines_->empty() || (statesMotion(element) && !printsMotion(*lines_));
  if (isLacking) add(leftOut_, instruction_, element);
}

// A circle or a helix whose end is not in its lines, but another point.
void Comparison::noteOtherPoint(const host::Element& element) {
  if (!element.changes.circle && !element.changes.helix) return;
  const auto stated = statedEnds(element, values_);
  const auto printed = printedEnds(*lines_, values_);
  if (stated.empty() || printed.empty()) return;
  const bool isThere =
      std::ranges::any_of(stated, [&](const host::Triple& point) { return isIn(point, printed); });
  if (!isThere) add(otherPoints_, instruction_, element);
}

bool Comparison::write(const host::Element& element, long point) {
  ++elements_;
  noteOtherPoint(element);
  const auto statements = expectedStatements(*lines_, values_, document_, instruction_ == kDwell);
  return std::ranges::all_of(statements, [&](const ExpectedStatement& expected) {
    return take(expected, element, point);
  });
}

bool Comparison::take(const ExpectedStatement& expected, const host::Element& element, long point) {
  const bool hasStatement = next_(statement_);
  auto mismatch = hasStatement ? compare(expected, statement_) : Mismatch{{}, "", expected.text()};
  if (!mismatch) {
    count(expected, element);
    return true;
  }
  differ(*std::move(mismatch), hasStatement);
  difference_->input = placeOf(element);
  difference_->element = titleOf(element, instruction_, point);
  return false;
}

void Comparison::differ(Mismatch mismatch, bool hasStatement) {
  Difference& difference = difference_.emplace();
  difference.text = mismatch.place;
  if (hasStatement && isInOneLine(statement_)) difference.line = statement_.text;
  difference.found = std::move(mismatch.found);
  difference.expected = std::move(mismatch.expected);
}

// True for a statement that the reader understands, and that is a text of the input otherwise.
bool Comparison::isKnown(const ExpectedStatement& expected) const {
  if (expected.isOpen()) return false;
  return expected.isText || words_.find(expected.word) != nullptr;
}

void Comparison::count(const ExpectedStatement& expected, const host::Element& element) {
  if (!isKnown(expected)) {
    add(notVerified_, instruction_, element);
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
