#pragma once

#include <dlfcn.h>

#include <cerrno>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string>

#include "host/system/Module.h"

namespace host {

/// A library that few runs need: it is loaded when one of its functions is used for the first time,
/// so that the others do not wait for the dynamic linker. One that the process has loaded already
/// is the one that is used.
class LateLibrary {
 public:
  /// Where it is: among those of the system, or beside the host's own library.
  enum class Place { System, Beside };

  constexpr explicit LateLibrary(const char* name, Place place = Place::System)
      : name_(name), place_(place) {}

  /// Raises a std::runtime_error, which names the library, when it cannot be loaded or has no such
  /// function.
  [[nodiscard]] void* find(const char* function) {
    if (handle_ == nullptr) handle_ = dlopen(path().c_str(), RTLD_LAZY | RTLD_LOCAL);
    void* const found = handle_ == nullptr ? nullptr : dlsym(handle_, function);
    if (found == nullptr) fail(dlerror());
    return found;
  }

 private:
  [[noreturn]] static void fail(const std::string& reason) {
    if (reason.find(std::strerror(ENOMEM)) != std::string::npos) throw std::bad_alloc();
    throw std::runtime_error("not installed: " + reason);
  }

  [[nodiscard]] std::string path() const {
    return place_ == Place::System ? name_ : defaultModulePath().replace_filename(name_).string();
  }

  const char* name_;
  Place place_;
  void* handle_ = nullptr;
};

/// A function of such a library; it is called as the function itself.
template <LateLibrary& kLibrary, typename Function>
class LateFunction {
 public:
  constexpr explicit LateFunction(const char* name) : name_(name) {}

  operator Function*() {
    if (function_ == nullptr) function_ = reinterpret_cast<Function*>(kLibrary.find(name_));
    return function_;
  }

 private:
  const char* name_;
  Function* function_ = nullptr;
};

}  // namespace host
