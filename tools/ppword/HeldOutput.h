#pragma once

#include <cstdio>
#include <memory>

#include "post/output/LineSink.h"

/// A text that is held back in a nameless file until it may go on. An OutputError tells that it
/// cannot be held.
class HeldOutput final : public host::LineSink {
 public:
  HeldOutput();

  void write(std::string_view line) override;

  /// Passes all lines on.
  void release(host::LineSink& sink);

 private:
  struct Close {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };

  void require(bool success) const;

  std::unique_ptr<std::FILE, Close> file_;
};
