#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "host/modeler/Feature.h"
#include "host/modeler/TypeIndex.h"
#include "host/system/Extensions.h"

namespace host {

class Document;

/// A container of a document, itself a component of a late type. Types are found by a hash of their
/// name; members are listed in creation order.
class KEP_PLATFORM Container final : public KEPIContainer {
 public:
  Container(Document& document, std::string_view lateType);
  ~Container() override;

  [[nodiscard]] KEPISpecObject* FindStartUp(std::string_view name) const override;
  [[nodiscard]] KEPISpecObject* CreateStartUp(std::string_view name,
                                              const KEPISpecObject_var& base) override;
  [[nodiscard]] KEPISpecObject* CreateInstance(const KEPISpecObject_var& type,
                                               std::string_view name) override;
  [[nodiscard]] std::vector<KEPBaseUnknown_var> ListMembersHere(
      const KEPMetaClass* interfaceClass) const override;
  [[nodiscard]] KEPIDocument_var GetDocument() const override;

  /// Takes a member out; handles on it stay good.
  void removeMember(Feature& member);
  /// Takes every member out and leaves the document.
  void close();

  [[nodiscard]] Document* document() const noexcept { return document_; }
  [[nodiscard]] std::string_view lateType() const noexcept { return lateType_; }

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;
  [[nodiscard]] bool HasType(std::string_view lateType) const override {
    return lateType == lateType_;
  }
  /// Null, and nothing made, when the type is no feature of this modeler.
  Feature* addMember(Feature::Kind kind, std::string_view name, const KEPISpecObject_var& type);

  Document* document_;
  std::string lateType_;
  Feature::Members members_;
  TypeIndex types_;
  Extensions extensions_;
};

}  // namespace host
