#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "KEPIMfgPPWordFactory.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "host/document/DocumentFile.h"
#include "host/modeler/Document.h"
#include "host/system/ListenerScope.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "post/output/OutputFile.h"
#include "post/text/FoldedLines.h"
#include "tools/ppword/AddedCommands.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/HelpTexts.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/LoadReport.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

void report(const DocumentOptions& options, const std::string& done) {
  if (options.format == OutputFormat::ForPrograms) {
    writeOutput(documentText({{"file", textJson(options.file)}, {"saved", true}, {"done", done}}));
  } else {
    writeOutput(host::terminalSafe(options.file) + ": " + done + '\n');
  }
}

// The document is saved already: that this cannot be printed is not a failure to write it.
void reportDone(const DocumentOptions& options, const std::string& done) {
  try {
    report(options, done);
  } catch (const host::OutputError& error) {
    throw host::DocumentError(
        host::DocumentError::Kind::NotCertain, options.file,
        "is written, but " + error.file() + " cannot be written: " + error.reason());
  }
}

// Changes the document with `work`, which returns what was done, and saves it.
template <class Work>
void change(const DocumentOptions& options, Work work) {
  host::DocumentChange change(options.file);
  const std::string done = work(*change.document());
  change.save();
  reportDone(options, done);
}

void create(const DocumentOptions& options) {
  const KEPVar<host::Document> document = host::newDocument();
  host::saveDocument(*document, options.file);
  reportDone(options, "created with the default catalogue");
}

void loadInto(const DocumentOptions& options) {
  change(options, [&](host::Document& document) {
    LoadReport load;
    const host::ListenerScope scope(load);
    loadTable(document, options.arguments[0]);
    if (const long missing = load.missing(); missing > 0) {
      warn(options.file, "not-loaded",
           std::to_string(missing) +
               (missing == 1 ? " entry of the table was" : " entries of the table were") +
               " not loaded");
    }
    return "table loaded";
  });
}

void show(const DocumentOptions& options) {
  const std::string section = options.arguments.empty() ? "" : options.arguments[0];
  if (!options.arguments.empty()) requireSection(section, kDocumentSections);
  showContents(documentContents(*openDocumentFile(options.file)), section, options.format);
}

void setSyntax(const DocumentOptions& options) {
  if (hasControl(options.arguments[0])) {
    throw UsageError{"LINE has a control character, such as a tab or a line feed"};
  }
  change(options, [&](host::Document& document) {
    document.ppWordContainer()->SetUserSyntax(KEPUnicodeString(options.arguments[0]));
    return "user syntax set";
  });
}

// The key and the message of a warning.
using CommandWarning = std::pair<std::string_view, std::string>;

// Nothing for a command that can be posted.
std::optional<CommandWarning> warningOf(const AddedCommand& command, host::Document& document) {
  const auto& [name, sequence] = command;
  const KEPIMfgSyntaxEvaluation_var instruction =
      KEPISpecObject_var::Adopt(document.features()->FindStartUp(name));
  if (!instruction) {
    return CommandWarning("no-instruction",
                          "the document has no NC instruction '" + name + "' for this command");
  }
  const int count = host::sequenceCount(instruction);
  if (sequence <= count) return std::nullopt;
  return CommandWarning("no-sequence", "'" + name + "' has no sequence " +
                                           std::to_string(sequence) + "; it has " +
                                           std::to_string(count));
}

// Each warning once.
void warnOfCommands(const std::string& file, const std::vector<AddedCommand>& commands,
                    host::Document& document) {
  std::set<std::string> known;
  for (const AddedCommand& command : commands) {
    const auto warning = warningOf(command, document);
    if (warning && known.insert(warning->second).second) {
      warn(file, warning->first, warning->second);
    }
  }
}

std::string commandsAdded(std::size_t first, std::size_t count) {
  if (count == 1) return "PP command " + std::to_string(first) + " added";
  return "PP commands " + std::to_string(first) + " to " + std::to_string(first + count - 1) +
         " added";
}

