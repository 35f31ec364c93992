// One mistake in each letter of clean tables: how many of them the lint reports.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "inspect/lint/Lint.h"
#include "inspect/lint/LintCatalogue.h"
#include "tests/support/Mutator.h"

namespace host {
namespace {

using Names = std::set<std::string, std::less<>>;

const Names& aptWords() {
  static const Names words = {
#define APT_WORD(name, kind) #name,
#include "inspect/lint/AptWords.def"
#undef APT_WORD
  };
  return words;
}

/// A word, name or keyword of a table.
struct Place {
  std::size_t at;
  std::string text;
  /// What is before it in the table.
  char before;
};

bool isLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }
bool isOfWord(char c) {
  return isLetter(c) || std::isdigit(static_cast<unsigned char>(c)) || c == '_';
}

/// The words, names and keywords of a table, without the text outside of its blocks and after words
/// with text.
std::vector<Place> placesIn(const std::string& table) {
  std::vector<Place> places;
  int depth = 0;
  std::size_t begin = 0;
  while (begin < table.size()) {
    const std::size_t end = std::min(table.find('\n', begin), table.size());
    const std::string line = table.substr(begin, end - begin);
    const bool isStart = line.starts_with("*START");
    if (isStart) ++depth;
    for (std::size_t i = 0; i < line.size() && depth > 0;) {
      if (!isLetter(line[i])) {
        i += isOfWord(line[i]) ? line.find_first_not_of("0123456789_", i) - i : 1;
        continue;
      }
      std::size_t last = i;
      while (last < line.size() && isOfWord(line[last])) ++last;
      const std::string word = line.substr(i, last - i);
      // What begins with "%" and digits is a format.
      const bool isFormat = line.starts_with('%') && line.find(',') == std::string::npos;
      if (!isFormat) places.push_back({begin + i, word, i == 0 ? ' ' : line[i - 1]});
      const bool isText = word == "PPRINT" || word == "PARTNO" || word == "INSERT";
      if (isText && i == 0 && line.find(',') == std::string::npos) break;
      i = last;
    }
    if (line.starts_with("*END")) --depth;
    begin = end + 1;
  }
  return places;
}

/// What a mistake in a table can mean.
class Table {
 public:
  explicit Table(std::string text) : text_(std::move(text)), places_(placesIn(text_)) {
    for (const Place& place : places_) ++counts_[place.text];
  }

  struct Score {
    long counted = 0;
    long reported = 0;
    std::set<std::string> known;
    std::set<std::string> missed;
  };

  void measure(Score& score) const {
    for (const Place& place : places_) {
      if (!isDetermined(place)) continue;
      for (std::size_t i = 0; i < place.text.size(); ++i) {
        if (isLetter(place.text[i])) mistake(place, i, score);
      }
    }
  }

  [[nodiscard]] std::vector<Diagnostic> warnings(const std::string& text) const {
    auto all = lintTable(TableBytes(text), "T");
    std::erase_if(all, [](const auto& finding) { return finding.severity == Severity::Note; });
    return all;
  }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  [[nodiscard]] bool isKeyword(const Place& place) const { return place.before == '*'; }

  /// True for what another place of the table, the vocabulary or the parameters determine.
  [[nodiscard]] bool isDetermined(const Place& place) const {
    return isKeyword(place) || isKnown(place.text) || counts_.at(place.text) > othersNeeded(place);
  }

  /// In a table without sections two words that are each used once may both be meant: a word must
  /// be used twice elsewhere to be known.
  [[nodiscard]] int othersNeeded(const Place& place) const {
    const bool isName = place.text.starts_with("NC_") || place.text.starts_with("MFG_");
    return isName || text_.find("_WORD") != std::string::npos ? 1 : 2;
  }

  [[nodiscard]] bool isKnown(const std::string& word) const {
    const LintCatalogue& catalogue = lintCatalogue();
    return aptWords().contains(word) || catalogue.words.contains(word) ||
           catalogue.parameters.contains(word) || catalogue.instructions.contains(word);
  }

  void mistake(const Place& place, std::size_t i, Score& score) const {
    const std::string& word = place.text;
    std::set<std::string> wrong;
    wrong.insert(std::string(word).erase(i, 1));
    wrong.insert(std::string(word).insert(i, 1, word[i]));
    std::string replaced = word;
    replaced[i] = word[i] == 'K' ? 'W' : 'K';
    wrong.insert(replaced);
    if (i + 1 < word.size()) {
      std::string swapped = word;
      std::swap(swapped[i], swapped[i + 1]);
      wrong.insert(swapped);
    }
    wrong.erase(word);
    for (const std::string& text : wrong) judge(place, text, score);
  }

