#include "inspect/compare/TableReading.h"

#include <algorithm>
#include <utility>

#include "inspect/lint/TableBlocks.h"
#include "language/number/IntegerPrefix.h"
#include "language/table/CommandQueries.h"
#include "language/table/CommandSyntax.h"
#include "language/table/MemorySource.h"
#include "language/table/SectionQueries.h"

namespace host {
namespace {

using Part = TableBlocks::Part;

/// A body that is walked through, and its next part.
struct Frame {
  std::size_t block;
  std::size_t part;
};

/// The pieces of the first section of each kind, as the reader finds them.
std::vector<Token> piecesOf(const TableBlocks& blocks) {
  std::vector<Token> pieces;
  for (int kind = 1; kind <= ppword::kWordKinds; ++kind) {
    const auto first = std::find_if(blocks.words.begin(), blocks.words.end(),
                                    [kind](const auto& section) { return section.kind == kind; });
    if (first == blocks.words.end()) continue;
    pieces.insert(pieces.end(), first->pieces.begin(), first->pieces.end());
  }
  return pieces;
}

/// The codes among the pieces of words and codes; what is not a number is left out.
std::vector<int> codesOf(const std::vector<std::string>& pieces) {
  std::vector<int> codes;
  for (std::size_t i = 1; i < pieces.size(); i += 2) {
    if (const auto code = ppword::integerPrefix(pieces[i])) codes.push_back(*code);
  }
  return codes;
}

/// Leaves the last value of each name.
void keepLast(std::vector<TableReading::Value>& values) {
  std::unordered_map<std::string_view, std::size_t> last;
  for (std::size_t i = 0; i < values.size(); ++i) last[values[i].name] = i;
  std::vector<TableReading::Value> kept;
  std::vector<bool> isLast(values.size());
  for (const auto& [name, i] : last) isLast[i] = true;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (isLast[i]) kept.push_back(std::move(values[i]));
  }
  values = std::move(kept);
}

std::string joined(const std::vector<std::string>& values) {
  std::string text;
  for (const std::string& value : values) (text += text.empty() ? "" : ",") += value;
  return text;
}

}  // namespace

/// Asks the reader of tables, and finds places in the blocks.
class TableReading::Reader {
 public:
  explicit Reader(const TableBytes& bytes)
      : bytes_(bytes),
        blocks_(readBlocks(bytes)),
        visitsLeft_(2 * ppword::mostLinesOfLoad(bytes.text())),
        reading_(bytes.text(), ppword::mostBytesOfLoad(bytes.text())),
        linesLeft_(ppword::mostLinesOfLoad(bytes.text())) {
    indexBlocks();
  }

  [[nodiscard]] std::optional<std::vector<Word>> words() const;
  [[nodiscard]] std::optional<std::vector<Value>> syntaxes() const;
  [[nodiscard]] std::vector<Command> commands();
  [[nodiscard]] std::vector<Value> valuesOf(std::string_view keyword);
  [[nodiscard]] std::optional<Lines> linesOf(const Command& command, std::size_t sequence);

 private:
  void indexBlocks();
  template <class WalkKeywords, class Visit>
  void visitNames(WalkKeywords walk, std::string_view prefix, Visit visit);
  [[nodiscard]] std::optional<std::string> textAt(long position, std::string_view keyword);
  [[nodiscard]] std::vector<long> sequencesAt(long body);
  void locate(const Command& command, std::size_t sequence, Lines& lines);
  [[nodiscard]] bool walkParts(std::size_t block, std::size_t sequence, Lines& lines);
  [[nodiscard]] std::size_t firstPart(std::size_t block, std::size_t sequence);

  const TableBytes& bytes_;
  TableBlocks blocks_;
  /// The commands of the blocks by the places of their names, and the first one of each name.
  std::unordered_map<std::size_t, std::size_t> blockAt_;
  std::unordered_map<std::string_view, std::size_t> blockOf_;
  /// The block whose sequences were asked for last, and after which of its parts they begin.
  std::size_t lastBlock_ = std::string::npos;
  std::vector<std::size_t> firstParts_;
  /// How many parts may still be visited to find places.
  std::size_t visitsLeft_;
  ppword::MemorySource reading_;
  std::size_t linesLeft_;
  std::optional<ppword::CommandPositions> positions_;
};

