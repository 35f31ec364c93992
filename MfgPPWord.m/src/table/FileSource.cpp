#include "src/table/FileSource.h"

namespace ppword {
namespace {

// The white space of the C locale, whatever the locale of the process.
constexpr bool isBlank(int byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

// The source is used by one thread, so the stream needs no lock.
int nextByte(std::FILE* file) { return getc_unlocked(file); }

// As nextByte, with a carriage return and a line feed read as the line feed.
int nextOfLine(std::FILE* file) {
  const int byte = nextByte(file);
  if (byte != '\r') return byte;
  const int next = nextByte(file);
  if (next == '\n') return next;
  if (next != EOF) std::ungetc(next, file);
  return byte;
}

int firstOfToken(std::FILE* file) {
  int byte = nextByte(file);
  while (isBlank(byte)) byte = nextByte(file);
  return byte;
}

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
  int byte = firstOfToken(stream);
  for (; byte != EOF && !isBlank(byte); byte = nextByte(stream)) {
    if (size == buffer_.size()) {
      tooLong_ = true;
      return std::nullopt;
    }
    buffer_[size++] = static_cast<char>(byte);
  }
  if (byte != EOF) std::ungetc(byte, stream);
  if (size == 0) return std::nullopt;
  return std::string_view(buffer_.data(), size);
}

std::optional<std::string_view> FileSource::nextLine() {
  std::FILE* const stream = file();
  std::size_t size = 0;
  while (stream != nullptr && size < buffer_.size()) {
    const int byte = nextOfLine(stream);
    if (byte == EOF) break;
    buffer_[size++] = static_cast<char>(byte);
    if (byte == '\n') break;
  }
  if (size == 0) return std::nullopt;
  return std::string_view(buffer_.data(), size);
}

long FileSource::position() { return file() == nullptr ? -1 : std::ftell(file()); }

bool FileSource::seek(long position) {
  tooLong_ = false;
  return file() != nullptr && std::fseek(file(), position, SEEK_SET) == 0;
}

}  // namespace ppword
