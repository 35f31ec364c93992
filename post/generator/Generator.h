#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "KEPIMfgPPCommand.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "host/modeler/Document.h"
#include "post/generator/GivenValues.h"
#include "post/generator/MotionBuffers.h"
#include "post/generator/StatedNames.h"
#include "post/generator/Summary.h"
#include "post/output/LineSink.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// What the generator is about to write: an element at one of its points.
struct WrittenElement {
  const Element& element;
  /// The point, from 1; 1 for an element that has none.
  long point;
  /// The NC instruction that writes it, and its sequence, also where a PP command names them. The
  /// evaluation is null for a command whose instruction the document does not have.
  std::string_view instruction;
  int sequence;
  const KEPIMfgSyntaxEvaluation_var& evaluation;
};

/// Is asked before each element of a tool path is written; its lines follow in the sink. The motion
/// buffers and the activity are those of the element.
class ElementObserver {
 public:
  ElementObserver() = default;
  ElementObserver(const ElementObserver&) = delete;
  ElementObserver& operator=(const ElementObserver&) = delete;
  virtual ~ElementObserver() = default;

  virtual void elementBegins(const WrittenElement& written) = 0;
};

/// Writes a tool path with the PP words of a document: fills the motion buffers, gets the syntax
/// evaluation of each element's NC instruction and passes its lines to a sink. While it exists it
/// listens to the module. The document has no current activity when it begins and when it ends.
class Generator {
 public:
  /// `file` names the tool path in errors. The module must be loaded; otherwise the null-handle
  /// error is raised. The sink and the observer, if any, must outlive the generator.
  Generator(KEPVar<Document> document, std::string_view file, LineSink& sink,
            ElementObserver* observer = nullptr);
  Generator(const Generator&) = delete;
  Generator& operator=(const Generator&) = delete;
  ~Generator();

  /// Writes the whole tool path.
  void run(ToolPathReader& toolPath);

  // Write one piece of a tool path. They raise an InputError for an NC instruction or a PP command
  // that the document does not have or that cannot be instantiated. The document's PP commands are
  // listed once, when the first is written.
  void put(const Element& element);
  void put(const ActivityStart& start);
  void put(const ToolPathEvent& event);
  /// After the last piece: counts what only the whole tool path shows.
  void finish();

  /// What was done so far.
  [[nodiscard]] const Summary& summary() const noexcept { return summary_; }

 private:
  class Listener;

  /// What writes an element, an evaluation or a command, and the name under which it is counted.
  struct Instruction {
    KEPIMfgSyntaxEvaluation_var evaluation;
    KEPIMfgPPCommand_var command;
    std::string name;
  };

  [[nodiscard]] Instruction instructionOf(const Element& element);
  [[nodiscard]] KEPIMfgSyntaxEvaluation_var evaluationOf(const Element& element);
  [[nodiscard]] KEPIMfgPPCommand_var commandOf(const Element& element);
  void announce(const Instruction& instruction, const Element& element, long point) const;
  /// Those of the element. Raises an UnfitLine.
  void writeLines(const Instruction& instruction, const Element& element);
  void instantiate(const Instruction& instruction, const Element& element, long point);
  /// The file that holds the line of an element.
  [[nodiscard]] std::string_view fileOf(const Element& element) const;
  [[noreturn]] void refuse(const Element& element, std::string_view why) const;

  KEPVar<Document> document_;
  KEPIMfgPPWordContainer_var words_;
  MotionBuffers buffers_;
  LineSink& sink_;
  ElementObserver* observer_;
  Summary summary_;
  GivenValues given_{summary_.impossible};
  StatedNames names_;
  KEPListValKEPUnicodeString lines_;
  std::optional<std::vector<KEPIMfgPPCommand_var>> commands_;
  std::unique_ptr<Listener> listener_;
};

}  // namespace host
