#pragma once

#include <string_view>

#include "System/KEPString.h"
#include "language/syntax/LineWriter.h"
#include "src/registration/Registered.h"

namespace ppword {

/// Where the text of a parameter goes: a string that takes it, or the end of a line.
class ParameterText {
 public:
  explicit ParameterText(KEPString& value) : value_(&value) {}
  explicit ParameterText(LineWriter& line) : line_(&line) {}

  /// An evaluation calls it once, after all that it asks for; or not at all, to print nothing and
  /// to leave the string as it is.
  void set(std::string_view text) {
    if (line_ != nullptr) return line_->append(text);
    *value_ = KEPString(text);
  }

 private:
  KEPString* value_ = nullptr;
  LineWriter* line_ = nullptr;
};

/// An evaluation that has `bool evaluate(ParameterText& text) const`, which returns whether the
/// parameter has a value.
template <class Self>
class TextEvaluation : public Registered<Self> {
 public:
  /// As KEPIMfgParameterEvaluation::Evaluate.
  [[nodiscard]] bool Evaluate(KEPString& value) const {
    ParameterText text(value);
    return static_cast<const Self&>(*this).evaluate(text);
  }
  /// As LineParameter::appendText.
  [[nodiscard]] bool appendText(LineWriter& out) const {
    ParameterText text(out);
    return static_cast<const Self&>(*this).evaluate(text);
  }
};

}  // namespace ppword
