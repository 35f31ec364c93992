#pragma once

#include "KEPIMfgParameterEvaluation.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "language/syntax/ParameterSource.h"

namespace ppword {

/// An evaluation of the module: it also appends its text to a line, without a string in between.
/// The engine sees by the type of the object whether an evaluation is one; evaluations of others
/// are asked for their text:
///
///     auto* const own = dynamic_cast<LineEvaluation*>(evaluation);
///     const bool done = own != nullptr ? own->appendText(line) : evaluation->Evaluate(text);
class LineEvaluation : public KEPIMfgParameterEvaluation, public LineParameter {
 public:
  /// The type that it extends, always the same one; null when it extends no feature.
  [[nodiscard]] KEPISpecObject* type() {
    if (type_ == nullptr) type_ = KEPBorrow<KEPISpecObject>(this);
    return type_;
  }

 private:
  KEPISpecObject* type_ = nullptr;
};

}  // namespace ppword
