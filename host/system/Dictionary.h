#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "System/KEPComponent.h"

namespace host {

/// One entry of the interface dictionary.
struct Registration {
  std::string lateType;
  const KEPMetaClass* extension;
  const KEPMetaClass* interfaceClass;
  KEPCreator creator;
  const void* data;
  int flag;
};

/// Who provides an interface for a late type; null when there is none. Base types are the caller's
/// business.
[[nodiscard]] KEP_PLATFORM KEPCreator findCreator(std::string_view lateType,
                                                  const KEPMetaClass* interfaceClass);

/// Every entry in the order in which it was made.
[[nodiscard]] KEP_PLATFORM const std::vector<Registration>& registrations();

/// True when the late type was declared by an extension class.
[[nodiscard]] KEP_PLATFORM bool isLateTypeKnown(std::string_view lateType);

}  // namespace host
