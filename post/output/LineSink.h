#pragma once

#include <string_view>

namespace host {

/// The columns of a line that hold its statement in a standard APT source. Some readers cut what
/// stands behind them, in the middle of a number too, and tell nobody.
inline constexpr int kStatementColumns = 72;

/// Takes the lines of a text, in order.
class LineSink {
 public:
  LineSink() = default;
  LineSink(const LineSink&) = delete;
  LineSink& operator=(const LineSink&) = delete;
  virtual ~LineSink() = default;

  /// Takes one line, given without its end.
  virtual void write(std::string_view line) = 0;
};

}  // namespace host
