#include "host/system/FileBeside.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace host {
namespace {

constexpr mode_t kModeBeforeMask = 0666;
constexpr mode_t kPrivate = 0600;
constexpr mode_t kPermissions = 0777;
constexpr int kMostNames = 100;
constexpr std::string_view kEnd = ".tmp";
constexpr const char* kJournal = "-journal";

std::string folderOf(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  return folder.empty() ? "." : folder.string();
}

void closeOnce(int& descriptor) noexcept {
  if (descriptor >= 0) ::close(descriptor);
  descriptor = -1;
}

/// How the names of such files begin on this host.
std::string beginOfNames() {
  std::string host(HOST_NAME_MAX + 1, '\0');
  static_cast<void>(!::gethostname(host.data(), host.size() - 1));
  host.resize(std::strlen(host.c_str()));
  const auto isPlain = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
  std::replace_if(host.begin(), host.end(), std::not_fn(isPlain), '_');
  return ".ppword-" + host + '-';
}

/// True for the name of such a file of this host.
bool isName(std::string_view name, std::string_view begin) {
  if (!name.starts_with(begin) || !name.ends_with(kEnd)) return false;
  name.remove_prefix(begin.size());
  name.remove_suffix(kEnd.size());
  constexpr std::string_view kDigits = "0123456789";
  const auto dash = name.find('-');
  return dash != name.npos && name.find_first_not_of(kDigits) == dash &&
         name.find_first_not_of(kDigits, dash + 1) == name.npos;
}

/// Locks the first byte until the file is closed. SQLite, which may use the file, locks others.
bool lock(int descriptor) {
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_len = 1;
  return ::fcntl(descriptor, F_OFD_SETLK, &lock) == 0;
}

bool isSameFile(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

/// Removes a file that a process of this user created and that no process holds.
void removeLeftOver(const std::string& path) {
  int descriptor = ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  struct stat held {};
  struct stat named {};
  // By now it may have its place already, and another one its name.
  const bool isLeft = descriptor >= 0 && ::fstat(descriptor, &held) == 0 && S_ISREG(held.st_mode) &&
                      held.st_uid == ::geteuid() && lock(descriptor) &&
                      ::lstat(path.c_str(), &named) == 0 && isSameFile(held, named);
  if (isLeft) {
    ::unlink((path + kJournal).c_str());
    ::unlink(path.c_str());
  }
  closeOnce(descriptor);
}

// Once for each folder: a run may write thousands of files into one.
void removeLeftOvers(const std::string& folder, std::string_view begin) {
  static std::set<std::string> done;
  if (!done.insert(folder).second) return;
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), &::closedir);
  std::vector<std::string> names;
  while (const dirent* const entry = entries ? ::readdir(entries.get()) : nullptr) {
    if (isName(entry->d_name, begin)) names.emplace_back(entry->d_name);
  }
  for (std::string& name : names) removeLeftOver(name.insert(0, folder + '/'));
}

}  // namespace

bool synchronise(int descriptor) {
  return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

FileBeside::~FileBeside() { discard(); }

void FileBeside::discard() noexcept {
  if (!path_.empty()) {
    ::unlink(journal_.c_str());
    ::unlink(path_.c_str());
  }
  forget();
  closeOnce(descriptor_);
  closeOnce(folder_);
}

void FileBeside::forget() noexcept {
  pathAtSignal_.name(nullptr);
  journalAtSignal_.name(nullptr);
  path_.clear();
}

bool FileBeside::create(const std::string& target) {
  target_ = target;
  const std::string folder = folderOf(target);
  folder_ = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder_ < 0) return false;
  struct stat status {};
  const bool exists = ::stat(target.c_str(), &status) == 0;
  if (exists) rights_ = {status.st_mode & kPermissions, status.st_uid, status.st_gid};
  const std::string begin = beginOfNames();
  removeLeftOvers(folder, begin);
  const std::string path = folder + '/' + begin + std::to_string(::getpid()) + '-';
  // Those of files that wait for their names are not tried again.
  static unsigned number = 0;
  errno = EEXIST;
  for (int tries = 0; descriptor_ < 0 && errno == EEXIST && tries < kMostNames; ++tries) {
    open((path + std::to_string(number++)).append(kEnd), exists ? kPrivate : kModeBeforeMask);
  }
  return descriptor_ >= 0;
}

void FileBeside::open(const std::string& path, mode_t mode) {
  journal_ = path + kJournal;
  std::string name = path;
  const SignalHold hold;
  descriptor_ = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  if (descriptor_ < 0) return;
  path_ = std::move(name);
  pathAtSignal_.name(path_.c_str());
  journalAtSignal_.name(journal_.c_str());
  if (isHeld()) return;
  // Another process has taken it for a left-over.
  forget();
  closeOnce(descriptor_);
  errno = EEXIST;
}

bool FileBeside::isHeld() const {
  // Where nothing can be locked, nothing is taken for a left-over either.
  if (!lock(descriptor_) && (errno == EAGAIN || errno == EACCES)) return false;
  struct stat status {};
  return ::fstat(descriptor_, &status) == 0 && status.st_nlink > 0;
}

bool FileBeside::setRights() const {
  if (!rights_) return true;
  constexpr auto kUnchanged = static_cast<uid_t>(-1);
  // Only the superuser may set another owner, and others only a group of theirs.
  if (::fchown(descriptor_, rights_->owner, rights_->group) != 0) {
    static_cast<void>(!::fchown(descriptor_, kUnchanged, rights_->group));
  }
  return ::fchmod(descriptor_, rights_->mode) == 0;
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
  if (!setRights() || !rename(existing)) return false;
  forget();
  return true;
}

FileBeside::Outcome FileBeside::place(Existing existing) {
  if (!takeName(existing)) return Outcome::Failed;
  return confirm() ? Outcome::Placed : Outcome::NotCertain;
}

}  // namespace host
