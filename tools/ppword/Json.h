#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/diagnostics/Diagnostic.h"

using Json = nlohmann::ordered_json;

/// A text as JSON: a string; a text that is not UTF-8 is the object {"latin1": STRING}, where each
/// character of the string is the byte with its number.
[[nodiscard]] Json textJson(std::string_view text);

/// Texts as an array.
[[nodiscard]] Json textsJson(const std::vector<std::string>& texts);

/// The text that textJson wrote. Raises a JSON exception for what it does not write.
[[nodiscard]] std::string jsonText(const Json& json);

/// Severity, key, place, message and source line of a finding; what it does not have is left out.
[[nodiscard]] Json diagnosticJson(const host::Diagnostic& diagnostic);

/// The document, indented and ended by a line feed.
[[nodiscard]] std::string documentText(const Json& document);
