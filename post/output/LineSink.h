#pragma once

#include <string_view>

namespace host {

/// The columns of a line that hold its statement in a standard APT source. Some readers cut off the
/// text after them without a message, even in the middle of a number.
inline constexpr int kStatementColumns = 72;

/// Receives the lines of a text, in order.
class LineSink {
 public:
  LineSink() = default;
  LineSink(const LineSink&) = delete;
  LineSink& operator=(const LineSink&) = delete;
  virtual ~LineSink() = default;

  /// Receives one line, without its line feed.
  virtual void write(std::string_view line) = 0;
};

}  // namespace host
