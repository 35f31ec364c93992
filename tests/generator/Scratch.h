#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace host::test {

/// A directory for the time of a test.
class Scratch {
 public:
  Scratch() {
    std::string pattern = (std::filesystem::temp_directory_path() / "ppword-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) std::abort();
    directory_ = pattern;
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  ~Scratch() { std::filesystem::remove_all(directory_); }

  [[nodiscard]] std::string path(std::string_view name) const {
    return (directory_ / name).string();
  }
  /// Writes a file and gives its path.
  [[nodiscard]] std::string file(std::string_view name, std::string_view text) const {
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }
  [[nodiscard]] std::string text(std::string_view name) const { return textOf(path(name)); }
  [[nodiscard]] std::size_t size() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(directory_), {}));
  }

  [[nodiscard]] static std::string textOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

 private:
  std::filesystem::path directory_;
};

}  // namespace host::test