  void judge(const Place& place, const std::string& wrong, Score& score) const {
    if (isKnown(wrong) || counts_.contains(wrong)) {
      score.known.insert(place.text + " -> " + wrong);
      return;
    }
    ++score.counted;
    std::string text = text_;
    text.replace(place.at, place.text.size(), wrong);
    if (!warnings(text).empty()) {
      ++score.reported;
    } else {
      score.missed.insert(place.text + " -> " + wrong);
    }
  }

  std::string text_;
  std::vector<Place> places_;
  std::map<std::string, int> counts_;
};

std::string fileText(const std::string& name) {
  std::ifstream file(std::string(PPWORD_SOURCE_DIR "/examples/") + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

void expectReported(const std::string& name, const Table& table) {
  for (const Diagnostic& finding : table.warnings(table.text())) {
    ADD_FAILURE() << name << ':' << finding.line << ": " << finding.key << ": " << finding.message;
  }
  Table::Score score;
  table.measure(score);
  std::cout << name << ": " << score.reported << " of " << score.counted << " mistakes reported; "
            << score.known.size() << " make another known name\n";
  for (const std::string& missed : score.missed) std::cout << "  missed " << missed << '\n';
  for (const std::string& known : score.known) std::cout << "  known " << known << '\n';
  EXPECT_GE(score.reported * 100, score.counted * 95) << name;
}

/// Makes clean tables: words of standard APT and of the machine's own, in lines, lists and, if the
/// table has them, sections.
class TableGenerator {
 public:
  explicit TableGenerator(unsigned seed) : random_(seed) {}

  std::string table(bool hasSections) {
    own_.clear();
    used_.clear();
    text_.clear();
    while (own_.size() < 4) own_.push_back(ownWord());
    std::string commands = command("NC_GOTO", "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT");
    commands += command("NC_FEEDRATE", "FEDRAT/%MFG_FEED_VALUE,&MFG_FEED_UNIT");
    commands += command("NC_SAFE_STOP", statement());
    commands += command("NC_END_MACRO", "*INSERT NC_SAFE_STOP\n" + statement());
    for (int i = 0; i < 4; ++i) commands += command("NC_OWN" + std::to_string(i), statement());
    if (hasSections) addSections();
    return text_ + "*START_FORMAT MFG_XPOINT\n%10.4f\n*END\n" +
           "*START_LIST MFG_FEED_UNIT\nMMPM,MMPR\n*END\n" + commands;
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }

  std::string ownWord() {
    std::string word;
    while (word.size() < 6) word += "BCDFGHJKLMNPQRSTVWXZ"[below(20)];
    return word;
  }
  std::string standardWord() {
    auto at = aptWords().begin();
    std::advance(at, static_cast<long>(below(aptWords().size())));
    const Names withText = {"DISPLY", "DNCMSG", "INSERT", "LETTER", "PARTNO",
                            "PPRINT", "REMARK", "TITLES", "TPRINT"};
    return withText.contains(*at) ? standardWord() : *at;
  }
  std::string used(std::string word) {
    used_.insert(word);
    return word;
  }
  /// Twice, so that a table without sections has each of its own words twice.
  std::string statement() {
    const std::string major = used(own_[below(own_.size())]);
    const std::string lines =
        used(standardWord()) + '/' + used(standardWord()) + ',' + major + '\n';
    return lines + major + "/%MFG_XPOINT,&MFG_FEED_UNIT," + used(standardWord()) + '\n';
  }
  static std::string command(const std::string& name, const std::string& lines) {
    return "*START_NC_COMMAND " + name + '\n' + lines + (lines.ends_with('\n') ? "" : "\n") +
           "*END\n";
  }
  void addSections() {
    for (const char* const word : {"GOTO", "FEDRAT", "MMPM", "MMPR"}) used_.insert(word);
    text_ = "*START_MAJOR_WORDS_WITH_PARAMETERS\n";
    int code = 0;
    for (const std::string& word : used_) text_ += word + ',' + std::to_string(++code) + '\n';
    text_ += "*END\n";
  }

  std::mt19937 random_;
  std::vector<std::string> own_;
  Names used_;
  std::string text_;
};

TEST(LintMistakes, OfGeneratedTablesAreReported) {
  const unsigned seed = chosenSeed();
  std::cout << "seed " << seed << " (PPWORD_TEST_SEED repeats it)\n";
  TableGenerator tables(seed);
  expectReported("with sections", Table(tables.table(true)));
  expectReported("without sections", Table(tables.table(false)));
}

TEST(LintMistakes, OfTheTableForMillingAreReported) {
  expectReported("mill.pptable", Table(fileText("mill.pptable")));
}

TEST(LintMistakes, OfTheTableForMillTurningAreReported) {
  expectReported("mill-turn.pptable", Table(fileText("mill-turn.pptable")));
}

}  // namespace
}  // namespace host
