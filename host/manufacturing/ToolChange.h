#pragma once

#include "Manufacturing/KEPIMfgToolChange.h"
#include "host/manufacturing/ActivityValues.h"
#include "host/manufacturing/ModelObject.h"

namespace host {

/// A marker: the activity removes material.
class MachiningOperation final
    : public ModelExtension<MachiningOperation, KEPIMfgMachiningOperation> {
 public:
  explicit MachiningOperation(const ActivityValues& /*values*/) {}
};

/// A tool change; it belongs to a sequence when it is made for an operation.
class ToolChange final : public ModelExtension<ToolChange, KEPIMfgToolChange> {
 public:
  explicit ToolChange(const ActivityValues& values) : operation_(values.operation.get()) {}

  [[nodiscard]] KEPIMfgSequence_var GetSequence() const override;

 private:
  const ActivityValues* operation_;
  mutable KEPBaseUnknown_var sequence_;
};

/// A tool change and the operation that it is made for.
struct SequenceValues {
  /// Compared only: the sequence does not hold the tool change.
  const KEPBaseUnknown* toolChange;
  KEPIMfgActivity_var operation;
};

class Sequence final : public ModelExtension<Sequence, KEPIMfgSequence> {
 public:
  explicit Sequence(const SequenceValues& values) : values_(values) {}

  HRESULT GetActivityOfToolChange(const KEPIMfgActivity_var& toolChange,
                                  const KEPMetaClass* interfaceClass,
                                  KEPIMfgActivity_var& activity) const override;

 private:
  const SequenceValues& values_;
};

}  // namespace host
