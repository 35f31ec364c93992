#include "post/toolpath/LineReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/system/SystemReason.h"

namespace host {
namespace {

std::string placed(std::string_view file, long line, long column, std::string_view message) {
  std::string text(file);
  if (line > 0) text += ':' + std::to_string(line);
  if (column > 0) text += ':' + std::to_string(column);
  return text.append(": error: ").append(message);
}

constexpr std::size_t kReadAhead = std::size_t{1} << 16U;
// One byte more than the longest line shows that a line is too long.
constexpr std::size_t kCapacity = LineReader::kLongestLine + 1 + kReadAhead;

int openFile(const std::string& path) {
  if (path == "-") return STDIN_FILENO;
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor >= 0) return descriptor;
  throw InputError(path, 0, 0, "cannot be opened: " + systemReason(errno));
}

}  // namespace

InputError::InputError(std::string_view file, long line, long column, std::string_view message)
    : std::runtime_error(placed(file, line, column, message)),
      file_(file),
      line_(line),
      column_(column),
      message_(message) {}

InputError::~InputError() = default;

std::optional<double> shareRead(int descriptor, std::size_t unused) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  const off_t at = ::lseek(descriptor, 0, SEEK_CUR);
  if (at < 0 || status.st_size <= 0) return std::nullopt;
  const double used = static_cast<double>(at) - static_cast<double>(unused);
  return std::clamp(used / static_cast<double>(status.st_size), 0.0, 1.0);
}

LineReader::LineReader(const std::string& path)
    : name_(path == "-" ? "standard input" : path),
      descriptor_(openFile(path)),
      buffer_(new char[kCapacity + kPadding]) {}

LineReader::~LineReader() {
  if (descriptor_ != STDIN_FILENO) ::close(descriptor_);
}

bool LineReader::next(std::string_view& line) {
  std::size_t searched = 0;
  for (;;) {
    const std::string_view bytes = unread();
    const std::size_t lineFeed = bytes.find('\n', searched);
    if (std::min(lineFeed, bytes.size()) > kLongestLine) {
      throw InputError(name_, lineNumber_ + 1, 0, "the line is longer than 1 MiB (1048576 bytes)");
    }
    searched = bytes.size();
    if (lineFeed == std::string_view::npos) {
      if (fill()) continue;
      if (bytes.empty()) return false;
    }
    line = take(std::min(lineFeed, bytes.size()), lineFeed < bytes.size() ? 1 : 0);
    return true;
  }
}

std::string_view LineReader::peek(std::size_t least) {
  while (unread().size() < least && fill()) {
  }
  return unread();
}

std::string_view LineReader::take(std::size_t length, std::size_t lineFeed) {
  const std::string_view line = unread().substr(0, length);
  begin_ += length + lineFeed;
  ++lineNumber_;
  return line;
}

bool LineReader::fill() {
  std::memmove(buffer_.get(), buffer_.get() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  ssize_t count = 0;
  do {
    count = ::read(descriptor_, buffer_.get() + end_, kCapacity - end_);
  } while (count < 0 && errno == EINTR);
  if (count < 0) {
    throw InputError(name_, 0, 0, "cannot be read: " + systemReason(errno));
  }
  end_ += static_cast<std::size_t>(count);
  buffer_[end_] = '\0';
  return count > 0;
}

}  // namespace host
