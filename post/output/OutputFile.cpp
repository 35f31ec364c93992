#include "post/output/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <system_error>

#include "host/system/FileBeside.h"
#include "host/system/SystemReason.h"
#include "post/output/SameFile.h"

namespace host {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16U;

/// Closes a copy of a descriptor: some systems report only then what could not be written.
bool closesWell(int descriptor) {
  const int copy = ::dup(descriptor);
  return copy >= 0 && ::close(copy) == 0;
}

/// True for a file that its mode allows no one to write, or not this user. The superuser may write
/// any other file.
bool isProtected(const std::string& path, const struct stat& status) {
  constexpr mode_t kWriting = S_IWUSR | S_IWGRP | S_IWOTH;
  if ((status.st_mode & kWriting) == 0) return true;
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 && errno == EACCES;
}

/// Lets the system begin to write a file to the disk; nothing waits for it.
void startWriting(int descriptor) {
  static_cast<void>(::sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE));
}

/// The OutputError that a step raises; null for none.
std::exception_ptr errorOf(const std::function<void()>& step) {
  try {
    step();
    return nullptr;
  } catch (const OutputError&) {
    return std::current_exception();
  }
}

}  // namespace

OutputError::OutputError(std::string_view file, std::string_view reason)
    : std::runtime_error(std::string(file) + ": error: cannot be written: " + std::string(reason)),
      file_(file),
      reason_(reason) {}

OutputError::~OutputError() = default;

OutputFile::OutputFile(const std::string& path, Protected writeProtected)
    : name_(path == "-" ? "standard output" : path), target_(path) {
  buffer_.reserve(kBufferSize);
  struct stat status {};
  const bool exists = path != "-" && ::stat(path.c_str(), &status) == 0;
  if (path == "-") {
    descriptor_ = STDOUT_FILENO;
  } else if (exists && !S_ISREG(status.st_mode)) {
    descriptor_ = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  } else {
    if (exists && writeProtected == Protected::Refused && isProtected(path, status)) {
      throw OutputError(name_, "it is write-protected; --force replaces it");
    }
    openBeside();
  }
  require(descriptor_ >= 0);
}

OutputFile::~OutputFile() { close(); }

void OutputFile::write(std::string_view line) {
  if (buffer_.size() + line.size() + 1 > kBufferSize) flush();
  buffer_.append(line).push_back('\n');
}

std::size_t OutputFile::readBack(char* to, std::size_t most, std::uint64_t offset) {
  flush();
  ssize_t count = -1;
  do {
    count = ::pread(descriptor_, to, most, static_cast<off_t>(offset));
  } while (count < 0 && errno == EINTR);
  if (count < 0) throw OutputError(name_, "it cannot be read back: " + systemReason(errno));
  return static_cast<std::size_t>(count);
}

void OutputFile::complete() {
  flush();
  buffer_.shrink_to_fit();
}

void OutputFile::finish() {
  complete();
  synchroniseText();
  takeName();
  confirm();
}

std::vector<std::exception_ptr> OutputFile::finishTogether(const std::vector<OutputFile*>& files) {
  std::vector<std::exception_ptr> errors(files.size());
  const auto forAll = [&](auto step) {
    for (std::size_t at = 0; at < files.size(); ++at) {
      if (!errors[at]) errors[at] = errorOf([&] { step(*files[at]); });
    }
  };
  forAll([](OutputFile& file) { file.complete(); });
  // All are on their way to the disk before the first is waited for.
  forAll([](OutputFile& file) { startWriting(file.descriptor_); });
  forAll([](OutputFile& file) { file.synchroniseText(); });
  forAll([](OutputFile& file) { file.takeName(); });
  DoubtOfFolders doubts;
  forAll([&doubts](OutputFile& file) { file.confirmWith(doubts); });
  return errors;
}

void OutputFile::confirmWith(DoubtOfFolders& doubts) {
  const auto [known, isNew] = doubts.try_emplace(std::filesystem::path(target_).parent_path());
  if (isNew) {
    confirm();
    known->second = doubt_;
  } else {
    doubt_ = known->second;
    close();
  }
}

void OutputFile::require(bool success) {
  if (success) return;
  const int error = errno;
  close();
  throw OutputError(name_, systemReason(error));
}

void OutputFile::close() noexcept {
  const bool isOwn = target_ != "-" && temporary_ == nullptr;
  if (descriptor_ >= 0 && isOwn) ::close(descriptor_);
  descriptor_ = -1;
  if (temporary_) temporary_->discard();
}

void OutputFile::openBeside() {
  const std::filesystem::path place = targetOfLinks(target_);
  std::error_code error;
  errno = ELOOP;
  if (std::filesystem::is_symlink(place, error)) return;
  target_ = place.string();
  temporary_ = std::make_unique<FileBeside>();
  if (temporary_->create(target_)) descriptor_ = temporary_->descriptor();
}

void OutputFile::flush() {
  std::string_view rest = buffer_;
  while (!rest.empty()) {
    const ssize_t count = ::write(descriptor_, rest.data(), rest.size());
    require(count >= 0 || errno == EINTR);
    rest.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }
  buffer_.clear();
}

void OutputFile::synchroniseText() {
  require(synchronise(descriptor_));
  if (target_ != "-") require(closesWell(descriptor_));
}

void OutputFile::takeName() {
  if (temporary_) require(temporary_->takeName(FileBeside::Existing::Replaced));
}

void OutputFile::confirm() {
  if (temporary_ && !temporary_->confirm()) doubt_ = systemReason(errno);
  close();
}

}  // namespace host
