#pragma once

#include <string_view>

#include "Knowledge/KEPICkeParm.h"

namespace ppword {

/// A knowledge parameter (null until set) and the factor on its value (1 until set): what the feed
/// rate and the spindle buffer have in common.
class KnowledgeValue {
 public:
  void setParameter(const KEPBaseUnknown_var& parameter) { parameter_ = parameter; }
  void resetParameter() { parameter_ = nullptr; }
  [[nodiscard]] bool hasParameter() const noexcept { return static_cast<bool>(parameter_); }

  void setFactor(double factor) noexcept { factor_ = factor; }
  [[nodiscard]] double factor() const noexcept { return factor_; }

  /// Sets `value` to the number at the start of the parameter's value text times the factor; to 0
  /// without one, and when the parameter raises an error.
  void getValue(double& value) const;

  /// Sets `answer` to whether the parameter's type has this name. False, with `answer` false, when
  /// there is no parameter or no type.
  bool isOfType(std::string_view typeName, bool& answer) const;

 private:
  KEPICkeParm_var parameter_;
  double factor_ = 1.0;
};

}  // namespace ppword
