#include "inspect/explain/ExplainedElement.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "KEPIMfgSyntaxEvaluation.h"
#include "post/generator/Generator.h"
#include "post/output/LineSink.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

class Nowhere final : public LineSink {
 public:
  void write(std::string_view /*line*/) override {}
};

ExplainedElement explained(const WrittenElement& written) {
  return {written.element.line,
          written.point,
          static_cast<long>(written.element.positions.size()),
          std::string(written.instruction),
          written.sequence,
          explain(*written.evaluation, written.sequence)};
}

/// Explains what `isAsked` answers true for.
template <class IsAsked>
class Explainer final : public ElementObserver {
 public:
  explicit Explainer(IsAsked isAsked) : isAsked_(std::move(isAsked)) {}

  void elementBegins(const WrittenElement& written) override {
    // Without an evaluation the generator refuses the element.
    if (isAsked_(written) && written.evaluation) elements.push_back(explained(written));
  }

  std::vector<ExplainedElement> elements;

 private:
  IsAsked isAsked_;
};

long lineOf(const ToolPathEvent& event) {
  return std::visit([](const auto& piece) { return piece.line; }, event);
}

/// Reads on. What is after the line is of no interest once its elements are known.
bool readOn(ToolPathReader& toolPath, ToolPathEvent& event, bool isFound) {
  try {
    return toolPath.next(event);
  } catch (const InputError&) {
    if (!isFound) throw;
    return false;
  }
}

/// Notes where an element comes from.
void note(const Element& element, long line, ExplainedElements& found) {
  if (element.line < line) found.before = element.line;
  if (element.line > line) found.after = element.line;
  if (element.line != line) return;
  const auto points = static_cast<long>(element.positions.size());
  found.mostPoints = std::max(found.mostPoints.value_or(0), points);
}

}  // namespace

ExplainedElements explainLine(const KEPVar<Document>& document, std::string_view name,
                              ToolPathReader& toolPath, long line, long point) {
  ExplainedElements found;
  Nowhere nowhere;
  Explainer explainer([line, point](const WrittenElement& written) {
    return written.element.line == line && written.point == point;
  });
  Generator generator(document, name, nowhere, &explainer);
  ToolPathEvent event;
  while (found.after == 0 && readOn(toolPath, event, found.mostPoints.has_value())) {
    if (lineOf(event) > line && found.mostPoints) break;
    if (const auto* const element = std::get_if<Element>(&event)) note(*element, line, found);
    if (found.after == 0) std::visit([&](const auto& piece) { generator.put(piece); }, event);
  }
  found.elements = std::move(explainer.elements);
  return found;
}

std::optional<ExplainedElement> explainElement(const KEPVar<Document>& document,
                                               std::string_view name, ToolPathReader& toolPath,
                                               long number) {
  Nowhere nowhere;
  long count = 0;
  Explainer explainer(
      [&count, number](const WrittenElement& /*written*/) { return ++count == number; });
  Generator generator(document, name, nowhere, &explainer);
  ToolPathEvent event;
  while (explainer.elements.empty() && toolPath.next(event)) {
    std::visit([&](const auto& piece) { generator.put(piece); }, event);
  }
  if (explainer.elements.empty()) return std::nullopt;
  return std::move(explainer.elements.front());
}

}  // namespace host
