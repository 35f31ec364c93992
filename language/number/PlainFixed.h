#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ppword {

/// A number with a smaller absolute value is printed as 0.
inline constexpr double kSnapToZero = 1e-6;

/// A format "%W.Pf" with a width of at most two digits and one digit of places, as nearly every
/// format of a parameter is.
class PlainFixed {
 public:
  /// The format "%.0f".
  constexpr PlainFixed() noexcept = default;
  /// Nothing for any other format.
  [[nodiscard]] static std::optional<PlainFixed> parse(std::string_view format);

  /// The most characters that `print` writes.
  static constexpr std::size_t kCapacity = 128;
  /// Writes `value` at `at`, where there is space for kCapacity characters, as printNumber prints
  /// it. Returns the end; null for a number whose digits need the general way, or that is not
  /// finite: it is printed, or refused, by printNumber.
  [[nodiscard]] char* print(double value, char* at) const;

  /// The format that was parsed.
  [[nodiscard]] std::string text() const;

 private:
  PlainFixed(unsigned width, unsigned places) noexcept : width_(width), places_(places) {}

  unsigned width_ = 0;
  unsigned places_ = 0;
};

}  // namespace ppword
