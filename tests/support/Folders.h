#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "host/system/ResourceFolders.h"
#include "tests/generator/Scratch.h"

/// Directories with "PPTables" folders for the time of a test, and the setting that lists them.
class Folders {
 public:
  Folders() { search(""); }
  Folders(const Folders&) = delete;
  Folders& operator=(const Folders&) = delete;
  ~Folders() { ::unsetenv(kSetting.c_str()); }

  /// Sets the search list to the named directories, separated by ":".
  void search(std::string_view names) const {
    std::string list;
    while (!names.empty()) {
      const std::size_t end = std::min(names.find(':'), names.size());
      if (end > 0) list += scratch_.path(names.substr(0, end));
      if (end < names.size()) list += ':';
      names.remove_prefix(std::min(end + 1, names.size()));
    }
    ::setenv(kSetting.c_str(), list.c_str(), 1);
  }

  /// Writes a file, its folders included, and gives its path.
  std::string file(std::string_view name, std::string_view text = "") const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    return scratch_.file(name, text);
  }
  std::string directory(std::string_view name) const {
    std::filesystem::create_directories(path(name));
    return path(name);
  }
  void link(const std::string& target, std::string_view name) const {
    std::filesystem::create_symlink(target, path(name));
  }
  [[nodiscard]] std::string path(std::string_view name) const { return scratch_.path(name); }

 private:
  const std::string kSetting{host::kSearchListSetting};
  host::test::Scratch scratch_;
};
