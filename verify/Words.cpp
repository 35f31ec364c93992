#include "verify/Words.h"

#include <algorithm>
#include <iterator>
#include <utility>

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

constexpr std::array<bool, 256> endsOfWords() {
  std::array<bool, 256> ends{};
  for (const char c : std::string_view("/ ,\t()=$")) ends[static_cast<unsigned char>(c)] = true;
  return ends;
}
constexpr auto kEndsOfWords = endsOfWords();

bool endsWord(char c) { return kEndsOfWords[static_cast<unsigned char>(c)]; }

bool leadsAlongCircle(const Statement& statement) {
  return std::any_of(statement.tokens.begin(), statement.tokens.end(), [&](const Token& token) {
    const auto text = statement.textOf(token);
    return std::ranges::find(kCircleSurfaces, text) != std::end(kCircleSurfaces);
  });
}

constexpr std::size_t kShortWord = sizeof(std::uint64_t) - 1;
constexpr std::size_t kFirstSlots = 256;

/// The bytes of a word after their number.
std::uint64_t packed(std::string_view word) {
  std::uint64_t bytes = word.size();
  for (const char c : word) bytes = bytes << 8U | static_cast<unsigned char>(c);
  return bytes;
}

bool isOneWord(std::string_view word) {
  return !word.empty() && std::ranges::none_of(word, endsWord);
}

}  // namespace

std::string_view nameOf(EventKind kind) { return kNames[static_cast<std::size_t>(kind)]; }

std::span<const WordRow> standardWords() { return kWords; }

Words::Words() : short_(kFirstSlots) {
  for (const WordRow& row : kWords) put(row.word, &row);
}

// Where a word is, or would be.
std::size_t Words::slotOf(std::uint64_t bytes) const {
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15U;
  std::size_t slot = static_cast<std::size_t>((bytes * kSpread) >> 32U) & (short_.size() - 1);
  while (short_[slot].row != nullptr && short_[slot].bytes != bytes) {
    slot = (slot + 1) & (short_.size() - 1);
  }
  return slot;
}

void Words::put(std::string_view word, const WordRow* row) {
  const auto first = static_cast<unsigned char>(word.front());
  beginsText_[first] = beginsText_[first] || row->hasText;
  if (word.size() > kShortWord) {
    long_.insert_or_assign(std::string(word), row);
    return;
  }
  if (shorts_ * 2 >= short_.size()) {
    const auto all = std::exchange(short_, std::vector<Slot>(short_.size() * 2));
    for (const Slot& slot : all) {
      if (slot.row != nullptr) short_[slotOf(slot.bytes)] = slot;
    }
  }
  Slot& slot = short_[slotOf(packed(word))];
  if (slot.row == nullptr) ++shorts_;
  slot = {packed(word), row};
}

bool Words::add(std::string_view word, std::string_view known) {
  const WordRow* const row = find(known);
  if (row == nullptr || !isOneWord(word)) return false;
  put(word, row);
  return true;
}

const WordRow* Words::find(std::string_view word) const {
  if (word.size() <= kShortWord) return short_[slotOf(packed(word))].row;
  const auto found = long_.find(word);
  return found == long_.end() ? nullptr : found->second;
}

const WordRow* Words::textWordOf(std::string_view line) const {
  if (line.empty() || !beginsText_[static_cast<unsigned char>(line.front())]) return nullptr;
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
