#include "post/program/ChildProcess.h"

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "host/system/SystemReason.h"
#include "post/output/OutputFile.h"

namespace host {
namespace {

constexpr rlim_t kMostMemory = rlim_t{4} << 30U;
constexpr std::chrono::milliseconds kBetweenLooks{20};

/// A descriptor that is closed in the end.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { reset(-1); }
  void reset(int number) {
    if (number_ >= 0) ::close(number_);
    number_ = number;
  }
  [[nodiscard]] int get() const noexcept { return number_; }

 private:
  int number_;
};

struct Pipe {
  Descriptor reading;
  Descriptor writing;
  [[nodiscard]] bool open() {
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    reading.reset(ends[0]);
    writing.reset(ends[1]);
    return true;
  }
};

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

/// What the child needs, prepared before it exists: it may only call what is safe after a fork.
struct Preparation {
  explicit Preparation(const ChildCommand& given) : command(given), settings(given.environment) {
    texts.push_back(given.program);
    texts.insert(texts.end(), given.arguments.begin(), given.arguments.end());
    arguments = pointersTo(texts);
    environment = pointersTo(settings);
  }

  const ChildCommand& command;
  std::vector<std::string> texts;
  std::vector<std::string> settings;
  std::vector<char*> arguments;
  std::vector<char*> environment;
  Pipe errors;
  /// Reports why the program could not be started; closed when it was.
  Pipe start;
};

void limit(int resource, rlim_t most) {
  struct rlimit limits {};
  if (::getrlimit(static_cast<__rlimit_resource>(resource), &limits) != 0) return;
  limits.rlim_cur = limits.rlim_max = std::min(most, limits.rlim_max);
  ::setrlimit(static_cast<__rlimit_resource>(resource), &limits);
}

void restoreSignals(const sigset_t& signals) {
  for (int number = 1; number < NSIG; ++number) ::signal(number, SIG_DFL);
  ::sigprocmask(SIG_SETMASK, &signals, nullptr);
}

bool redirect(const Preparation& child) {
  const int nothing = ::open("/dev/null", O_RDWR);
  return nothing >= 0 && ::dup2(nothing, STDIN_FILENO) >= 0 &&
         ::dup2(nothing, STDOUT_FILENO) >= 0 &&
         ::dup2(child.errors.writing.get(), STDERR_FILENO) >= 0;
}

[[noreturn]] void becomeProgram(const Preparation& child, pid_t parent) {
  ::setpgid(0, 0);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  const bool isReady =
      ::getppid() == parent && redirect(child) && ::chdir(child.command.folder.c_str()) == 0;
  if (isReady) {
    limit(RLIMIT_FSIZE, child.command.mostFileBytes);
    limit(RLIMIT_AS, kMostMemory);
    limit(RLIMIT_CORE, 0);
    restoreSignals(child.command.signals);
    ::execve(child.command.program.c_str(), child.arguments.data(), child.environment.data());
  }
  const int reason = errno;
  static_cast<void>(!::write(child.start.writing.get(), &reason, sizeof reason));
  ::_exit(127);
}

/// Reads what there is, and stores the end of it; false at the end of the pipe.
bool readErrors(int descriptor, std::string& errors) {
  std::array<char, 4096> piece;
  const ssize_t count = ::read(descriptor, piece.data(), piece.size());
  if (count <= 0) return count < 0 && errno == EINTR;
  errors.append(piece.data(), static_cast<std::size_t>(count));
  if (errors.size() > 2 * kMostErrorBytes) errors.erase(0, errors.size() - kMostErrorBytes);
  return true;
}

/// Waits for a child that runs.
class Watch {
 public:
  Watch(pid_t child, const ChildCommand& command, int errors)
      : child_(child),
        command_(command),
        errors_(errors),
        signals_(::signalfd(-1, &command.endingSignals, SFD_CLOEXEC | SFD_NONBLOCK)) {}

  ChildOutcome wait() {
    ChildOutcome outcome;
    while (!hasEnded(outcome)) {
      const bool isLate = std::chrono::steady_clock::now() >= command_.deadline;
      if (isLate || isInterrupted_) {
        end();
        outcome.ending =
            isLate ? ChildOutcome::Ending::TimedOut : ChildOutcome::Ending::Interrupted;
        return outcome;
      }
      look(outcome);
    }
    // Nothing of what it has started goes on.
    ::kill(-child_, SIGKILL);
    drain(outcome);
    return outcome;
  }

