#pragma once

#include <array>
#include <cstddef>

/// Coordinates as a milling program has them, and unit axes: the same for the engine and for the
/// loops that it is compared with.
using Motion = std::array<double, 6>;
inline constexpr std::size_t kPoints = 256;

[[nodiscard]] inline const std::array<Motion, kPoints>& motions() {
  static const auto created = [] {
    std::array<Motion, kPoints> all{};
    unsigned state = 12345;
    const auto next = [&state] {
      return static_cast<double>((state = state * 1664525U + 1013904223U) >> 8);
    };
    for (Motion& motion : all) {
      for (std::size_t i = 0; i < 3; ++i) motion[i] = next() / 65536.0 - 128.0;
      motion[3] = 0.6;
      motion[4] = 0.0;
      motion[5] = 0.8;
    }
    return all;
  }();
  return created;
}
