#include "tools/ppword/VerifyReport.h"

#include <nlohmann/json.hpp>

namespace {

constexpr std::size_t kNameColumns = 18;
constexpr std::size_t kCountColumns = 8;

std::string counted(long count, std::string_view noun) {
  return std::to_string(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

host::Severity severityOf(verify::Weight weight) {
  using enum verify::Weight;
  if (weight == Error) return host::Severity::Error;
  return weight == Warning ? host::Severity::Warning : host::Severity::Note;
}

std::string eventLine(std::string_view name, long count) {
  const std::string digits = std::to_string(count);
  std::string line = "  " + std::string(name);
  line.resize(2 + kNameColumns, ' ');
  if (digits.size() < kCountColumns) line.append(kCountColumns - digits.size(), ' ');
  return line + digits;
}

bool refuses(const Strictness& strictness, const verify::RuleRow& row) {
  if (row.weight == verify::Weight::Error) return !strictness.allows(row.key);
  return strictness.refuses(row.key, row.weight == verify::Weight::Note);
}

host::Diagnostic placeInInput(const verify::Difference& difference, const std::string& input) {
  host::Diagnostic place;
  place.severity = host::Severity::Note;
  place.file = difference.input.file.empty() ? input : difference.input.file;
  place.line = difference.input.line;
  place.key = verify::rowOf(verify::Rule::Difference).key;
  place.message = difference.element + " is here";
  return place;
}

// What is in the text, and what the input has instead.
verify::Finding findingOf(const verify::Difference& difference, long lines) {
  const std::string found = difference.found.empty() ? "the end of the text" : difference.found;
  const std::string due =
      difference.expected.empty() ? "the input has ended" : "the input has " + difference.expected;
  verify::Finding finding{verify::Rule::Difference, difference.text, 1, found + ", where " + due};
  finding.line = difference.line;
  if (finding.place.line == 0) finding.place.line = lines;
  return finding;
}

}  // namespace

host::Diagnostic diagnosticOf(const verify::Finding& finding, const std::string& file) {
  const verify::RuleRow& row = verify::rowOf(finding.rule);
  host::Diagnostic diagnostic;
  diagnostic.severity = severityOf(row.weight);
  diagnostic.file = file;
  diagnostic.line = finding.place.line;
  diagnostic.column = finding.place.column;
  diagnostic.width = static_cast<long>(finding.width);
  diagnostic.key = row.key;
  diagnostic.message = verify::messageOf(finding);
  if (!finding.line.empty()) diagnostic.source = host::excerptOf(finding.line, diagnostic.column);
  return diagnostic;
}

std::vector<host::Diagnostic> diagnosticsOf(const verify::Difference& difference,
                                            const std::string& text, long lines,
                                            const std::string& input) {
  std::vector<host::Diagnostic> places{diagnosticOf(findingOf(difference, lines), text)};
  if (!difference.element.empty()) places.push_back(placeInInput(difference, input));
  return places;
}

Json sightingsJson(const verify::Comparison::Sightings& sightings) {
  Json array = Json::array();
  for (const auto& [name, seen] : sightings) {
    array.push_back(
        {{"name", textJson(name)}, {"count", seen.count}, {"firstLine", seen.first.line}});
  }
  return array;
}

void VerifyReport::add(const verify::Finding& finding, const std::string& file) {
  if (++counts_[static_cast<std::size_t>(finding.rule)] > kMostOfAKind) return;
  findings_.push_back(diagnosticOf(finding, file));
}

void VerifyReport::count(const verify::Statement& statement, verify::EventKind kind) {
  ++statements_;
  ++events_[static_cast<std::size_t>(kind)];
  if (kind != verify::EventKind::Unknown) return;
  const std::string word = statement.word.substr(0, 40);
  const auto known = unknownWords_.find(word);
  if (known != unknownWords_.end()) {
    ++known->second;
  } else if (unknownWords_.size() < kMostUnknownWords) {
    unknownWords_.emplace(word, 1);
  }
}

void VerifyReport::finish(long lines, bool hasSequenceNumbers) {
  lines_ = lines;
  hasSequenceNumbers_ = hasSequenceNumbers;
  if (statements_ == 0) add({verify::Rule::NoStatement, {}, 1, ""});
}

bool VerifyReport::isRefused(const Strictness& strictness) const {
  for (std::size_t rule = 0; rule < counts_.size(); ++rule) {
    if (counts_[rule] > 0 && refuses(strictness, verify::rules()[rule])) return true;
  }
  return false;
}

// True when the text is refused only since --strict asks for it.
bool VerifyReport::isOnlyStrict(const Strictness& strictness) const {
  if (!isRefused(strictness)) return false;
  for (std::size_t rule = 0; rule < counts_.size(); ++rule) {
    const verify::RuleRow& row = verify::rules()[rule];
    const bool isError = row.weight == verify::Weight::Error;
    if (isError && counts_[rule] > 0 && refuses(strictness, row)) return false;
  }
  return true;
}

long VerifyReport::countOf(verify::Weight weight) const {
  long count = 0;
  for (std::size_t rule = 0; rule < counts_.size(); ++rule) {
    if (verify::rules()[rule].weight == weight) count += counts_[rule];
  }
  return count;
}

// The unknown words with their counts.
std::string VerifyReport::unknownText() const {
  constexpr int kMost = 8;
  std::string text;
  int shown = 0;
  for (const auto& [word, count] : unknownWords_) {
    if (++shown > kMost) return text + ", ...";
    text += shown == 1 ? "  " : ", ";
    text += word.empty() ? "no word" : word;
    if (count > 1) text += " (" + std::to_string(count) + ')';
  }
  return text;
}

void VerifyReport::add(const verify::Difference& difference, const std::string& input) {
  ++counts_[static_cast<std::size_t>(verify::Rule::Difference)];
  for (host::Diagnostic& place : diagnosticsOf(difference, file_, lines_, input)) {
    findings_.push_back(std::move(place));
  }
}

void VerifyReport::add(verify::Rule rule, const verify::Comparison::Sightings& sightings,
                       const std::string& input) {
  for (const auto& [name, seen] : sightings) {
    const verify::Finding finding{
        rule, {seen.first.line, 0}, 1, name + ", " + counted(seen.count, "time")};
    add(finding, seen.first.file.empty() ? input : seen.first.file);
  }
}

void VerifyReport::add(const verify::Comparison& comparison, const std::string& input) {
  against_ = {input,
              !comparison.difference(),
              comparison.elements(),
              comparison.verified(),
              comparison.ownOfTable(),
              comparison.notVerified(),
              comparison.leftOut()};
  if (comparison.difference()) add(*comparison.difference(), input);
  add(verify::Rule::NotVerified, against_->notVerified, input);
  add(verify::Rule::OtherPoint, comparison.otherPoints(), input);
  add(verify::Rule::LeftOut, against_->leftOut, input);
}

std::string VerifyReport::againstText() const {
  if (!against_) return {};
  long notVerified = 0;
  for (const auto& [name, seen] : against_->notVerified) notVerified += seen.count;
  std::string text =
      host::terminalSafe(file_) + (against_->agrees ? ": agrees with " : ": differs from ") +
      host::terminalSafe(against_->input) + ": " + counted(against_->elements, "element") + ", " +
      counted(against_->verified, "statement") + " verified, " +
      std::to_string(against_->ownOfTable) + " of them the table's own";
  if (notVerified > 0) text += "; " + std::to_string(notVerified) + " not verified";
  return text + '\n';
}

Json VerifyReport::againstJson() const {
  return {{"file", textJson(against_->input)},
          {"agrees", against_->agrees},
          {"elements", against_->elements},
          {"verified", against_->verified},
          {"ownOfTable", against_->ownOfTable},
          {"notVerified", sightingsJson(against_->notVerified)},
          {"leftOut", sightingsJson(against_->leftOut)}};
}

// What of the findings is not shown.
std::string VerifyReport::moreText() const {
  std::string text;
  for (std::size_t rule = 0; rule < counts_.size(); ++rule) {
    if (counts_[rule] <= kMostOfAKind) continue;
    const std::string key(verify::rules()[rule].key);
    text += "  " + key + ": " + std::to_string(counts_[rule] - kMostOfAKind) + " more\n";
  }
  return text;
}

std::string VerifyReport::eventsText() const {
  std::string text;
  for (std::size_t kind = 0; kind < events_.size(); ++kind) {
    if (events_[kind] == 0) continue;
    const auto event = static_cast<verify::EventKind>(kind);
    text += eventLine(verify::nameOf(event), events_[kind]);
    text += event == verify::EventKind::Unknown ? host::terminalSafe(unknownText()) + '\n' : "\n";
  }
  return text;
}

std::string VerifyReport::verdictText(const Strictness& strictness) const {
  std::string text = isRefused(strictness) ? ": refused" : ": passes";
  const std::pair<verify::Weight, std::string_view> weights[] = {
      {verify::Weight::Error, "error"},
      {verify::Weight::Warning, "warning"},
      {verify::Weight::Note, "note"}};
  for (const auto& [weight, noun] : weights) {
    if (const long count = countOf(weight); count > 0) text += ", " + counted(count, noun);
  }
  return text + (isOnlyStrict(strictness) ? "; refused by --strict\n" : "\n");
}

std::string VerifyReport::text(const Strictness& strictness) const {
  const std::string name = host::terminalSafe(file_);
  std::string text =
      name + ": " + counted(statements_, "statement") + " in " + counted(lines_, "line");
  text += hasSequenceNumbers_ ? ", numbers in columns 73 to 80\n" : "\n";
  return text + eventsText() + moreText() + againstText() + name + verdictText(strictness);
}

Json VerifyReport::unknownJson() const {
  Json json = Json::array();
  for (const auto& [word, count] : unknownWords_) {
    json.push_back({{"word", textJson(word)}, {"count", count}});
  }
  return json;
}

Json VerifyReport::countsJson() const {
  Json json = Json::object();
  for (std::size_t rule = 0; rule < counts_.size(); ++rule) {
    if (counts_[rule] > 0) json[std::string(verify::rules()[rule].key)] = counts_[rule];
  }
  return json;
}

Json VerifyReport::eventsJson() const {
  Json json = Json::object();
  for (std::size_t kind = 0; kind < events_.size(); ++kind) {
    const auto name = verify::nameOf(static_cast<verify::EventKind>(kind));
    if (events_[kind] > 0) json[std::string(name)] = events_[kind];
  }
  return json;
}

Json VerifyReport::json(const Strictness& strictness) const {
  Json json{{"file", textJson(file_)},
            {"passes", !isRefused(strictness)},
            {"lines", lines_},
            {"statements", statements_},
            {"sequenceNumbers", hasSequenceNumbers_},
            {"events", eventsJson()},
            {"unknownWords", unknownJson()},
            {"counts", countsJson()},
            {"diagnostics", Json::array()}};
  if (against_) json["against"] = againstJson();
  for (const host::Diagnostic& finding : findings_) {
    json["diagnostics"].push_back(diagnosticJson(finding));
  }
  return json;
}
