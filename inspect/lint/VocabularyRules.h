#pragma once

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "inspect/lint/LineRules.h"
#include "inspect/lint/LintVocabulary.h"

namespace host {

/// What the lines and the lists of a table use. It takes memory for each word and parameter, not
/// for each place of one; only the places of words that the vocabulary does not hold are stored.
class TableUses {
 public:
  /// Whether the value of a parameter is printed, and whether it is an operand, so that a result is
  /// printed.
  struct Printing {
    bool isPrinted = false;
    bool isComputed = false;
  };
  using Parameters = std::map<std::string, Printing, std::less<>>;

  /// The bytes of the table must outlive the object.
  explicit TableUses(std::string_view table) : table_(table) {}

  /// A word that a line prints as it is written, and where it is in the table.
  void addWord(std::string_view word, std::size_t offset, bool isKnown);
  /// A word that a line defines, as in P1=POINT/0,0,0.
  void addSymbol(std::string_view word) { symbols_.emplace(word); }
  /// A parameter that a line refers to.
  void addParameter(std::string_view name, bool isComputed);

  /// How often a word is used.
  [[nodiscard]] long count(std::string_view word) const;
  [[nodiscard]] bool isSymbol(std::string_view word) const { return symbols_.contains(word); }
  /// The words, each once, in their order.
  [[nodiscard]] std::vector<std::string_view> words() const;
  /// The places of words that the vocabulary does not hold, in the order of their lines.
  [[nodiscard]] const std::deque<Token>& unknown() const noexcept { return unknown_; }
  [[nodiscard]] const Parameters& parameters() const noexcept { return parameters_; }

 private:
  [[nodiscard]] std::string_view placed(std::string_view word, std::size_t offset);

  std::string_view table_;
  std::unordered_map<std::string_view, long> counts_;
  std::deque<Token> unknown_;
  std::set<std::string, std::less<>> symbols_;
  Parameters parameters_;
  /// Words that are not in the table in one piece.
  std::deque<std::string> owned_;
};

/// Warns of a major word without its "/", an empty argument and a parameter that is printed as its
/// name; adds what the line uses to `uses`.
void lintWordsOfLine(const TableLine& line, const LineReading& reading,
                     const LintVocabulary& vocabulary, LineReport& report, TableUses& uses);

/// Warns of words that the vocabulary does not hold, and of words of sections that nothing uses.
void lintVocabulary(const TableBlocks& blocks, const LintVocabulary& vocabulary,
                    const TableUses& uses, LintFindings& findings);

/// Warns of lists, formats and instructions with a name that nothing uses, and of formats without
/// effect.
void lintNamesOfBlocks(const TableBlocks& blocks, const TableUses& uses, LintFindings& findings);

}  // namespace host
