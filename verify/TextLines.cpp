#include "verify/TextLines.h"

#include <cstring>

namespace verify {

ByteSource bytesOf(std::string_view text) {
  return [rest = text](char* to, std::size_t most) mutable {
    const std::size_t count = rest.copy(to, most);
    rest.remove_prefix(count);
    return count;
  };
}

bool TextLines::fill() {
  begin_ = 0;
  end_ = bytes_(chunk_.data(), chunk_.size());
  return end_ > 0;
}

// Takes the unread bytes up to the end of the line; false when that is not among them.
bool TextLines::take() {
  const std::string_view unread(chunk_.data() + begin_, end_ - begin_);
  const std::size_t feed = unread.find('\n');
  const bool isEnded = feed != std::string_view::npos;
  const std::size_t space = kLongestLine + 1 - line_.size();
  line_.append(unread.substr(0, feed).substr(0, space));
  begin_ += isEnded ? feed + 1 : unread.size();
  return isEnded;
}

// A line whose end is among the unread bytes, as that of most is, is not copied.
bool TextLines::takeWhole(std::string_view& line) {
  const char* const first = chunk_.data() + begin_;
  const void* const feed = std::memchr(first, '\n', end_ - begin_);
  if (feed == nullptr) return false;
  const auto length = static_cast<std::size_t>(static_cast<const char*>(feed) - first);
  begin_ += length + 1;
  ++number_;
  line = std::string_view(first, length);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return true;
}

bool TextLines::next(std::string_view& line) {
  if (isCut_ || (begin_ == end_ && !fill())) return false;
  if (takeWhole(line)) return true;
  line_.clear();
  while (!take() && line_.size() <= kLongestLine && fill()) {
  }
  ++number_;
  if (line_.ends_with('\r')) line_.pop_back();
  isCut_ = line_.size() > kLongestLine;
  line = std::string_view(line_).substr(0, kLongestLine);
  return true;
}

}  // namespace verify
