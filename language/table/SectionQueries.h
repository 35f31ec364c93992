#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "language/table/TableSource.h"

namespace ppword {

// The queries on the sections beside the commands. Contracts as those of the reader's operations.

/// A section that gives a parameter its values: its keyword.
inline constexpr std::string_view kListKeyword = "*START_LIST";
inline constexpr std::string_view kFormatKeyword = "*START_FORMAT";
inline constexpr std::string_view kParameterPrefix = "MFG_";

[[nodiscard]] bool numberOfParameters(TableSource& source, std::string_view keyword, int& count);
[[nodiscard]] bool nameOfParameter(TableSource& source, std::string_view keyword, int index,
                                   std::string& name);
[[nodiscard]] bool valuesOfMultiList(TableSource& source, int index,
                                     std::vector<std::string>& values);
[[nodiscard]] bool valueOfFormat(TableSource& source, int index, std::string& value);

// The same for the list or format behind whose name the position is; `values` is not cleared.
[[nodiscard]] bool readValues(TableSource& source, std::vector<std::string>& values);
[[nodiscard]] bool readFormat(TableSource& source, std::string& value);

[[nodiscard]] bool listOfSyntaxes(TableSource& source, std::vector<std::string>& syntaxes);

/// The pieces of the four word sections, words and codes alternating, and the kind of each.
[[nodiscard]] bool listOfPPValues(TableSource& source, std::vector<int>& kinds,
                                  std::vector<std::string>& pieces);

}  // namespace ppword