TableReading::TableReading(const TableBytes& bytes)
    : bytes_(bytes),
      reader_(std::make_unique<Reader>(bytes)),
      words_(reader_->words()),
      syntaxes_(reader_->syntaxes()),
      formats_(reader_->valuesOf(ppword::kFormatKeyword)),
      lists_(reader_->valuesOf(ppword::kListKeyword)),
      commands_(reader_->commands()) {}

TableReading::~TableReading() = default;

std::optional<TableReading::Lines> TableReading::linesOf(const Command& command,
                                                         std::size_t sequence) {
  return reader_->linesOf(command, sequence);
}

void TableReading::Reader::indexBlocks() {
  for (const std::string_view keyword : {ppword::kCommandKeyword, ppword::kInstructionKeyword}) {
    for (std::size_t i = 0; i < blocks_.commands.size(); ++i) {
      const TableBlocks::Named& command = blocks_.commands[i];
      if (command.name.text.empty() || !command.keyword.contains(keyword)) continue;
      blockAt_.emplace(command.name.offset, i);
      blockOf_.try_emplace(command.name.text, i);
    }
  }
}

std::optional<std::vector<TableReading::Word>> TableReading::Reader::words() const {
  ppword::MemorySource source(bytes_.text());
  std::vector<int> kinds;
  std::vector<std::string> pieces;
  if (!ppword::listOfPPValues(source, kinds, pieces)) return std::nullopt;
  const std::vector<int> codes = codesOf(pieces);
  const std::vector<Token> places = piecesOf(blocks_);
  std::vector<Word> words;
  for (std::size_t i = 0; i < pieces.size(); i += 2) {
    const bool isThere = i < places.size() && places[i].text == pieces[i];
    words.push_back({std::move(pieces[i]), kinds[i],
                     i / 2 < codes.size() ? std::optional(codes[i / 2]) : std::nullopt,
                     isThere ? places[i].offset : 0});
  }
  return words;
}

std::optional<std::vector<TableReading::Value>> TableReading::Reader::syntaxes() const {
  ppword::MemorySource source(bytes_.text());
  std::vector<std::string> read;
  std::vector<Value> syntaxes;
  if (!ppword::listOfSyntaxes(source, read)) return std::nullopt;
  if (read.empty()) return syntaxes;
  const std::size_t begin = blocks_.syntaxSections.front().offset;
  auto place = std::partition_point(blocks_.lines.begin(), blocks_.lines.end(),
                                    [begin](const TableLine& line) { return line.offset < begin; });
  for (std::string& text : read) {
    const bool isThere = place != blocks_.lines.end() && place->text == text;
    syntaxes.push_back({std::move(text), "", isThere ? place->offset : begin});
    if (isThere) ++place;
  }
  return syntaxes;
}

/// Calls `visit` with each name after the keywords of a walk, and the position after it.
template <class WalkKeywords, class Visit>
void TableReading::Reader::visitNames(WalkKeywords walk, std::string_view prefix, Visit visit) {
  ppword::MemorySource source(bytes_.text());
  walk(source, [&] {
    const long here = source.position();
    if (const auto name = ppword::nextName(source, prefix)) {
      visit(std::string(*name), source.position());
    }
    return !source.seek(here);
  });
}

std::vector<TableReading::Value> TableReading::Reader::valuesOf(std::string_view keyword) {
  std::vector<Value> all;
  const auto walk = [keyword](auto& source, auto visit) {
    ppword::walkKeyword(source, keyword, visit);
  };
  visitNames(walk, ppword::kParameterPrefix, [&](const std::string& name, long after) {
    all.push_back({name, textAt(after, keyword), static_cast<std::size_t>(after) - name.size()});
  });
  keepLast(all);
  return all;
}