void addCommands(const DocumentOptions& options) {
  const auto commands =
      options.names.empty() ? commandsOf(options.arguments) : commandsFrom(options.names);
  change(options, [&](host::Document& document) {
    warnOfCommands(options.file, commands, document);
    const std::size_t before = host::ppCommands(document).size();
    const KEPIMfgPPWordFactory_var factory = document.features();
    for (const auto& [name, sequence] : commands) {
      KEPIMfgPPCommand_var command;
      factory->CreatePPCommand(command, KEPUnicodeString(name), sequence);
    }
    return commandsAdded(before + 1, commands.size());
  });
}

std::size_t positionOf(const std::string& text) {
  if (const auto number = numberFromOne(text)) return static_cast<std::size_t>(*number);
  throw UsageError{"POSITION" + std::string(kFromOne) + text + "'"};
}

void removeCommand(const DocumentOptions& options) {
  const std::size_t position = positionOf(options.arguments[0]);
  change(options, [&](host::Document& document) {
    const auto commands = host::ppCommands(document);
    if (position > commands.size()) {
      throw Refusal{fileDiagnostic(options.file, "the document has no PP command " +
                                                     options.arguments[0] + "; it has " +
                                                     std::to_string(commands.size()))};
    }
    const KEPILifeCycleObject_var command = commands[position - 1];
    command->remove();
    const std::string done = "PP command " + std::to_string(position) + " removed";
    return position == commands.size()
               ? done
               : done + "; the positions of those after it are one less now";
  });
}

void reset(const DocumentOptions& options) {
  change(options, [](host::Document& document) {
    document.ppWordContainer()->ResetToDefault();
    return "NC instructions reset to the default catalogue";
  });
}

void upgrade(const DocumentOptions& options) {
  host::DocumentChange change(options.file);
  if (!change.document()->NeedsUpgrade()) return report(options, "needs no upgrade");
  host::upgradeDocument(*change.document());
  change.save();
  reportDone(options, "upgraded");
}

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

struct Action {
  std::string_view name;
  std::size_t leastArguments;
  std::size_t mostArguments;
  // What comes after FILE.
  std::string_view arguments;
  std::string_view summary;
  std::string_view about;
  std::string_view example;
  void (*run)(const DocumentOptions& options);
};
constexpr Action kActions[] = {
    {"new", 0, 0, "", "create a document with the default catalogue",
     "An existing file is not changed.", "part.ppdoc", create},
    {"load-table", 1, 1, "TABLE",
     "load a PP word table: it replaces what it names and adds the rest",
     "Entries that cannot be loaded are counted in a warning; 'ppword check --lint TABLE' says "
     "why.",
     "part.ppdoc mill.pptable", loadInto},
    {"show", 0, 1, "[SECTION]", "commands, sequences, lists, formats, pp-commands; or all",
     "The numbers of pp-commands are the positions by which a job and remove-command name them.",
     "part.ppdoc pp-commands", show},
    {"set-syntax", 1, 1, "LINE", "set the one line of NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX",
     "The instruction gets exactly this line. Write -- before a line that begins with '-'.",
     "part.ppdoc \"PPRINT/%MFG_XPOINT\"", setSyntax},
    {"add-command", 1, kAnyNumber, "NAME...",
     "add PP commands: NC instructions, each with one of its sequences",
     "A number after a NAME is the sequence, 1 without it. All commands are added in one change, "
     "or "
     "none. With --from NAMES they are in a file, or on the standard input (-): one NAME or NAME "
     "NUMBER a line. A job posts a command by its position in pp-commands: new ones come last. An "
     "instruction or a sequence that the document does not have gets a warning.",
     "part.ppdoc NC_TOOL_CHANGE", addCommands},
    {"remove-command", 1, 1, "POSITION", "remove a PP command; later ones move up by one position",
     "Jobs that post one of the later commands by its position must be changed too.",
     "part.ppdoc 1", removeCommand},
    {"reset", 0, 0, "", "return the NC instructions to the default catalogue",
     "PP commands and parameters stay.", "part.ppdoc", reset},
    {"upgrade", 0, 0, "", "bring a document of an older version up to date",
     "Before that it can be shown and used to post, but not changed.", "part.ppdoc", upgrade},
};

