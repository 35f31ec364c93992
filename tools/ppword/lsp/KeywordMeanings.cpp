#include <iterator>

#include "language/table/Keywords.h"
#include "tools/ppword/lsp/Names.h"

namespace lsp {
namespace {

struct KeywordRow {
  std::string_view keyword;
  std::string_view meaning;
};
constexpr KeywordRow kMeanings[] = {
    {"*START_MAJOR_WORDS_WITHOUT_PARAMETERS",
     "Begins the major words that take nothing, each with its CL-file code."},
    {"*START_MAJOR_WORDS_WITH_TEXT",
     "Begins the major words whose rest of the line is text, each with its CL-file code."},
    {"*START_MAJOR_WORDS_WITH_PARAMETERS",
     "Begins the major words that take arguments after a /, each with its CL-file code."},
    {"*START_MINOR_WORDS", "Begins the minor words, each with its CL-file code."},
    {ppword::kSyntaxesKeyword, "Begins the free syntaxes."},
    {ppword::kCommandKeyword, "Begins an NC command: its name, then its lines."},
    {ppword::kInstructionKeyword, "Begins an NC instruction: its name, then its lines."},
    {ppword::kListKeyword, "Begins the values that a parameter may have, in their order."},
    {ppword::kFormatKeyword, "Begins the print format of a parameter: one word, such as %10.4f."},
    {ppword::kSequenceKeyword, "Begins one of several syntaxes of an NC instruction."},
    {ppword::kInsertKeyword, "Inserts the lines of an NC command or instruction of the table."},
    {ppword::kEndKeyword, "Ends a block or a sequence."}};
static_assert(std::size(kMeanings) == ppword::kKeywords.size());

}  // namespace

std::string_view keywordMeaning(std::string_view keyword) {
  for (const auto& [text, meaning] : kMeanings) {
    if (text == keyword) return meaning;
  }
  return {};
}

}  // namespace lsp
