#pragma once

#include <string_view>
#include <vector>

#include "inspect/lint/LineRules.h"
#include "inspect/lint/LintVocabulary.h"

namespace host {

/// What the lines of a table use.
struct TableUses {
  /// A word that a line prints as it is written.
  struct Word {
    std::string_view text;
    /// Where it is in the table.
    std::size_t offset;
  };
  /// A parameter that a line refers to.
  struct Parameter {
    std::string name;
    /// True when its value is an operand: what is printed is a result.
    bool isComputed;
  };

  std::vector<Word> words;
  /// Those that a line defines, as in P1=POINT/0,0,0.
  std::vector<std::string_view> symbols;
  std::vector<Parameter> parameters;
};

/// Warns of a major word without its "/", an empty argument and a parameter that is printed as its
/// name; adds what the line uses to `uses`, whose texts are valid as long as the line.
void lintWordsOfLine(const TableLine& line, const LineReading& reading,
                     const LintVocabulary& vocabulary, LineReport& report, TableUses& uses);

/// Warns of words that the vocabulary does not hold, and of words of sections that nothing uses.
void lintVocabulary(const TableBlocks& blocks, const LintVocabulary& vocabulary,
                    const TableUses& uses, LintFindings& findings);

/// Warns of lists, formats and instructions with a name that nothing uses, and of formats without
/// effect.
void lintNamesOfBlocks(const TableBlocks& blocks, const TableUses& uses, LintFindings& findings);

}  // namespace host