std::string synopsisOf(const Action& action) {
  std::string text(action.name);
  text += " FILE";
  return action.arguments.empty() ? text : (text += ' ') += action.arguments;
}

std::string exampleOf(const Action& action) {
  return ((("  ppword document " + std::string(action.name)) += ' ') += action.example) += '\n';
}

const Action& actionOf(const std::string& name) {
  std::vector<std::string_view> names;
  for (const Action& action : kActions) {
    if (action.name == name) return action;
    names.push_back(action.name);
  }
  throw UsageError{"there is no action '" + name + "'" + suggestion(name, names)};
}

void requireArguments(const Action& action, const std::vector<std::string>& arguments) {
  if (arguments.size() < action.leastArguments) {
    const std::string_view needed =
        action.arguments.substr(0, action.arguments.find_first_of(" ."));
    throw UsageError{std::string(action.name) + " needs " + std::string(needed)};
  }
  if (arguments.size() > action.mostArguments) {
    throw UsageError{"'" + arguments[action.mostArguments] + "' is one argument too many"};
  }
}

// --from takes the place of the arguments.
void requireNames(const Action& action, const std::vector<std::string>& arguments) {
  if (action.run != addCommands) throw UsageError{"--from is for add-command"};
  if (arguments.empty()) return;
  throw UsageError{"'" + arguments[0] + "' is one argument too many with --from"};
}

void perform(const DocumentOptions& options) {
  const Action& action = actionOf(options.action);
  if (options.file.empty()) throw UsageError{"FILE is required"};
  (options.names.empty() ? requireArguments : requireNames)(action, options.arguments);
  action.run(options);
}

ExitStatus refuse(const DocumentOptions& options, const host::Diagnostic& diagnostic) {
  if (options.format == OutputFormat::ForPrograms) {
    writeOutput(documentText({{"file", textJson(options.file)},
                              {"saved", false},
                              {"diagnostics", Json::array({diagnosticJson(diagnostic)})}}));
  } else {
    reportDiagnostic(diagnostic);
  }
  return ExitStatus::Refused;
}

}  // namespace

std::string documentHelp() {
  std::vector<std::string> synopses;
  std::size_t width = 0;
  for (const Action& action : kActions) {
    synopses.push_back(synopsisOf(action));
    width = std::max(width, synopses.back().size());
  }
  std::string text(help::kDocumentFooter);
  std::string examples;
  for (std::size_t i = 0; i < synopses.size(); ++i) {
    synopses[i].resize(width, ' ');
    ((text += "  " + synopses[i] + "  ") += kActions[i].summary) += '\n';
    examples += exampleOf(kActions[i]);
  }
  return (text += help::kDocumentChanges) + examples +
         "  ppword document show --format json part.ppdoc formats";
}

std::string documentHelp(std::string_view action) {
  const auto* const found =
      std::find_if(std::begin(kActions), std::end(kActions),
                   [action](const Action& each) { return each.name == action; });
  if (found == std::end(kActions)) return {};
  std::string about(found->summary);
  about.front() = static_cast<char>(about.front() - 'a' + 'A');
  (about += ". ") += found->about;
  std::string text = "Usage: ppword document " + synopsisOf(*found) + "\n\n";
  for (const auto& line : host::foldedLines(about, host::kScreenColumns, host::kScreenColumns)) {
    text += line + '\n';
  }
  return text + "\nExample:\n" + exampleOf(*found);
}

ExitStatus runDocument(const DocumentOptions& options) {
  try {
    perform(options);
    return ExitStatus::Done;
  } catch (const Refusal& refusal) {
    return refuse(options, refusal.diagnostic);
  } catch (const host::InputError& error) {
    return refuse(options, host::inputDiagnostic(error));
  } catch (const host::DocumentError& error) {
    if (error.kind() != host::DocumentError::Kind::Refused) throw;
    return refuse(options, documentDiagnostic(error));
  }
}
