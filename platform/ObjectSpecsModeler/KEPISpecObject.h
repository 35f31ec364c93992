#pragma once

#include <string_view>

#include "ObjectSpecsModeler/KEPISpecAttribute.h"
#include "System/KEPComponent.h"

class KEPIContainer;

/// A feature of a container: a type (start-up) or an instance of one.
class KEP_PLATFORM KEPISpecObject : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPISpecObject";

  /// The name of a type or of an instance; that of an instance may be empty.
  [[nodiscard]] virtual std::string_view GetName() const = 0;

  /// Of a type its base type, of an instance its type; null for a root type.
  [[nodiscard]] virtual KEPVar<KEPISpecObject> GetBaseType() const = 0;

  /// The name of the feature's late type: of a type its own name, of an instance the name of its
  /// type.
  [[nodiscard]] virtual std::string_view GetLateType() const = 0;

  /// The container that holds the feature, not counted; null once the feature is removed or its
  /// document closed.
  [[nodiscard]] virtual KEPIContainer* GetContainer() const = 0;

  /// The number of declared attributes, inherited ones included.
  [[nodiscard]] virtual int GetNumberOfAttributes() const = 0;

  /// The attribute at a position from 1 to the number of attributes: those of the base types come
  /// first, each group in its listing order. A position outside raises the host's error.
  [[nodiscard]] virtual KEPISpecAttribute GetAttribute(int position) const = 0;
};

using KEPISpecObject_var = KEPVar<KEPISpecObject>;

/// Names of the modeler's own bookkeeping attributes, which may be anywhere among the others.
inline constexpr std::string_view kKEPOsmExtensions = "$OSM_Xts";
inline constexpr std::string_view kKEPOsmLocalExtensions = "$OSM_LocalXts";
