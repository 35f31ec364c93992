#include "post/output/FileMark.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <memory>
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
  // A pipe would be waited for.
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  const auto close = [](std::FILE* file) { std::fclose(file); };
  const std::unique_ptr<std::FILE, decltype(close)> file(std::fopen(path.c_str(), "rb"), close);
  if (!file) return std::nullopt;
  FileMark mark;
  std::array<char, 65536> piece;
  while (const std::size_t size = std::fread(piece.data(), 1, piece.size(), file.get())) {
    mark.add({piece.data(), size});
  }
  if (std::ferror(file.get()) != 0) return std::nullopt;
  return mark;
}

}  // namespace host
