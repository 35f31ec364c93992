#include "post/output/SameFile.h"

#include <sys/stat.h>

#include <filesystem>
#include <system_error>

namespace host {

std::optional<FileNumber> fileNumber(const std::string& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0) return std::nullopt;
  return FileNumber(state.st_dev, state.st_ino);
}

bool isRegularFile(const std::string& path) {
  struct stat state {};
  return ::stat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode);
}

bool isSameFile(const std::string& left, const std::string& right) {
  return isRegularFile(left) && fileNumber(left) == fileNumber(right);
}

bool isSamePlace(const std::string& left, const std::string& right) {
  const auto place = [](const std::string& path) {
    std::error_code error;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(path, error), error);
  };
  return isSameFile(left, right) || (!place(left).empty() && place(left) == place(right));
}

}  // namespace host
