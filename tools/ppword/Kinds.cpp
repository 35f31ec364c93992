#include "tools/ppword/Kinds.h"

#include <algorithm>

#include "inspect/lint/LintRules.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Refusal.h"
#include "verify/Rules.h"

namespace {

constexpr Kind kPostKinds[] = {
    {kUnevaluated, "post", "warning", "a parameter cannot be evaluated",
     "correct its name, or state its value in the job",
     "Nothing, or the text of MFG_UNEVALUATED_PPPARAMETER, is in its place in the line.", "", ""},
    {kWithoutNumber, "post", "warning", "a format prints no digit of a number",
     "write a format such as %10.4f", "The line has an empty argument, or text without the number.",
     "", ""},
    {kCutOff, "post", "warning", "the end of a parameter's name is cut off",
     "put a comma directly after the name",
     "What is after a ) or $ in a name is dropped, or replaced by ).", "", ""},
    {kDeleted, "post", "warning", "an operation is deleted", "write both operands",
     "An operand was missing, or a sign lost its place: a value of the line is not in the text.",
     "", ""},
    {kNeverGiven, "post", "warning", "a value is printed that nothing has stated",
     "state it in the job: points, axis, circle, helix, feedrate, spindle",
     "The motion buffers begin with zeros: a move without a point goes to 0,0,0.", "", ""},
    {kImpossible, "post", "warning", "a value is stated that no machine can mean",
     "correct it in the job",
     "A tool axis whose length differs from 1 by more than 0.0001, a negative feed rate or speed, "
     "a circle or helix of radius 0, a number of 1e15 or more.",
     "", ""},
    {kMisspelt, "post", "warning", "a parameter of a job has an unknown name",
     "correct the name; a parameter that a user added belongs under customParameters",
     "No reference asks for the parameter, and it is one mistake away from a known one.", "", ""},
    {kBareComment, "post", "warning", "a comment of the listing is written as a statement",
     "use --comments none, or a table with the lines *START_NC_INSTRUCTION NC_OUTPUT_COMMENT, "
     "PPRINT %MFG_OUTPUT_COMMENT and *END",
     "The line does not begin with PPRINT, REMARK, $$ or a word with text of the table, so that a "
     "reader takes the text for a statement: (FROM/0,0,5) would be a motion.",
     "", ""},
    {kLostCall, "post", "warning", "a call of the listing is only partly in the text",
     "see docs/listing-format.md for what becomes of each call",
     "The table has no word for what the call says, coolant for example.", "", ""},
    {kLostMove, "post", "warning", "a move of the listing is not in the text",
     "see docs/listing-format.md for what becomes of each call",
     "The machine would stay where it is.", "", ""},
    {kUnknownCall, "post", "warning", "a call of the listing is unknown", "correct the listing",
     "It may be a move.", "", ""},
    {kMachineCoordinates, "post", "warning",
     "an NC program moves in machine coordinates that are unknown",
     "name the machine's parameters with --machine FILE",
     "G53, G28 and G30 move to places of the machine. Without its offsets these are taken as 0: a "
     "retract to the top of the machine becomes a traverse to the zero of the part.",
     "", ""},
    {kTableEntry, "post", "warning", "an entry of the table is not loaded",
     "ppword check --lint TABLE says why",
     "The built-in entry of that name, or none, is used in its place.", "", ""},
};

// From here on the rules are those of the check without the lint.
constexpr auto kFirstOfCheck = static_cast<std::size_t>(host::LintKey::NoSection);

std::string_view weightName(verify::Weight weight) {
  using enum verify::Weight;
  if (weight == Error) return "error";
  return weight == Warning ? "warning" : "note";
}

std::vector<Kind> makeKinds() {
  std::vector<Kind> kinds;
  for (const host::LintRule& rule : host::lintRules()) {
    kinds.push_back({rule.key, "check", host::severityName(rule.severity), rule.fault, rule.hint,
                     rule.about, rule.reported, rule.sound, kinds.size() < kFirstOfCheck});
  }
  kinds.insert(kinds.end(), std::begin(kPostKinds), std::end(kPostKinds));
  for (const verify::RuleRow& row : verify::rules()) {
    // The check of tables has one of them too.
    if (row.key == kWideLine) continue;
    kinds.push_back({row.key, "verify", weightName(row.weight), row.fault, row.hint, row.about,
                     row.reported, row.sound});
  }
  return kinds;
}

/// Adds the keys of a list between commas.
void addKeys(std::string_view text, std::vector<std::string_view>& keys) {
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(',', at), text.size());
    keys.push_back(kindOf(text.substr(at, end - at)).key);
    at = end + 1;
  }
}

bool holds(const std::vector<std::string_view>& keys, std::string_view key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

}  // namespace

std::span<const Kind> allKinds() {
  static const std::vector<Kind> kinds = makeKinds();
  return kinds;
}

const Kind& kindOf(std::string_view key) {
  const auto all = allKinds();
  const auto found =
      std::find_if(all.begin(), all.end(), [key](const Kind& kind) { return kind.key == key; });
  if (found != all.end()) return *found;
  std::vector<std::string_view> keys;
  keys.reserve(all.size());
  for (const Kind& kind : all) keys.push_back(kind.key);
  if (key.starts_with("ERR_")) {
    throw UsageError{"'" + std::string(key) + "' is an error, which is always refused"};
  }
  throw UsageError{"there is no kind '" + std::string(key) +
                   "' ('ppword check --explain' lists all)" + suggestion(key, keys)};
}

Strictness::Strictness(const StrictnessOptions& options) {
  for (const std::string& keys : options.refused) {
    if (keys == kAllKinds) {
      all_ = true;
    } else {
      addKeys(keys, refused_);
    }
  }
  for (const std::string& keys : options.allowed) addKeys(keys, allowed_);
}

std::string_view Strictness::lintKey() const {
  const auto found = std::find_if(refused_.begin(), refused_.end(),
                                  [](std::string_view key) { return kindOf(key).needsLint; });
  return found == refused_.end() ? std::string_view() : *found;
}

bool Strictness::allows(std::string_view key) const { return holds(allowed_, key); }

bool Strictness::refuses(std::string_view key, bool isNote) const {
  if (allows(key)) return false;
  return holds(refused_, key) || (all_ && !isNote);
}
