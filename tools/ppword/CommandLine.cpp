#include "tools/ppword/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/DiagnosticText.h"
#include "tools/ppword/DocumentArguments.h"
#include "tools/ppword/HelpTexts.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/Suggestion.h"

namespace {

constexpr std::array<std::string_view, 6> kSections = {"words",     "syntaxes", "commands",
                                                       "sequences", "lists",    "formats"};

bool isSection(std::string_view text) {
  return std::find(kSections.begin(), kSections.end(), text) != kSections.end();
}

// Empty for a text that is a code.
std::string codeMistake(const std::string& text) {
  int code = 0;
  const char* const end = text.data() + text.size();
  const auto [behind, error] = std::from_chars(text.data(), end, code);
  if (error == std::errc() && behind == end) return "";
  return "a code is a whole number from -2147483648 to 2147483647, not '" + text + "'";
}

// Empty for a text that can name a file. A variable of a script that was never set gives no name.
std::string nameMistake(const std::string& text) {
  return text.empty() ? "the name of a file is expected, not an empty text" : "";
}

// The program's arguments and the options of each command that they set.
class Arguments {
 public:
  Arguments() {
    app_.set_version_flag("--version", "ppword " PPWORD_VERSION, "Print the version and exit");
    app_.set_help_flag("-h,--help", "Print this help and exit");
    app_.footer(help::kProgramFooter);
    app_.require_subcommand(1);
    addCheck();
    addExplain();
    addList();
    addDocument();
    addPost();
    addWordQueries();
    addTables();
  }
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  [[nodiscard]] std::variant<CommandOptions, ExitStatus> parse(int argc, const char* const* argv) {
    try {
      app_.parse(argc, argv);
      return command();
    } catch (const CLI::Success&) {
      writeOutput(app_.get_subcommands().empty() && app_.count("--version") > 0
                      ? app_.version() + '\n'
                      : app_.help());
      return ExitStatus::Done;
    } catch (const CLI::ParseError& error) {
      writeMessage(mistake(error));
      return ExitStatus::Usage;
    }
  }

 private:
  CLI::App* addCommand(const char* name, const char* description, const char* footer,
                       OutputFormat& format) {
    CLI::App* const command = app_.add_subcommand(name, description);
    command->footer(footer);
    command
        ->add_option_function<std::string>(
            "--format",
            [&format](const std::string& value) {
              format = value == "json" ? OutputFormat::Json : OutputFormat::Text;
            },
            "Report for people (text) or programs (json)")
        ->check(CLI::IsMember({"text", "json"}))
        ->option_text("text|json");
    return command;
  }

  void addCheck() {
    check_ = addCommand("check", help::kCheck, help::kCheckFooter, checkOptions_.format);
    check_->add_option("TABLE", checkOptions_.tables, "PP word tables")
        ->required()
        ->option_text("...");
    check_->add_flag("--lint", checkOptions_.lint,
                     "Look at every line, and tell all mistakes at once");
    check_->add_flag("--strict", checkOptions_.strict, "Exit with 1 on warnings too");
  }

  void addExplain() {
    explain_ = addCommand("explain", help::kExplain, help::kExplainFooter, explainOptions_.format);
    addTable(explain_, explainOptions_.table);
    explain_->add_option("INSTRUCTION", explainOptions_.instruction, "NC instruction")
        ->option_text(" ");
    explain_->add_option("--sequence", explainOptions_.sequence, "Which of its sequences, from 1")
        ->option_text("N");
    explain_
        ->add_option("--syntax", explainOptions_.syntax,
                     "A line to explain in its place; repeatable")
        ->expected(1)
        ->take_all()
        ->option_text("LINE");
    explain_
        ->add_option_function<std::vector<std::string>>(
            "--set", [this](const auto& texts) { setValues(texts); },
            "Give a parameter its value; repeatable")
        ->expected(1)
        ->take_all()
        ->option_text("NAME=VALUE");
  }

