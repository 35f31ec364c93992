#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "post/toolpath/ToolPath.h"
#include "tools/ppword/Commands.h"

/// Whether progress is shown: to people, on a terminal.
[[nodiscard]] bool showsProgress(OutputFormat format);

/// A line on the standard error that changes while something goes on, at most five times a second
/// and not in the first half second.
class ProgressLine {
 public:
  ~ProgressLine() { clear(); }

  /// True when it is time to show another text.
  [[nodiscard]] bool isDue() const { return Clock::now() >= due_; }
  void show(const std::string& text);
  void clear();

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point due_ = Clock::now() + std::chrono::milliseconds(500);
  std::size_t width_ = 0;
};

/// Passes on the elements of a tool path; in a long run it counts them on the standard error.
class Progress final : public host::ToolPathReader {
 public:
  /// Nothing is shown unless `shown`.
  Progress(host::ToolPathReader& source, bool shown) : source_(source), shown_(shown) {}

  [[nodiscard]] bool next(host::ToolPathEvent& event) override;

 private:
  host::ToolPathReader& source_;
  bool shown_;
  long count_ = 0;
  long nextLook_ = 0;
  ProgressLine line_;
};
