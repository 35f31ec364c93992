#include "verify/TextLines.h"

#include <algorithm>

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

void TextLines::take(std::string_view bytes) {
  const std::size_t space = kLongestLine + 1 - line_.size();
  line_.append(bytes.substr(0, space));
}

bool TextLines::next(std::string_view& line) {
  line_.clear();
  bool isEnded = false;
  bool isRead = false;
  while (!isEnded && (begin_ < end_ || fill())) {
    isRead = true;
    const std::string_view unread(chunk_.data() + begin_, end_ - begin_);
    const std::size_t feed = unread.find('\n');
    isEnded = feed != std::string_view::npos;
    take(unread.substr(0, feed));
    begin_ += isEnded ? feed + 1 : unread.size();
  }
  if (!isRead) return false;
  ++number_;
  if (line_.ends_with('\r')) line_.pop_back();
  isCut_ = line_.size() > kLongestLine;
  line = std::string_view(line_).substr(0, kLongestLine);
  return true;
}

}  // namespace verify
