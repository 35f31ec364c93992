#include "host/system/FilePlace.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace host {
namespace {

constexpr mode_t kModeBeforeMask = 0666;
constexpr int kMostNames = 100;

std::string folderOf(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  return folder.empty() ? "." : folder.string();
}

}  // namespace

FileBeside createBeside(const std::string& target) {
  const std::string begin = folderOf(target) + "/.ppword-" + std::to_string(::getpid()) + '-';
  FileBeside file;
  errno = EEXIST;
  for (int number = 0; file.descriptor < 0 && errno == EEXIST && number < kMostNames; ++number) {
    file.path = begin + std::to_string(number) + ".tmp";
    file.descriptor =
        ::open(file.path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kModeBeforeMask);
  }
  return file;
}

bool synchronise(int descriptor) {
  return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

bool synchroniseFolderOf(const std::string& path) {
  const int folder = ::open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return false;
  const bool done = synchronise(folder);
  const int error = errno;
  ::close(folder);
  errno = error;
  return done;
}

}  // namespace host
