#pragma once

#include <string>
#include <string_view>

#include "language/syntax/SyntaxLine.h"

namespace ppword {

/// How a percent sign that opens no reference is written.
inline constexpr std::string_view kEscapedPercent = "\\%";

/// What is in its place while a line is processed: no pass takes it for a reference.
inline constexpr std::string_view kPercentMask = "@#@#@#@#";

/// Replaces every "\%" by the mask.
void maskEscapedPercents(SyntaxLine& line);

/// Replaces every mask by "%": «100\%» ends as «100%».
void unmaskEscapedPercents(SyntaxLine& line);

/// A text of a line that is being processed, with "\%" for every mask as it was written.
[[nodiscard]] std::string withEscapedPercents(std::string_view masked);

/// The reverse: a text as it is while its line is processed.
[[nodiscard]] std::string withMaskedPercents(std::string_view written);

}  // namespace ppword
