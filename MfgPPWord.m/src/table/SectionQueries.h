#pragma once

#include <string_view>

#include "System/KEPList.h"
#include "System/KEPString.h"
#include "src/table/TableSource.h"

namespace ppword {

// The queries on the sections beside the commands. Contracts as those of the reader's operations.

/// A section that gives a parameter its values: its keyword.
inline constexpr std::string_view kListKeyword = "*START_LIST";
inline constexpr std::string_view kFormatKeyword = "*START_FORMAT";
inline constexpr std::string_view kParameterPrefix = "MFG_";

[[nodiscard]] bool numberOfParameters(TableSource& source, std::string_view keyword, int& count);
[[nodiscard]] bool nameOfParameter(TableSource& source, std::string_view keyword, int index,
                                   KEPString& name);
[[nodiscard]] bool valuesOfMultiList(TableSource& source, int index, KEPListValKEPString& values);
[[nodiscard]] bool valueOfFormat(TableSource& source, int index, KEPString& value);

// The same for the list or format behind whose name the position is; `values` is not cleared.
[[nodiscard]] bool readValues(TableSource& source, KEPListValKEPString& values);
[[nodiscard]] bool readFormat(TableSource& source, KEPString& value);

[[nodiscard]] bool listOfSyntaxes(TableSource& source, KEPListValKEPString& syntaxes);

/// The pieces of the four word sections, words and codes alternating, and the kind of each.
[[nodiscard]] bool listOfPPValues(TableSource& source, KEPRawCollint& kinds,
                                  KEPListValKEPString& pieces);

}  // namespace ppword
