#pragma once

#include <atomic>
#include <string>
#include <string_view>
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
