#include "verify/Words.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace verify {
namespace {

using enum EventKind;

constexpr std::array<std::string_view, kEventKinds> kNames{
    "moves",    "rapid",   "tool axis",  "circles", "parts of circles",
    "helices",  "contour", "feed rates", "spindle", "tools",
    "coolant",  "dwell",   "units",      "stops",   "cycles",
    "comments", "other",   "unknown"};

constexpr WordRow kWords[] = {
    {"GOTO", Move},
    {"GODLTA", Move},
    {"FROM", Move},
    {"GOHOME", Move},
    {"RAPID", Rapid},
    {"TLAXIS", Axis},
    {"MULTAX", Axis},
    {"CIRCLE", Circle},
    {"AUTOPS", CirclePart},
    {"INDIRV", CirclePart},
    {"INDIRP", CirclePart},
    {"PSIS", CirclePart},
    {"TLON", Contour},
    {"TLLFT", Contour},
    {"TLRGT", Contour},
    {"GOFWD", Contour},
    {"GOLFT", Contour},
    {"GORGT", Contour},
    {"GOBACK", Contour},
    {"GOUP", Contour},
    {"GODOWN", Contour},
    {"GO", Contour},
    {"HELICAL", Helix},
    {"FEDRAT", Feed},
    {"SPINDL", Spindle},
    {"LOADTL", Tool},
    {"TOOLNO", Tool},
    {"SELCTL", Tool},
    {"UNLOAD", Tool},
    {"TURRET", Tool},
    {"CUTTER", Tool},
    {"SETOOL", Tool},
    {"SELECT", Tool},
    {"COOLNT", Coolant},
    {"DELAY", Dwell},
    {"UNITS", Units},
    {"STOP", Stop},
    {"OPSTOP", Stop},
    {"END", Stop},
    {"FINI", Stop},
    {"REWIND", Stop},
    {"BREAK", Stop},
    {"CYCLE", Cycle},
    {"PPRINT", Comment, true},
    {"REMARK", Comment, true},
    {"PARTNO", Comment, true},
    {"INSERT", Comment, true},
    {"LETTER", Comment, true},
    {"TITLES", Comment, true},
    {"DNCMSG", Comment, true},
    {"TPRINT", Comment, true},
    {"AUXFUN", Other},
    {"ARCSLP", Other},
    {"BAXIS", Other},
    {"CLAMP", Other},
    {"CLEARP", Other},
    {"CLDIST", Other},
    {"CUT", Other},
    {"CUTCOM", Other},
    {"DEBUG", Other},
    {"DISPLY", Other},
    {"DNTCUT", Other},
    {"HEAD", Other},
    {"INTOL", Other},
    {"LEADER", Other},
    {"LINTOL", Other},
    {"LOCK", Other},
    {"MACHIN", Other},
    {"MAXDPM", Other},
    {"MAXVEL", Other},
    {"MCHTOL", Other},
    {"MODE", Other},
    {"NOPOST", Other},
    {"OPSKIP", Other},
    {"ORIGIN", Other},
    {"OUTTOL", Other},
    {"OVPLOT", Other},
    {"PITCH", Other},
    {"PIVOTZ", Other},
    {"PLABEL", Other},
    {"POSTN", Other},
    {"PPFUN", Other},
    {"PREFUN", Other},
    {"PROBE", Other},
    {"RESET", Other},
    {"RETRCT", Other},
    {"ROTABL", Other},
    {"ROTATE", Other},
    {"ROTHED", Other},
    {"SAFETY", Other},
    {"SAFPOS", Other},
    {"SEQNO", Other},
    {"SLOWDN", Other},
    {"SWITCH", Other},
    {"SYNC", Other},
    {"SYNCTR", Other},
    {"THREAD", Other},
    {"TMARK", Other},
    {"TOLER", Other},
    {"TRANS", Other},
    {"VERIFY", Other},
    {"ZSURF", Other},
};

// The nested words that make a motion along a drive surface one along a circle.
constexpr std::string_view kCircleSurfaces[] = {"CIRCLE", "CYLNDR"};

bool endsWord(char c) {
  return c == '/' || c == ' ' || c == ',' || c == '\t' || c == '(' || c == ')' || c == '=' ||
         c == '$';
}

bool leadsAlongCircle(const Statement& statement) {
  return std::any_of(statement.tokens.begin(), statement.tokens.end(), [&](const Token& token) {
    const auto text = statement.textOf(token);
    return std::ranges::find(kCircleSurfaces, text) != std::end(kCircleSurfaces);
  });
}

std::unordered_map<std::string_view, const WordRow*> rowsByWord() {
  std::unordered_map<std::string_view, const WordRow*> rows;
  for (const WordRow& row : kWords) rows.emplace(row.word, &row);
  return rows;
}

bool isOneWord(std::string_view word) {
  return !word.empty() && std::ranges::none_of(word, endsWord);
}

}  // namespace

std::string_view nameOf(EventKind kind) { return kNames[static_cast<std::size_t>(kind)]; }

std::span<const WordRow> standardWords() { return kWords; }

bool Words::add(std::string_view word, std::string_view known) {
  const WordRow* const row = find(known);
  if (row == nullptr || !isOneWord(word)) return false;
  added_.insert_or_assign(std::string(word), row);
  return true;
}

const WordRow* Words::find(std::string_view word) const {
  static const std::unordered_map<std::string_view, const WordRow*> rows = rowsByWord();
  if (!added_.empty()) {
    const auto added = added_.find(word);
    if (added != added_.end()) return added->second;
  }
  const auto found = rows.find(word);
  return found == rows.end() ? nullptr : found->second;
}

const WordRow* Words::textWordOf(std::string_view line) const {
  const auto* const end = std::ranges::find_if(line, endsWord);
  const WordRow* const row = find(line.substr(0, static_cast<std::size_t>(end - line.begin())));
  return row != nullptr && row->hasText ? row : nullptr;
}

EventKind Words::kindOf(const Statement& statement) const {
  if (statement.isText && statement.word.empty()) return Comment;
  const WordRow* const row = find(statement.word);
  if (row == nullptr) return Unknown;
  return row->kind == Contour && leadsAlongCircle(statement) ? Circle : row->kind;
}

EventKind EventReader::next(const Statement& statement) {
  const EventKind kind = words_.kindOf(statement);
  if (kind == Comment) return kind;
  const bool endsArc = isInArc_ && kind == Move;
  const WordRow* const row = words_.find(statement.word);
  isInArc_ = row != nullptr && row->kind == Circle;
  return endsArc ? CirclePart : kind;
}

}  // namespace verify
