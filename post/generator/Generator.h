#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "KEPIMfgPPCommand.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "host/modeler/Document.h"
#include "post/generator/MotionBuffers.h"
#include "post/generator/Summary.h"
#include "post/output/LineSink.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// Drives a tool path through the PP words of a document: fills the motion buffers, asks for the
/// syntax evaluation of each element's NC instruction and hands its lines to a sink. While it lives
/// it listens to the module. The document has no current activity when it begins and when it ends.
class Generator {
 public:
  /// `file` names the tool path in errors. The module must be loaded; otherwise the null-handle
  /// error is raised. The sink must outlive the generator.
  Generator(KEPVar<Document> document, std::string_view file, LineSink& sink);
  Generator(const Generator&) = delete;
  Generator& operator=(const Generator&) = delete;
  ~Generator();

  /// Puts out the whole tool path.
  void run(ToolPathSource& toolPath);

  // One piece of a tool path. An InputError for an NC instruction or a PP command that the document
  // does not have and for one that cannot be instantiated. PP commands are counted once, when the
  // first is put out.
  void put(const Element& element);
  void put(const ActivityStart& start);

  /// What was done until now.
  [[nodiscard]] const Summary& summary() const noexcept { return summary_; }

 private:
  class Listener;

  /// What puts out an element, one of the two, and the name that it is counted under.
  struct Source {
    KEPIMfgSyntaxEvaluation_var evaluation;
    KEPIMfgPPCommand_var command;
    std::string name;
  };

  [[nodiscard]] Source sourceOf(const Element& element);
  [[nodiscard]] KEPIMfgSyntaxEvaluation_var evaluationOf(const Element& element);
  [[nodiscard]] KEPIMfgPPCommand_var commandOf(const Element& element);
  void instantiate(const Source& source, const Element& element);
  [[noreturn]] void refuse(const Element& element, std::string_view why) const;

  KEPVar<Document> document_;
  KEPIMfgPPWordContainer_var words_;
  MotionBuffers buffers_;
  LineSink& sink_;
  Summary summary_;
  KEPListValKEPUnicodeString lines_;
  std::optional<std::vector<KEPIMfgPPCommand_var>> commands_;
  std::unique_ptr<Listener> listener_;
};

}  // namespace host
