#include "host/manufacturing/ToolChange.h"

#include "host/manufacturing/Activity.h"

namespace host {

KEPIMfgSequence_var ToolChange::GetSequence() const {
  if (operation_ == nullptr) return nullptr;
  if (!sequence_) {
    sequence_ = createModelObject(model::kSequence,
                                  SequenceValues{GetImpl(), Activity::create(*operation_)});
  }
  return sequence_;
}

HRESULT Sequence::GetActivityOfToolChange(const KEPIMfgActivity_var& toolChange,
                                          const KEPMetaClass* interfaceClass,
                                          KEPIMfgActivity_var& activity) const {
  activity = nullptr;
  if (!toolChange || toolChange->GetImpl() != values_.toolChange) return E_FAIL;
  if (!KEPBaseUnknown_var::Adopt(values_.operation->QueryInterface(interfaceClass))) return E_FAIL;
  activity = values_.operation;
  return S_OK;
}

}  // namespace host
