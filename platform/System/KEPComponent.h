#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "System/KEPPlatform.h"

class KEPBaseUnknown;

/// What the host knows of a class at run time: its name, its kind, its base class and, for an
/// extension, the late types (type names) that it extends. Meta-objects live as long as the
/// process.
class KEP_PLATFORM KEPMetaClass {
 public:
  enum class TypeOfClass {
    Implementation = 1,
    DataExtension = 2,
    Interface = 3,
    CodeExtension = 4
  };

  /// The meta-object of an extension class. `base` is the meta-object of its base class; the class
  /// becomes an extension of `lateType`.
  KEPMetaClass(std::string_view className, TypeOfClass type, const KEPMetaClass* base,
               std::string_view lateType, std::string_view framework);
  KEPMetaClass(const KEPMetaClass&) = delete;
  KEPMetaClass& operator=(const KEPMetaClass&) = delete;

  /// The meta-object of an interface: one for each name in the process, created when it is first
  /// asked for.
  [[nodiscard]] static const KEPMetaClass* Interface(std::string_view interfaceName);

  /// Declares the class an extension of another late type; a late type that is not known yet is
  /// created. Takes effect for dictionary entries filled afterwards.
  void Extend(std::string_view lateType);

  [[nodiscard]] const std::string& GetName() const noexcept { return name_; }
  /// An interface's number, from 1: no other interface has it. 0 for every other class.
  [[nodiscard]] unsigned GetNumber() const noexcept { return number_; }
  [[nodiscard]] TypeOfClass GetTypeOfClass() const noexcept { return type_; }
  [[nodiscard]] const KEPMetaClass* GetBase() const noexcept { return base_; }
  [[nodiscard]] const std::string& GetFramework() const noexcept { return framework_; }
  /// The late types extended, in the order in which they were declared.
  [[nodiscard]] const std::vector<std::string>& GetLateTypes() const noexcept { return lateTypes_; }

 private:
  unsigned number_;
  std::string name_;
  TypeOfClass type_;
  const KEPMetaClass* base_;
  std::string framework_;
  std::vector<std::string> lateTypes_;
};

/// Creates the extension object of a class for the object `extended`. The result is not counted: it
/// belongs to that object and is destroyed with it. Null when that object cannot have this
/// extension; it then does not offer the interface.
using KEPCreator = KEPBaseUnknown* (*)(KEPBaseUnknown* extended);

/// Enters `extension` in the dictionary as the provider of `interfaceClass` for every late type
/// that it extends. The first entry for a late type and an interface wins. `data` is stored for the
/// creator (no creator here needs it); `flag` is 1 for an extension found through its late type.
KEP_PLATFORM void KEPFillDictionary(const KEPMetaClass* extension,
                                    const KEPMetaClass* interfaceClass, KEPCreator creator,
                                    const void* data, int flag);

/// The meta-object of an interface class; null until it is first asked for.
template <class Interface>
inline std::atomic<const KEPMetaClass*> KEPKnownInterface [[gnu::visibility("hidden")]] = nullptr;

template <class Interface>
[[gnu::noinline]] const KEPMetaClass* KEPMakeInterfaceKnown() {
  const KEPMetaClass* const id = KEPMetaClass::Interface(Interface::kInterfaceName);
  KEPKnownInterface<Interface>.store(id, std::memory_order_release);
  return id;
}

/// The meta-object of an interface class, which names itself in `kInterfaceName`.
template <class Interface>
[[nodiscard]] inline const KEPMetaClass* KEPInterfaceId() {
  const KEPMetaClass* const id = KEPKnownInterface<Interface>.load(std::memory_order_acquire);
  return id != nullptr ? id : KEPMakeInterfaceKnown<Interface>();
}

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
    return object != nullptr ? object : impl_->FirstAnswer(interfaceClass);
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
  [[nodiscard]] KEPBaseUnknown* FirstAnswer(const KEPMetaClass* interfaceClass);
  void KeepAnswer(unsigned number, KEPBaseUnknown* object);
  [[nodiscard]] virtual bool HasType(std::string_view lateType) const;
  /// Destroys the component: the last reference is released.
  void Die() const noexcept;

  KEPBaseUnknown* impl_;
  mutable int references_ = 1;
  Answers known_;
};

/// Raises the host's null-handle error.
[[noreturn]] KEP_PLATFORM void KEPRaiseNullHandle();

/// A handle on an interface: it holds one reference. Constructed from a handle on another
/// interface, it asks the component for its own interface, and is null when the component does not
/// offer it. Using a null handle raises the host's null-handle error.
template <class T>
class KEPVar {
 public:
  KEPVar() noexcept = default;
  KEPVar(std::nullptr_t) noexcept {}
  KEPVar(T* object) noexcept : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  KEPVar(const KEPVar& other) noexcept : KEPVar(other.object_) {}
  KEPVar(KEPVar&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class U>
  requires(!std::is_same_v<T, U>) KEPVar(const KEPVar<U>& other) : object_(Cast(other.Get())) {}
  ~KEPVar() {
    if (object_ != nullptr) object_->Release();
  }
  KEPVar& operator=(KEPVar other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  /// Takes over the reference that `object` carries.
  [[nodiscard]] static KEPVar Adopt(T* object) noexcept {
    KEPVar handle;
    handle.object_ = object;
    return handle;
  }
  /// Asks the component of `object` (null allowed) for this interface.
  [[nodiscard]] static KEPVar Of(const KEPBaseUnknown* object) { return Adopt(Cast(object)); }

  [[nodiscard]] T* Get() const noexcept { return object_; }
  [[nodiscard]] T* operator->() const { return &**this; }
  [[nodiscard]] T& operator*() const {
    if (object_ == nullptr) KEPRaiseNullHandle();
    return *object_;
  }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  /// Hands the reference over to the caller; the handle is null afterwards.
  [[nodiscard]] T* Detach() noexcept { return std::exchange(object_, nullptr); }

 private:
  static T* Cast(const KEPBaseUnknown* object) {
    if (object == nullptr) return nullptr;
    if constexpr (std::is_same_v<T, KEPBaseUnknown>) {
      object->AddRef();
      return const_cast<KEPBaseUnknown*>(object);
    } else {
      return static_cast<T*>(object->QueryInterface(KEPInterfaceId<T>()));
    }
  }

  T* object_ = nullptr;
};

using KEPBaseUnknown_var = KEPVar<KEPBaseUnknown>;

/// Interface `T` of the component of `object` (null allowed), not counted: valid as long as
/// something else holds the component; null when it does not offer the interface. For the few
/// places where counting the reference would cost more than the work done with it.
template <class T>
[[nodiscard]] T* KEPBorrow(const KEPBaseUnknown* object) {
  if (object == nullptr) return nullptr;
  return static_cast<T*>(object->FindInterface(KEPInterfaceId<T>()));
}
