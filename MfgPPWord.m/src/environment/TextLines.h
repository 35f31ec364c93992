#pragma once

#include "System/KEPList.h"
#include "System/KEPUnicodeString.h"

namespace ppword {

/// The lines of a text; contract as that of
/// KEPMfgPPWordUtilities::SplitKEPUnicodeStringWithLF.
[[nodiscard]] KEPListValKEPUnicodeString linesOf(const KEPUnicodeString& text);

}  // namespace ppword
