#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "System/KEPComponent.h"
#include "host/system/Dictionary.h"
#include "host/system/Extensions.h"

namespace system_test {

class Named : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPITestNamed";
  [[nodiscard]] virtual const std::string& name() const = 0;
};

class Numbered : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPITestNumbered";
  int number = 0;
};

/// Nothing here offers it.
class Absent : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPITestAbsent";
};

/// A component of a late type that answers Named itself and the rest through the dictionary.
/// `alive` counts the components that live.
class Component final : public Named {
 public:
  static inline int alive = 0;

  Component(std::string_view lateType, std::string_view name) : lateType_(lateType), name_(name) {
    ++alive;
  }
  ~Component() override { --alive; }

  [[nodiscard]] static KEPVar<Named> make(std::string_view name) {
    return KEPVar<Named>::Adopt(new Component("TestComponent", name));
  }
  [[nodiscard]] const std::string& name() const override { return name_; }

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    if (interfaceClass == KEPInterfaceId<Named>()) return this;
    const KEPCreator creator = host::findCreator(lateType_, interfaceClass);
    return creator == nullptr ? nullptr : extensions_.make(creator, *this);
  }
  [[nodiscard]] bool HasType(std::string_view lateType) const override {
    return lateType == lateType_;
  }

  std::string lateType_;
  std::string name_;
  host::Extensions extensions_;
};

/// Extends components of the late type TestComponent by a number. `alive` counts the extensions
/// that live, `made` those ever made.
class Number final : public Numbered {
 public:
  static inline int alive = 0;
  static inline int made = 0;

  explicit Number(KEPBaseUnknown& extended) {
    BindTo(extended);
    ++alive;
    ++made;
  }
  ~Number() override { --alive; }

  static KEPBaseUnknown* create(KEPBaseUnknown* extended) { return new Number(*extended); }

  /// Enters the class in the dictionary, once.
  static void registerOnce() {
    static const KEPMetaClass kClass("TestNumber", KEPMetaClass::TypeOfClass::DataExtension,
                                     KEPInterfaceId<Numbered>(), "TestComponent", "Test");
    KEPFillDictionary(&kClass, KEPInterfaceId<Numbered>(), &create, nullptr, 1);
  }
};

}  // namespace system_test
