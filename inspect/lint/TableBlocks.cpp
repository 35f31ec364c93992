#include "inspect/lint/TableBlocks.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "inspect/lint/CutLines.h"
#include "inspect/lint/TextWords.h"

namespace host {
namespace {

constexpr std::array<std::string_view, 4> kWordSections = {
    "*START_MAJOR_WORDS_WITHOUT_PARAMETERS", "*START_MAJOR_WORDS_WITH_TEXT",
    "*START_MAJOR_WORDS_WITH_PARAMETERS", "*START_MINOR_WORDS"};
constexpr std::string_view kStart = "*START_";

/// Adds the pieces of a token between commas.
void cut(const Token& token, std::vector<Token>& pieces) {
  for (std::size_t from = 0; from < token.text.size();) {
    const std::size_t end = std::min(token.text.find(',', from), token.text.size());
    if (end > from) pieces.push_back({token.text.substr(from, end - from), token.offset + from});
    from = end + 1;
  }
}

class BlockReader {
 public:
  explicit BlockReader(std::string_view text) : text_(text), tokens_(text) {}

  TableBlocks read() && {
    for (Token token = tokens_.nextPlain(); !token.text.empty(); token = tokens_.nextPlain()) {
      readBlock(token);
    }
    return std::move(blocks_);
  }

 private:
  void readBlock(const Token& keyword) {
    if (!keyword.contains(kStart)) return;
    for (std::size_t kind = 0; kind < kWordSections.size(); ++kind) {
      if (keyword.contains(kWordSections[kind]))
        return readWords(static_cast<int>(kind) + 1, keyword);
    }
    if (keyword.contains("*START_SYNTAXES")) {
      blocks_.syntaxSections.push_back(keyword);
      // Cut lines are mended in bodies of commands only.
      for (const Token& token : body()) {
        blocks_.lines.push_back({std::string(token.text), token.offset});
      }
    } else if (keyword.contains("*START_LIST")) {
      readList(keyword);
    } else if (keyword.contains("*START_FORMAT")) {
      blocks_.formats.push_back(named(keyword, "MFG_"));
      blocks_.formats.back().values = body();
    } else if (keyword.contains("*START_NC_COMMAND") || keyword.contains("*START_NC_INSTRUCTION")) {
      blocks_.commands.push_back(named(keyword, "NC_"));
      readCommand();
    }
  }

  void readWords(int kind, const Token& keyword) {
    blocks_.words.push_back({kind, keyword, {}});
    for (const Token& token : body()) cut(token, blocks_.words.back().pieces);
  }

  void readList(const Token& keyword) {
    blocks_.lists.push_back(named(keyword, "MFG_"));
    for (const Token& token : body()) cut(token, blocks_.lists.back().values);
  }

  /// The body of a command with its sequences, up to its own end.
  void readCommand() {
    int depth = 1;
    while (depth > 0 && !endsUnclosed({"*START_SEQUENCE", "*START_LIST"})) {
      const Token token = tokens_.nextPlain();
      if (token.text.empty()) break;
      if (token.contains("*START_LIST")) {
        readList(token);
      } else if (token.contains("*START_SEQUENCE")) {
        ++depth;
      } else if (token.contains("*END")) {
        --depth;
        endLines();
      } else if (token.contains("*INSERT")) {
        blocks_.inserts.push_back(named(token, "NC_"));
      } else {
        const bool isBehindAnother = !body_.empty() && isOnLineOf(body_.back(), token);
        addLine(token);
        body_.back().isBehindAnother = isBehindAnother;
      }
    }
    endLines();
  }

  [[nodiscard]] bool isOnLineOf(const TableLine& line, const Token& token) const {
    const std::size_t end = line.offset + line.text.size();
    return text_.substr(end, token.offset - end).find('\n') == std::string_view::npos;
  }

  /// The tokens up to "*END"; a section that has none ends before the next one.
  std::vector<Token> body() {
    std::vector<Token> tokens;
    while (!endsUnclosed({})) {
      const Token token = tokens_.nextPlain();
      if (token.text.empty() || token.text == "*END") break;
      tokens.push_back(token);
    }
    return tokens;
  }

  [[nodiscard]] bool endsUnclosed(std::initializer_list<std::string_view> inner) const {
    const Token token = tokens_.peek();
    return token.text.starts_with(kStart) &&
           std::none_of(inner.begin(), inner.end(),
                        [&](std::string_view keyword) { return token.contains(keyword); });
  }

  TableBlocks::Named named(const Token& keyword, std::string_view prefix) {
    if (tokens_.peek().text.starts_with(prefix)) return {keyword, tokens_.next(), {}};
    tokens_.restOfLine();
    return {keyword, {}, {}};
  }

  void addLine(const Token& token) {
    TableLine line{std::string(token.text), token.offset};
    if (takesRestOfLine(token.text)) line.text += tokens_.restOfLine();
    body_.push_back(std::move(line));
  }

  void endLines() {
    auto mended = mendCutLines(std::exchange(body_, {}));
    std::move(mended.begin(), mended.end(), std::back_inserter(blocks_.lines));
  }

  std::string_view text_;
  TokenScanner tokens_;
  TableBlocks blocks_;
  std::vector<TableLine> body_;
};

}  // namespace

TableBlocks readBlocks(const TableBytes& bytes) { return BlockReader(bytes.text()).read(); }

}  // namespace host
