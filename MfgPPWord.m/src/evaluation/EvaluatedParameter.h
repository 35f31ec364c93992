#pragma once

#include <string_view>

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPIMfgActivity.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPString.h"

namespace ppword {

/// The parameter type that an evaluation extends, and the PP word container that holds it.
class EvaluatedParameter {
 public:
  /// An evaluation that extends no feature raises the null-handle error.
  [[nodiscard]] static EvaluatedParameter of(const KEPBaseUnknown& evaluation);
  /// An evaluation that extends no feature has no container either.
  [[nodiscard]] static EvaluatedParameter ofAny(const KEPBaseUnknown& evaluation);

  /// A motion buffer of the container; null when there is no container or no such buffer.
  template <class Buffer>
  [[nodiscard]] KEPVar<Buffer> buffer() const {
    return KEPVar<Buffer>(words_);
  }
  /// The number that a buffer with one number keeps; 0 without the buffer.
  template <class Buffer>
  [[nodiscard]] int bufferedNumber() const {
    int number = 0;
    if (const auto held = buffer<Buffer>()) held->GetNumber(number);
    return number;
  }

  /// The activity that the document is generating; null when there is none.
  [[nodiscard]] KEPIMfgActivity_var activity() const;

  /// Sets `word` to an entry (from 1) of the type's "MultiListValue", as it stands. False, with
  /// `word` untouched, when there is no such entry.
  [[nodiscard]] bool readWord(int entry, KEPString& word) const;
  /// Prints a number with the type's "Format". False, with `text` untouched, when there is none or
  /// it cannot print the number.
  [[nodiscard]] bool print(double number, KEPString& text) const;

 private:
  explicit EvaluatedParameter(KEPISpecObject_var type);

  KEPISpecObject_var type_;
  KEPIMfgPPWordContainer_var words_;
};

}  // namespace ppword