 private:
  bool hasEnded(ChildOutcome& outcome) const {
    int status = 0;
    if (::waitpid(child_, &status, WNOHANG) != child_) return false;
    const bool exited = WIFEXITED(status);
    outcome.ending = exited ? ChildOutcome::Ending::Exited : ChildOutcome::Ending::Killed;
    outcome.code = exited ? WEXITSTATUS(status) : WTERMSIG(status);
    return true;
  }

  // Until something is written, a signal arrives, or some time has passed.
  void look(ChildOutcome& outcome) {
    std::array<pollfd, 2> waits{{{isOpen_ ? errors_ : -1, POLLIN, 0}, {signals_.get(), POLLIN, 0}}};
    const int pause = isOpen_ ? static_cast<int>(kBetweenLooks.count()) : 1;
    if (::poll(waits.data(), waits.size(), pause) <= 0) return;
    if (waits[0].revents != 0) isOpen_ = readErrors(errors_, outcome.errors);
    // The signal stays pending: it ends this process when it is no longer held back.
    isInterrupted_ = waits[1].revents != 0;
  }

  void end() const {
    ::kill(-child_, SIGKILL);
    ::kill(child_, SIGKILL);
    int status = 0;
    while (::waitpid(child_, &status, 0) < 0 && errno == EINTR) {
    }
  }

  void drain(ChildOutcome& outcome) const {
    pollfd rest{errors_, POLLIN, 0};
    while (isOpen_ && ::poll(&rest, 1, 0) > 0 && readErrors(errors_, outcome.errors)) {
    }
  }

  pid_t child_;
  const ChildCommand& command_;
  int errors_;
  Descriptor signals_;
  bool isOpen_ = true;
  bool isInterrupted_ = false;
};

void removeFolder(int parent, const char* name);

void removeEntries(int folder, std::string_view entries) {
  while (!entries.empty()) {
    const auto* const entry = reinterpret_cast<const dirent64*>(entries.data());
    const std::string_view name = entry->d_name;
    entries.remove_prefix(entry->d_reclen);
    if (name == "." || name == "..") continue;
    if (::unlinkat(folder, name.data(), 0) != 0) removeFolder(folder, name.data());
  }
}

/// Removes a folder with everything in it, without memory, of which there may be none.
void removeFolder(int parent, const char* name) {
  const Descriptor folder(::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  alignas(dirent64) std::array<char, 4096> entries;
  for (ssize_t size = 0; (size = ::getdents64(folder.get(), entries.data(), entries.size())) > 0;) {
    removeEntries(folder.get(), {entries.data(), static_cast<std::size_t>(size)});
  }
  ::unlinkat(parent, name, AT_REMOVEDIR);
}

bool isRunnable(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

}  // namespace

ChildOutcome runChild(const ChildCommand& command) {
  Preparation child(command);
  const auto failed = [](int reason) {
    return ChildOutcome{ChildOutcome::Ending::NotStarted, reason, ""};
  };
  if (!child.errors.open() || !child.start.open()) return failed(errno);
  const pid_t parent = ::getpid();
  const pid_t process = ::fork();
  if (process < 0) return failed(errno);
  if (process == 0) becomeProgram(child, parent);
  ::setpgid(process, process);
  child.errors.writing.reset(-1);
  child.start.writing.reset(-1);
  int reason = 0;
  const bool isStarted = ::read(child.start.reading.get(), &reason, sizeof reason) <= 0;
  ChildOutcome outcome = Watch(process, command, child.errors.reading.get()).wait();
  return isStarted ? outcome : failed(reason);
}

std::string findProgram(const std::string& name) {
  const char* const setting = std::getenv("PATH");
  std::string_view rest = setting == nullptr ? "/usr/local/bin:/usr/bin:/bin" : setting;
  while (!rest.empty()) {
    const std::string_view folder = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
    const std::filesystem::path path = std::filesystem::path(folder) / name;
    if (folder.starts_with('/') && isRunnable(path)) return path.string();
  }
  return "";
}

ScratchFolder::ScratchFolder() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  std::string name =
      ((error ? "/tmp" : std::filesystem::absolute(folder)) / "ppword.XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw OutputError("scratch folder", systemReason(errno));
  path_ = name;
}

ScratchFolder::~ScratchFolder() { removeFolder(AT_FDCWD, path_.c_str()); }

}  // namespace host
