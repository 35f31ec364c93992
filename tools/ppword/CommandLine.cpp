#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/system/Module.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Failure.h"
#include "tools/ppword/HelpTexts.h"
#include "tools/ppword/Reading.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

// Empty for a whole number.
std::string numberMistake(const std::string& text) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && rest == end ? "" : "'" + text + "' is not a whole number";
}

// Empty for a number of processes.
std::string processesMistake(const std::string& text) {
  constexpr int kMost = 256;
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc() && rest == end && number >= 1 && number <= kMost) return "";
  return "'" + text + "' is not a number of processes from 1 to 256";
}

struct Format {
  std::string_view name;
  OutputFormat format;
};
constexpr std::array<Format, 3> kFormats{{{"text", OutputFormat::ForPeople},
                                          {"json", OutputFormat::ForPrograms},
                                          {"jsonl", OutputFormat::Records}}};

// Empty for a text that can name a file. A variable of a script that was never set names none.
std::string nameMistake(const std::string& text) {
  return text.empty() ? "a file name is expected, not an empty text" : "";
}

// Records are for commands that run many jobs.
void addFormat(CLI::App& command, OutputFormat& format, bool hasRecords) {
  const auto take = [&format, hasRecords](const std::string& name) {
    for (const Format& each : kFormats) {
      if (each.name == name && (hasRecords || each.format != OutputFormat::Records)) {
        format = each.format;
        return;
      }
    }
    throw CLI::ValidationError(
        "--format",
        "'" + name + (hasRecords ? "' is not text, json or jsonl" : "' is neither text nor json"));
  };
  command
      .add_option_function<std::string>("--format", take,
                                        "Report for people (text) or programs (json)")
      ->option_text(hasRecords ? "text|json|jsonl" : "text|json");
}

CLI::Option* addFile(CLI::App& command, const char* name, std::string& file,
                     const char* description, const char* text) {
  return command.add_option(name, file, description)
      ->check(CLI::Validator(&nameMistake, ""))
      ->option_text(text);
}

// A table that is named by position, or with -t.
void addTable(CLI::App& command, std::string& position, std::string& option) {
  addFile(command, "TABLE", position, "PP word table", " ");
  addFile(command, "-t,--table", option, "PP word table, instead of the argument", "TABLE");
}

// What a tool path is read with.
void addReading(CLI::App& command, ToolPathOptions& options) {
  for (const ReadingOption& option : readingOptions()) {
    const std::string name = "--" + std::string(option.name);
    const auto take = [&options, &option, name](const std::string& text) {
      const std::string reason = setReading(option.name, text, options);
      if (!reason.empty()) throw CLI::ValidationError(name, reason);
    };
    const bool isForBoth = option.scope == ReadingScope::ListingsAndPrograms;
    const std::string help =
        std::string(option.help) + (isForBoth ? " (not for jobs)" : " (NC programs only)");
    if (option.value.empty()) {
      command.add_flag_function(
          name, [take](std::int64_t /*count*/) { take(""); }, help);
    } else {
      command.add_option_function<std::string>(name, take, help)
          ->option_text(std::string(option.value));
    }
  }
}

void addDocumentFile(CLI::App& command, ToolPathOptions& options) {
  addFile(command, "-d,--document", options.document, "Document with the PP words", "FILE");
}

void addStrictness(CLI::App& command, StrictnessOptions& strictness, const char* help) {
  // A value of its own argument would be the next TABLE or JOB.
  command.add_flag("--strict", strictness.refused, help)->option_text("[=KEY,...]");
  command
      .add_option_function<std::vector<std::string>>(
          "--allow", [&strictness](const auto& keys) { strictness.allowed = keys; },
          "Do not refuse these kinds; repeatable")
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false)
      ->option_text("KEY,...");
}

void addCheck(CLI::App& command, CheckOptions& options) {
  command.add_option("TABLE", options.tables, "PP word tables")->option_text("...");
  command.add_flag("--lint", options.lint, "Check every line and report all mistakes at once");
  addFile(command, "--profile", options.profile,
          "With --lint, what this reader takes: iso4343, cl, FILE", "PROFILE");
  addStrictness(command, options.strictness, "Exit with 1 on warnings too, or on these kinds only");
  command.add_flag("--explain", options.explain, "Explain kinds of findings: KEY... or all");
}

void setValues(const std::vector<std::string>& texts, std::vector<host::ValueSetting>& values) {
  for (const std::string& text : texts) {
    std::string reason;
    if (!host::readSetting(text, values.emplace_back(), reason)) {
      throw CLI::ValidationError("--set", reason);
    }
  }
}

