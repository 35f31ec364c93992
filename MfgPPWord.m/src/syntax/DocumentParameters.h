#pragma once

#include <string>
#include <string_view>

#include "KEPIMfgPPWordContainer.h"
#include "KEPIMfgParameterEvaluation.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "language/syntax/ParameterSource.h"

namespace ppword {

/// The parameters that a syntax feature can name: the parameter types of its PP word container with
/// their evaluations, the parameters of the current activity, and design-parameter expressions.
/// Everything is looked up afresh for each reference.
class DocumentParameters final : public ParameterSource {
 public:
  /// `container`: the PP word container that holds the feature. Both handles outlive this object.
  DocumentParameters(const KEPISpecObject_var& feature,
                     const KEPIMfgPPWordContainer_var& container);

  void appendText(std::string_view name, LineWriter& out) override;
  [[nodiscard]] std::optional<ParameterNumber> number(std::string_view name) override;
  void textDropped(std::string_view name, std::string_view text) override;

  /// Receives what happens; null when there is no listener.
  [[nodiscard]] KEPMfgPPWordListener* listener() const noexcept { return listener_; }

 private:
  /// Appends the text of a parameter type, null for none, with its evaluation, null for none; false
  /// when the text is that of one that cannot be evaluated.
  [[nodiscard]] bool appendValue(std::string_view name, const KEPISpecObject_var& type,
                                 KEPIMfgParameterEvaluation* evaluation, LineWriter& out);
  /// As appendValue, and reports it to the listener.
  void appendReported(std::string_view name, const KEPISpecObject_var& type,
                      KEPIMfgParameterEvaluation* evaluation, LineWriter& out);

  // Not counted again for every line.
  const KEPISpecObject_var& feature_;
  KEPIContainer* container_;
  KEPMfgPPWordListener* listener_ = KEPMfgPPWordListener::Current();
};

}  // namespace ppword
