#include <algorithm>
#include <array>
#include <charconv>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "KEPIMfgPPWordFactory.h"
#include "host/document/DocumentFile.h"
#include "host/modeler/Document.h"
#include "host/system/ListenerScope.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/LoadReport.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"

namespace {

void reportDone(const DocumentOptions& options, const std::string& done) {
  if (options.format == OutputFormat::ForPrograms) {
    writeOutput(documentText({{"file", textJson(options.file)}, {"saved", true}, {"done", done}}));
  } else {
    writeOutput(host::terminalSafe(options.file) + ": " + done + '\n');
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
  const KEPVar<host::Document> document = host::openDocument(options.file);
  warnOfOldVersion(*document, options.file);
  showContents(documentContents(*document), section, options.format);
}

void setSyntax(const DocumentOptions& options) {
  change(options, [&](host::Document& document) {
    document.ppWordContainer()->SetUserSyntax(KEPUnicodeString(options.arguments[0]));
    return "user syntax set";
  });
}

int sequenceOf(const std::string& text) {
  int sequence = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, sequence);
  if (error == std::errc() && rest == end && sequence >= 1) return sequence;
  throw UsageError{"NUMBER is a whole number from 1 to 2147483647, not '" + text + "'"};
}

void addCommand(const DocumentOptions& options) {
  const std::string& name = options.arguments[0];
  const int sequence = options.arguments.size() > 1 ? sequenceOf(options.arguments[1]) : 1;
  change(options, [&](host::Document& document) {
    const KEPIMfgSyntaxEvaluation_var instruction =
        KEPISpecObject_var::Adopt(document.features()->FindStartUp(name));
    if (!instruction) {
      warn(options.file, "no-instruction",
           "the document has no NC instruction '" + name + "' for this command");
    } else if (const int count = host::sequenceCount(instruction); sequence > count) {
      warn(options.file, "no-sequence",
           "'" + name + "' has no sequence " + std::to_string(sequence) + "; it has " +
               std::to_string(count));
    }
    KEPIMfgPPCommand_var command;
    KEPIMfgPPWordFactory_var(document.features())
        ->CreatePPCommand(command, KEPUnicodeString(name), sequence);
    return "PP command " + std::to_string(host::ppCommands(document).size()) + " added";
  });
}

void reset(const DocumentOptions& options) {
  change(options, [](host::Document& document) {
    document.ppWordContainer()->ResetToDefault();
    return "NC instructions reset to the default catalogue";
  });
}

std::string upgraded(const std::string& file) {
  host::DocumentChange change(file);
  if (!change.document()->NeedsUpgrade()) return "needs no upgrade";
  host::upgradeDocument(*change.document());
  change.save();
  return "upgraded";
}

void upgrade(const DocumentOptions& options) { reportDone(options, upgraded(options.file)); }

struct Action {
  std::string_view name;
  std::size_t leastArguments;
  std::size_t mostArguments;
  std::string_view needed;
  void (*run)(const DocumentOptions& options);
};
constexpr std::array<Action, 7> kActions{{
    {"new", 0, 0, "", create},
    {"load-table", 1, 1, "TABLE", loadInto},
    {"show", 0, 1, "", show},
    {"set-syntax", 1, 1, "LINE", setSyntax},
    {"add-command", 1, 2, "NAME", addCommand},
    {"reset", 0, 0, "", reset},
    {"upgrade", 0, 0, "", upgrade},
}};

const Action& actionOf(const std::string& name) {
  std::array<std::string_view, kActions.size()> names{};
  for (std::size_t i = 0; i < kActions.size(); ++i) {
    if (kActions[i].name == name) return kActions[i];
    names[i] = kActions[i].name;
  }
  throw UsageError{"there is no action '" + name + "'" + suggestion(name, names)};
}

void perform(const DocumentOptions& options) {
  const Action& action = actionOf(options.action);
  const std::size_t count = options.arguments.size();
  if (options.file.empty()) throw UsageError{"FILE is required"};
  if (count < action.leastArguments) {
    throw UsageError{std::string(action.name) + " needs " + std::string(action.needed)};
  }
  if (count > action.mostArguments) {
    throw UsageError{"'" + options.arguments[action.mostArguments] + "' is one argument too many"};
  }
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

ExitStatus runDocument(const DocumentOptions& options) {
  try {
    perform(options);
    return ExitStatus::Done;
  } catch (const Refusal& refusal) {
    return refuse(options, refusal.diagnostic);
  } catch (const host::DocumentError& error) {
    if (error.kind() == host::DocumentError::Kind::NotWritten) throw;
    return refuse(options, documentDiagnostic(error));
  }
}
