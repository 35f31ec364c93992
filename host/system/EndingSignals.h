#pragma once

#include <csignal>

#include "System/KEPPlatform.h"

namespace host {

/// Holds back the signals that end a program (SIGHUP, SIGINT, SIGTERM, SIGQUIT) while it exists, so
/// that what is to be removed first can be removed. Those that the program ignores are not held.
class KEP_PLATFORM SignalHold {
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

/// From now on these signals remove the files that are named for it, and then end the program as
/// before. Signals that the program ignores, as after nohup, are ignored further. For programs: a
/// library leaves the signals to the application.
KEP_PLATFORM void removeFilesAtSignals();

/// Removes the files that are named, as such a signal does; for a program that ends without leaving
/// its functions. It calls only what a signal handler may call.
KEP_PLATFORM void removeNamedFiles() noexcept;

/// Names a file that such a signal removes.
class KEP_PLATFORM RemovedAtSignal {
 public:
  RemovedAtSignal() = default;
  RemovedAtSignal(const RemovedAtSignal&) = delete;
  RemovedAtSignal& operator=(const RemovedAtSignal&) = delete;
  ~RemovedAtSignal() { name(nullptr); }

  /// The text must stay until another file is named, or none.
  void name(const char* path) noexcept;

 private:
  friend void removeNamedFiles() noexcept;

  const char* path_ = nullptr;
  RemovedAtSignal* next_ = nullptr;
};

}  // namespace host
