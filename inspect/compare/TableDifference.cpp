#include "inspect/compare/TableDifference.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "inspect/compare/LineDifference.h"
#include "inspect/compare/TableReading.h"

namespace host {
namespace {

using Section = TableChange::Section;
using What = TableChange::What;
using Side = TableChange::Side;
using Word = TableReading::Word;
using Value = TableReading::Value;
using Command = TableReading::Command;
using Line = TableReading::Line;
using Lines = TableReading::Lines;

std::vector<std::string_view> textsOf(const Lines& lines) {
  std::vector<std::string_view> texts;
  texts.reserve(lines.all.size());
  for (const Line& line : lines.all) texts.push_back(line.text);
  return texts;
}

std::optional<std::string> codeText(const Word& word) {
  return word.code ? std::optional(std::to_string(*word.code)) : std::nullopt;
}

/// How often a command is inserted.
std::size_t timesOf(const Lines& lines, std::string_view owner) {
  const auto found = lines.inserted.find(owner);
  return found == lines.inserted.end() ? 0 : found->second;
}

/// Compares two tables.
class Comparison {
 public:
  Comparison(const TableBytes& before, const TableBytes& after) : before_(before), after_(after) {}

  std::vector<TableChange> changes() && {
    compareWords();
    compareSyntaxes();
    compareValues(Section::Formats, before_.formats(), after_.formats());
    compareValues(Section::Lists, before_.lists(), after_.lists());
    compareCommands();
    return std::move(changes_);
  }

 private:
  /// The entries of two lists with the same name, and whatever is in one list only.
  template <class Entry, class Compare>
  static void pair(const std::vector<Entry>& before, const std::vector<Entry>& after,
                   std::string Entry::*name, Compare compare) {
    // The number of entries of a name, so that the second one is compared with the second one.
    using Places = std::unordered_map<std::string_view, std::vector<const Entry*>>;
    Places places;
    for (const Entry& entry : after) places[entry.*name].push_back(&entry);
    std::unordered_map<std::string_view, std::size_t> used;
    for (const Entry& entry : before) {
      const auto found = places.find(entry.*name);
      std::size_t& next = used[entry.*name];
      const bool isThere = found != places.end() && next < found->second.size();
      compare(&entry, isThere ? found->second[next] : nullptr);
      ++next;
    }
    std::unordered_map<std::string_view, std::size_t> met;
    for (const Entry& entry : after) {
      const auto done = used.find(entry.*name);
      if (++met[entry.*name] > (done == used.end() ? 0 : done->second)) compare(nullptr, &entry);
    }
  }

  template <class Part>
  bool bothRead(Section section, const std::optional<Part>& before,
                const std::optional<Part>& after) {
    if (before && after) return true;
    if (before || after) {
      changes_.push_back({section, What::Reading, "", 0, sideWhen(!before), sideWhen(!after), ""});
    }
    return false;
  }

  /// The side of a table whose section cannot be read.
  static std::optional<Side> sideWhen(bool isUnread) {
    return isUnread ? std::optional(Side{{0, 0}, std::nullopt}) : std::nullopt;
  }

  template <class Entry>
  static std::optional<Side> sideOf(const TableReading& table, const Entry* entry,
                                    std::optional<std::string> text, int kind = 0) {
    if (entry == nullptr) return std::nullopt;
    return Side{table.placeOf(entry->offset), std::move(text), kind};
  }

  // --- Words and codes

  void compareWords() {
    if (!bothRead(Section::Words, before_.words(), after_.words())) return;
    std::unordered_set<std::string_view> changed;
    const auto old = firstOfEach(*before_.words());
    const auto now = firstOfEach(*after_.words());
    pair(old, now, &Word::text, [&](const Word* before, const Word* after) {
      if (compareWord(before, after)) changed.insert((before != nullptr ? before : after)->text);
    });
    compareCodes(changed);
  }

  /// A word that is there twice means what its first place says.
  static std::vector<Word> firstOfEach(const std::vector<Word>& words) {
    std::unordered_set<std::string_view> met;
    std::vector<Word> first;
    for (const Word& word : words) {
      if (met.insert(word.text).second) first.push_back(word);
    }
    return first;
  }

