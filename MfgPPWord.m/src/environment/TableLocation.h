#pragma once

#include <optional>

#include "Manufacturing/KEPIMfgProgram.h"
#include "Manufacturing/KEPIMfgResource.h"
#include "System/KEPList.h"
#include "System/KEPString.h"

namespace ppword {

/// The resource of a program's setup; null when the setup has none. A program without activity or
/// setup raises the null-handle error.
[[nodiscard]] KEPIMfgResource_var resourceOf(const KEPIMfgProgram_var& program);

/// The path of the first file with this bare name; `directories` has, entry by entry, the
/// directories of the files. Nothing when there is no such file, and when the list ends before its
/// directory.
[[nodiscard]] std::optional<KEPUnicodeString> pathOf(const KEPUnicodeString& name,
                                                     const KEPListValKEPUnicodeString& directories,
                                                     const KEPListValKEPUnicodeString& files);

/// The same among the files of the application's "PPTables" folders.
[[nodiscard]] std::optional<KEPUnicodeString> tablePath(const KEPUnicodeString& name);

}  // namespace ppword
