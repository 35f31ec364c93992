#pragma once

#include <string>

namespace host {

/// A new, empty file beside the place that it is meant for. A negative descriptor: none could be
/// made, and errno tells why.
struct FileBeside {
  std::string path;
  int descriptor = -1;
};
[[nodiscard]] FileBeside createBeside(const std::string& target);

/// The two tell of a failure by false, with errno set. What has nothing to synchronise (pipes,
/// devices, some file systems) succeeds.
[[nodiscard]] bool synchronise(int descriptor);
/// Synchronises the folder that holds a file.
[[nodiscard]] bool synchroniseFolderOf(const std::string& path);

}  // namespace host
