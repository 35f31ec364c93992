#include "host/system/EndingSignals.h"

#include <unistd.h>

namespace host {
namespace {

constexpr int kEndingSignals[] = {SIGHUP, SIGINT, SIGTERM, SIGQUIT};

/// Changed only while the signals are held back.
RemovedAtSignal* firstNamed = nullptr;

/// The signals that end this program.
sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : kEndingSignals) {
    struct sigaction action {};
    const bool isIgnored = sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
    if (!isIgnored) sigaddset(&signals, number);
  }
  return signals;
}

}  // namespace

SignalHold::SignalHold() : held_(endingSignals()) { sigprocmask(SIG_BLOCK, &held_, &before_); }

SignalHold::~SignalHold() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

void removeNamedFiles() noexcept {
  for (const RemovedAtSignal* file = firstNamed; file != nullptr; file = file->next_) {
    ::unlink(file->path_);
  }
}

namespace {

void endCleanly(int number) {
  removeNamedFiles();
  // Delivered when the handler returns; SA_RESETHAND has restored what it does.
  ::raise(number);
}

}  // namespace

void removeFilesAtSignals() {
  struct sigaction action {};
  action.sa_handler = endCleanly;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  action.sa_mask = endingSignals();
  for (const int number : kEndingSignals) {
    if (sigismember(&action.sa_mask, number) == 1) sigaction(number, &action, nullptr);
  }
}

void RemovedAtSignal::name(const char* path) noexcept {
  if (path_ == nullptr && path == nullptr) return;
  const SignalHold hold;
  RemovedAtSignal** place = &firstNamed;
  while (*place != nullptr && *place != this) place = &(*place)->next_;
  if (*place == this) *place = next_;
  path_ = path;
  if (path == nullptr) return;
  next_ = firstNamed;
  firstNamed = this;
}

}  // namespace host
