#pragma once

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "System/KEPPlatform.h"
#include "System/KEPString.h"

namespace ppword {

/// Overlays a container with a PP word table; statuses and errors as those of
/// KEPIMfgPPWordContainer::LoadPPWordTable. Every entry of the table is reported to the session's
/// listener, a command before its sequences. The file is read once, before anything changes; the
/// cost grows with its size, and entries that would cost more cannot be read. One of more than
/// kMostTableBytes counts as one that cannot be opened.
[[nodiscard]] HRESULT loadTable(const KEPIContainer_var& container, const KEPUnicodeString& path);

}  // namespace ppword
