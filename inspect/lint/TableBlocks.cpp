#include "inspect/lint/TableBlocks.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "language/table/CommandSyntax.h"
#include "language/table/CutSyntaxes.h"
#include "language/table/Keywords.h"
#include "language/table/SectionQueries.h"

namespace host {
namespace {

using ppword::Keyword;
using ppword::KeywordKind;

/// Calls `visit` with the pieces of a token between commas.
template <class Visit>
void cut(const Token& token, Visit visit) {
  ppword::cutAtCommas(token.text, [&](std::string_view piece) {
    const auto from = static_cast<std::size_t>(piece.data() - token.text.data());
    visit(Token{piece, token.offset + from});
  });
}

/// The lines of one body as the module reads them: one that was cut takes bytes of the next one.
std::vector<TableLine> mended(std::vector<TableLine> lines) {
  std::vector<std::string> texts;
  texts.reserve(lines.size());
  for (const TableLine& line : lines) texts.push_back(line.text);
  ppword::CutSyntaxes cut(texts);
  cut.mend(0, texts.size());
  texts = cut.elements();
  std::size_t given = 0;  // bytes of this line that the one before took
  for (std::size_t i = 0; i < lines.size(); ++i) {
    TableLine& line = lines[i];
    const std::size_t own = line.text.size() - given;
    line.offset += given;
    line.text = std::move(texts[i]);
    given = line.text.size() - own;
    if (given == 0) continue;
    line.joinedAt = own;
    line.joinedOffset = lines[i + 1].offset;
    // It ends with the comma that it took.
    lines[i + 1].isContinued = true;
  }
  return lines;
}

/// Lines that may be mended together are this many at most, unless the last one was cut.
constexpr std::size_t kMostHeldLines = 4096;

using VisitLine = std::function<void(TableLine& line)>;

class BlockReader {
 public:
  /// Without `blocks` or `visitLine` what they are for is passed over.
  BlockReader(std::string_view text, TableBlocks* blocks, VisitLine visitLine, bool hasBodies)
      : text_(text),
        cursor_(text),
        blocks_(blocks),
        visitLine_(std::move(visitLine)),
        hasBodies_(hasBodies) {}

  void read() {
    while (const auto token = cursor_.nextPlainToken()) readBlock(*token);
  }

 private:
  using Part = TableBlocks::Part;

  void readBlock(const Token& token) {
    const Keyword* const keyword = ppword::keywordIn(token.text);
    if (keyword == nullptr) return;
    if (keyword->kind == KeywordKind::Words) {
      readWords(static_cast<int>(keyword - ppword::kKeywords.data()) + 1, token);
    } else if (keyword->kind == KeywordKind::Syntaxes) {
      readSyntaxes(token);
    } else if (keyword->kind == KeywordKind::List) {
      readList(token);
    } else if (keyword->kind == KeywordKind::Format) {
      readFormat(token);
    } else if (keyword->kind == KeywordKind::Command) {
      const Token name = readName(keyword->namePrefix);
      command_ = name.text;
      if (blocks_ != nullptr) blocks_->commands.push_back({token, name, {}});
      if (hasBodies_) blocks_->bodies.emplace_back();
      readCommand();
      if (blocks_ != nullptr) blocks_->commands.back().end = cursor_.offset();
    }
  }

  void readWords(int kind, const Token& keyword) {
    if (blocks_ != nullptr) blocks_->words.push_back({kind, keyword, {}});
    visitBody([this](const Token& token) {
      if (blocks_ == nullptr) return;
      cut(token, [this](const Token& piece) { blocks_->words.back().pieces.push_back(piece); });
    });
  }

  void readSyntaxes(const Token& keyword) {
    if (blocks_ != nullptr) blocks_->syntaxSections.push_back(keyword);
    // Cut lines are mended in bodies of commands only.
    visitBody([this](const Token& token) {
      TableLine line{std::string(token.text), token.offset};
      line.isFirst = line.isLast = true;
      if (visitLine_) visitLine_(line);
    });
  }

  void readList(const Token& keyword) {
    const TableBlocks::Named list = readNamed(keyword, [](const Token& token, auto& values) {
      cut(token, [&values](const Token& piece) { values.push_back(piece); });
    });
    if (blocks_ != nullptr) blocks_->lists.push_back(list);
  }

  void readFormat(const Token& keyword) {
    const TableBlocks::Named format =
        readNamed(keyword, [](const Token& token, auto& values) { values.push_back(token); });
    if (blocks_ != nullptr) blocks_->formats.push_back(format);
  }

  template <class Add>
  TableBlocks::Named readNamed(const Token& keyword, Add add) {
    TableBlocks::Named named{keyword, readName(ppword::kParameterPrefix), {}};
    visitBody([&](const Token& token) { add(token, named.values); });
    named.end = cursor_.offset();
    return named;
  }

