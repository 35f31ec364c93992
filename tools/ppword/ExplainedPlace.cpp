#include <nlohmann/json.hpp>
#include <string>

#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/explain/ExplainedElement.h"
#include "post/toolpath/LineReader.h"
#include "tools/ppword/Explaining.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"

namespace {

// What to add to the message about a line without elements: where the next ones are.
std::string neighbours(const host::ExplainedElements& found) {
  const std::string before = "line " + std::to_string(found.before) + " before it";
  const std::string after = "line " + std::to_string(found.after) + " after it";
  if (found.before > 0 && found.after > 0) return "; the nearest are " + before + " and " + after;
  if (found.before > 0) return "; the nearest is " + before;
  if (found.after > 0) return "; the nearest is " + after;
  return ", nor from another one";
}

// Raises the error of a line without elements, or without that point.
void requireElements(const host::ExplainedElements& found, const host::ElementPlace& place,
                     const std::string& name) {
  if (!found.elements.empty()) return;
  const auto refuse = [&](const std::string& why) {
    throw host::InputError(name, place.line, 0, why);
  };
  if (!found.mostPoints) refuse("no element comes from this line" + neighbours(found));
  const long most = *found.mostPoints;
  const std::string count = most == 0 ? "no points" : std::to_string(most) + " point";
  refuse("there is no point " + std::to_string(place.point) + "; the element of this line has " +
         count + (most > 1 ? "s" : ""));
}

}  // namespace

std::string elementTitle(const host::ExplainedElement& element) {
  std::string title = host::terminalSafe(element.instruction);
  if (element.sequence != 1) title += ", sequence " + std::to_string(element.sequence);
  if (element.points > 1) {
    title += ", point " + std::to_string(element.point) + " of " + std::to_string(element.points);
  }
  return title;
}

namespace {

std::string elementsText(const host::ExplainedElements& found, const std::string& name) {
  std::string text;
  for (const host::ExplainedElement& element : found.elements) {
    text += text.empty() ? "" : "\n";
    text += host::terminalSafe(name) + ':' + std::to_string(element.line) + ": " +
            elementTitle(element) + '\n' + host::explanationText(element.explanation);
  }
  return text;
}

Json elementsJson(const host::ExplainedElements& found, const host::ElementPlace& place) {
  Json elements = Json::array();
  for (const host::ExplainedElement& element : found.elements) {
    elements.push_back({{"instruction", textJson(element.instruction)},
                        {"sequence", element.sequence},
                        {"point", element.point},
                        {"points", element.points},
                        {"lines", explainedLinesJson(element.explanation)}});
  }
  return {{"file", textJson(place.file)}, {"line", place.line}, {"elements", elements}};
}

}  // namespace

ExitStatus explainPlace(const host::ElementPlace& place, const ToolPathOptions& options,
                        OutputFormat format) {
  ToolPathInput input(options);
  input.open();
  const std::string name = input.name();
  const host::ExplainedElements found =
      host::explainLine(input.document(), name, input.events(), place.line, place.point);
  requireElements(found, place, name);
  writeOutput(format == OutputFormat::ForPrograms ? documentText(elementsJson(found, place))
                                                  : elementsText(found, name));
  return ExitStatus::Done;
}
