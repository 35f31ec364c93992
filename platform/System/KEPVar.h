#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "System/KEPBaseUnknown.h"

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
