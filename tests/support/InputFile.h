#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// A file with the given bytes for the time of a test.
class InputFile {
 public:
  explicit InputFile(std::string_view text) {
    const int descriptor = mkstemp(path_.data());
    if (descriptor < 0) std::abort();
    close(descriptor);
    std::ofstream(path_, std::ios::binary) << text;
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() { std::remove(path_.c_str()); }

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_ = (std::filesystem::temp_directory_path() / "ppword-input-XXXXXX").string();
};
