#pragma once

#include "System/KEPPlatform.h"
#include "language/table/TableCheck.h"

namespace ppword {

/// Makes a fault of a table the last error of the session; the status that the failing operation
/// returns.
[[nodiscard]] HRESULT recordTableError(const TableFault& fault);

}  // namespace ppword
