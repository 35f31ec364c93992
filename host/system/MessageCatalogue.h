#pragma once

#include <string_view>
#include <vector>

#include "System/KEPUnicodeString.h"

namespace host {

/// The text of a message with "/p1", "/p2" ... replaced by the parameters in order; the key itself
/// when the catalogue does not hold it. The message of a table error begins with the line that is
/// its parameter; without parameters that beginning is left out, for whoever tells the place
/// otherwise.
[[nodiscard]] KEPUnicodeString messageText(std::string_view catalogue, std::string_view key,
                                           const std::vector<KEPUnicodeString>& parameters);

}  // namespace host
