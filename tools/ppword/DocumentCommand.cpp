#include "tools/ppword/DocumentCommand.h"

#include <nlohmann/json.hpp>
#include <string>

#include "KEPIMfgPPWordFactory.h"
#include "host/document/DocumentFile.h"
#include "host/modeler/Document.h"
#include "inspect/diagnostics/DiagnosticText.h"
#include "tools/ppword/ContentsText.h"
#include "tools/ppword/LoadReport.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/TableCheck.h"

namespace {

void warn(const DocumentOptions& options, std::string_view key, std::string message) {
  host::Diagnostic warning;
  warning.severity = host::Severity::Warning;
  warning.file = options.file;
  warning.key = key;
  warning.message = std::move(message);
  tell(warning);
}

// Each makes its change and tells what was done.

std::string loadInto(host::Document& document, const DocumentOptions& options) {
  const LoadReport report;
  loadTable(document, options.table);
  if (const long missing = report.missing(); missing > 0) {
    warn(options, "not-loaded",
         std::to_string(missing) +
             (missing == 1 ? " entry of the table was" : " entries of the table were") +
             " not loaded");
  }
  return "table loaded";
}

std::string setSyntax(host::Document& document, const DocumentOptions& options) {
  document.ppWordContainer()->SetUserSyntax(KEPUnicodeString(options.line));
  return "user syntax set";
}

std::string addCommand(host::Document& document, const DocumentOptions& options) {
  const KEPIMfgSyntaxEvaluation_var instruction =
      KEPISpecObject_var::Adopt(document.features()->FindStartUp(options.name));
  if (!instruction) {
    warn(options, "no-instruction",
         "the document has no NC instruction '" + options.name + "' for the command to put out");
  }
  KEPIMfgPPCommand_var command;
  KEPIMfgPPWordFactory_var(document.features())
      ->CreatePPCommand(command, KEPUnicodeString(options.name), options.sequence);
  return "PP command " + std::to_string(host::ppCommands(document).size()) + " added";
}

std::string reset(host::Document& document, const DocumentOptions& /*options*/) {
  document.ppWordContainer()->ResetToDefault();
  return "NC instructions reset to the default catalogue";
}

std::string change(const DocumentOptions& options,
                   std::string (*work)(host::Document&, const DocumentOptions&)) {
  host::DocumentChange change(options.file);
  std::string done = work(*change.document(), options);
  change.save();
  return done;
}

std::string upgrade(const DocumentOptions& options) {
  host::DocumentChange change(options.file);
  if (!change.document()->NeedsUpgrade()) return "needs no upgrade";
  host::upgradeDocument(*change.document());
  change.save();
  return "upgraded";
}

std::string make(const DocumentOptions& options) {
  const KEPVar<host::Document> document = host::newDocument();
  host::saveDocument(*document, options.file);
  return "made with the default catalogue";
}

std::string perform(const DocumentOptions& options) {
  using Action = DocumentOptions::Action;
  switch (options.action) {
    case Action::New:
      return make(options);
    case Action::LoadTable:
      return change(options, loadInto);
    case Action::SetSyntax:
      return change(options, setSyntax);
    case Action::AddCommand:
      return change(options, addCommand);
    case Action::Reset:
      return change(options, reset);
    default:
      return upgrade(options);
  }
}

void tellDone(const DocumentOptions& options, const std::string& done) {
  if (options.format == OutputFormat::Json) {
    writeOutput(documentText({{"file", textJson(options.file)}, {"saved", true}, {"done", done}}));
  } else {
    writeOutput(host::terminalSafe(options.file) + ": " + done + '\n');
  }
}

void show(const DocumentOptions& options) {
  const KEPVar<host::Document> document = host::openDocument(options.file);
  warnOfOldVersion(*document, options.file);
  const Contents contents = documentContents(*document);
  writeOutput(options.format == OutputFormat::Json
                  ? documentText(contentsJson(contents, options.section))
                  : contentsText(contents, options.section));
}

ExitStatus refuse(const DocumentOptions& options, const host::Diagnostic& diagnostic) {
  if (options.format == OutputFormat::Json) {
    writeOutput(documentText({{"file", textJson(options.file)},
                              {"saved", false},
                              {"diagnostics", Json::array({diagnosticJson(diagnostic)})}}));
  } else {
    tell(diagnostic);
  }
  return ExitStatus::Refused;
}

}  // namespace

ExitStatus runDocument(const DocumentOptions& options) {
  try {
    if (options.action == DocumentOptions::Action::Show) {
      show(options);
    } else {
      tellDone(options, perform(options));
    }
    return ExitStatus::Done;
  } catch (const Refusal& refusal) {
    return refuse(options, refusal.diagnostic);
  } catch (const host::DocumentError& error) {
    if (error.kind() == host::DocumentError::Kind::NotWritten) throw;
    return refuse(options, documentDiagnostic(error));
  }
}
