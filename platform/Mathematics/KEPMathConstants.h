#pragma once

#include <numbers>

/// The general tolerance of the application.
inline constexpr double KEPEpsg = 1e-6;
/// Degrees times this are radians.
inline constexpr double KEPDegreeToRadian = std::numbers::pi / 180.0;
