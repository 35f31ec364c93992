#include <algorithm>
#include <set>

#include "inspect/lint/LineWords.h"
#include "inspect/lint/LintCatalogue.h"
#include "inspect/lint/LintVocabulary.h"
#include "language/table/Keywords.h"
#include "tools/ppword/lsp/Catalogue.h"
#include "tools/ppword/lsp/Features.h"

namespace lsp {
namespace {

using Named = host::TableBlocks::Named;

constexpr std::size_t kMostProposals = 1000;
constexpr std::string_view kBlanks = " \t";

/// The keywords after which lines come.
constexpr std::string_view kBodies[] = {ppword::kSyntaxesKeyword, ppword::kListKeyword,
                                        ppword::kCommandKeyword,  ppword::kInstructionKeyword,
                                        ppword::kSequenceKeyword, ppword::kInsertKeyword};

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; }

bool beginsWith(std::string_view text, std::string_view letters) {
  return text.size() >= letters.size() &&
         std::equal(letters.begin(), letters.end(), text.begin(),
                    [](char left, char right) { return upper(left) == upper(right); });
}

/// The last keyword that begins a line before an offset; empty when there is none.
std::string_view keywordBefore(std::string_view text, std::size_t offset) {
  std::size_t at = text.substr(0, offset).rfind("\n*");
  if (at == text.npos)
    at = text.starts_with('*') && offset > 0 ? 0 : text.npos;
  else
    ++at;
  if (at == text.npos) return {};
  return text.substr(at, text.find_first_of(" \t\r\n", at) - at);
}

/// Gathers the proposals for a place.
class ProposalSearch {
 public:
  ProposalSearch(OpenTable& table, std::size_t offset)
      : table_(table), text_(std::string_view(table.text()).substr(0, offset)) {
    std::size_t begin = text_.size();
    while (begin > 0 && host::isWordCharacter(text_[begin - 1])) --begin;
    completion_.begin = begin;
    letters_ = text_.substr(begin);
    const std::size_t lineBegin = text_.find_last_of("\r\n") + 1;
    line_ = text_.substr(lineBegin, begin - lineBegin);
  }

  Completion search() && {
    addProposals(line_.empty() ? ' ' : line_.back());
    return std::move(completion_);
  }

 private:
  void add(NameKind kind, std::string_view text, std::string detail) {
    if (!beginsWith(text, kind == NameKind::Keyword ? "*" + std::string(letters_) : letters_))
      return;
    completion_.isCut = completion_.isCut || completion_.proposals.size() == kMostProposals;
    if (completion_.isCut) return;
    completion_.proposals.push_back({kind, std::string(text), std::move(detail)});
  }

  /// `before` is the character before the letters.
  void addProposals(char before) {
    if (before == '%' || before == '&') {
      addParameters();
    } else if (line_ == "*") {
      --completion_.begin;
      addKeywords();
    } else if (line_.starts_with('*')) {
      addNamesAfter(line_.substr(0, line_.find_first_of(kBlanks)));
    } else if (isInBody()) {
      addWords();
    }
  }

  void addKeywords() {
    for (const ppword::Keyword& keyword : ppword::kKeywords) {
      add(NameKind::Keyword, keyword.text, std::string(keywordMeaning(keyword.text)));
    }
  }

  void addNamesAfter(std::string_view keyword) {
    const host::LintCatalogue& known = host::lintCatalogue();
    if (keyword == ppword::kInsertKeyword) addOwnCommands();
    if (keyword == ppword::kCommandKeyword || keyword == ppword::kInstructionKeyword) {
      for (const std::string& name : known.instructions) add(NameKind::Instruction, name, "");
    }
    if (keyword == ppword::kListKeyword) addKnown(known.withList);
    if (keyword == ppword::kFormatKeyword) addKnown(known.withFormat);
  }

  void addOwnCommands() {
    std::set<std::string_view> names;
    for (const Named& command : table_.blocks().commands) names.insert(command.name.text);
    names.erase("");
    for (const std::string_view name : names) add(NameKind::Instruction, name, "");
  }

  template <class Names>
  void addKnown(const Names& names) {
    for (const std::string_view name : names) {
      add(NameKind::Parameter, name, parameterMeaning(name));
    }
  }

  void addParameters() {
    std::set<std::string_view> names;
    for (const ParameterEntry& entry : catalogue().parameters) names.insert(entry.name);
    for (const Named& list : table_.blocks().lists) names.insert(list.name.text);
    for (const Named& format : table_.blocks().formats) names.insert(format.name.text);
    names.erase("");
    addKnown(names);
  }

  void addWords() {
    const host::LintVocabulary vocabulary(table_.blocks());
    for (const std::string_view word : vocabulary.allWords()) {
      add(NameKind::Word, word, vocabulary.isOwn(word) ? "word of this table" : "");
    }
  }

  /// True in the lines of a command, in free syntaxes and in lists.
  [[nodiscard]] bool isInBody() {
    const std::string_view keyword = keywordBefore(text_, text_.size());
    if (std::find(std::begin(kBodies), std::end(kBodies), keyword) != std::end(kBodies)) {
      return true;
    }
    const auto& commands = table_.blocks().commands;
    return keyword == ppword::kEndKeyword &&
           std::any_of(commands.begin(), commands.end(), [this](const Named& command) {
             return command.keyword.offset < text_.size() && text_.size() < command.end;
           });
  }

  OpenTable& table_;
  /// Up to the place; the letters before it; the line before these.
  std::string_view text_;
  std::string_view letters_;
  std::string_view line_;
  Completion completion_;
};

}  // namespace

Completion completionAt(OpenTable& table, std::size_t offset) {
  return ProposalSearch(table, offset).search();
}

}  // namespace lsp
