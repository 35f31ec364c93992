#pragma once

#include "System/KEPComponent.h"

class KEPIMfgPPWordContainer;

/// The manufacturing root container of a document.
class KEP_PLATFORM KEPIMfgRootContainer : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgRootContainer";

  /// The document's PP word container; null when it has none.
  [[nodiscard]] virtual KEPVar<KEPIMfgPPWordContainer> GetPPWordContainer() const = 0;
};

using KEPIMfgRootContainer_var = KEPVar<KEPIMfgRootContainer>;
