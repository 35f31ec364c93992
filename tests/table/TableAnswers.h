#pragma once

#include <string_view>

#include "tests/table/TableFiles.h"

/// A table with something for every query to find.
inline constexpr std::string_view kWholeTable =
    "*START_NC_COMMAND NC_A\nA1\n*END\n"
    "*START_NC_INSTRUCTION NC_B\nB1\n*END\n"
    "*START_NC_INSTRUCTION NC_C\nC1\n*END\n"
    "*START_LIST MFG_UNITS\nMMPM\n*END\n"
    "*START_FORMAT MFG_X\n%5.1f\n*END\n"
    "*START_SYNTAXES\nRAPID\n*END\n"
    "*START_MAJOR_WORDS_WITHOUT_PARAMETERS\nFINI,1\n*END\n"
    "*START_MINOR_WORDS\nNOTE,181\n*END\n";

/// What every public query answers, in one line each, so that two situations can be compared. The
/// arguments hold 7 and "kept" before each query.
[[nodiscard]] Texts answersOf(KEPMfgPPTableTxt& reader);

/// The answers for kWholeTable, for a file that cannot be opened, and for an empty file.
extern const Texts kWholeAnswers;
extern const Texts kUnopenedAnswers;
extern const Texts kEmptyAnswers;
