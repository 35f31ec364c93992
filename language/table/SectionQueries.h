#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "language/table/Keywords.h"
#include "language/table/TableSource.h"

namespace ppword {

// The queries on the sections beside the commands. Contracts as those of the reader's operations.

// The sections with the values of parameters: `keyword` is kListKeyword or kFormatKeyword.
/// As forEachCommand, for lists or formats.
template <class Visit>
void forEachParameter(TableSource& source, std::string_view keyword, Visit visit) {
  const auto walk = [&](auto each) { return walkKeyword(source, keyword, each); };
  forEachName(source, walk, kParameterPrefix, visit);
}

[[nodiscard]] bool numberOfParameters(TableSource& source, std::string_view keyword, int& count);
[[nodiscard]] bool nameOfParameter(TableSource& source, std::string_view keyword, int index,
                                   std::string& name);
[[nodiscard]] bool valuesOfMultiList(TableSource& source, int index,
                                     std::vector<std::string>& values);
[[nodiscard]] bool valueOfFormat(TableSource& source, int index, std::string& value);

// The same for the list or format after whose name the position is; `values` is not cleared.
[[nodiscard]] bool readValues(TableSource& source, std::vector<std::string>& values);
[[nodiscard]] bool readFormat(TableSource& source, std::string& value);

[[nodiscard]] bool listOfSyntaxes(TableSource& source, std::vector<std::string>& syntaxes);

/// Cuts a token at every "," and calls `keep` with each piece that is not empty. Returns the offset
/// at which the last piece, empty or not, begins.
template <class Keep>
std::size_t cutAtCommas(std::string_view token, Keep keep) {
  for (std::size_t start = 0;;) {
    const std::size_t comma = token.find(',', start);
    const std::string_view piece = token.substr(start, comma - start);
    if (!piece.empty()) keep(piece);
    if (comma == std::string_view::npos) return start;
    start = comma + 1;
  }
}

/// The pieces of the four word sections, words and codes alternating, and the kind of each.
[[nodiscard]] bool listOfPPValues(TableSource& source, std::vector<int>& kinds,
                                  std::vector<std::string>& pieces);

}  // namespace ppword