void setPlace(const std::string& text, ExplainOptions& options) {
  options.place = host::readElementPlace(text);
  if (options.place) return;
  throw CLI::ValidationError("--job", "'" + text +
                                          "' is neither FILE:LINE nor FILE:LINE:POINT, which "
                                          "count from 1");
}

void addExplain(CLI::App& command, ExplainOptions& options) {
  addTable(command, options.firstName, options.table);
  command.add_option("INSTRUCTION", options.secondName, "NC instruction")->option_text(" ");
  addDocumentFile(command, options);
  command.add_option("--sequence", options.sequence, "Which sequence of the instruction, from 1")
      ->check(CLI::Validator(&numberMistake, ""))
      ->option_text("N");
  command.add_option("--syntax", options.syntax, "A line to explain instead; repeatable")
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false)
      ->option_text("LINE");
  command
      .add_option_function<std::vector<std::string>>(
          "--set", [&options](const auto& texts) { setValues(texts, options.values); },
          "Set the value of a parameter; repeatable")
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false)
      ->option_text("NAME=VALUE");
  command
      .add_option_function<std::string>(
          "--job", [&options](const auto& text) { setPlace(text, options); },
          "Explain what comes from a line of a tool path instead")
      ->option_text("FILE:LINE[:POINT]");
  addFile(command, "--map", options.map, "Explain a line of the text of this map instead", "FILE");
  addReading(command, options);
}

void addList(CLI::App& command, ListOptions& options) {
  addTable(command, options.firstName, options.table);
  command.add_option("SECTION", options.secondName, "Which part to show")->option_text(" ");
  command.add_flag("--default", options.ofDefaultCatalogue, "Show the catalogue of a new document");
  command.add_option("--of", options.instruction, "Only the parameters of an NC instruction")
      ->option_text("INSTRUCTION");
}

void addDocument(CLI::App& command, DocumentOptions& options) {
  command.footer(documentHelp());
  command.add_option("ACTION", options.action, "What to do")->required()->option_text(" ");
  command.add_option("FILE", options.file, "Document file")->required()->option_text(" ");
  command.add_option("ARGUMENT", options.arguments, "Arguments of the action")->option_text("...");
  addFile(command, "--from", options.names,
          "add-command: one NAME or NAME NUMBER a line; - for standard input", "NAMES");
}

void addPost(CLI::App& command, PostOptions& options) {
  command.add_option("JOB", options.jobs, "Jobs, listings, NC programs; - for standard input")
      ->check(CLI::Validator(&nameMistake, ""))
      ->required()
      ->option_text("...");
  addFile(command, "-t,--table", options.table, "PP word table to load", "TABLE");
  addDocumentFile(command, options);
  command
      .add_option_function<std::string>(
          "-o,--output",
          [&options](const std::string& file) { options.output = file == "-" ? "" : file; },
          "Write the text to FILE; - for standard output")
      ->check(CLI::Validator(&nameMistake, ""))
      ->option_text("FILE");
  addFile(command, "--map", options.map, "Write where each line of -o comes from", "FILE");
  addFile(command, "--profile", options.profile, "Write what this reader takes: iso4343, cl, FILE",
          "PROFILE");
  command.add_flag("--force", options.force, "Replace an output or a map that is write-protected");
  addStrictness(command, options.strictness,
                "Write nothing and exit with 1 when anything, or these, is missing");
  command.add_flag_function(
      "--no-verify", [&options](std::int64_t /*count*/) { options.verifies = false; },
      "Do not read the text back");
  addFile(command, "--output-dir", options.outputFolder, "Write the text of each JOB into DIR",
          "DIR");
  command.add_option("-j,--jobs", options.processes, "How many processes post: 1")
      ->check(CLI::Validator(&processesMistake, ""))
      ->option_text("N");
  command.add_flag("-v,--verbose", options.verbose, "Report what came from where");
  command.add_flag("-q,--quiet", options.quiet, "Report nothing of what succeeded");
  command.add_flag("--listing", options.listing, "Write the listing of an NC program instead");
  addReading(command, options);
}

void addVerify(CLI::App& command, VerifyOptions& options) {
  addFile(command, "TEXT", options.text, "APT text; - for standard input", " ")->required();
  addFile(command, "--against", options.job, "Compare with this job, listing or NC program",
          "INPUT");
  addFile(command, "--profile", options.profile, "What the reader takes: iso4343, cl, FILE",
          "PROFILE");
  addFile(command, "-t,--table", options.table, "PP word table of the input", "TABLE");
  addDocumentFile(command, options);
  addStrictness(command, options.strictness, "Exit with 1 on warnings too, or on these kinds only");
  addReading(command, options);
}

