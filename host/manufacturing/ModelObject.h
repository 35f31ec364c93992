#pragma once

#include <utility>

#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"
#include "host/manufacturing/ModelType.h"
#include "host/system/Extensions.h"

namespace host {

/// Creates the extension that the dictionary names for a component of this type, or of one that it
/// is based on; null when there is none. The classes of the model are in the dictionary from the
/// first call on.
[[nodiscard]] KEPBaseUnknown* extendModelObject(const ModelType& type,
                                                const KEPMetaClass* interfaceClass,
                                                KEPBaseUnknown& object, Extensions& extensions);

/// What a component of the model was made from.
template <class Values>
class ModelValues {
 public:
  explicit ModelValues(Values values) : values_(std::move(values)) {}
  ModelValues(const ModelValues&) = delete;
  ModelValues& operator=(const ModelValues&) = delete;
  virtual ~ModelValues() = default;

  [[nodiscard]] const Values& values() const noexcept { return values_; }

 private:
  Values values_;
};

/// A component of the manufacturing model: a late type, and the values that its extensions return.
template <class Values, class Base = KEPBaseUnknown>
class ModelObject : public Base, public ModelValues<Values> {
 public:
  ModelObject(const ModelType& type, Values values)
      : ModelValues<Values>(std::move(values)), type_(type) {}

 protected:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return extendModelObject(type_, interfaceClass, *this, extensions_);
  }

 private:
  [[nodiscard]] bool HasType(std::string_view lateType) const override {
    return type_.isKindOf(lateType);
  }

  const ModelType& type_;
  Extensions extensions_;
};

/// A component that has no interface but those of its extensions.
template <class Values>
[[nodiscard]] KEPBaseUnknown_var createModelObject(const ModelType& type, const Values& values) {
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

/// Sets `value` to the one that a map holds for a key; E_FAIL, with `value` untouched, when it
/// holds none.
template <class Map, class Key, class Value>
HRESULT lookUp(const Map& map, const Key& key, Value& value) {
  const auto found = map.find(key);
  if (found == map.end()) return E_FAIL;
  value = found->second;
  return S_OK;
}

}  // namespace host
