#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace host {

/// The size of a text and a checksum of its bytes (FNV-1a of 64 bits), by which a text that has
/// changed is noticed. Whoever wants to deceive can find another text with the same mark.
class FileMark {
 public:
  /// Adds bytes at the end of the text.
  void add(std::string_view bytes) noexcept;

  [[nodiscard]] std::uint64_t size() const noexcept { return size_; }
  /// The checksum in 16 hexadecimal digits.
  [[nodiscard]] std::string digest() const;

 private:
  std::uint64_t size_ = 0;
  std::uint64_t hash_ = 0xCBF29CE484222325U;
};

/// The mark of a regular file; nothing for another one, such as a pipe, which would be waited for,
/// and for a file that cannot be read.
[[nodiscard]] std::optional<FileMark> markOfFile(const std::string& path);

}  // namespace host
