#include <clocale>
#include <exception>
#include <new>
#include <string>
#include <variant>

#include "System/KEPError.h"
#include "host/document/DocumentError.h"
#include "host/system/Module.h"
#include "inspect/diagnostics/DiagnosticText.h"
#include "post/output/OutputFile.h"
#include "tools/ppword/CheckCommand.h"
#include "tools/ppword/CommandLine.h"
#include "tools/ppword/DocumentCommand.h"
#include "tools/ppword/ExplainCommand.h"
#include "tools/ppword/ListCommand.h"
#include "tools/ppword/PostCommand.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/TablesCommand.h"
#include "tools/ppword/WordsCommand.h"

namespace {

struct Runner {
  ExitStatus operator()(const CheckOptions& options) const { return checkTables(options); }
  ExitStatus operator()(const ExplainOptions& options) const { return explainSyntax(options); }
  ExitStatus operator()(const ListOptions& options) const { return listTable(options); }
  ExitStatus operator()(const DocumentOptions& options) const { return runDocument(options); }
  ExitStatus operator()(const PostOptions& options) const { return postJob(options); }
  ExitStatus operator()(const WordsOptions& options) const { return showWords(options); }
  ExitStatus operator()(const CodeOptions& options) const { return showCodes(options); }
  ExitStatus operator()(const WordOptions& options) const { return showWordsOfCodes(options); }
  ExitStatus operator()(const TablesOptions& options) const { return showTables(options); }
};

ExitStatus run(int argc, const char* const* argv) {
  const auto parsed = parseCommandLine(argc, argv);
  if (const auto* const ended = std::get_if<ExitStatus>(&parsed)) return *ended;
  host::loadModule();
  return std::visit(Runner{}, std::get<CommandOptions>(parsed));
}

ExitStatus told(ExitStatus status, std::string_view reason) {
  writeMessage("ppword: error: " + host::terminalSafe(reason) + '\n');
  return status;
}

ExitStatus guardedRun(int argc, const char* const* argv) {
  try {
    return run(argc, argv);
  } catch (const host::OutputError& error) {
    return told(ExitStatus::NotWritten, error.file() + " cannot be written: " + error.reason());
  } catch (const host::DocumentError& error) {
    return told(ExitStatus::NotWritten, error.file() + ' ' + error.reason());
  } catch (const KEPError& error) {
    return told(ExitStatus::Internal, error.GetNLSMessage().View());
  } catch (const std::bad_alloc&) {
    return told(ExitStatus::Internal, "there is not enough memory");
  } catch (const std::exception& error) {
    return told(ExitStatus::Internal, error.what());
  } catch (...) {
    return told(ExitStatus::Internal, "an unknown error occurred");
  }
}

}  // namespace

int main(int argc, char** argv) {
  prepareStandardStreams();
  // Messages only: numbers and characters are read and written as ever.
  std::setlocale(LC_MESSAGES, "");
  return static_cast<int>(guardedRun(argc, argv));
}
