#pragma once

#include <optional>
#include <string_view>

namespace host {

/// The length units of a canonical listing.
enum class LengthUnit { Millimetre, Centimetre, Inch };

[[nodiscard]] constexpr double millimetresOf(LengthUnit unit) {
  if (unit == LengthUnit::Inch) return 25.4;
  return unit == LengthUnit::Centimetre ? 10.0 : 1.0;
}

[[nodiscard]] constexpr std::string_view pluralOf(LengthUnit unit) {
  if (unit == LengthUnit::Inch) return "inches";
  return unit == LengthUnit::Centimetre ? "centimetres" : "millimetres";
}

/// The unit that USE_LENGTH_UNITS names; nothing for another name.
[[nodiscard]] constexpr std::optional<LengthUnit> canonicalUnit(std::string_view name) {
  if (name == "CANON_UNITS_MM") return LengthUnit::Millimetre;
  if (name == "CANON_UNITS_INCHES") return LengthUnit::Inch;
  if (name == "CANON_UNITS_CM") return LengthUnit::Centimetre;
  return std::nullopt;
}

/// The unit that a user calls "mm" or "inch"; nothing for another name.
[[nodiscard]] constexpr std::optional<LengthUnit> outputUnit(std::string_view name) {
  if (name == "mm") return LengthUnit::Millimetre;
  if (name == "inch") return LengthUnit::Inch;
  return std::nullopt;
}

}  // namespace host
