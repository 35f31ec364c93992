#include "host/explain/PassNotes.h"

#include <optional>
#include <string_view>

#include "host/explain/CommaTrail.h"

namespace host {
namespace {

using Operation = KEPMfgPPWordListener::Operation;
using Source = KEPMfgPPWordListener::Source;

constexpr std::size_t kNone = std::string_view::npos;

std::string quoted(std::string_view text) { return "«" + std::string(text) + "»"; }

std::string quotedOrNothing(std::string_view text) {
  return text.empty() ? "nothing" : quoted(text);
}

bool isComment(std::string_view line) {
  return line.find("$$") != kNone || line.find("PPRINT") != kNone || line.find("*VORTA") != kNone;
}

/// What is odd about the name of a reference.
void addNameNotes(const ExplainedReference& reference, std::vector<std::string>& notes) {
  const std::string_view name = reference.name;
  if (reference.prefix == "%(") {
    if (name.find(',') != kNone) {
      notes.push_back("the expression " + quoted(name.substr(1)) +
                      " is asked for with \",\" where the syntax has a \"+\", \"-\" or \"*\"");
    }
    return;
  }
  if (name.starts_with(' ') || name.ends_with(' ')) {
    notes.push_back("the blanks of " + quoted(name) +
                    " belong to the name: a type is looked for with them");
  }
  const std::size_t first = name.find_first_not_of(' ');
  const std::size_t last = name.find_last_not_of(' ');
  const std::string_view inner = first == kNone ? "" : name.substr(first, last - first + 1);
  if (inner.find_first_of(" /=&%(\"\n") != kNone) {
    notes.push_back(
        "the name is longer than it looks: it goes on to the next comma, or to the end "
        "of the line, as " +
        quoted(inner));
  }
}

void addAnswerNotes(const ExplainedReference& reference, std::optional<CommaTrail>& trail,
                    std::vector<std::string>& notes) {
  if (!reference.text) return;
  const auto sign = trail ? trail->signBehind(reference) : std::nullopt;
  if (reference.source != Source::Nobody) return;
  const std::string name = quoted(reference.name);
  if (sign) {
    notes.push_back("the name " + name + " is cut by the \"" + *sign + "\" behind it");
  }
  notes.push_back(reference.text->empty()
                      ? name + " cannot be evaluated and is dropped; the separators around it stay"
                      : name + " cannot be evaluated: " + quoted(*reference.text) +
                            ", the text of MFG_UNEVALUATED_PPPARAMETER, takes its place");
}

std::string cutNote(const ExplainedCut& cut) {
  const std::string what = quoted(cut.text) + " behind the name " + quoted(cut.name);
  return cut.text.starts_with(')')
             ? what + " is cut off: each of its characters comes back as \")\""
             : what + " is cut off and lost";
}

std::optional<std::string> operationNote(const ExplainedOperation& ended, std::string_view pass) {
  // A lost sign has a note of its own.
  if (pass == "restore signs") return std::nullopt;
  const std::string operation = quoted(ended.operation);
  if (ended.outcome == Operation::Kept) {
    // A group is tried with each prefix; the last one tells.
    if (pass == "groups &" || pass == "groups %(") return std::nullopt;
    return operation + " is not computed and stays: " +
           (pass == "evaluate" ? "not both operands are numbers"
                               : "a side has no number, or the divisor is 0");
  }
  if (ended.outcome == Operation::Computed) return std::nullopt;
  const bool lacksLeft = std::string_view("+-*").find(ended.operation.front()) != kNone;
  const bool lacksRight = std::string_view("+-*").find(ended.operation.back()) != kNone;
  if (lacksLeft && lacksRight) return operation + " is deleted: it has no operand";
  if (lacksRight) return operation + " is deleted: nothing stands behind the sign";
  if (ended.operation.front() == '-') {
    return operation + " is deleted: what stands behind the sign is no number";
  }
  return operation + " is deleted: nothing stands in front of the sign";
}

void addOwnNotes(std::optional<CommaTrail>& trail, ExplainedPass& pass) {
  for (const ExplainedReference& reference : pass.references) {
    addNameNotes(reference, pass.notes);
    addAnswerNotes(reference, trail, pass.notes);
  }
  for (const ExplainedCut& cut : pass.cuts) pass.notes.push_back(cutNote(cut));
  for (const ExplainedOperation& operation : pass.operations) {
    if (auto note = operationNote(operation, pass.name)) pass.notes.push_back(std::move(*note));
  }
}

void addSignNotes(const CommaTrail& trail, ExplainedPass& restored) {
  for (const CommaTrail::Sign& sign : trail.signs()) {
    if (!trail.isMoved(sign)) continue;
    const auto place = trail.placeOf(sign);
    std::string note =
        std::string("the \"") + sign.sign + "\" behind " + quotedOrNothing(sign.before);
    note += place ? " stands behind " + quotedOrNothing(*place) +
                        " now: it takes the place of comma " + std::to_string(sign.ordinal) +
                        ", and the commas in front of it are no longer as many"
                  : " is lost: it takes the place of comma " + std::to_string(sign.ordinal) +
                        ", which the line no longer has";
    restored.notes.push_back(std::move(note));
  }
}

}  // namespace

void addNotes(ExplainedLine& line) {
  std::optional<CommaTrail> trail;
  std::string_view before;
  for (ExplainedPass& pass : line.passes) {
    addOwnNotes(trail, pass);
    if (pass.name == "mask signs") {
      trail.emplace(before, pass.line);
    } else if (pass.name == "restore signs" && trail) {
      addSignNotes(*trail, pass);
    } else if (pass.name == "evaluate") {
      // Its signs are back: there is nothing to follow.
      if (trail && !trail->signs().empty() && isComment(pass.line)) {
        pass.notes.emplace_back("a comment or a print: its signs stay, nothing is computed");
      }
    } else if (trail) {
      trail->follow(pass);
    }
    before = pass.line;
  }
}

}  // namespace host
