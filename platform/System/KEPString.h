#pragma once

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
