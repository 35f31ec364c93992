#include "inspect/lint/TableBlocks.h"

#include <algorithm>
#include <iterator>
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

/// Adds the pieces of a token between commas.
void cut(const Token& token, std::vector<Token>& pieces) {
  ppword::cutAtCommas(token.text, [&](std::string_view piece) {
    const auto from = static_cast<std::size_t>(piece.data() - token.text.data());
    pieces.push_back({piece, token.offset + from});
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
  }
  return lines;
}

class BlockReader {
 public:
  explicit BlockReader(std::string_view text) : text_(text), cursor_(text) {}

  TableBlocks read() && {
    while (const auto token = cursor_.nextPlainToken()) readBlock(*token);
    return std::move(blocks_);
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
      blocks_.formats.push_back(named(token, keyword->namePrefix));
      blocks_.formats.back().values = body();
      blocks_.formats.back().end = cursor_.offset();
    } else if (keyword->kind == KeywordKind::Command) {
      blocks_.commands.push_back(named(token, keyword->namePrefix));
      blocks_.bodies.emplace_back();
      readCommand();
      blocks_.commands.back().end = cursor_.offset();
    }
  }

  void readWords(int kind, const Token& keyword) {
    blocks_.words.push_back({kind, keyword, {}});
    for (const Token& token : body()) cut(token, blocks_.words.back().pieces);
  }

  void readSyntaxes(const Token& keyword) {
    blocks_.syntaxSections.push_back(keyword);
    // Cut lines are mended in bodies of commands only.
    for (const Token& token : body()) {
      blocks_.lines.push_back({std::string(token.text), token.offset});
    }
  }

  void readList(const Token& keyword) {
    blocks_.lists.push_back(named(keyword, ppword::kParameterPrefix));
    for (const Token& token : body()) cut(token, blocks_.lists.back().values);
    blocks_.lists.back().end = cursor_.offset();
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
        if (hasSequences) blocks_.lostLines.push_back(*token);
      }
      if (!keyword) {
        addLine(*token);
      } else if (*keyword == KeywordKind::List) {
        readList(*token);
      } else if (*keyword == KeywordKind::Sequence) {
        if (hasOwnLines && !std::exchange(hasSequences, true)) {
          blocks_.mixedSequences.push_back(*token);
        }
        hasSequences = true;
        addPart(Part::Kind::Sequence, 0);
        ++depth;
      } else if (*keyword == KeywordKind::End) {
        --depth;
        addPart(Part::Kind::End, 0);
        endLines();
      } else {
        addPart(Part::Kind::Insert, blocks_.inserts.size());
        blocks_.inserts.push_back(named(*token, ppword::kCommandPrefix));
      }
    }
    endLines();
  }

  /// True for a line after which a statement goes on.
  [[nodiscard]] static bool goesOn(std::string_view line) {
    return line.ends_with(',') || line.ends_with('$');
  }

  [[nodiscard]] bool isOnLineOf(const TableLine& line, const Token& token) const {
    const std::size_t end = line.offset + line.text.size();
    return text_.substr(end, token.offset - end).find('\n') == std::string_view::npos;
  }

  /// The tokens up to "*END"; a section that has none ends before the next one.
  std::vector<Token> body() {
    std::vector<Token> tokens;
    while (!endsUnclosed({})) {
      const auto token = cursor_.nextPlainToken();
      if (!token || token->text == ppword::kEndKeyword) break;
      tokens.push_back(*token);
    }
    return tokens;
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

  TableBlocks::Named named(const Token& keyword, std::string_view prefix) {
    if (peek().text.starts_with(prefix)) return {keyword, *cursor_.nextToken(), {}};
    cursor_.nextLine();
    return {keyword, {}, {}};
  }

  void addLine(const Token& token) {
    TableLine line{std::string(token.text), token.offset};
    line.isAfterAnother = !body_.empty() && isOnLineOf(body_.back(), token);
    line.isContinued = !body_.empty() && goesOn(body_.back().text);
    if (ppword::isTextWord(token.text)) {
      const auto rest = cursor_.nextLine();
      if (!rest) return;
      line.text = ppword::textElement(token.text, rest->asRead());
    }
    addPart(Part::Kind::Line, blocks_.lines.size() + body_.size());
    body_.push_back(std::move(line));
  }

  void addPart(Part::Kind kind, std::size_t index) {
    blocks_.bodies.back().push_back({kind, index});
  }

  void endLines() {
    auto lines = mended(std::exchange(body_, {}));
    std::move(lines.begin(), lines.end(), std::back_inserter(blocks_.lines));
  }

  std::string_view text_;
  ppword::TableCursor cursor_;
  TableBlocks blocks_;
  std::vector<TableLine> body_;
};

}  // namespace

TableBlocks readBlocks(const TableBytes& bytes) { return BlockReader(bytes.text()).read(); }

}  // namespace host