  bool compareWord(const Word* before, const Word* after) {
    const std::size_t count = changes_.size();
    if (before == nullptr || after == nullptr) {
      addWord(What::Entry, before, after);
    } else {
      if (before->kind != after->kind) addWord(What::Kind, before, after);
      if (before->code != after->code) addWord(What::Code, before, after);
    }
    return changes_.size() > count;
  }

  void addWord(What what, const Word* before, const Word* after) {
    changes_.push_back({Section::Words, what, (before != nullptr ? before : after)->text, 0,
                        sideOfWord(before_, before), sideOfWord(after_, after), ""});
  }

  static std::optional<Side> sideOfWord(const TableReading& table, const Word* word) {
    if (word == nullptr) return std::nullopt;
    return sideOf(table, word, codeText(*word), word->kind);
  }

  using WordOfCode = std::map<int, const Word*>;

  static WordOfCode wordsOfCodes(const std::vector<Word>& words) {
    WordOfCode found;
    for (const Word& word : words) {
      if (word.code) found.try_emplace(*word.code, &word);
    }
    return found;
  }

  /// Compares the words that are found for codes, without what changed words explain.
  void compareCodes(const std::unordered_set<std::string_view>& changed) {
    const WordOfCode old = wordsOfCodes(*before_.words());
    const WordOfCode now = wordsOfCodes(*after_.words());
    for (const auto& [code, word] : old) {
      const auto found = now.find(code);
      compareCode(code, word, found == now.end() ? nullptr : found->second, changed);
    }
    for (const auto& [code, word] : now) {
      if (!old.contains(code)) compareCode(code, nullptr, word, changed);
    }
  }

  void compareCode(int code, const Word* before, const Word* after,
                   const std::unordered_set<std::string_view>& changed) {
    if (before != nullptr && changed.contains(before->text)) return;
    if (after != nullptr && changed.contains(after->text)) return;
    if (before != nullptr && after != nullptr && before->text == after->text) return;
    changes_.push_back({Section::Codes, What::Word, std::to_string(code), 0,
                        sideOf(before_, before, before == nullptr ? "" : before->text),
                        sideOf(after_, after, after == nullptr ? "" : after->text), ""});
  }

  // --- Free syntaxes, formats and lists

  void compareSyntaxes() {
    if (!bothRead(Section::Syntaxes, before_.syntaxes(), after_.syntaxes())) return;
    compareValues(Section::Syntaxes, *before_.syntaxes(), *after_.syntaxes());
  }

  void compareValues(Section section, const std::vector<Value>& before,
                     const std::vector<Value>& after) {
    pair(before, after, &Value::name, [&](const Value* old, const Value* now) {
      const bool isBoth = old != nullptr && now != nullptr;
      if (isBoth && old->text == now->text) return;
      changes_.push_back({section, isBoth ? What::Text : What::Entry,
                          (old != nullptr ? old : now)->name, 0, sideOfValue(before_, old),
                          sideOfValue(after_, now), ""});
    });
  }

  static std::optional<Side> sideOfValue(const TableReading& table, const Value* value) {
    return value == nullptr ? std::nullopt : sideOf(table, value, value->text);
  }

  // --- Commands and instructions

  void compareCommands() {
    pair(before_.commands(), after_.commands(), &Command::name,
         [&](const Command* before, const Command* after) {
           if (before == nullptr || after == nullptr) {
             addCommand(What::Entry, before, after);
           } else {
             compareSequences(*before, *after);
           }
         });
    takeFound();
  }

  /// What an insert brings is reported with the inserted command, if that changed.
  void takeFound() {
    for (Found& found : found_) {
      if (found.lines.empty() || changed_.contains(found.change.through)) {
        changes_.push_back(std::move(found.change));
      } else {
        std::move(found.lines.begin(), found.lines.end(), std::back_inserter(changes_));
      }
    }
  }

  void addCommand(What what, const Command* before, const Command* after,
                  std::size_t sequence = 1) {
    const std::string& name = (before != nullptr ? before : after)->name;
    found_.push_back(
        {{Section::Instructions, what, name, sequence, sideOf(before_, before, std::nullopt),
          sideOf(after_, after, std::nullopt), ""},
         {}});
    changed_.insert(name);
  }

