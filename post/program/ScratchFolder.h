#pragma once

#include <csignal>
#include <filesystem>

namespace host {

/// Holds back the signals that end a program while it exists, so that a scratch folder is removed
/// before they do.
class SignalHold {
 public:
  SignalHold();
  SignalHold(const SignalHold&) = delete;
  SignalHold& operator=(const SignalHold&) = delete;
  /// Delivers what was held back.
  ~SignalHold();

  /// The signals as they were before.
  [[nodiscard]] const sigset_t& before() const noexcept { return before_; }
  /// The signals that are held back.
  [[nodiscard]] const sigset_t& held() const noexcept { return held_; }

 private:
  sigset_t held_{};
  sigset_t before_{};
};

/// A folder of its own for one run, which only this user can read. It is removed in the end, with
/// everything in it.
class ScratchFolder {
 public:
  /// An OutputError if it cannot be created.
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace host
