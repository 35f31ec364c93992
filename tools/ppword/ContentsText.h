#pragma once

#include <string>
#include <string_view>

#include "tools/ppword/Contents.h"
#include "tools/ppword/Json.h"

/// One section for people, under a heading; an empty name means all sections that have entries.
[[nodiscard]] std::string contentsText(const Contents& contents, std::string_view section);

/// What a kind from 1 to 4 means.
[[nodiscard]] std::string_view kindName(int kind);

/// One section, or all, as members of an object; null stands for what cannot be read.
[[nodiscard]] Json contentsJson(const Contents& contents, std::string_view section);
