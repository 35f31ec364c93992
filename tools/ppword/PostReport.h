#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/ppword/Json.h"
#include "tools/ppword/Kinds.h"
#include "tools/ppword/Losses.h"

/// The number of pieces missing from the text: references that were not evaluated, ends of names
/// that were cut off, deleted operations, calls that are only partly written or unknown, moves
/// without a line, and entries of the table.
[[nodiscard]] long missingPieces(const PostReport& report);

/// What a run does not accept, and so is not written; empty when it is.
[[nodiscard]] std::string refusalOf(const PostReport& report, const Strictness& strictness);

/// At most ten lines of 80 columns, but paths are whole; with `verbose` all that was counted, one
/// name a line. `refusal`: empty for a text that is written.
[[nodiscard]] std::string reportText(const PostReport& report, std::string_view refusal,
                                     bool verbose);
[[nodiscard]] Json reportJson(const PostReport& report, bool written);

/// The words of a program, for programs.
[[nodiscard]] Json machineWordsJson(const std::vector<host::MachineWord>& words);