  void setValues(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
      std::string reason;
      if (!host::readSetting(text, explainOptions_.values.emplace_back(), reason)) {
        throw CLI::ValidationError("--set", reason);
      }
    }
  }

  void addList() {
    list_ = addCommand("list", help::kList, help::kListFooter, listOptions_.format);
    addTable(list_, listOptions_.table);
    list_->add_option("SECTION", listOptions_.section, "Which part to show")->option_text(" ");
    list_->add_flag("--default", default_, "Show the catalogue of a new document");
  }

  void addDocument() {
    document_ = addCommand("document", help::kDocument, help::kDocumentFooter, documentFormat_);
    document_->add_option("ACTION", action_, "What to do")->required()->option_text(" ");
    document_->add_option("FILE", file_, "Document file")->required()->option_text(" ");
    document_->add_option("ARGUMENT", arguments_, "What the action needs")->option_text("...");
  }

  void addPost() {
    post_ = addCommand("post", help::kPost, help::kPostFooter, postOptions_.format);
    addFile(post_, "JOB", postOptions_.job, "Job or listing; - for the standard input", " ")
        ->required();
    addFile(post_, "-t,--table", postOptions_.table, "PP word table to load", "TABLE");
    addFile(post_, "-d,--document", postOptions_.document, "Document to post with", "FILE");
    addFile(post_, "-o,--output", postOptions_.output, "Write the text to FILE", "FILE");
    post_->add_flag("--strict", postOptions_.strict,
                    "Write nothing and exit with 1 when anything is missing from the text");
    post_->add_flag("-v,--verbose", postOptions_.verbose, "Tell what came from where");
    post_
        ->add_option_function<std::string>(
            "--units", [this](const auto& unit) { postOptions_.units = host::outputUnit(unit); },
            "Unit of the text, of a listing")
        ->check(CLI::IsMember({"mm", "inch"}))
        ->option_text("mm|inch");
    post_
        ->add_option_function<std::string>(
            "--rotary", [this](const auto& text) { setRotary(text); },
            "What the rotary words of a listing turn")
        ->option_text("AXES");
  }

  void addWordQueries() {
    words_ = addCommand("words", help::kWords, help::kWordsFooter, wordsOptions_.format);
    addTable(words_, wordsOptions_.table)->required();
    code_ = addCommand("code", help::kCode, help::kCodeFooter, codeOptions_.format);
    addTable(code_, codeOptions_.table)->required();
    code_->add_option("WORD", codeOptions_.words, "APT words")->required()->option_text("...");
    word_ = addCommand("word", help::kWord, help::kWordFooter, wordOptions_.format);
    addTable(word_, wordOptions_.table)->required();
    word_->add_option("CODE", wordOptions_.codes, "CL-file codes")
        ->required()
        ->check(CLI::Validator(&codeMistake, ""))
        ->option_text("...");
  }

  static CLI::Option* addFile(CLI::App* command, const char* name, std::string& file,
                              const char* description, const char* text) {
    return command->add_option(name, file, description)
        ->check(CLI::Validator(&nameMistake, ""))
        ->option_text(text);
  }

  static CLI::Option* addTable(CLI::App* command, std::string& table) {
    return addFile(command, "TABLE", table, "PP word table", " ");
  }

  void addTables() {
    tables_ = addCommand("tables", help::kTables, help::kTablesFooter, tablesOptions_.format);
  }

  void setRotary(const std::string& text) {
    std::string reason;
    postOptions_.rotary = host::RotaryChain::parse(text, reason);
    if (!postOptions_.rotary) throw CLI::ValidationError("--rotary", reason);
  }

  [[nodiscard]] CommandOptions command() {
    if (check_->parsed()) return checkOptions_;
    if (document_->parsed()) return document();
    if (post_->parsed()) {
      if (postOptions_.output == "-") postOptions_.output.clear();
      return postOptions_;
    }
    if (words_->parsed()) return wordsOptions_;
    if (code_->parsed()) return codeOptions_;
    if (word_->parsed()) return wordOptions_;
    if (tables_->parsed()) return tablesOptions_;
    if (explain_->parsed()) return explained();
    if (default_ && listOptions_.section.empty()) listOptions_.section.swap(listOptions_.table);
    if (default_ != listOptions_.table.empty()) {
      throw CLI::ValidationError(default_ ? "--default takes no table" : "TABLE is required");
    }
    const std::string& section = listOptions_.section;
    if (section.empty() || isSection(section)) return listOptions_;
    throw CLI::ValidationError("there is no section '" + section + "'" +
                               suggestion(section, kSections));
  }

