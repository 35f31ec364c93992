#include <algorithm>

#include "inspect/lint/LineRules.h"
#include "inspect/lint/SyntaxLineReader.h"
#include "post/consumer/Consumer.h"
#include "post/output/LineSink.h"
#include "post/text/Utf8.h"

namespace host {
namespace {

constexpr std::size_t kWidest = kStatementColumns;
constexpr std::size_t kResultWidth = 12;

/// A part of a line that is put out with a width of its own.
struct Piece {
  std::size_t begin;
  std::size_t end;
  std::size_t width;
};

/// References and computed numbers, from left to right; a wider one stands before those inside.
std::vector<Piece> piecesOf(const LineReading& reading, const LintParameters& parameters) {
  std::vector<Piece> pieces;
  for (const LineResult& result : reading.results) {
    pieces.push_back({result.begin, result.end, kResultWidth});
  }
  for (const LineReference& reference : reading.references) {
    pieces.push_back({reference.start, reference.end(), parameters.widthOf(reference.parameter)});
  }
  std::sort(pieces.begin(), pieces.end(), [](const Piece& left, const Piece& right) {
    return left.begin != right.begin ? left.begin < right.begin : left.end > right.end;
  });
  return pieces;
}

/// The columns of a line, and where it passes the widest.
struct Width {
  std::size_t widest = kWidest;
  std::size_t columns = 0;
  std::size_t passedAt = std::string_view::npos;
  /// True when the line can go on in another one after each comma, which needs a $.
  bool goesOn = false;

  void add(std::size_t position, std::size_t width) {
    columns += width;
    if (columns > widest) passedAt = std::min(passedAt, position);
  }
};

/// A mask is put out as one percent sign.
std::size_t characterSize(std::string_view text, std::size_t at) {
  if (text.substr(at).starts_with(ppword::kPercentMask)) return ppword::kPercentMask.size();
  return std::max<std::size_t>(utf8Length(text, at), 1);
}

/// Where the line goes on after its commas, it has as many columns again.
void addText(std::string_view text, std::size_t from, std::size_t end, Width& width) {
  for (; from < end; from += characterSize(text, from)) {
    const bool isEnd = width.goesOn && text[from] == ',' && from + 1 < text.size();
    width.add(from, isEnd ? 2 : 1);
    if (isEnd) width.columns = 0;
  }
}

Width widthOf(const LineReading& reading, const LintParameters& parameters, Width width) {
  std::size_t at = 0;
  for (const Piece& piece : piecesOf(reading, parameters)) {
    if (piece.begin < at) continue;
    addText(reading.text, at, piece.begin, width);
    width.add(piece.begin, piece.width);
    at = piece.end;
  }
  addText(reading.text, at, reading.text.size(), width);
  // A mark of continuation comes after a comma.
  if (reading.text.ends_with(',')) width.add(reading.text.size() - 1, 1);
  return width;
}

/// The first word that is too long among what is written between references; a view of the
/// reading's flat text.
std::string_view longWordOf(const LineReading& reading, int longest, bool isText) {
  return longest == 0 ? std::string_view() : longWord(reading.flat, longest, isText);
}

}  // namespace

void lintParameters(const LineReading& reading, const LintParameters& parameters,
                    LineReport& report) {
  for (const LineReference& reference : reading.references) {
    const std::string_view name = reference.parameter;
    if (reference.isExpression || !mayBeParameter(name) || parameters.knows(name)) continue;
    const auto begin = static_cast<std::size_t>(name.data() - reading.text.data());
    const std::string prefix(reading.text.substr(reference.start, 1));
    std::string subject = prefix;
    subject += reading.written(begin, name.size());
    const bool isShown = report.isShown(LintKey::UnknownParameter);
    const std::string_view meant = isShown ? parameters.nearestTo(name) : std::string_view();
    const std::string written = prefix + std::string(meant);
    if (!meant.empty()) (subject += ", perhaps ") += meant;
    // Blanks before the name are not replaced.
    const bool isKnown = !meant.empty() && begin == reference.start + 1;
    report.warn(LintKey::UnknownParameter, reference.start, 1 + name.size(), subject,
                isKnown ? std::string_view(written) : std::string_view());
  }
}

void lintWidth(const LineReading& reading, const LintParameters& parameters, LineReport& report) {
  const Width width = widthOf(reading, parameters, {});
  if (width.columns <= kWidest) return;
  report.warn(LintKey::WideLine, width.passedAt, 1, std::to_string(width.columns) + " columns");
}

void lintConsumer(const LineReading& reading, const LintParameters& parameters,
                  const Consumer& consumer, bool isText, LineReport& report) {
  const std::string_view text = reading.text;
  if (const std::string_view word = longWordOf(reading, consumer.longestWord, isText);
      !word.empty()) {
    const auto begin = static_cast<std::size_t>(word.data() - reading.flat.data());
    report.warn(LintKey::UnfitLine, begin, word.size(), word);
  }
  for (std::size_t at = 0; at < text.size(); at += characterSize(text, at)) {
    const std::string_view character = characterAt(text, at);
    if (takes(consumer, character) || replacementOf(character, consumer) != '\0') continue;
    report.warn(LintKey::UnfitLine, at, character.size(), character);
    break;
  }
  if (consumer.columns == 0) return;
  const auto widest = static_cast<std::size_t>(consumer.columns);
  const Width width = widthOf(reading, parameters, {.widest = widest, .goesOn = !isText});
  if (width.passedAt == std::string_view::npos) return;
  report.warn(LintKey::UnfitLine, width.passedAt, 1,
              "more than " + std::to_string(consumer.columns) + " columns");
}

}  // namespace host
