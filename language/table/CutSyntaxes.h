#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace ppword {

/// The width of an element that may have been cut. A list without one needs no mending.
inline constexpr std::size_t kCutWidth = 80;

/// Mends in place the elements that were cut at column 80: an element of that width that ends
/// inside a parameter name takes the next element's characters up to its first ",". The number of
/// elements stays; one whose characters all moved up stays as an empty one.
void mendCutSyntaxes(std::span<std::string> syntaxes);

}  // namespace ppword
