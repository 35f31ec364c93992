#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "System/KEPMetaClass.h"
#include "System/KEPPlatform.h"

/// Root of every object of the component model. A component is one object (the implementation)
/// and the extension objects that belong to it. They all share the implementation's reference
/// count, and the component is destroyed, extensions included, when the last reference is released.
class KEP_PLATFORM KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPBaseUnknown";

  /// An implementation with one reference, which belongs to its creator.
  KEPBaseUnknown() noexcept : impl_(this) {}
  KEPBaseUnknown(const KEPBaseUnknown&) = delete;
  KEPBaseUnknown& operator=(const KEPBaseUnknown&) = delete;
  virtual ~KEPBaseUnknown();

  void AddRef() const noexcept { ++impl_->references_; }
  void Release() const noexcept {
    if (--impl_->references_ == 0) impl_->Die();
  }
  /// The component's count, for tests and diagnostics.
  [[nodiscard]] int GetReferenceCount() const noexcept { return impl_->references_; }

  /// The implementation that this object extends; the object itself when it extends none.
  [[nodiscard]] KEPBaseUnknown* GetImpl() const noexcept { return impl_; }

  /// The component's object for an interface, with one reference that the caller releases; null
  /// when the component does not offer the interface. Repeated queries return the same object.
  [[nodiscard]] KEPBaseUnknown* QueryInterface(const KEPMetaClass* interfaceClass) const {
    KEPBaseUnknown* const object = FindInterface(interfaceClass);
    if (object != nullptr) AddRef();
    return object;
  }

  /// As QueryInterface, but not counted: valid as long as something else holds the component.
  [[nodiscard]] KEPBaseUnknown* FindInterface(const KEPMetaClass* interfaceClass) const {
    if (interfaceClass == nullptr) return nullptr;
    const Answers& known = impl_->known_;
    const unsigned number = interfaceClass->GetNumber();
    KEPBaseUnknown* const object = number < known.size ? known.objects[number] : nullptr;
    return object != nullptr ? object : impl_->AnswerAnew(interfaceClass);
  }

  /// True when the component's late type, or one of the base types of that, has this name.
  [[nodiscard]] bool IsAKindOf(std::string_view lateType) const { return impl_->HasType(lateType); }

  /// The meta-object of the object's own class; null for a class that is not registered.
  [[nodiscard]] virtual const KEPMetaClass* GetMetaObject() const { return nullptr; }

  /// Makes this object an extension of `implementation`, which owns it from now on.
  void BindTo(KEPBaseUnknown& implementation) noexcept { impl_ = implementation.impl_; }

 private:
  /// The objects that the component has returned, by the numbers of the interfaces. An answer stays
  /// valid as long as the component.
  struct Answers {
    unsigned size = 0;
    std::unique_ptr<KEPBaseUnknown*[]> objects;
  };

  /// Called on implementations only, for an interface not answered yet: its object, not counted, or
  /// null.
  [[nodiscard]] virtual KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass);
  /// As FindInterface, for an interface that was not answered yet; stores the answer.
  [[nodiscard]] KEPBaseUnknown* AnswerAnew(const KEPMetaClass* interfaceClass);
  void KeepAnswer(unsigned number, KEPBaseUnknown* object);
  [[nodiscard]] virtual bool HasType(std::string_view lateType) const;
  /// Destroys the component: the last reference is released.
  void Die() const noexcept;

  KEPBaseUnknown* impl_;
  mutable int references_ = 1;
  Answers known_;
};
