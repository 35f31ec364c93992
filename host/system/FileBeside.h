#pragma once

#include <string>
#include <string_view>

#include "System/KEPPlatform.h"

namespace host {

/// Makes sure that a file or a folder is on the disk. What has nothing to synchronise (pipes,
/// devices, some file systems) succeeds. False on failure, with the reason in errno.
[[nodiscard]] KEP_PLATFORM bool synchronise(int descriptor);

/// What is said of a file that is in its place, but perhaps not for good.
[[nodiscard]] inline std::string doubtText(std::string_view reason) {
  return "is written, but its place on the disk is not certain: " + std::string(reason);
}

/// A new, empty file beside the target that it is meant for. It is removed with the object, unless
/// it was placed. The reason of a failure is in errno.
class KEP_PLATFORM FileBeside {
 public:
  /// Without a file.
  FileBeside() = default;
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;
  ~FileBeside();

  /// Creates the file; false when it cannot be created, or when its folder cannot be opened, which
  /// would be too late once the file has its name.
  [[nodiscard]] bool create(const std::string& target);
  /// Removes the file unless it was placed, and closes it.
  void discard() noexcept;

  [[nodiscard]] const std::string& path() const noexcept { return path_; }
  /// Open for writing; negative without a file.
  [[nodiscard]] int descriptor() const noexcept { return descriptor_; }

  enum class Existing { Replaced, Kept };
  /// Renames the file, which must be synchronised, to the name of its target. False: the target is
  /// as it was.
  [[nodiscard]] bool takeName(Existing existing);
  /// Synchronises the folder of a file that has its name.
  [[nodiscard]] bool confirm() { return synchronise(folder_); }

  /// Failed: the target is as it was. NotCertain: the file is in its place, but a power failure may
  /// undo that, because the folder could not be synchronised.
  enum class Outcome { Placed, NotCertain, Failed };
  /// Does both.
  [[nodiscard]] Outcome place(Existing existing);

 private:
  [[nodiscard]] bool rename(Existing existing);
  std::string target_;
  /// Empty when there is nothing to remove.
  std::string path_;
  int descriptor_ = -1;
  int folder_ = -1;
};

}  // namespace host