void addView(CLI::App& command, ViewOptions& options) {
  addFile(command, "INPUT", options.job, "Job, listing or NC program; - for standard input", " ")
      ->required();
  addFile(command, "-t,--table", options.table, "PP word table to load", "TABLE");
  addDocumentFile(command, options);
  addFile(command, "-o,--output", options.output, "Write the page to FILE; - for standard output",
          "FILE");
  command.add_flag("--force", options.force, "Replace a page that is write-protected");
  addReading(command, options);
}

void addDiff(CLI::App& command, DiffOptions& options) {
  addFile(command, "OLD", options.before, "PP word table", " ")->required();
  addFile(command, "NEW", options.after, "PP word table to compare with it", " ")->required();
}

void addWords(CLI::App& command, WordsOptions& options) {
  addTable(command, options.firstName, options.table);
}

void addCode(CLI::App& command, CodeOptions& options) {
  addTable(command, options.firstName, options.table);
  command.add_option("WORD", options.names, "APT words")->option_text("...");
}

void addWord(CLI::App& command, WordOptions& options) {
  addTable(command, options.firstName, options.table);
  command.add_option("CODE", options.names, "CL-file codes")->option_text("...");
}

void addLsp(CLI::App& command, LspOptions& options) {
  command.add_flag("--stdio", options.standardStreams, "Use the standard streams, as always");
}

void addTables(CLI::App& /*command*/, TablesOptions& /*options*/) {}

using Run = std::function<ExitStatus()>;

// Adds what every command has and what `add` adds; returns how the command runs with what they are
// set to.
template <class Options, void (*add)(CLI::App&, Options&), ExitStatus (*run)(const Options&)>
Run prepare(CLI::App& command) {
  const auto options = std::make_shared<Options>();
  if constexpr (requires { options->format; }) {
    constexpr bool kHasRecords = requires { options->outputFolder; };
    addFormat(command, options->format, kHasRecords);
  }
  add(command, *options);
  return [options] { return run(*options); };
}

struct Command {
  const char* name;
  const char* help;
  const char* footer;
  Run (*prepare)(CLI::App& command);
};
// The commands of the program, in the order of its help.
constexpr std::array<Command, 13> kCommands{{
    {"check", help::kCheck, help::kCheckFooter, prepare<CheckOptions, addCheck, checkTables>},
    {"explain", help::kExplain, help::kExplainFooter,
     prepare<ExplainOptions, addExplain, explainSyntax>},
    {"list", help::kList, help::kListFooter, prepare<ListOptions, addList, listTable>},
    {"diff", help::kDiff, help::kDiffFooter, prepare<DiffOptions, addDiff, diffTables>},
    {"document", help::kDocument, "", prepare<DocumentOptions, addDocument, runDocument>},
    {"post", help::kPost, help::kPostFooter, prepare<PostOptions, addPost, postJob>},
    {"verify", help::kVerify, help::kVerifyFooter, prepare<VerifyOptions, addVerify, verifyText>},
    {"view", help::kView, help::kViewFooter, prepare<ViewOptions, addView, viewToolPath>},
    {"words", help::kWords, help::kWordsFooter, prepare<WordsOptions, addWords, showWords>},
    {"code", help::kCode, help::kCodeFooter, prepare<CodeOptions, addCode, showCodes>},
    {"word", help::kWord, help::kWordFooter, prepare<WordOptions, addWord, showWordsOfCodes>},
    {"tables", help::kTables, help::kTablesFooter, prepare<TablesOptions, addTables, showTables>},
    {"lsp", help::kLsp, help::kLspFooter, prepare<LspOptions, addLsp, serveEditors>},
}};

std::string commandRequired() {
  std::string text = "a command is required: ";
  for (const Command& command : kCommands) {
    if (&command != &kCommands.front()) text += &command == &kCommands.back() ? " or " : ", ";
    text += command.name;
  }
  return text;
}

std::string unknownCommand(const std::string& word) {
  std::vector<std::string_view> names;
  names.reserve(std::size(kCommands));
  for (const Command& command : kCommands) names.emplace_back(command.name);
  return "there is no command '" + word + "'" + suggestion(word, names);
}

