#pragma once

#include <chrono>

#include "post/toolpath/ToolPath.h"

/// Passes on the elements of a tool path; in a long run it counts them on the standard error.
class Progress final : public host::ToolPathReader {
 public:
  /// Nothing is shown unless `shown`.
  Progress(host::ToolPathReader& source, bool shown) : source_(source), shown_(shown) {}
  ~Progress() override;

  [[nodiscard]] bool next(host::ToolPathEvent& event) override;

 private:
  using Clock = std::chrono::steady_clock;

  void show();

  host::ToolPathReader& source_;
  bool shown_;
  long count_ = 0;
  long nextLook_ = 0;
  Clock::time_point due_ = Clock::now() + std::chrono::milliseconds(500);
  std::size_t width_ = 0;
};
