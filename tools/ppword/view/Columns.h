#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Bytes as base64 (RFC 4648), with its padding.
[[nodiscard]] std::string base64(std::string_view bytes);

/// Whole numbers for the page, each in as few bytes as it takes: seven bits a byte, the lowest
/// first, the eighth set where more follow. The lowest bit of a number is its sign.
class Column {
 public:
  void add(std::int64_t number);
  /// Adds what the number differs from the one before, which is 0 at first.
  void addStep(std::int64_t number) {
    add(number - last_);
    last_ = number;
  }

  [[nodiscard]] std::string text() const { return base64(bytes_); }

 private:
  std::string bytes_;
  std::int64_t last_ = 0;
};

/// A value of each element that seldom changes: the elements where it does, and the values. It is 0
/// at first.
struct Changes {
  Column elements{};
  Column values{};
  long value = 0;

  /// Sets the value from an element on.
  void set(long element, long newValue) {
    if (newValue == value) return;
    elements.addStep(element);
    values.add(newValue);
    value = newValue;
  }
};
