#include "language/table/TableStream.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace ppword {
namespace {

// Opening a directory succeeds and its first read fails; a device that gives bytes gives them
// without end.
bool readable(std::FILE* file, const char* path) {
  const int first = std::getc(file);
  if (first == EOF) return std::ferror(file) == 0;
  std::ungetc(first, file);
  std::error_code unknown;
  return !std::filesystem::is_character_file(path, unknown);
}

}  // namespace

TableStream::~TableStream() { close(); }

bool TableStream::open(const char* path) {
  file_ = std::fopen(path, "rt");
  if (file_ == nullptr) return false;
  if (readable(file_, path)) return true;
  close();
  return false;
}

bool TableStream::close() {
  std::FILE* const file = std::exchange(file_, nullptr);
  return file == nullptr || std::fclose(file) == 0;
}

}  // namespace ppword