std::string unknownOption(const CLI::App& command, std::string_view word) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    for (const std::string& name : option->get_snames()) names.push_back("-" + name);
  }
  const std::vector<std::string_view> candidates(names.begin(), names.end());
  const std::string_view name = word.substr(0, word.find('='));
  return "there is no option '" + std::string(name) + "'" + suggestion(name, candidates);
}

// The program's arguments, and the command that they ask for.
class Arguments {
 public:
  Arguments(int argc, const char* const* argv) : words_(argv, argv + argc) {
    app_.set_version_flag("--version", "ppword " PPWORD_VERSION, "Print the version and exit");
    app_.set_help_flag("-h,--help", "Print this help and exit");
    app_.footer(help::kProgramFooter);
    app_.require_subcommand(1);
    const auto isFirst = [this](const Command& row) {
      return words_.size() > 1 && words_[1] == row.name;
    };
    const bool isNamed = std::ranges::any_of(kCommands, isFirst);
    for (const Command& row : kCommands) {
      // Nothing asks for the others then; they would be a twentieth of the time to start.
      if (isNamed && !isFirst(row)) continue;
      CLI::App* const command = app_.add_subcommand(row.name, row.help);
      command->footer(row.footer);
      // Options of commands that are not named would be a quarter of the time to start.
      if (std::ranges::find(words_, row.name) == words_.end()) continue;
      command->final_callback([this, run = row.prepare(*command)] { run_ = run; });
    }
  }
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  // Nothing when there is a command to run.
  [[nodiscard]] std::optional<ExitStatus> parse(int argc, const char* const* argv) {
    forPrograms_ = asksForJson(argc, argv);
    try {
      app_.parse(argc, argv);
      return std::nullopt;
    } catch (const CLI::Success&) {
      writeOutput(app_.get_subcommands().empty() && app_.count("--version") > 0
                      ? app_.version() + '\n'
                      : helpText());
      return ExitStatus::Done;
    } catch (const CLI::ParseError& error) {
      return refuse(mistake(error));
    }
  }

  [[nodiscard]] ExitStatus run() const {
    try {
      return run_();
    } catch (const UsageError& error) {
      return refuse(error.message);
    }
  }

 private:
  // The command that was named, otherwise the program.
  [[nodiscard]] const CLI::App& named() const {
    const auto commands = app_.get_subcommands();
    return commands.empty() ? app_ : *commands.front();
  }

  // Of `document` that of the action, if one is named.
  [[nodiscard]] std::string helpText() const {
    const CLI::Option* const action = named().get_option_no_throw("ACTION");
    const std::string text = action == nullptr || action->empty()
                                 ? std::string()
                                 : documentHelp(action->results().front());
    return text.empty() ? app_.help() : text;
  }

  // What is wrong; a word that is unknown counts most.
  [[nodiscard]] std::string mistake(const CLI::ParseError& error) const {
    const bool namesCommand = &named() != &app_;
    const auto words = app_.remaining(true);
    if (words.empty()) return namesCommand ? error.what() : commandRequired();
    const std::string& word = words.front();
    if (word.size() > 1 && word.starts_with('-')) return unknownOption(named(), word);
    return namesCommand ? "'" + word + "' is one argument too many" : unknownCommand(word);
  }

  [[nodiscard]] ExitStatus refuse(const std::string& mistake) const {
    const std::string name = (&named() == &app_ ? "" : "ppword ") + named().get_name();
    if (forPrograms_) return reportFailure({ExitStatus::Usage, name + ": " + mistake}, true);
    writeMessage(host::terminalSafe(name + ": " + mistake) + "\nTry '" + name + " --help'.\n");
    return ExitStatus::Usage;
  }

  std::vector<std::string_view> words_;
  CLI::App app_{help::kProgram, "ppword"};
  Run run_;
  bool forPrograms_ = false;
};

}  // namespace

bool asksForJson(int argc, const char* const* argv) {
  const std::vector<std::string_view> words(argv, argv + argc);
  const auto isJson = [](std::string_view name) { return name == "json" || name == "jsonl"; };
  for (std::size_t at = 1; at < words.size(); ++at) {
    constexpr std::string_view kOption = "--format";
    const std::string_view word = words[at];
    if (word == kOption && at + 1 < words.size() && isJson(words[at + 1])) return true;
    if (word.starts_with("--format=") && isJson(word.substr(kOption.size() + 1))) return true;
  }
  return false;
}

ExitStatus runCommandLine(int argc, const char* const* argv) {
  Arguments arguments(argc, argv);
  if (const auto ended = arguments.parse(argc, argv)) return *ended;
  host::loadModule();
  return arguments.run();
}
