#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPComponent.h"
#include "host/modeler/AttributeTable.h"
#include "host/system/Extensions.h"

namespace host {

class Feature;

/// A container as its features see it.
class KEP_PLATFORM FeatureOwner : public KEPIContainer {
 public:
  /// Takes a member out; handles on it stay good.
  virtual void removeMember(Feature& member) = 0;
};

/// A feature type or instance. Its late type is the name of the type; interfaces of its base types
/// are its own too.
class KEP_PLATFORM Feature final : public KEPISpecObject {
 public:
  enum class Kind { StartUp, Instance };
  using Members = std::list<KEPVar<Feature>>;

  Feature(Kind kind, std::string_view name, KEPVar<Feature> type, FeatureOwner& container);
  ~Feature() override;

  [[nodiscard]] std::string_view GetName() const override { return name_; }
  [[nodiscard]] KEPISpecObject_var GetBaseType() const override;
  [[nodiscard]] std::string_view GetLateType() const override { return typeInUse().name_; }
  [[nodiscard]] KEPIContainer* GetContainer() const override { return container_; }
  [[nodiscard]] int GetNumberOfAttributes() const override;
  [[nodiscard]] KEPISpecAttribute GetAttribute(int position) const override;

  /// True once the attributes were brought up to date.
  [[nodiscard]] bool isPublished() const noexcept { return published_; }
  void publish() noexcept;

  [[nodiscard]] Kind kind() const noexcept { return kind_; }
  /// The attributes that the feature itself declares or sets, for storing them.
  [[nodiscard]] const AttributeTable& attributes() const noexcept { return attributes_; }
  /// Replaces them, those of a copy by those of its original.
  void setAttributes(const AttributeTable& attributes);
  /// Adds an attribute as it was stored. False, and nothing added, when there is one of its name.
  [[nodiscard]] bool addStored(AttributeTable::Slot attribute);

 private:
  /// Adds features to its members and takes them out.
  friend class Container;

  /// The feature's attributes by name.
  class AttrAccess final : public KEPISpecAttrAccess {
   public:
    explicit AttrAccess(Feature& feature) : feature_(feature) { BindTo(feature); }
    HRESULT AddAttribute(std::string_view name, KEPISpecAttribute::Kind kind) override;
    [[nodiscard]] std::optional<KEPISpecAttribute> FindAttribute(
        std::string_view name) const override;
    [[nodiscard]] const KEPUnicodeString* FindText(std::string_view name) const override;
    HRESULT SetString(std::string_view name, std::string_view text) override;
    HRESULT SetInteger(std::string_view name, int value) override;
    HRESULT SetList(std::string_view name, const KEPListValKEPUnicodeString& items) override;
    HRESULT AppendToList(std::string_view name, std::string_view item) override;
    HRESULT RemoveAll(std::string_view name) override;
    HRESULT Unset(std::string_view name) override;

   private:
    /// As FindText, for a name that has no value of the feature's own.
    [[nodiscard]] const KEPUnicodeString* inheritedText(std::string_view name) const;

    Feature& feature_;
  };

  class LifeCycle final : public KEPILifeCycleObject {
   public:
    explicit LifeCycle(Feature& feature) : feature_(feature) { BindTo(feature); }
    HRESULT remove() override;

   private:
    Feature& feature_;
  };

  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;
  [[nodiscard]] bool HasType(std::string_view lateType) const override;

  /// The type that the feature has its late type from.
  [[nodiscard]] const Feature& typeInUse() const noexcept {
    return kind_ == Kind::StartUp ? *this : *type_.Get();
  }

  /// The nearest slot of that name from the feature up its base types; `set` slots only if asked.
  [[nodiscard]] const AttributeTable::Slot* nearestSlot(std::string_view name, bool set) const;
  /// The feature's own slot for a declared attribute, made when only a base type declares it.
  [[nodiscard]] AttributeTable::Slot* writableSlot(std::string_view name);
  /// A declared attribute with the value that holds here; `isOwn` for a slot of this feature.
  [[nodiscard]] KEPISpecAttribute view(const AttributeTable::Slot& declaration, bool isOwn) const;

  Kind kind_;
  std::string name_;
  KEPVar<Feature> type_;
  FeatureOwner* container_;
  Members::iterator place_{};
  AttributeTable attributes_;
  bool published_ = false;
  Extensions extensions_;
  AttrAccess attrAccess_{*this};
  LifeCycle lifeCycle_{*this};
};

}  // namespace host
