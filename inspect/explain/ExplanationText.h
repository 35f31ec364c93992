#pragma once

#include <string>
#include <string_view>

#include "inspect/explain/Explanation.h"

namespace host {

/// An explanation for people: every syntax line, under it the passes with the line after each, the
/// references and operations of the pass, and the notes, marked by "!".
[[nodiscard]] std::string explanationText(const Explanation& explanation);

/// A reference as a syntax writes it.
[[nodiscard]] std::string referenceText(const ExplainedReference& reference);

/// Who is asked for a reference: "evaluation", "expression" or "parameter".
[[nodiscard]] std::string_view answerKind(const ExplainedReference& reference);

/// True when the reference has a text, an operand a value.
[[nodiscard]] bool isEvaluated(const ExplainedReference& reference);

/// A number with as many digits as it needs, a text as it is.
[[nodiscard]] std::string plainText(const KEPMfgParameterValue& value);

}  // namespace host
