#include "host/generator/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/system/FilePlace.h"
#include "host/system/SystemReason.h"

namespace host {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16U;
constexpr mode_t kPermissions = 0777;

/// The file that a path leads to through symbolic links; the path itself for one that is new.
std::string resolved(const std::string& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  return error ? path : real.string();
}

}  // namespace

OutputError::OutputError(std::string_view file, std::string_view reason)
    : std::runtime_error(std::string(file) + ": error: cannot be written: " + std::string(reason)),
      file_(file),
      reason_(reason) {}

OutputError::~OutputError() = default;

OutputFile::OutputFile(const std::string& path)
    : name_(path == "-" ? "standard output" : path), target_(path) {
  buffer_.reserve(kBufferSize);
  struct stat status {};
  const bool exists = path != "-" && ::stat(path.c_str(), &status) == 0;
  if (path == "-") {
    descriptor_ = STDOUT_FILENO;
  } else if (exists && !S_ISREG(status.st_mode)) {
    descriptor_ = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  } else {
    openBeside();
  }
  require(descriptor_ >= 0);
  const bool replaces = exists && !temporary_.empty();
  if (replaces) require(::fchmod(descriptor_, status.st_mode & kPermissions) == 0);
}

OutputFile::~OutputFile() { close(); }

void OutputFile::write(std::string_view line) {
  if (buffer_.size() + line.size() + 1 > kBufferSize) flush();
  buffer_.append(line).push_back('\n');
}

void OutputFile::finish() {
  flush();
  require(synchronise(descriptor_));
  if (target_ == "-") return;
  require(::close(std::exchange(descriptor_, -1)) == 0);
  if (!temporary_.empty()) putInPlace();
}

void OutputFile::require(bool success) {
  if (success) return;
  const int error = errno;
  close();
  throw OutputError(name_, systemReason(error));
}

void OutputFile::close() noexcept {
  if (descriptor_ >= 0 && target_ != "-") ::close(descriptor_);
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
  descriptor_ = -1;
  temporary_.clear();
}

void OutputFile::openBeside() {
  target_ = resolved(target_);
  FileBeside file = createBeside(target_);
  descriptor_ = file.descriptor;
  if (descriptor_ >= 0) temporary_ = std::move(file.path);
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

void OutputFile::putInPlace() {
  require(::rename(temporary_.c_str(), target_.c_str()) == 0);
  temporary_.clear();
  require(synchroniseFolderOf(target_));
}

}  // namespace host
