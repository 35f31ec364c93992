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

/// Writes a tool path to nowhere, and explains what `isAsked` answers true for.
template <class IsAsked>
class Run final : private ElementObserver {
 public:
  Run(const KEPVar<Document>& document, std::string_view name, IsAsked isAsked)
      : isAsked_(std::move(isAsked)), generator_(document, name, nowhere_, this) {}

  void put(const ToolPathEvent& event) {
    std::visit([this](const auto& piece) { generator_.put(piece); }, event);
  }
  [[nodiscard]] bool hasElements() const noexcept { return !elements_.empty(); }
  [[nodiscard]] std::vector<ExplainedElement> takeElements() { return std::move(elements_); }

 private:
  void elementBegins(const WrittenElement& written) override {
    // Without an evaluation the generator refuses the element.
    if (isAsked_(written) && written.evaluation) elements_.push_back(explained(written));
  }

  IsAsked isAsked_;
  std::vector<ExplainedElement> elements_;
  Nowhere nowhere_;
  Generator generator_;
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
  Run run(document, name, [line, point](const WrittenElement& written) {
    return written.element.line == line && written.point == point;
  });
  ExplainedElements found;
  ToolPathEvent event;
  while (found.after == 0 && readOn(toolPath, event, found.mostPoints.has_value())) {
    if (lineOf(event) > line && found.mostPoints) break;
    if (const auto* const element = std::get_if<Element>(&event)) note(*element, line, found);
    if (found.after == 0) run.put(event);
  }
  found.elements = run.takeElements();
  return found;
}

std::optional<ExplainedElement> explainElement(const KEPVar<Document>& document,
                                               std::string_view name, ToolPathReader& toolPath,
                                               long number) {
  Run run(document, name, [count = 0L, number](const WrittenElement& /*written*/) mutable {
    return ++count == number;
  });
  ToolPathEvent event;
  while (!run.hasElements() && toolPath.next(event)) run.put(event);
  if (!run.hasElements()) return std::nullopt;
  return std::move(run.takeElements().front());
}

}  // namespace host
