#include "language/table/MemorySource.h"

#include <algorithm>

#include "language/table/TableStream.h"

namespace ppword {
namespace {

struct MemoryBytes {
  std::string_view bytes;
  std::size_t& at;

  [[nodiscard]] int next() const {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at++]) : EOF;
  }
  void putBack(int /*byte*/) const { --at; }
};

}  // namespace

bool MemorySource::rewind() {
  at_ = 0;
  return true;
}

template <class Read>
std::optional<std::string_view> MemorySource::counted(Read read) {
  if (left_ == 0) return std::nullopt;
  const std::size_t from = at_;
  const std::optional<std::string_view> text = read(MemoryBytes{bytes_, at_});
  left_ -= std::min(left_, at_ - from);
  return text;
}

std::optional<std::string_view> MemorySource::nextToken() {
  if (tooLong_) return std::nullopt;
  return counted([this](MemoryBytes bytes) { return readToken(bytes, buffer_, tooLong_); });
}

std::optional<std::string_view> MemorySource::nextLine() {
  return counted([this](MemoryBytes bytes) { return readLine(bytes, buffer_); });
}

bool MemorySource::seek(long position) {
  tooLong_ = false;
  if (position < 0 || static_cast<std::size_t>(position) > bytes_.size()) return false;
  at_ = static_cast<std::size_t>(position);
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
  if (bytes.size() > most) return std::nullopt;
  return bytes;
}

}  // namespace ppword
