#pragma once

#include "System/KEPComponent.h"

namespace ppword {

/// Holds the meta-object of a registered class; null until the class is registered.
template <class Class>
inline KEPMetaClass* metaObjectSlot = nullptr;

/// Base of every registered class: its run-time type queries return the meta-object in its slot.
template <class Class, class Base = KEPBaseUnknown>
class Registered : public Base {
 public:
  [[nodiscard]] const KEPMetaClass* GetMetaObject() const final { return metaObjectSlot<Class>; }
};

}  // namespace ppword
