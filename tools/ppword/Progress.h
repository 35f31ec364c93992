#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "post/toolpath/ToolPath.h"
#include "tools/ppword/Commands.h"

class ToolPathInput;

/// Whether progress is shown: to people, on a terminal.
[[nodiscard]] bool showsProgress(OutputFormat format);

/// "37 %, 120000 elements, 45000 a second, 12 s left"; without a share, which is from 0 to 1, as
/// much as is known.
[[nodiscard]] std::string progressText(std::string_view what, long count,
                                       std::optional<double> share,
                                       std::chrono::duration<double> elapsed);

/// Counts what goes on, and shows it in a line on the standard error that changes at most five
/// times a second. Work of less than a second shows nothing.
class Progress {
 public:
  /// How much is done, from 0 to 1; nothing when that is unknown.
  using Share = std::function<std::optional<double>()>;

  /// `what` is counted; the clock is looked at after so many of them. Nothing is shown unless
  /// `shown`.
  Progress(std::string_view what, long betweenLooks, Share share, bool shown);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { clear(); }

  void add(long count) {
    count_ += count;
    if (shown_ && count_ >= nextLook_) look();
  }
  /// Removes the line, so that others can be written.
  void clear();

 private:
  using Clock = std::chrono::steady_clock;

  void look();

  std::string what_;
  long betweenLooks_;
  Share share_;
  bool shown_;
  long count_ = 0;
  long nextLook_ = 0;
  Clock::time_point start_ = Clock::now();
  Clock::time_point due_;
  std::size_t width_ = 0;
};

/// Passes on the events of a tool path, and counts its elements.
class CountedEvents final : public host::ToolPathReader {
 public:
  CountedEvents(ToolPathInput& input, bool shown);

  [[nodiscard]] bool next(host::ToolPathEvent& event) override;

 private:
  host::ToolPathReader& source_;
  Progress progress_;
};
