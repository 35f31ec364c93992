#include <unistd.h>

#include <nlohmann/json.hpp>

#include "host/system/ListenerScope.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "post/generator/Generator.h"
#include "tools/ppword/Commands.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/LoadReport.h"
#include "tools/ppword/PostOutput.h"
#include "tools/ppword/PostReport.h"
#include "tools/ppword/Progress.h"
#include "tools/ppword/Refusal.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"

namespace {

void requireOther(const std::string& output, const std::string& input) {
  if (isSameFile(output, input)) {
    throw UsageError{"the output would replace the input " + output};
  }
}

void reportRun(const PostOptions& options, const PostReport& report, std::string_view refusal,
               const LoadReport& load, const host::Document& document) {
  if (options.format == OutputFormat::ForPrograms) {
    Json json = reportJson(report, refusal.empty());
    if (options.verbose) json["load"] = load.json(document);
    writeMessage(documentText(json));
    return;
  }
  if (options.verbose) writeMessage("load report:\n" + load.text(document));
  writeMessage(reportText(report, refusal, options.verbose));
}

ExitStatus generate(const PostOptions& options) {
  ToolPathInput input(options);
  requireOther(options.output, input.documentFile());
  LoadReport load;
  {
    const host::ListenerScope scope(load);
    input.open();
  }
  requireOther(options.output, input.table().path);
  const Strictness strictness(options.strictness);
  PostOutput output(options.output, strictness.isStrict());
  host::Generator generator(input.document(), input.name(), output.lines());
  {
    const bool shown = options.format == OutputFormat::ForPeople && isatty(STDERR_FILENO) == 1;
    Progress progress(input.events(), shown);
    generator.run(progress);
  }
  const PostReport report{generator.summary(), input.listing(), load.missing(), input.table(),
                          options.output};
  const std::string refusal = refusalOf(report, strictness);
  if (refusal.empty()) output.finish();
  reportRun(options, report, refusal, load, *input.document());
  return refusal.empty() ? ExitStatus::Done : ExitStatus::Refused;
}

ExitStatus refuse(const PostOptions& options, const host::Diagnostic& diagnostic) {
  if (options.format == OutputFormat::ForPrograms) {
    writeMessage(documentText({{"file", textJson(options.job)},
                               {"written", false},
                               {"diagnostics", Json::array({diagnosticJson(diagnostic)})}}));
  } else {
    reportDiagnostic(diagnostic);
  }
  return ExitStatus::Refused;
}

}  // namespace

ExitStatus postJob(const PostOptions& options) {
  try {
    requireOther(options.output, options.job == "-" ? "/dev/stdin" : options.job);
    requireOther(options.output, options.table);
    return generate(options);
  } catch (const Refusal& refusal) {
    return refuse(options, refusal.diagnostic);
  } catch (const host::InputError& error) {
    return refuse(options, host::inputDiagnostic(error));
  } catch (const host::DocumentError& error) {
    return refuse(options, documentDiagnostic(error));
  }
}
