#pragma once

#include <span>
#include <string>

namespace ppword {

/// Mends in place the elements that were cut at column 80: an element of exactly 80 characters
/// that ends inside a parameter name takes the next element's characters up to its first ",". The
/// number of elements stays; one whose characters all moved up stays as an empty one.
void mendCutSyntaxes(std::span<std::string> syntaxes);

}  // namespace ppword
