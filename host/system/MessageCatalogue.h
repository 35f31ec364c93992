#pragma once

#include <string_view>
#include <vector>

#include "System/KEPPlatform.h"
#include "System/KEPString.h"

namespace host {

/// The text of a message, in the language of the process's locale (LC_MESSAGES, as setlocale left
/// it) where there is a translation and in English otherwise; always UTF-8. It comes with "/p1",
/// "/p2" ... replaced by the parameters in order; the key itself when the catalogue does not hold
/// it. The message of a table error begins with the line that is its parameter; without parameters
/// that beginning is left out, for callers that show the place themselves.
[[nodiscard]] KEP_PLATFORM KEPUnicodeString
messageText(std::string_view catalogue, std::string_view key,
            const std::vector<KEPUnicodeString>& parameters);

/// The keys of a catalogue; none for one that does not exist.
[[nodiscard]] KEP_PLATFORM std::vector<std::string_view> messageKeys(std::string_view catalogue);

}  // namespace host
