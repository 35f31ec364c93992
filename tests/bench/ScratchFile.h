#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

/// A path of its own, whose file goes with the object.
class ScratchFile {
 public:
  ScratchFile() = default;
  explicit ScratchFile(const std::string& text) { std::ofstream(path_) << text; }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() { std::filesystem::remove(path_); }

  [[nodiscard]] std::string path() const { return path_.string(); }

 private:
  inline static int number_ = 0;
  std::filesystem::path path_ =
      std::filesystem::temp_directory_path() /
      ("ppword_bench." + std::to_string(getpid()) + "." + std::to_string(++number_));
};
