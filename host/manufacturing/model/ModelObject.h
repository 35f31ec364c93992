#pragma once

#include <utility>

#include "System/KEPVar.h"
#include "host/manufacturing/model/ModelType.h"
#include "host/system/Extensions.h"

namespace host {

/// Makes the extension that the dictionary names for a component of this type, or of one that it is
/// based on; null when there is none. The classes of the model are in the dictionary from the first
/// call on.
[[nodiscard]] KEPBaseUnknown* extendModelObject(const ModelType& type,
                                                const KEPMetaClass* interfaceClass,
                                                KEPBaseUnknown& object, Extensions& extensions);

/// A component of the manufacturing model: a late type, and the values that its extensions tell.
template <class Values, class Base = KEPBaseUnknown>
class ModelObject : public Base {
 public:
  ModelObject(const ModelType& type, Values values) : type_(type), values_(std::move(values)) {}

  [[nodiscard]] const Values& values() const noexcept { return values_; }

 protected:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return extendModelObject(type_, interfaceClass, *this, extensions_);
  }

 private:
  [[nodiscard]] bool HasType(std::string_view lateType) const override {
    return type_.isKindOf(lateType);
  }

  const ModelType& type_;
  Values values_;
  Extensions extensions_;
};

/// A component that has no interface but those of its extensions.
template <class Values>
[[nodiscard]] KEPBaseUnknown_var makeModelObject(const ModelType& type, const Values& values) {
  return KEPBaseUnknown_var::Adopt(new ModelObject<Values>(type, values));
}

/// Base of the classes that extend components of the model.
template <class Self, class InterfaceClass>
class ModelExtension : public InterfaceClass {
 public:
  using Interface = InterfaceClass;

  [[nodiscard]] const KEPMetaClass* GetMetaObject() const final { return metaObject; }

  /// Empty until the class is registered.
  static inline KEPMetaClass* metaObject = nullptr;
};

}  // namespace host
