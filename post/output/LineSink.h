#pragma once

#include <string_view>

namespace host {

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
