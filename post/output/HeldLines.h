#pragma once

#include <cstdio>
#include <memory>
#include <string_view>

#include "post/output/LineSink.h"

namespace host {

/// Lines that are held back in a nameless file until they may go on. An OutputError reports what
/// cannot be written or read again.
class HeldLines final : public LineSink {
 public:
  HeldLines();

  void write(std::string_view line) override;

  /// Passes all lines on, in their order.
  void release(LineSink& sink);

 private:
  struct Close {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };

  std::unique_ptr<std::FILE, Close> file_;
};

}  // namespace host
