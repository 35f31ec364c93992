#include "post/output/FileMark.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace host {

void FileMark::add(std::string_view bytes) noexcept {
  size_ += bytes.size();
  for (const char byte : bytes) {
    hash_ = (hash_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
}

std::string FileMark::digest() const {
  constexpr std::size_t kDigits = 16;
  std::array<char, kDigits> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), hash_, 16).ptr;
  const auto count = static_cast<std::size_t>(end - digits.data());
  return std::string(kDigits - count, '0').append(digits.data(), count);
}

std::optional<FileMark> markOfFile(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  FileMark mark;
  std::array<char, 65536> piece;
  while (file.read(piece.data(), piece.size()), file.gcount() > 0) {
    mark.add({piece.data(), static_cast<std::size_t>(file.gcount())});
  }
  return file.eof() ? std::optional(mark) : std::nullopt;
}

}  // namespace host
