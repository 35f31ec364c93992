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
          std::string(written.element.file),
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
  [[nodiscard]] std::size_t count() const noexcept { return elements_.size(); }
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

/// How many elements of a line are explained that an NC program repeats.
constexpr std::size_t kMostOfLoop = 100;

/// True when the elements of a line follow each other, and the event is after them. Of a line that
/// an NC program runs several times the first time is of interest.
bool isAfter(const ToolPathEvent& event, long line, bool isFound, bool isInOrder) {
  if (!isFound) return false;
  return isInOrder ? lineOf(event) > line : lineOf(event) != line;
}

/// Notes where an element comes from. One of a file that an NC program calls has another line.
void note(const Element& element, long line, ExplainedElements& found) {
  if (!element.file.empty()) return;
  if (element.line < line) found.before = std::max(found.before, element.line);
  const bool isNearer = found.after == 0 || element.line < found.after;
  if (element.line > line && isNearer) found.after = element.line;
  if (element.line != line) return;
  const auto points = static_cast<long>(element.positions.size());
  found.mostPoints = std::max(found.mostPoints.value_or(0), points);
}

}  // namespace

ExplainedElements explainLine(const KEPVar<Document>& document, std::string_view name,
                              ToolPathReader& toolPath, long line, long point) {
  Run run(document, name, [line, point](const WrittenElement& written) {
    return written.element.line == line && written.element.file.empty() && written.point == point;
  });
  ExplainedElements found;
  ToolPathEvent event;
  const bool isInOrder = toolPath.isInOrder();
  const auto isOver = [&] { return isInOrder ? found.after != 0 : run.count() >= kMostOfLoop; };
  while (!isOver() && readOn(toolPath, event, found.mostPoints.has_value())) {
    if (isAfter(event, line, found.mostPoints.has_value(), isInOrder)) break;
    if (const auto* const element = std::get_if<Element>(&event)) note(*element, line, found);
    if (!isOver()) run.put(event);
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
