#include <charconv>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "KEPMfgPPWordUtilities.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/TableFile.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

// Why the words of a table cannot be asked for: what the check refuses, and words without end.
std::optional<host::Diagnostic> refusalOfWords(const std::string& table) {
  if (auto refusal = tableRefusal(table)) return refusal;
  if (KEPSucceeded(KEPMfgPPWordUtilities::StoreListOfPPWords(KEPUnicodeString(table)))) {
    return std::nullopt;
  }
  if (auto unreadable = host::unreadableTable(table)) return unreadable;
  return fileDiagnostic(
      table,
      "the words cannot be read: a section of words has no *END, or a word has more than 1023 "
      "characters");
}

struct WordLists {
  KEPListValKEPString words;
  KEPRawCollint kinds;
  KEPRawCollint codes;
};

// Of a table whose words can be asked for.
WordLists listsOf(const std::string& table) {
  WordLists lists;
  static_cast<void>(KEPMfgPPWordUtilities::GetListOfPPWords(KEPUnicodeString(table), lists.words,
                                                            lists.kinds, lists.codes));
  return lists;
}

// Words and codes are taken by their places.
void warnOfUnpaired(const std::string& table) {
  const WordLists lists = listsOf(table);
  if (lists.words.Size() == lists.codes.Size()) return;
  warn(table, "unpaired-words",
       "a word has no code, or a code no word: the codes after it are wrong");
}

// Lines for people, or the entries as one member of an object; and what was not found.
struct Answers {
  std::string text;
  Json entries = Json::array();
  std::vector<std::string> missing;
};

ExitStatus reportAnswers(const Answers& answers, const std::string& table, std::string_view member,
                         OutputFormat format) {
  warnOfNoBlock(table);
  warnOfUnpaired(table);
  writeOutput(format == OutputFormat::ForPrograms ? documentText({{member, answers.entries}})
                                                  : answers.text);
  for (const std::string& message : answers.missing)
    reportDiagnostic(fileDiagnostic(table, message));
  return answers.missing.empty() ? ExitStatus::Done : ExitStatus::Refused;
}

void addWord(const std::string& word, Answers& answers) {
  int kind = 0;
  int code = 0;
  Json entry{{"word", textJson(word)}, {"kind", nullptr}, {"code", nullptr}};
  if (KEPSucceeded(KEPMfgPPWordUtilities::GetClfileCode(word, kind, code))) {
    entry["kind"] = kind;
    entry["code"] = code;
    answers.text += host::terminalSafe(word) + "  " + std::to_string(code) + "  " +
                    std::string(kindName(kind)) + '\n';
  } else {
    answers.missing.push_back("the word \"" + word + "\" is not in the table, or has no code");
  }
  answers.entries.push_back(std::move(entry));
}

void addCode(int code, Answers& answers) {
  KEPString word;
  Json entry{{"code", code}, {"word", nullptr}};
  if (KEPSucceeded(KEPMfgPPWordUtilities::GetAptWord(code, word))) {
    entry["word"] = textJson(word);
    answers.text += std::to_string(code) + "  " + host::terminalSafe(word.View()) + '\n';
  } else {
    answers.missing.push_back("no word of the table has the code " + std::to_string(code));
  }
  answers.entries.push_back(std::move(entry));
}

// The table of a command that takes names after it, and these names.
TableAndNames namedBy(const TableAndNames& options, const std::string& what) {
  TableAndNames subject = options;
  const std::string& first = options.firstName;
  const bool isTable = options.table.empty() || std::filesystem::is_regular_file(first);
  if (isTable) requireOneTable(options.table, first);
  if (isTable) subject.table = first;
  if (!isTable && !first.empty()) subject.names.insert(subject.names.begin(), first);
  if (subject.table.empty()) throw UsageError{"TABLE is required"};
  if (subject.names.empty()) throw UsageError{what + " is required"};
  return subject;
}

int codeOf(const std::string& text) {
  int code = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, code);
  if (error == std::errc() && rest == end) return code;
  throw UsageError{"CODE: a code is a whole number from -2147483648 to 2147483647, not '" + text +
                   "'"};
}

}  // namespace

ExitStatus showWords(const WordsOptions& options) {
  requireOneTable(options.table, options.firstName);
  const std::string& table = options.table.empty() ? options.firstName : options.table;
  if (table.empty()) throw UsageError{"TABLE is required"};
  if (const auto refusal = refusalOfWords(table)) return refuseTable(*refusal, options.format);
  Contents contents;
  const WordLists lists = listsOf(table);
  warnOfNoBlock(table);
  contents.words = paired(lists.words, lists.kinds, lists.codes);
  showContents(contents, "words", options.format);
  return ExitStatus::Done;
}

ExitStatus showCodes(const CodeOptions& options) {
  const TableAndNames subject = namedBy(options, "WORD");
  if (const auto refusal = refusalOfWords(subject.table)) {
    return refuseTable(*refusal, options.format);
  }
  Answers answers;
  for (const std::string& word : subject.names) addWord(word, answers);
  return reportAnswers(answers, subject.table, "words", options.format);
}

ExitStatus showWordsOfCodes(const WordOptions& options) {
  const TableAndNames subject = namedBy(options, "CODE");
  std::vector<int> codes;
  for (const std::string& text : subject.names) codes.push_back(codeOf(text));
  if (const auto refusal = refusalOfWords(subject.table)) {
    return refuseTable(*refusal, options.format);
  }
  Answers answers;
  for (const int code : codes) addCode(code, answers);
  return reportAnswers(answers, subject.table, "codes", options.format);
}
