#include "host/system/FileBeside.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace host {
namespace {

constexpr mode_t kModeBeforeMask = 0666;
constexpr int kMostNames = 100;

std::string folderOf(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  return folder.empty() ? "." : folder.string();
}

void closeOnce(int& descriptor) noexcept {
  if (descriptor >= 0) ::close(descriptor);
  descriptor = -1;
}

}  // namespace

bool synchronise(int descriptor) {
  return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

FileBeside::~FileBeside() { discard(); }

void FileBeside::discard() noexcept {
  if (!path_.empty()) {
    ::unlink(path_.c_str());
    // SQLite's, when the file is a database.
    ::unlink((path_ + "-journal").c_str());
  }
  path_.clear();
  closeOnce(descriptor_);
  closeOnce(folder_);
}

bool FileBeside::create(const std::string& target) {
  target_ = target;
  const std::string folder = folderOf(target);
  folder_ = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder_ < 0) return false;
  const std::string begin = folder + "/.ppword-" + std::to_string(::getpid()) + '-';
  errno = EEXIST;
  for (int number = 0; descriptor_ < 0 && errno == EEXIST && number < kMostNames; ++number) {
    path_ = begin + std::to_string(number) + ".tmp";
    descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kModeBeforeMask);
  }
  if (descriptor_ < 0) path_.clear();
  return descriptor_ >= 0;
}

bool FileBeside::rename(Existing existing) {
  const unsigned flags = existing == Existing::Kept ? RENAME_NOREPLACE : 0;
  if (flags == 0) return ::rename(path_.c_str(), target_.c_str()) == 0;
  const char* const to = target_.c_str();
  if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, to, flags) == 0) return true;
  // Some file systems lack the one way, some the other.
  if (errno != EINVAL || ::link(path_.c_str(), to) != 0) return false;
  ::unlink(path_.c_str());
  return true;
}

bool FileBeside::takeName(Existing existing) {
  if (!rename(existing)) return false;
  path_.clear();
  return true;
}

FileBeside::Outcome FileBeside::place(Existing existing) {
  if (!takeName(existing)) return Outcome::Failed;
  return confirm() ? Outcome::Placed : Outcome::NotCertain;
}

}  // namespace host
