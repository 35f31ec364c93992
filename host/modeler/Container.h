#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "host/modeler/Feature.h"
#include "host/system/Extensions.h"
#include "host/system/NameIndex.h"

namespace host {

class Container;

/// A document as its containers see it.
class KEP_PLATFORM ContainerOwner : public KEPIDocument {
 public:
  /// A container belongs to the document from its creation until it closes.
  void add(Container& container) { containers_.push_back(&container); }
  void remove(Container& container) noexcept { std::erase(containers_, &container); }
  /// The containers in the order of their creation.
  [[nodiscard]] const std::vector<Container*>& containers() const noexcept { return containers_; }

 private:
  std::vector<Container*> containers_;
};

/// A container of a document, itself a component of a late type. Types are found by a hash of their
/// name; members are listed in creation order. It offers KEPIRevision and what the dictionary has
/// for its late type.
class KEP_PLATFORM Container : public FeatureOwner {
 public:
  Container(ContainerOwner& document, std::string_view lateType);
  ~Container() override;

  [[nodiscard]] KEPISpecObject* FindStartUp(std::string_view name) const override;
  [[nodiscard]] KEPISpecObject* CreateStartUp(std::string_view name,
                                              const KEPISpecObject_var& base) override;
  [[nodiscard]] KEPISpecObject* CreateInstance(const KEPISpecObject_var& type,
                                               std::string_view name) override;
  [[nodiscard]] std::vector<KEPBaseUnknown_var> ListMembersHere(
      const KEPMetaClass* interfaceClass) const override;
  [[nodiscard]] KEPIDocument_var GetDocument() const override;

  void removeMember(Feature& member) override;
  /// Takes every member out and leaves the document.
  void close();

  [[nodiscard]] std::string_view lateType() const noexcept { return lateType_; }

 protected:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;

 private:
  [[nodiscard]] bool HasType(std::string_view lateType) const override {
    return lateType == lateType_;
  }
  /// Null, and nothing created, when the type is not a feature of this modeler.
  Feature* addMember(Feature::Kind kind, std::string_view name, const KEPISpecObject_var& type);

  ContainerOwner* document_;
  std::string lateType_;
  Feature::Members members_;
  NameIndex<Feature> types_;
  Extensions extensions_;
};

/// The container that holds a feature, or the container itself, not counted; null for anything else
/// and for a feature that is not in a container any more.
[[nodiscard]] inline KEPIContainer* containerOf(const KEPBaseUnknown_var& object) {
  const auto* const feature = KEPBorrow<KEPISpecObject>(object.Get());
  return feature != nullptr ? feature->GetContainer() : KEPBorrow<KEPIContainer>(object.Get());
}

}  // namespace host
