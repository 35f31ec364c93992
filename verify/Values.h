#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace verify {

/// What a parameter prints, as far as this reader knows.
struct Value {
  enum class Kind {
    Number,
    Text,
    /// Nothing is printed.
    Absent,
    /// It is computed in a way that this reader does not know.
    Unknown
  };
  Kind kind = Kind::Absent;
  double number = 0.0;
  /// Valid until the next event.
  std::string_view text{};
};

class InputValues;

/// What a parameter's value is taken from, found once by its name.
struct ValueSource {
  /// A component of a point or a direction.
  const std::array<double, 3>& (*triple)(const InputValues& values) = nullptr;
  std::size_t component = 0;
  Value (*value)(const InputValues& values) = nullptr;
  /// An entry, from 1, of the list of the parameter, which must have so many words.
  int (InputValues::*entry)() const = nullptr;
  std::size_t least = 1;
};

/// Of a name that no table has: the parameter is one of the activity.
[[nodiscard]] ValueSource sourceOf(std::string_view parameter);

}  // namespace verify
