#pragma once

#include "System/KEPBaseUnknown.h"

namespace ppword {

/// The slot that keeps the meta-object of a registered class; empty until the class is registered.
template <class Class>
inline KEPMetaClass* metaObjectOf = nullptr;

/// Base of every registered class: its run-time type queries use the meta-object in its slot.
template <class Class, class Base = KEPBaseUnknown>
class Registered : public Base {
 public:
  [[nodiscard]] const KEPMetaClass* GetMetaObject() const final { return metaObjectOf<Class>; }
};

}  // namespace ppword
