#pragma once

#include <chrono>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace host {

/// A program that is run as a child, without a shell.
struct ChildCommand {
  /// The path of the program.
  std::string program;
  /// Its arguments, without its name.
  std::vector<std::string> arguments;
  /// The folder that it runs in.
  std::string folder;
  /// Its environment, "NAME=VALUE".
  std::vector<std::string> environment;
  /// The most bytes of a file that it can write.
  std::size_t mostFileBytes = 0;
  std::chrono::steady_clock::time_point deadline;
  /// The signals that it can receive, and those at which it is ended.
  sigset_t signals{};
  sigset_t endingSignals{};
};

/// How a child ended.
struct ChildOutcome {
  enum class Ending { Exited, Killed, TimedOut, Interrupted, NotStarted };
  Ending ending = Ending::NotStarted;
  /// The exit status, the signal, or the error number of a child that was not started.
  int code = 0;
  /// The end of what it wrote to the standard error.
  std::string errors;
};

/// How much of the standard error is kept.
inline constexpr std::size_t kMostErrorBytes = std::size_t{1} << 16U;

/// Runs a program to its end, or ends it with all that it has started: at the deadline, and when a
/// signal arrives that the caller has blocked. The standard input and output are /dev/null. The
/// child dies with this process.
[[nodiscard]] ChildOutcome runChild(const ChildCommand& command);

/// The absolute path of a program of the setting PATH; empty when there is none. Folders that are
/// not absolute are skipped, so that nothing beside an input is run.
[[nodiscard]] std::string findProgram(const std::string& name);

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
