#pragma once

#include <string>
#include <string_view>

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPIRevision.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "src/evaluation/LineEvaluation.h"

namespace ppword {

/// The parameters that a syntax feature can name: the parameter types of its PP word container with
/// their evaluations, the parameters of the current activity, and design-parameter expressions.
/// What a reference names is looked up again unless nothing has changed since it was asked last;
/// the values of the activity and of expressions are asked each time.
class DocumentParameters final : public ParameterSource {
 public:
  /// `container`: the PP word container that holds the feature. Both handles outlive this object.
  /// `revision`: the counter of changes that the container offers; one that is always 0 without it.
  DocumentParameters(const KEPISpecObject_var& feature, const KEPIMfgPPWordContainer_var& container,
                     const KEPIRevision::Count& revision);

  void appendText(std::string_view name, FoundParameter& found, LineWriter& out) override;
  [[nodiscard]] std::optional<ParameterNumber> number(std::string_view name) override;
  void textDropped(std::string_view name, std::string_view text) override;

  /// Receives what happens; null when there is no listener.
  [[nodiscard]] KEPMfgPPWordListener* listener() const noexcept { return listener_; }

 private:
  using Source = KEPMfgPPWordListener::Source;

  /// As appendText, for a name that is not known; sets `found`.
  void appendNamed(std::string_view name, FoundParameter& found, LineWriter& out);
  /// Appends the text of a parameter type, null for none, with its evaluation, null for none, or
  /// that of one that cannot be evaluated; returns where it came from.
  [[nodiscard]] Source appendValue(std::string_view name, const KEPISpecObject_var& type,
                                   KEPIMfgParameterEvaluation* evaluation, LineWriter& out);
  /// Calls `append`, which appends the text of the parameter and returns its source, and reports
  /// the reference to the listener by its name as it is written in the syntax.
  template <class Append>
  void appendReported(std::string_view written, const KEPISpecObject_var& type,
                      KEPIMfgParameterEvaluation* evaluation, LineWriter& out,
                      const Append& append);

  // Not counted again for every line.
  const KEPISpecObject_var& feature_;
  KEPIContainer* container_;
  const KEPIRevision::Count& revision_;
  KEPMfgPPWordListener* listener_ = KEPMfgPPWordListener::Current();
};

}  // namespace ppword
