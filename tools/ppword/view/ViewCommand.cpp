#include <nlohmann/json.hpp>

#include "inspect/explain/PassRecorder.h"
#include "inspect/explain/TableOrigins.h"
#include "post/generator/Generator.h"
#include "tools/ppword/LoadReport.h"
#include "tools/ppword/PostReport.h"
#include "tools/ppword/PostRun.h"
#include "tools/ppword/Progress.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"
#include "tools/ppword/view/Page.h"
#include "tools/ppword/view/ViewRecorder.h"

namespace {

constexpr std::string_view kCannotDraw =
    "no page can be written: this program was built without the library that draws it; install the "
    "Debian package libjs-three, then build the program again";

// Writes the tool path into the recorder.
host::Summary record(ToolPathInput& input, ViewRecorder& view) {
  host::Generator generator(input.document(), input.name(), view, &view);
  // It ends before the generator: both listen to the module.
  host::PassRecorder passes;
  view.follow(generator.summary(), passes);
  generator.run(view);
  view.finish();
  return generator.summary();
}

void writePage(const PostOptions& options, const std::string& page, PostOutcome& outcome) {
  PostOutput output(options.output, false, protectionOf(options.force));
  output.lines().write(page);
  output.finish();
  outcome.addDoubt(output.file());
}

// What is said of the run, which may have been doubted already.
void report(const PostOptions& options, const PostReport& made, PostOutcome& outcome) {
  if (options.format == OutputFormat::ForPeople) {
    outcome.text.insert(0, reportText(made, "", false));
  } else {
    outcome.report.update(reportJson(made, true));
  }
}

PostOutcome view(const PostOptions& options) {
  ToolPathInput input(options);
  LoadReport load;
  host::TableOrigins origins;
  openToolPath(options, input, load, origins);
  if (!input.table().path.empty()) origins.read(input.table().path);
  CountedEvents events(input, showsProgress(options.format));
  ViewRecorder recorder(input, events, origins);
  const host::Summary summary = record(input, recorder);
  const PostReport made = reportOf(options, input, load, summary);
  PostOutcome outcome;
  writePage(options, pageOf(recorder.json(made)), outcome);
  report(options, made, outcome);
  return outcome;
}

}  // namespace

ExitStatus viewToolPath(const ViewOptions& options) {
  if (options.output.empty()) throw UsageError{"-o FILE is required: the page to write"};
  if (!canDraw()) throw UsageError{std::string(kCannotDraw)};
  PostOptions post;
  static_cast<ToolPathOptions&>(post) = options;
  post.output = options.output == "-" ? "" : options.output;
  post.force = options.force;
  post.format = options.format;
  requireOthers(post);
  const PostOutcome outcome = outcomeOf(post.job, [&] { return view(post); });
  writeMessage(options.format == OutputFormat::ForPeople ? outcome.text
                                                         : documentText(outcome.report));
  return outcome.status;
}
