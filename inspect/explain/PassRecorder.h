#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "host/system/ListenerScope.h"
#include "inspect/explain/Explanation.h"

namespace host {

/// Listens to the module, while it lives, and writes down what its passes do.
class PassRecorder final : public KEPMfgPPWordListener {
 public:
  void LineAfterPass(Pass pass, std::string_view line) override;
  void ReferenceLookedUp(std::string_view name, const KEPBaseUnknown* type,
                         const KEPBaseUnknown* evaluation) override;
  void ValueFound(const KEPMfgParameterValue& value, const KEPUnicodeString* format) override;
  void ReferenceReplaced(std::string_view name, Source source, std::string_view text) override;
  void ValueLacking(Lack why) override;
  void GenerationFormatUsed(const KEPUnicodeString& format) override;
  void TextDropped(std::string_view name, std::string_view text) override;
  void OperationEnded(Operation outcome, std::string_view operation,
                      std::string_view result) override;

  /// The lines that were reported until now.
  [[nodiscard]] std::vector<ExplainedLine> takeLines() { return std::exchange(lines_, {}); }

 private:
  std::vector<ExplainedLine> lines_;
  /// What was reported since the pass before.
  ExplainedPass pass_;
  ListenerScope scope_{*this};
};

}  // namespace host
