#include "post/output/SameFile.h"

#include <sys/stat.h>

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

std::filesystem::path targetOfLinks(std::filesystem::path path) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int links = 0; links < kMostLinks && std::filesystem::is_symlink(path, error); ++links) {
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
  }
  return path;
}

std::string placeOf(const std::string& path) {
  std::error_code error;
  const auto place = std::filesystem::absolute(targetOfLinks(path), error);
  return std::filesystem::weakly_canonical(place, error).string();
}

bool isSamePlace(const std::string& left, const std::string& right) {
  return isSameFile(left, right) || (!placeOf(left).empty() && placeOf(left) == placeOf(right));
}

}  // namespace host
