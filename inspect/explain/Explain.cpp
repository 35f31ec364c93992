#include <string>

#include "KEPIMfgSyntaxEvaluation.h"
#include "inspect/explain/Explanation.h"
#include "inspect/explain/PassRecorder.h"

namespace host {

void addOutput(ExplainedLine& line, std::string_view output) {
  line.output = output;
  const std::string& passed = line.passes.back().line;
  if (output == passed) return;
  line.notes.emplace_back(output.ends_with('$')
                              ? "\"$\" is set: the statement goes on in the next line"
                              : "the comma at the end is taken off: a delay without unit");
}

Explanation explain(KEPIMfgSyntaxEvaluation& instruction, int sequence) {
  Explanation explanation;
  PassRecorder recorder;
  KEPListValKEPUnicodeString output;
  explanation.isDone = instruction.InstantiateSyntax(output, sequence);
  explanation.lines = recorder.takeLines();
  int number = 0;
  for (ExplainedLine& line : explanation.lines) {
    addNotes(line);
    if (++number <= output.Size()) addOutput(line, output[number].View());
  }
  return explanation;
}

}  // namespace host
