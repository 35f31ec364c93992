#pragma once

#include <string_view>

#include "inspect/explain/Explanation.h"
#include "tools/ppword/Json.h"

/// An explanation for programs.
[[nodiscard]] Json explanationJson(std::string_view instruction, int sequence,
                                   const host::Explanation& explanation);
