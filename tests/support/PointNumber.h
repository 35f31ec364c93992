#pragma once

#include <clocale>
#include <cstdlib>

/// As std::strtod with a decimal point, whatever the locale of the test is.
[[nodiscard]] inline double readWithPoint(const char* text, char** end = nullptr) {
  static const locale_t withPoint = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text, end, withPoint);
}
