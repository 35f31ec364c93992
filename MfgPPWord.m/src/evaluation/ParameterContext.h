#pragma once

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPIMfgActivity.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPString.h"
#include "src/evaluation/TextEvaluation.h"

namespace ppword {

/// What an evaluation sees: the parameter type that it extends, and of the container that holds the
/// type the motion buffers and the activity. Nothing is counted, so a context is made for one
/// evaluation and not stored; whoever evaluates holds the component and its container.
class ParameterContext {
 public:
  /// An evaluation that extends no feature raises the null-handle error.
  [[nodiscard]] static ParameterContext of(const KEPBaseUnknown& evaluation);
  /// An evaluation that extends no feature has no container either.
  [[nodiscard]] static ParameterContext ofAny(const KEPBaseUnknown& evaluation);

  /// A motion buffer of the container; null when there is no container or no such buffer.
  template <class Buffer>
  [[nodiscard]] const Buffer* buffer() const {
    return static_cast<const Buffer*>(buffer(KEPInterfaceId<Buffer>()));
  }
  [[nodiscard]] const KEPBaseUnknown* buffer(const KEPMetaClass* interfaceClass) const {
    return container_ != nullptr ? container_->FindInterface(interfaceClass) : nullptr;
  }
  /// The number that a buffer with one number stores; 0 without the buffer.
  template <class Buffer>
  [[nodiscard]] int bufferedNumber() const {
    int number = 0;
    if (const auto* const held = buffer<Buffer>()) held->GetNumber(number);
    return number;
  }

  /// Null when there is none.
  [[nodiscard]] const KEPIContainer* container() const noexcept { return container_; }

  /// The activity that the document is generating; null when there is none.
  [[nodiscard]] KEPIMfgActivity_var activity() const;

  /// Sets `word` to an entry (from 1) of the type's "MultiListValue", as it is. False, after a
  /// report, when there is no such entry.
  [[nodiscard]] bool findWord(int entry, KEPUnicodeString& word) const;
  /// Sets `text` to such a word; untouched where there is none.
  [[nodiscard]] bool setWord(int entry, ParameterText& text) const;
  /// Prints a number with the type's "Format". False, with `text` untouched, when there is none or
  /// it cannot print the number.
  [[nodiscard]] bool print(double number, ParameterText& text) const;
  /// The "Format" of the type. False, with `format` untouched, when there is none.
  [[nodiscard]] bool findFormat(KEPUnicodeString& format) const;

 private:
  explicit ParameterContext(KEPISpecObject* type)
      : type_(type), container_(type != nullptr ? type->GetContainer() : nullptr) {}

  KEPISpecObject* type_;
  const KEPIContainer* container_;
};

}  // namespace ppword