/// The text of the format or list after whose name the position is.
std::optional<std::string> TableReading::Reader::textAt(long position, std::string_view keyword) {
  reading_.seek(position);
  std::vector<std::string> values;
  std::string text;
  const bool isList = keyword == ppword::kListKeyword;
  const bool isRead =
      isList ? ppword::readValues(reading_, values) : ppword::readFormat(reading_, text);
  if (!isRead) return std::nullopt;
  return isList ? joined(values) : text;
}

std::vector<TableReading::Command> TableReading::Reader::commands() {
  std::vector<Command> commands;
  const auto walk = [](auto& source, auto visit) { ppword::walkCommands(source, visit); };
  visitNames(walk, ppword::kCommandPrefix, [&](const std::string& name, long body) {
    commands.push_back({name, static_cast<std::size_t>(body) - name.size(), sequencesAt(body)});
  });
  return commands;
}

std::vector<long> TableReading::Reader::sequencesAt(long body) {
  std::vector<long> sequences{body};
  reading_.seek(body);
  ppword::SequenceWalk walk(reading_);
  while (walk.next()) {
    if (walk.count() > 1) sequences.push_back(reading_.position());
  }
  return walk.closed() ? sequences : std::vector<long>();
}

std::optional<TableReading::Lines> TableReading::Reader::linesOf(const Command& command,
                                                                 std::size_t sequence) {
  if (linesLeft_ == 0 || sequence >= command.sequences.size()) return std::nullopt;
  if (!reading_.seek(command.sequences[sequence])) return std::nullopt;
  auto read = ppword::readSyntax(reading_, command.name, positions_);
  if (!read) return std::nullopt;
  linesLeft_ -= std::min(linesLeft_, read->size());
  Lines lines;
  lines.all.reserve(read->size());
  for (std::string& text : *read) {
    lines.all.push_back({std::move(text), command.offset, command.name});
  }
  locate(command, sequence, lines);
  return lines;
}

/// Sets the places of lines. Where the blocks do not match them it is that of the command.
void TableReading::Reader::locate(const Command& command, std::size_t sequence, Lines& lines) {
  const auto block = blockAt_.find(command.offset);
  if (block != blockAt_.end() && walkParts(block->second, sequence, lines)) return;
  for (Line& line : lines.all) {
    line.offset = command.offset;
    line.owner = command.name;
  }
  lines.inserted.clear();
}

/// Walks through the parts of a sequence, those of inserted bodies in their places.
bool TableReading::Reader::walkParts(std::size_t block, std::size_t sequence, Lines& lines) {
  std::size_t next = 0;
  std::vector<Frame> frames{{block, firstPart(block, sequence)}};
  while (!frames.empty()) {
    if (visitsLeft_ == 0 || frames.size() > blocks_.commands.size()) return false;
    --visitsLeft_;
    auto& [at, number] = frames.back();
    const auto& parts = blocks_.bodies[at];
    if (number == parts.size() || parts[number].kind == Part::Kind::End) {
      frames.pop_back();
      continue;
    }
    const auto [kind, index] = parts[number++];
    if (kind == Part::Kind::Line) {
      if (next == lines.all.size()) return false;
      lines.all[next].offset = blocks_.lines[index].offset;
      lines.all[next++].owner = blocks_.commands[at].name.text;
    } else if (kind == Part::Kind::Insert) {
      const auto inserted = blockOf_.find(blocks_.inserts[index].name.text);
      if (inserted == blockOf_.end()) return false;
      ++lines.inserted[inserted->first];
      frames.push_back({inserted->second, 0});
    }
  }
  return next == lines.all.size();
}

/// The first part of a sequence; a body is its own first sequence.
std::size_t TableReading::Reader::firstPart(std::size_t block, std::size_t sequence) {
  if (lastBlock_ != block) {
    lastBlock_ = block;
    firstParts_.clear();
    const auto& parts = blocks_.bodies[block];
    for (std::size_t i = 0; i < parts.size(); ++i) {
      if (parts[i].kind == Part::Kind::Sequence) firstParts_.push_back(i + 1);
    }
  }
  return sequence == 0 || sequence >= firstParts_.size() ? 0 : firstParts_[sequence];
}

}  // namespace host
