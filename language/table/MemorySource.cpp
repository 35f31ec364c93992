#include "language/table/MemorySource.h"

#include <algorithm>

#include "language/table/TableStream.h"

namespace ppword {

bool MemorySource::rewind() {
  cursor_.seek(0);
  return true;
}

template <class Read>
auto MemorySource::counted(Read read) {
  const std::size_t from = cursor_.offset();
  const auto text = left_ == 0 ? std::nullopt : read();
  left_ -= std::min(left_, cursor_.offset() - from);
  return text;
}

std::optional<std::string_view> MemorySource::nextToken() {
  if (tooLong_) return std::nullopt;
  const auto token = counted([this] { return cursor_.nextToken(kMostCharacters + 1); });
  tooLong_ = token && token->text.size() > kMostCharacters;
  if (!token || tooLong_) return std::nullopt;
  return token->text;
}

std::optional<std::string_view> MemorySource::nextLine() {
  const auto line = counted([this] { return cursor_.nextLine(); });
  if (!line) return std::nullopt;
  if (!line->hasEnd) return line->text;
  const std::size_t size = line->text.size() + 1;
  if (cursor_.offset() == line->offset + size) return bytes_.substr(line->offset, size);
  // Without the carriage return.
  *std::copy(line->text.begin(), line->text.end(), buffer_.begin()) = '\n';
  return std::string_view(buffer_.data(), size);
}

bool MemorySource::seek(long position) {
  tooLong_ = false;
  if (position < 0 || static_cast<std::size_t>(position) > bytes_.size()) return false;
  cursor_.seek(static_cast<std::size_t>(position));
  return true;
}

std::optional<std::string> tableBytes(const char* path, std::size_t most) {
  constexpr std::size_t kPiece = 65536;
  TableStream stream;
  if (!stream.open(path)) return std::nullopt;
  std::string bytes;
  for (std::size_t size = 0; size <= most;) {
    bytes.resize(size + kPiece);
    const std::size_t read = std::fread(bytes.data() + size, 1, kPiece, stream.file());
    size += read;
    bytes.resize(size);
    if (read < kPiece) break;
  }
  if (bytes.size() > most || std::ferror(stream.file()) != 0) return std::nullopt;
  return bytes;
}

}  // namespace ppword
