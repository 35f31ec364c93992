#include <algorithm>
#include <string>

#include "inspect/lint/LineWords.h"
#include "inspect/lint/VocabularyRules.h"
#include "language/table/Keywords.h"

namespace host {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// True when the word is the whole line, or has its "/" after it.
bool isStatement(const LineReading& reading, const LineWord& word) {
  return word.end() == reading.text.size() || reading.text[word.end()] == '/' ||
         reading.text[word.end()] == ' ';
}

/// Warns of a major word that has something else than a "/" after it.
void missingSlash(const TableLine& line, const LineReading& reading, const LineWord& word,
                  const LintVocabulary& vocabulary, LineReport& report) {
  if (word.at > 0 || line.isContinued || isStatement(reading, word)) return;
  if (vocabulary.kindOf(word.text) != WordKind::Major || vocabulary.isModifier(word.text)) return;
  report.warn(LintKey::MissingSlash, word.end(), 1, word.text);
}

/// A word that a reference touches is not one of the words of a line: GOTO%MFG_XPOINT.
void missingSlashBeforeReference(const TableLine& line, const LineReading& reading,
                                 const LintVocabulary& vocabulary, LineReport& report) {
  if (line.isContinued || reading.isProse || reading.references.empty()) return;
  const std::size_t end = reading.references.front().start;
  const std::string_view word = reading.text.substr(0, end);
  if (word.empty() || !std::all_of(word.begin(), word.end(), isWordCharacter)) return;
  if (vocabulary.kindOf(word) != WordKind::Major) return;
  report.warn(LintKey::MissingSlash, end, 1, word);
}

void bareParameter(const LineReading& reading, LineReport& report) {
  if (reading.isProse) return;
  for (std::size_t at = reading.text.find(ppword::kParameterPrefix); at != kNone;
       at = reading.text.find(ppword::kParameterPrefix, at + 1)) {
    if (at > 0 && isWordCharacter(reading.text[at - 1])) continue;
    // A percent sign is printed before it on purpose.
    if (reading.text.substr(0, at).ends_with(ppword::kPercentMask)) continue;
    const bool isInside = std::any_of(
        reading.references.begin(), reading.references.end(),
        [at](const LineReference& each) { return at >= each.start && at < each.end(); });
    if (isInside) continue;
    std::size_t end = at;
    while (end < reading.text.size() && isWordCharacter(reading.text[end])) ++end;
    report.warn(LintKey::BareParameter, at, end - at, reading.written(at, end - at));
  }
}

void referenceInName(const LineReading& reading, LineReport& report) {
  for (const LineReference& reference : reading.references) {
    const std::size_t inner = reference.name.find_first_of("%& /)");
    // The rest of a name that goes on has a warning of its own.
    if (reference.isExpression || inner == kNone || reference.name.find_first_of("%&") != inner) {
      continue;
    }
    report.warn(LintKey::ReferenceInName, reference.start + 1 + inner, 1,
                reading.written(reference.start, 1 + reference.name.size()));
  }
}

/// Warns of a "," directly after "/", "," or "(", of a ")" after ",", and of a "/" at the end.
void emptyArgument(const LineReading& reading, LineReport& report) {
  if (reading.isProse) return;
  const std::string_view text = reading.text;
  for (std::size_t at = 1; at < text.size(); ++at) {
    const bool begins = text[at - 1] == '/' || text[at - 1] == '(';
    const bool isEmpty =
        text[at - 1] == ',' ? text[at] == ',' || text[at] == ')' : begins && text[at] == ',';
    if (isEmpty) report.warn(LintKey::EmptyArgument, at, 1, reading.written(at - 1, 2));
  }
  if (text.ends_with('/')) report.warn(LintKey::EmptyArgument, text.size() - 1, 1, reading.line);
}

/// True for what names a machine or a macro: the first argument of MACHIN and CALL.
bool isFreeName(const LineReading& reading, const LineWord& word) {
  const std::string_view before = reading.text.substr(0, word.at);
  return before == "MACHIN/" || before == "CALL/";
}

bool isComputed(const LineReading& reading, const LineReference& reference) {
  return std::any_of(reading.results.begin(), reading.results.end(), [&](const LineResult& each) {
    return each.begin <= reference.start && reference.end() <= each.end &&
           !(reference.isExpression && each.begin == reference.start);
  });
}

}  // namespace

void lintWordsOfLine(const TableLine& line, const LineReading& reading,
                     const LintVocabulary& vocabulary, LineReport& report, TableUses& uses) {
  missingSlashBeforeReference(line, reading, vocabulary, report);
  bareParameter(reading, report);
  referenceInName(reading, report);
  emptyArgument(reading, report);
  for (const LineReference& reference : reading.references) {
    uses.addParameter(reference.parameter, isComputed(reading, reference));
  }
  // The line before it is one with a blank too many.
  if (line.isAfterAnother) return;
  for (const LineWord& word : wordsOf(reading)) {
    if (word.text.starts_with(ppword::kParameterPrefix)) continue;
    if (word.text.starts_with(ppword::kCommandPrefix) && !vocabulary.knows(word.text)) {
      report.warn(LintKey::BareInstruction, word.at, word.text.size(), word.text);
      continue;
    }
    missingSlash(line, reading, word, vocabulary, report);
    const bool isDefined = word.end() < reading.text.size() && reading.text[word.end()] == '=';
    if (isDefined) uses.addSymbol(word.text);
    const bool isKnown = vocabulary.knows(word.text);
    if (isFreeName(reading, word) && !isKnown) continue;
    uses.addWord(word.text, line.offsetOf(reading.lineOffset(word.at)), isKnown);
    if (vocabulary.kindOf(word.text) == WordKind::Text) break;
  }
}

}  // namespace host