  /// The body of a command with its sequences, up to its own end.
  void readCommand() {
    int depth = 1;
    bool hasOwnLines = false;
    bool hasSequences = false;
    while (depth > 0 && !endsUnclosed({ppword::kSequenceKeyword, ppword::kListKeyword})) {
      const auto token = cursor_.nextPlainToken();
      if (!token) break;
      const auto keyword = ppword::keywordInBody(token->text);
      const bool isLine = !keyword || *keyword == KeywordKind::Insert;
      if (isLine && depth == 1) {
        hasOwnLines = true;
        if (hasSequences && blocks_ != nullptr) blocks_->lostLines.push_back(*token);
      }
      if (!keyword) {
        addLine(*token);
      } else if (*keyword == KeywordKind::List) {
        readList(*token);
      } else if (*keyword == KeywordKind::Sequence) {
        const bool isFirst = !std::exchange(hasSequences, true);
        if (hasOwnLines && isFirst && blocks_ != nullptr) {
          blocks_->mixedSequences.push_back(*token);
        }
        addPart(Part::Kind::Sequence, 0);
        ++depth;
      } else if (*keyword == KeywordKind::End) {
        --depth;
        addPart(Part::Kind::End, 0);
        endLines();
      } else {
        readInsert(*token);
      }
    }
    endLines();
  }

  /// True for a line after which a statement goes on.
  [[nodiscard]] static bool goesOn(std::string_view line) {
    return line.ends_with(',') || line.ends_with('$');
  }

  [[nodiscard]] bool isOnLineOf(std::size_t end, const Token& token) const {
    return text_.substr(end, token.offset - end).find('\n') == std::string_view::npos;
  }

  void readInsert(const Token& keyword) {
    const Token name = readName(ppword::kCommandPrefix);
    if (!body_.empty()) body_.back().isBeforeInsert = true;
    isAfterInsert_ = true;
    if (blocks_ == nullptr) return;
    addPart(Part::Kind::Insert, blocks_->inserts.size());
    blocks_->inserts.push_back({keyword, name});
  }

  /// Visits the tokens up to "*END"; a section that has none ends before the next one.
  template <class Visit>
  void visitBody(Visit visit) {
    while (!endsUnclosed({})) {
      const auto token = cursor_.nextPlainToken();
      if (!token || token->text == ppword::kEndKeyword) break;
      visit(*token);
    }
  }

  /// What the next read returns; an empty token at the end.
  [[nodiscard]] Token peek() const {
    return ppword::TableCursor(cursor_).nextToken().value_or(Token());
  }

  [[nodiscard]] bool endsUnclosed(std::initializer_list<std::string_view> inner) const {
    const Token token = peek();
    return token.text.starts_with("*START_") &&
           std::none_of(inner.begin(), inner.end(),
                        [&](std::string_view keyword) { return token.contains(keyword); });
  }

  /// The name after a keyword; empty when the word there is not one.
  Token readName(std::string_view prefix) {
    if (peek().text.starts_with(prefix)) return *cursor_.nextToken();
    cursor_.nextLine();
    return {};
  }

  void addLine(const Token& token) {
    std::string text(token.text);
    if (ppword::isTextWord(token.text)) {
      const auto rest = cursor_.nextLine();
      if (!rest) return;
      if (visitLine_) text = ppword::textElement(token.text, rest->asRead());
    }
    if (!visitLine_) return;
    TableLine line{std::move(text), token.offset};
    line.command = command_;
    line.isFirst = lastEnd_ == 0;
    line.isAfterInsert = std::exchange(isAfterInsert_, false);
    line.isAfterAnother = lastEnd_ > 0 && isOnLineOf(lastEnd_, token);
    line.isContinued = lastEnd_ > 0 && lastGoesOn_;
    if (hasBodies_) addPart(Part::Kind::Line, blocks_->lines.size() + body_.size());
    lastEnd_ = line.offset + line.text.size();
    lastGoesOn_ = goesOn(line.text);
    const bool isCut = line.text.size() >= ppword::kCutWidth;
    body_.push_back(std::move(line));
    if (body_.size() >= kMostHeldLines && !isCut) visitHeld();
  }

  void addPart(Part::Kind kind, std::size_t index) {
    if (hasBodies_) blocks_->bodies.back().push_back({kind, index});
  }

  void endLines() {
    if (!body_.empty()) body_.back().isLast = true;
    visitHeld();
    isAfterInsert_ = false;
    lastEnd_ = 0;
  }
  void visitHeld() {
    if (body_.empty()) return;
    for (TableLine& line : mended(std::exchange(body_, {}))) visitLine_(line);
  }

  std::string_view text_;
  ppword::TableCursor cursor_;
  TableBlocks* blocks_;
  VisitLine visitLine_;
  bool hasBodies_;
  /// The lines of a body that may still be mended.
  std::vector<TableLine> body_;
  /// Where the last line of the body ends, as it is written, and whether its statement goes on; 0
  /// before the first.
  std::size_t lastEnd_ = 0;
  bool lastGoesOn_ = false;
  bool isAfterInsert_ = false;
  std::string_view command_;
};

}  // namespace

TableBlocks readBlocks(const TableBytes& bytes) {
  TableBlocks blocks;
  const auto store = [&](TableLine& line) { blocks.lines.push_back(std::move(line)); };
  BlockReader(bytes.text(), &blocks, store, true).read();
  return blocks;
}

TableBlocks readBlocksWithoutLines(const TableBytes& bytes) {
  TableBlocks blocks;
  BlockReader(bytes.text(), &blocks, {}, false).read();
  return blocks;
}

void visitLines(const TableBytes& bytes, const std::function<void(const TableLine& line)>& visit) {
  BlockReader(bytes.text(), nullptr, visit, false).read();
}

}  // namespace host
