#pragma once

#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// Sets `path` to a directory and the name of a file in it, joined by one "/"; to the name alone
/// when the directory is empty. Paths may have any length.
KEP_PLATFORM void KEPMakePath(const KEPString& directory, const KEPString& fileName,
                              KEPString& path);
