#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "System/KEPPlatform.h"

namespace host {

/// The setting that holds the search list: the directories in which the application's folders lie,
/// the first one first, separated by ":".
inline constexpr std::string_view kSearchListSetting = "PPWORD_RESOURCE_PATH";

/// One of the application's folders and what lies directly in it.
struct ResourceFolder {
  /// An entry that is not a file of the folder.
  struct Passed {
    std::string name;
    std::string reason;
  };

  std::string path;
  /// Why it cannot be listed; empty when it was.
  std::string problem;
  /// Bare names of the regular files, in the order of their bytes.
  std::vector<std::string> files;
  /// Links that lead out of the folder or to nothing, in the order of their bytes.
  std::vector<Passed> passedOver;
};

/// The folders of that name in the order of the search list; what the list names twice and what is
/// not there is left out. Folders inside them are not looked into.
[[nodiscard]] KEP_PLATFORM std::vector<ResourceFolder> resourceFolders(std::string_view name);

}  // namespace host
