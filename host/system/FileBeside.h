#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

#include "System/KEPPlatform.h"
#include "host/system/EndingSignals.h"

namespace host {

/// Makes sure that a file or a folder is on the disk. What has nothing to synchronise (pipes,
/// devices, some file systems) succeeds. False on failure, with the reason in errno.
[[nodiscard]] KEP_PLATFORM bool synchronise(int descriptor);

/// What is said of a file that is in its place, but perhaps not for good.
[[nodiscard]] inline std::string doubtText(std::string_view reason) {
  return "is written, but its place on the disk is not certain: " + std::string(reason);
}

/// A new, empty file beside the target that it is meant for, `.ppword-HOST-PROCESS-NUMBER.tmp`. It
/// is removed with the object and at a signal (EndingSignals.h), unless it was placed. Its first
/// byte is locked, so that one which a killed process left is known. The reason of a failure is in
/// errno.
class KEP_PLATFORM FileBeside {
 public:
  /// Without a file.
  FileBeside() = default;
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;
  ~FileBeside();

  /// Removes what killed processes of this user left beside the target on this host, and creates
  /// the file, private until it is placed if the target exists; false when it cannot be
  /// created, or when its folder cannot be opened, which would be too late once the file has its
  /// name.
  [[nodiscard]] bool create(const std::string& target);
  /// Removes the file unless it was placed, and closes it.
  void discard() noexcept;

  [[nodiscard]] const std::string& path() const noexcept { return path_; }
  /// Open for reading and writing; negative without a file.
  [[nodiscard]] int descriptor() const noexcept { return descriptor_; }

  enum class Existing { Replaced, Kept };
  /// Sets the permissions of the target that is replaced and, where the system allows, its owner
  /// and its group, and renames the file, which must be synchronised, to the name of its target.
  /// False: the target is as it was.
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
  [[nodiscard]] bool setRights() const;
  void open(const std::string& path, mode_t mode);
  [[nodiscard]] bool isHeld() const;
  void forget() noexcept;

  struct Rights {
    mode_t mode;
    uid_t owner;
    gid_t group;
  };
  std::string target_;
  /// Empty when there is nothing to remove. SQLite's journal is beside a file that is a database.
  std::string path_;
  std::string journal_;
  RemovedAtSignal pathAtSignal_;
  RemovedAtSignal journalAtSignal_;
  /// Those of the target, if it exists.
  std::optional<Rights> rights_;
  int descriptor_ = -1;
  int folder_ = -1;
};

}  // namespace host
