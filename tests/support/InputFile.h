#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

/// A file with the given bytes for the time of a test. It lies in memory: thousands cost nothing.
class InputFile {
 public:
  explicit InputFile(std::string_view text) {
    if (descriptor_ < 0) std::abort();
    std::ofstream(path_, std::ios::binary) << text;
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() { ::close(descriptor_); }

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  int descriptor_ = ::memfd_create("ppword-input", MFD_CLOEXEC);
  std::string path_ = "/proc/self/fd/" + std::to_string(descriptor_);
};
