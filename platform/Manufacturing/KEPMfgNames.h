#pragma once

#include <string_view>

/// Names that the manufacturing interfaces publish. Each has its own name as text.
inline constexpr std::string_view PPCommandSynchro = "PPCommandSynchro";
