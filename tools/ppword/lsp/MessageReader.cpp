#include "tools/ppword/lsp/MessageReader.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <utility>

namespace lsp {
namespace {

constexpr std::size_t kChunk = std::size_t{64} << 10U;

bool isReadable() {
  pollfd input{STDIN_FILENO, POLLIN, 0};
  return poll(&input, 1, 0) > 0;
}

/// True for a header's name, whose letters may be of either case.
bool isContentLength(std::string_view name) {
  constexpr std::string_view kName = "content-length";
  return std::equal(
      name.begin(), name.end(), kName.begin(), kName.end(), [](char left, char right) {
        return (left >= 'A' && left <= 'Z' ? static_cast<char>(left + 0x20) : left) == right;
      });
}

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

}  // namespace

bool MessageReader::fill(bool waits) {
  if (isAtEnd_ || (!waits && !isReadable())) return false;
  std::array<char, kChunk> chunk{};
  ssize_t read = 0;
  do {
    read = ::read(STDIN_FILENO, chunk.data(), chunk.size());
  } while (read < 0 && errno == EINTR);
  isAtEnd_ = read <= 0;
  if (isAtEnd_) return false;
  bytes_.append(chunk.data(), static_cast<std::size_t>(read));
  return true;
}

std::optional<std::string> MessageReader::take() {
  if (fault_.empty() && !length_) readHeaders();
  if (!fault_.empty() || !length_ || bytes_.size() - begin_ < *length_) return std::nullopt;
  std::string content = bytes_.substr(begin_, *length_);
  begin_ += *length_;
  length_.reset();
  dropTaken();
  return content;
}

/// Drops what was taken when it is the larger part.
void MessageReader::dropTaken() {
  if (begin_ <= bytes_.size() / 2) return;
  bytes_.erase(0, std::exchange(begin_, 0));
  if (bytes_.capacity() > kMostHeaderBytes + 4 * bytes_.size()) bytes_.shrink_to_fit();
}

void MessageReader::readHeaders() {
  constexpr std::string_view kEnd = "\r\n\r\n";
  const std::string_view bytes = std::string_view(bytes_).substr(begin_);
  const std::size_t end = bytes.substr(0, kMostHeaderBytes).find(kEnd);
  if (end == bytes.npos) {
    if (bytes.size() >= kMostHeaderBytes) fault_ = "the headers of a message do not end";
    return;
  }
  readHeaderLines(bytes.substr(0, end));
  if (fault_.empty() && !length_) fault_ = "a message has no Content-Length";
  begin_ += end + kEnd.size();
}

void MessageReader::readHeaderLines(std::string_view lines) {
  for (std::size_t at = 0; at < lines.size() && fault_.empty();) {
    const std::size_t next = std::min(lines.find("\r\n", at), lines.size());
    readHeader(lines.substr(at, next - at));
    at = next + 2;
  }
}

void MessageReader::readHeader(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == line.npos) {
    fault_ = "a header of a message has no colon";
  } else if (isContentLength(withoutBlanks(line.substr(0, colon)))) {
    readLength(withoutBlanks(line.substr(colon + 1)));
  }
}

void MessageReader::readLength(std::string_view value) {
  if (length_) {
    fault_ = "a message has two Content-Lengths";
    return;
  }
  std::size_t length = 0;
  const char* const end = value.data() + value.size();
  const auto [rest, error] = std::from_chars(value.data(), end, length);
  const bool isNumber = !value.empty() && rest == end && error != std::errc::invalid_argument;
  const bool fits = error == std::errc() && length <= kMostBytes;
  if (isNumber && fits) length_ = length;
  if (!isNumber) fault_ = "the Content-Length of a message is not a number";
  if (isNumber && !fits)
    fault_ = "a message is longer than " + std::to_string(kMostBytes) + " bytes";
}

bool writeMessageBytes(std::string_view content) {
  const std::string message =
      ("Content-Length: " + std::to_string(content.size()) + "\r\n\r\n").append(content);
  for (std::string_view left = message; !left.empty();) {
    const ssize_t written = write(STDOUT_FILENO, left.data(), left.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    left.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace lsp
