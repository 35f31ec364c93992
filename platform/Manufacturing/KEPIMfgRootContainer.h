#pragma once

#include "KEPIMfgPPWordContainer.h"
#include "System/KEPVar.h"

/// The manufacturing root container of a document.
class KEP_PLATFORM KEPIMfgRootContainer : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgRootContainer";

  /// The document's PP word container; null when it has none.
  [[nodiscard]] virtual KEPIMfgPPWordContainer_var GetPPWordContainer() const = 0;
};

using KEPIMfgRootContainer_var = KEPVar<KEPIMfgRootContainer>;
