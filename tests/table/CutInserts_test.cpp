#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/table/TableFiles.h"

namespace {

// A piece of a command: an element, or the command that is inserted.
struct Piece {
  std::string element;
  std::size_t inserted = 0;  // 0: none; nothing inserts the first command
};
using Command = std::vector<Piece>;
using Commands = std::vector<Command>;

// Where the first comma of `next` ends when it belongs to `line`, else 0.
std::size_t taken(const std::string& line, const std::string& next) {
  if (line.size() != 80 || line[79] == ',') return 0;
  int at = 78;
  while (at >= 0 && line[static_cast<std::size_t>(at)] != ',' &&
         line[static_cast<std::size_t>(at)] != '%') {
    --at;
  }
  if (at < 0 || line[static_cast<std::size_t>(at)] == ',') return 0;
  const std::size_t comma = next.find(',');
  return comma == std::string::npos || comma == 0 ? 0 : comma + 1;
}

Texts mendedOnce(const Texts& cut) {
  Texts mended;
  std::size_t gone = 0;
  for (std::size_t i = 0; i < cut.size(); ++i) {
    const std::string next = i + 1 < cut.size() ? cut[i + 1] : "";
    const std::size_t added = taken(cut[i], next);
    mended.push_back(cut[i].substr(gone) + next.substr(0, added));
    gone = added;
  }
  return mended;
}

enum class Mending { EveryLevel, OutermostOnly };

// What a command describes, word for word: the lists of its inserts in their places, mended.
Texts described(const Commands& commands, std::size_t index, Mending mending) {
  Texts elements;
  for (const Piece& piece : commands[index]) {
    if (piece.inserted == 0) {
      elements.push_back(piece.element);
      continue;
    }
    for (std::string& element : described(commands, piece.inserted, mending)) {
      elements.push_back(std::move(element));
    }
  }
  return mending == Mending::EveryLevel || index == 0 ? mendedOnce(elements) : elements;
}

std::string tableOf(const Commands& commands) {
  std::string table;
  for (std::size_t i = 0; i < commands.size(); ++i) {
    table += "*START_NC_COMMAND NC_" + std::to_string(i) + "\n";
    for (const Piece& piece : commands[i]) {
      table += piece.inserted == 0 ? piece.element : "*INSERT NC_" + std::to_string(piece.inserted);
      table += '\n';
    }
    table += "*END\n";
  }
  return table;
}

// Makes commands whose elements are often cut, and often wide enough again once they are mended.
class CommandMaker {
 public:
  explicit CommandMaker(unsigned seed) : random_(seed) {}

  Commands commands() {
    Commands commands(1 + below(6));
    for (std::size_t i = 0; i < commands.size(); ++i) {
      for (std::size_t left = below(5); left > 0; --left) {
        commands[i].push_back(piece(i, commands.size()));
      }
      // Long chains, of which many hold nothing else.
      if (i + 1 < commands.size() && below(2) == 0) commands[i].push_back({"", i + 1});
    }
    return commands;
  }

 private:
  std::size_t below(std::size_t bound) { return random_() % bound; }

  Piece piece(std::size_t index, std::size_t count) {
    if (index + 1 < count && below(4) == 0) {
      return {"", index + 1 + below(count - index - 1)};
    }
    switch (below(4)) {
      case 0:
        return {text(1 + below(12))};
      case 1:
        return {text(below(12)) + ',' + text(80)};
      default:
        return {text(80)};
    }
  }

  std::string text(std::size_t size) {
    std::string text(size, 'x');
    for (std::size_t left = below(3); left > 0 && size > 0; --left) text[below(size)] = '%';
    if (size > 0 && below(3) == 0) text[below(size)] = ',';
    return text;
  }

  std::mt19937 random_;
};

TEST(CutInserts, RandomInsertsAreMendedAsWrittenOutWordForWord) {
  constexpr int kTables = 2'000;
  CommandMaker maker(20);
  int mended = 0;
  int mendedAgain = 0;
  for (int i = 0; i < kTables; ++i) {
    const Commands commands = maker.commands();
    const Texts expected = described(commands, 0, Mending::EveryLevel);
    const std::string table = tableOf(commands);
    const TableFile file(table);
    KEPMfgPPTableTxt reader(file.path());
    KEPListValKEPString elements;
    ASSERT_TRUE(reader.GetSyntaxOfCommand("NC_0", elements)) << table;
    ASSERT_EQ(texts(elements), expected) << table;
    const Texts once = described(commands, 0, Mending::OutermostOnly);
    mendedAgain += once == expected ? 0 : 1;
    mended += mendedOnce(once) == once && once == expected ? 0 : 1;
  }
  EXPECT_GT(mended, kTables / 20);
  EXPECT_GT(mendedAgain, kTables / 40);
}

}  // namespace