  [[nodiscard]] DocumentOptions document() const {
    try {
      DocumentOptions options = documentOptions(action_, file_, arguments_);
      options.format = documentFormat_;
      return options;
    } catch (const ArgumentError& error) {
      throw CLI::ValidationError(error.what());
    }
  }

  // A single name is the instruction of the default catalogue; with lines it is the table.
  [[nodiscard]] ExplainOptions explained() {
    ExplainOptions& options = explainOptions_;
    if (options.syntax.empty()) {
      if (options.instruction.empty()) options.instruction.swap(options.table);
      if (options.instruction.empty()) throw CLI::ValidationError("INSTRUCTION is required");
    } else if (!options.instruction.empty()) {
      throw CLI::ValidationError("--syntax takes no instruction");
    }
    return options;
  }

  [[nodiscard]] std::string unknownOption(const CLI::App& command, std::string_view word) const {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options()) {
      for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
      for (const std::string& name : option->get_snames()) names.push_back("-" + name);
    }
    const std::vector<std::string_view> candidates(names.begin(), names.end());
    const std::string_view name = word.substr(0, word.find('='));
    return "there is no option '" + std::string(name) + "'" + suggestion(name, candidates);
  }

  [[nodiscard]] std::string unknownCommand(std::string_view word) const {
    constexpr std::array<std::string_view, 9> kCommands = {
        "check", "explain", "list", "document", "post", "words", "code", "word", "tables"};
    return "there is no command '" + std::string(word) + "'" + suggestion(word, kCommands);
  }

  // What is wrong, most useful first: a word that nobody knows.
  [[nodiscard]] std::string mistake(const CLI::ParseError& error) const {
    const auto parsed = app_.get_subcommands();
    const CLI::App& command = parsed.empty() ? app_ : *parsed.front();
    const std::string name = parsed.empty() ? "ppword" : "ppword " + command.get_name();
    std::string text = parsed.empty()
                           ? "a command is required: check, explain, list, document, post, "
                             "words, code, word or tables"
                           : error.what();
    for (const std::string& word : app_.remaining(true)) {
      if (word.size() > 1 && word.starts_with('-')) {
        text = unknownOption(command, word);
      } else if (parsed.empty()) {
        text = unknownCommand(word);
      } else {
        text = "'" + word + "' is one argument too many";
      }
      break;
    }
    return host::terminalSafe(name + ": " + text) + "\nTry '" + name + " --help'.\n";
  }

  CLI::App app_{help::kProgram, "ppword"};
  CLI::App* check_ = nullptr;
  CLI::App* explain_ = nullptr;
  CLI::App* list_ = nullptr;
  CLI::App* document_ = nullptr;
  CLI::App* post_ = nullptr;
  CLI::App* words_ = nullptr;
  CLI::App* code_ = nullptr;
  CLI::App* word_ = nullptr;
  CLI::App* tables_ = nullptr;
  CheckOptions checkOptions_;
  ExplainOptions explainOptions_;
  ListOptions listOptions_;
  OutputFormat documentFormat_ = OutputFormat::Text;
  std::string action_;
  std::string file_;
  std::vector<std::string> arguments_;
  PostOptions postOptions_;
  WordsOptions wordsOptions_;
  CodeOptions codeOptions_;
  WordOptions wordOptions_;
  TablesOptions tablesOptions_;
  bool default_ = false;
};

}  // namespace

std::variant<CommandOptions, ExitStatus> parseCommandLine(int argc, const char* const* argv) {
  return Arguments().parse(argc, argv);
}
