#pragma once

#include <cstring>
#include <string>

#include "System/KEPPlatform.h"

namespace host {

/// A new, empty file beside the place that it is meant for. With a negative descriptor none could
/// be created, and errno is the reason.
struct FileBeside {
  std::string path;
  int descriptor = -1;
};
[[nodiscard]] KEP_PLATFORM FileBeside createBeside(const std::string& target);

/// Both return false on failure, with errno set. What has nothing to synchronise (pipes,
/// devices, some file systems) succeeds.
[[nodiscard]] KEP_PLATFORM bool synchronise(int descriptor);
/// Synchronises the folder that holds a file.
[[nodiscard]] KEP_PLATFORM bool synchroniseFolderOf(const std::string& path);

/// The operating system's text for an error number, the same under every locale.
[[nodiscard]] inline std::string systemReason(int error) {
  const char* const text = ::strerrordesc_np(error);
  return text != nullptr ? text : "system error " + std::to_string(error);
}

}  // namespace host
