#pragma once

#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// `path`: a directory and the name of a file in it, joined by one "/"; paths of any length. The
/// name alone when the directory is empty.
KEP_PLATFORM void KEPMakePath(const KEPString& directory, const KEPString& fileName,
                              KEPString& path);
