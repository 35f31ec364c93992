#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

/// Text of 8-bit characters. Bytes are stored unchanged, whatever their encoding.
class KEPString {
 public:
  KEPString() = default;
  KEPString(const char* text) : bytes_(text == nullptr ? "" : text) {}
  KEPString(std::string_view text) : bytes_(text) {}
  KEPString(std::string text) noexcept : bytes_(std::move(text)) {}

  /// The bytes; valid until the string is assigned or destroyed.
  [[nodiscard]] std::string_view View() const noexcept { return bytes_; }
  operator std::string_view() const noexcept { return bytes_; }
  [[nodiscard]] const char* CastToCharPtr() const noexcept { return bytes_.c_str(); }
  [[nodiscard]] bool IsEmpty() const noexcept { return bytes_.empty(); }
  /// The bytes, for changes in place.
  [[nodiscard]] std::string& Edit() noexcept { return bytes_; }

  friend bool operator==(const KEPString& left, const KEPString& right) = default;

 private:
  std::string bytes_;
};

/// Unicode text, stored as UTF-8. Its 8-bit form is these bytes; bytes that are not UTF-8 are
/// stored unchanged.
class KEPUnicodeString {
 public:
  KEPUnicodeString() = default;
  KEPUnicodeString(const char* text) : bytes_(text == nullptr ? "" : text) {}
  KEPUnicodeString(std::string_view text) : bytes_(text) {}
  KEPUnicodeString(std::string text) noexcept : bytes_(std::move(text)) {}

  /// The 8-bit form; valid until the string is assigned or destroyed.
  [[nodiscard]] std::string_view View() const noexcept { return bytes_; }
  operator std::string_view() const noexcept { return bytes_; }
  [[nodiscard]] const char* ConvertToChar() const noexcept { return bytes_.c_str(); }
  [[nodiscard]] bool IsEmpty() const noexcept { return bytes_.empty(); }

  /// The number of characters (code points). A stray continuation byte counts with the character
  /// before it.
  [[nodiscard]] int GetLengthInChar() const noexcept {
    return static_cast<int>(std::count_if(bytes_.begin(), bytes_.end(), StartsCharacter));
  }

  friend bool operator==(const KEPUnicodeString& left, const KEPUnicodeString& right) = default;

  /// True for every byte except the continuation bytes of UTF-8.
  [[nodiscard]] static bool StartsCharacter(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  }

 private:
  std::string bytes_;
};
