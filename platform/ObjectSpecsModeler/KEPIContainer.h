#pragma once

#include <string_view>
#include <vector>

#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPComponent.h"

/// A document of the application.
class KEP_PLATFORM KEPIDocument : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIDocument";

  /// True when the document was created by an older version and must be brought up to date.
  [[nodiscard]] virtual bool NeedsUpgrade() const = 0;
};

using KEPIDocument_var = KEPVar<KEPIDocument>;

/// A container of a document: holds feature types and instances.
class KEP_PLATFORM KEPIContainer : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIContainer";

  /// The type with this name, with one reference that the caller releases; null when there is none.
  /// Names are exact and case-sensitive.
  [[nodiscard]] virtual KEPISpecObject* FindStartUp(std::string_view name) const = 0;

  /// Creates a type under `base` (null: a root type), with one reference that the caller releases.
  /// Null, and nothing is created, when the name is empty or already used.
  [[nodiscard]] virtual KEPISpecObject* CreateStartUp(std::string_view name,
                                                      const KEPISpecObject_var& base) = 0;

  /// Creates an instance of a type of this container, with one reference that the caller releases.
  /// The name may be empty and need not be unique. A null type raises the null-handle error.
  [[nodiscard]] virtual KEPISpecObject* CreateInstance(const KEPISpecObject_var& type,
                                                       std::string_view name) = 0;

  /// The types and instances that offer an interface, in creation order.
  [[nodiscard]] virtual std::vector<KEPBaseUnknown_var> ListMembersHere(
      const KEPMetaClass* interfaceClass) const = 0;

  /// The document that holds the container; null once it is closed.
  [[nodiscard]] virtual KEPIDocument_var GetDocument() const = 0;
};

using KEPIContainer_var = KEPVar<KEPIContainer>;