  void compareSequences(const Command& before, const Command& after) {
    const std::size_t old = before.sequences.size();
    const std::size_t now = after.sequences.size();
    if ((old == 0) != (now == 0)) {
      addCommand(What::Reading, old == 0 ? &before : nullptr, now == 0 ? &after : nullptr);
      return;
    }
    for (std::size_t sequence = 0; sequence < std::max(old, now); ++sequence) {
      if (sequence >= std::min(old, now)) {
        addCommand(What::Sequence, old > now ? &before : nullptr, old > now ? nullptr : &after,
                   sequence + 1);
      } else {
        compareSequence(before, after, sequence);
      }
    }
  }

  void compareSequence(const Command& before, const Command& after, std::size_t sequence) {
    const auto old = before_.linesOf(before, sequence);
    const auto now = after_.linesOf(after, sequence);
    if (!old || !now) {
      if (old || now) {
        addCommand(What::Reading, old ? nullptr : &before, now ? nullptr : &after, sequence + 1);
      }
      return;
    }
    const auto oldTexts = textsOf(*old);
    const auto newTexts = textsOf(*now);
    if (oldTexts == newTexts) return;
    LinesOfSequence lines{before.name, sequence + 1, *old, *now, {}};
    for (const LineHunk& hunk : lineHunks(oldTexts, newTexts)) addHunk(lines, hunk);
  }

  /// A sequence whose lines differ, and where in `found_` those of each inserted command are.
  struct LinesOfSequence {
    const std::string& name;
    std::size_t number;
    const Lines& before;
    const Lines& after;
    std::unordered_map<std::string_view, std::size_t> inserts;
  };

  /// The first old line is shown with the first new one and so on.
  void addHunk(LinesOfSequence& lines, const LineHunk& hunk) {
    const std::size_t removed = hunk.before.end - hunk.before.begin;
    const std::size_t added = hunk.after.end - hunk.after.begin;
    for (std::size_t i = 0; i < std::max(removed, added); ++i) {
      addLine(lines, i < removed ? &lines.before.all[hunk.before.begin + i] : nullptr,
              i < added ? &lines.after.all[hunk.after.begin + i] : nullptr);
    }
  }

  void addLine(LinesOfSequence& sequence, const Line* before, const Line* after) {
    TableChange change{Section::Instructions,
                       What::Line,
                       sequence.name,
                       sequence.number,
                       sideOf(before_, before, before == nullptr ? "" : before->text),
                       sideOf(after_, after, after == nullptr ? "" : after->text),
                       ""};
    const std::string_view owner = insertedOwner(sequence, before, after);
    if (owner.empty()) {
      changed_.insert(sequence.name);
      found_.push_back({std::move(change), {}});
      return;
    }
    const auto [known, isNew] = sequence.inserts.try_emplace(owner, found_.size());
    if (isNew) {
      found_.push_back({change, {}});
      found_.back().change.what = What::Insert;
      found_.back().change.through = owner;
    }
    found_[known->second].lines.push_back(std::move(change));
  }

  /// The command that is inserted as often as before and in which differing lines are; empty when
  /// they are in the body itself or in different ones.
  static std::string_view insertedOwner(const LinesOfSequence& sequence, const Line* before,
                                        const Line* after) {
    const std::string_view owner = (before != nullptr ? before : after)->owner;
    if (owner == sequence.name ||
        (before != nullptr && after != nullptr && after->owner != owner)) {
      return {};
    }
    const bool isSame = timesOf(sequence.before, owner) == timesOf(sequence.after, owner);
    return isSame ? owner : std::string_view();
  }

  /// A change, or what may be one of an inserted command, and its lines.
  struct Found {
    TableChange change;
    std::vector<TableChange> lines;
  };

  TableReading before_;
  TableReading after_;
  std::vector<TableChange> changes_;
  /// Of commands, and the names of those with changes in their own bodies.
  std::vector<Found> found_;
  std::unordered_set<std::string> changed_;
};

}  // namespace

std::vector<TableChange> tableChanges(const TableBytes& before, const TableBytes& after) {
  return Comparison(before, after).changes();
}

}  // namespace host
