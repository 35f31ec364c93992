#include "src/table/FileSource.h"

namespace ppword {
namespace {

struct FileBytes {
  std::FILE* file;

  // The source is used by one thread, so the stream needs no lock.
  [[nodiscard]] int next() const { return getc_unlocked(file); }
  void putBack(int byte) const { std::ungetc(byte, file); }
};

}  // namespace

bool FileSource::rewind() {
  // deliberate: a close that fails is no error, and the next rewind opens the file again
  if (isOpen_ && !stream_->close()) return true;
  const auto stream = stream_ ? stream_ : std::make_shared<TableStream>();
  if (!stream->open(path_.CastToCharPtr())) return false;
  stream_ = stream;
  isOpen_ = true;
  return true;
}

std::optional<std::string_view> FileSource::nextToken() {
  std::FILE* const stream = file();
  if (stream == nullptr || tooLong_) return std::nullopt;
  std::size_t size = 0;
  readToken(FileBytes{stream}, [&](char byte) {
    tooLong_ = size == buffer_.size();
    if (!tooLong_) buffer_[size++] = byte;
    return !tooLong_;
  });
  return tooLong_ ? std::nullopt : buffered(size);
}

std::optional<std::string_view> FileSource::nextLine() {
  std::FILE* const stream = file();
  if (stream == nullptr) return std::nullopt;
  std::size_t size = 0;
  readLine(FileBytes{stream}, [&](char byte) { buffer_[size++] = byte; });
  return buffered(size);
}

std::optional<std::string_view> FileSource::buffered(std::size_t size) const {
  if (size == 0) return std::nullopt;
  return std::string_view(buffer_.data(), size);
}

long FileSource::position() { return file() == nullptr ? -1 : std::ftell(file()); }

bool FileSource::seek(long position) {
  tooLong_ = false;
  return file() != nullptr && std::fseek(file(), position, SEEK_SET) == 0;
}

}  // namespace ppword
