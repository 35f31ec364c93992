#include "tools/ppword/many/Workers.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace {

/// What a process sends: that a job begins, or its record with the text after it.
struct Frame {
  std::size_t index = 0;
  bool isRecord = false;
  int status = 0;
  long elements = 0;
  long lines = 0;
  std::size_t bytes = 0;
};

/// The place of the next job, for all processes.
class SharedCounter {
 public:
  SharedCounter()
      : memory_(::mmap(nullptr, sizeof(Counter), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                       -1, 0)) {
    if (memory_ == MAP_FAILED) throw std::bad_alloc();
    counter_ = new (memory_) Counter(0);
  }
  SharedCounter(const SharedCounter&) = delete;
  SharedCounter& operator=(const SharedCounter&) = delete;
  ~SharedCounter() { ::munmap(memory_, sizeof(Counter)); }

  std::size_t take() { return counter_->fetch_add(1); }
  [[nodiscard]] std::size_t taken() const { return counter_->load(); }

 private:
  using Counter = std::atomic<std::size_t>;
  static_assert(Counter::is_always_lock_free);
  void* memory_;
  Counter* counter_;
};

/// False when the reader went away.
bool writeAll(int descriptor, const void* data, std::size_t size) {
  const char* at = static_cast<const char*>(data);
  while (size > 0) {
    const ssize_t written = ::write(descriptor, at, size);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    at += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

[[noreturn]] void endProcess(bool done) { ::_exit(done ? 0 : 1); }

void sendFrame(int pipe, const Frame& frame, const std::string& text) {
  if (!writeAll(pipe, &frame, sizeof frame)) endProcess(false);
  if (!writeAll(pipe, text.data(), text.size())) endProcess(false);
}

void sendRecord(int pipe, const JobRecord& record) {
  Frame frame{record.index, true, record.status};
  frame.elements = record.elements;
  frame.lines = record.lines;
  frame.bytes = record.text.size();
  sendFrame(pipe, frame, record.text);
}

/// A process that works, as its parent sees it.
class Worker {
 public:
  Worker(pid_t process, int pipe) : process_(process), pipe_(pipe) {}
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker() {
    ::close(pipe_);
    if (process_ < 0) return;
    ::kill(process_, SIGTERM);
    wait();
  }

  [[nodiscard]] int pipe() const noexcept { return pipe_; }

  /// Takes what was sent; false at its end.
  bool receive(const RecordTaker& take) {
    char bytes[65536];
    const ssize_t count = ::read(pipe_, bytes, sizeof bytes);
    if (count < 0) return errno == EINTR;
    received_.append(bytes, static_cast<std::size_t>(count));
    while (takeFrame(take)) {
    }
    return count > 0;
  }

  /// Waits for the end of the process. Returns why it ended early; empty when it did its work.
  std::string wait() {
    int status = 0;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    if (WIFSIGNALED(status)) {
      const int signal = WTERMSIG(status);
      return "the signal " + std::to_string(signal) + " (" + ::sigdescr_np(signal) + ')';
    }
    return WEXITSTATUS(status) == 0 ? "" : "the status " + std::to_string(WEXITSTATUS(status));
  }

  /// The jobs that it took and that have no record.
  [[nodiscard]] const std::set<std::size_t>& begun() const noexcept { return begun_; }

 private:
  // False when no whole frame was received.
  bool takeFrame(const RecordTaker& take) {
    Frame frame;
    if (received_.size() < sizeof frame) return false;
    std::memcpy(&frame, received_.data(), sizeof frame);
    if (received_.size() < sizeof frame + frame.bytes) return false;
    std::string text = received_.substr(sizeof frame, frame.bytes);
    received_.erase(0, sizeof frame + frame.bytes);
    note(frame, std::move(text), take);
    return true;
  }

  void note(const Frame& frame, std::string text, const RecordTaker& take) {
    if (!frame.isRecord) {
      begun_.insert(frame.index);
      return;
    }
    begun_.erase(frame.index);
    take({frame.index, frame.status, frame.elements, frame.lines, std::move(text)});
  }

  pid_t process_;
  int pipe_;
  std::string received_;
  std::set<std::size_t> begun_;
};

class Workers {
 public:
  Workers(std::size_t jobs, const Work& work, const RecordTaker& take, const LostTaker& takeLost)
      : jobs_(jobs), work_(work), take_(take), takeLost_(takeLost) {}

  void run(int processes) {
    const std::size_t wanted = std::min(static_cast<std::size_t>(processes), jobs_);
    start();
    while (workers_.size() < wanted && startsAnother()) {
    }
    while (!workers_.empty()) receive();
  }

 private:
  void receive() {
    std::vector<pollfd> pipes;
    for (const auto& worker : workers_) pipes.push_back({worker->pipe(), POLLIN, 0});
    if (::poll(pipes.data(), pipes.size(), -1) < 0) return;
    for (std::size_t at = pipes.size(); at-- > 0;) {
      const bool hasEnded = pipes[at].revents != 0 && !workers_[at]->receive(take_);
      if (hasEnded) end(at);
    }
  }

  void start() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category());
    const pid_t process = ::fork();
    if (process == 0) doWork(ends[1]);
    const int error = errno;
    ::close(ends[1]);
    if (process < 0) {
      ::close(ends[0]);
      throw std::system_error(error, std::generic_category());
    }
    workers_.push_back(std::make_unique<Worker>(process, ends[0]));
  }

  // The processes that exist do the work where the system has no place for more.
  bool startsAnother() {
    try {
      start();
      return true;
    } catch (const std::system_error&) {
      return false;
    }
  }

  [[noreturn]] void doWork(int pipe) {
    // A process whose parent ends early must not go on by itself.
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    const auto send = [pipe](const JobRecord& record) { sendRecord(pipe, record); };
    try {
      work_([this, pipe] { return next(pipe); }, send);
    } catch (...) {
      // Its jobs are reported as failed.
      endProcess(false);
    }
    endProcess(true);
  }

  std::size_t next(int pipe) {
    const std::size_t index = counter_.take();
    if (index < jobs_) sendFrame(pipe, {index}, "");
    return std::min(index, jobs_);
  }

  // Reports what a process left, and starts another one for the jobs that no process took.
  void end(std::size_t at) {
    const std::unique_ptr<Worker> worker = std::move(workers_[at]);
    workers_.erase(workers_.begin() + static_cast<std::ptrdiff_t>(at));
    const std::string reason = worker->wait();
    for (const std::size_t index : worker->begun()) takeLost_(index, reason);
    if (worker->begun().empty() || counter_.taken() >= jobs_) return;
    if (startsAnother() || !workers_.empty()) return;
    for (std::size_t index = counter_.take(); index < jobs_; index = counter_.take()) {
      takeLost_(index, reason);
    }
  }

  std::size_t jobs_;
  const Work& work_;
  const RecordTaker& take_;
  const LostTaker& takeLost_;
  SharedCounter counter_;
  std::vector<std::unique_ptr<Worker>> workers_;
};

}  // namespace

void runInProcesses(std::size_t jobs, int processes, const Work& work, const RecordTaker& take,
                    const LostTaker& takeLost) {
  Workers(jobs, work, take, takeLost).run(processes);
}
