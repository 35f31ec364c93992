#pragma once

#include <optional>
#include <string_view>

namespace host {

/// The length units of a canonical listing.
enum class LengthUnit { Millimetre, Centimetre, Inch };

/// A unit in tenths of a millimetre, which are whole numbers for all of them.
[[nodiscard]] constexpr double tenthsOf(LengthUnit unit) {
  if (unit == LengthUnit::Inch) return 254.0;
  return unit == LengthUnit::Centimetre ? 100.0 : 10.0;
}

/// A length in another unit; in the same unit it is unchanged, to the last bit.
[[nodiscard]] constexpr double converted(double length, LengthUnit from, LengthUnit to) {
  return from == to ? length : length * tenthsOf(from) / tenthsOf(to);
}

[[nodiscard]] constexpr std::string_view pluralOf(LengthUnit unit) {
  if (unit == LengthUnit::Inch) return "inches";
  return unit == LengthUnit::Centimetre ? "centimetres" : "millimetres";
}

/// What the parameter MFG_UNIT prints.
[[nodiscard]] constexpr std::string_view unitWord(LengthUnit unit) {
  if (unit == LengthUnit::Inch) return "INCHES";
  return unit == LengthUnit::Centimetre ? "CM" : "MM";
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
