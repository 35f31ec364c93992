#pragma once

#include <algorithm>

/// What the program tells its caller; of several the highest counts.
enum class ExitStatus { Done = 0, Refused = 1, Usage = 2, NotWritten = 3, Internal = 4 };

[[nodiscard]] constexpr ExitStatus worse(ExitStatus left, ExitStatus right) {
  return std::max(left, right);
}
