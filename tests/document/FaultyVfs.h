#pragma once

#include <functional>

#include "host/document/DocumentFile.h"

namespace host::test {

/// While it lives, SQLite runs on a file system that goes wrong: the `last`-th operation that
/// changes a file (from 1: write, cut, synchronise, remove) fails, or kills the process in the
/// middle of it.
class FaultyVfs {
 public:
  enum class Fault { DiskFull, Kill };

  FaultyVfs(Fault fault, int last);
  FaultyVfs(const FaultyVfs&) = delete;
  FaultyVfs& operator=(const FaultyVfs&) = delete;
  ~FaultyVfs();

  /// True once the fault has struck.
  [[nodiscard]] static bool struck();
};

/// Runs `work` in a process of its own; true when that was killed by SIGKILL, false when it ended
/// by itself. Any other end fails the test.
[[nodiscard]] bool isKilledIn(const std::function<void()>& work);

}  // namespace host::test
