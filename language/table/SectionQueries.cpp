#include "language/table/SectionQueries.h"

namespace ppword {
namespace {

// Calls `keep` with each token up to one equal to "*END" that does not begin with "/". False at
// end of file.
template <class Keep>
bool readBody(TableSource& source, Keep keep) {
  while (const auto token = nextPlainToken(source)) {
    if (*token == kEndKeyword) return true;
    keep(*token);
  }
  return false;
}

}  // namespace

bool numberOfParameters(TableSource& source, std::string_view keyword, int& count) {
  count = 0;
  const Walk walk = walkKeyword(source, keyword, [&] {
    ++count;
    return false;
  });
  return walk == Walk::Whole && !source.tooLong();
}

bool nameOfParameter(TableSource& source, std::string_view keyword, int index, std::string& name) {
  const auto walk = [&](auto visit) { return walkKeyword(source, keyword, visit); };
  return nameAtIndex(source, walk, kParameterPrefix, index, name);
}

bool valuesOfMultiList(TableSource& source, int index, std::vector<std::string>& values) {
  values.clear();
  std::string name;
  return nameOfParameter(source, kListKeyword, index, name) && readValues(source, values);
}

bool readValues(TableSource& source, std::vector<std::string>& values) {
  std::size_t cursor = 0;
  while (const auto token = source.nextToken()) {
    if (*token == kEndKeyword) return true;
    // deliberate: looked for from where the last piece of the token before began
    if (cursor == 0 && token->starts_with('/')) continue;
    cursor = cutAtCommas(*token, [&](std::string_view piece) { values.emplace_back(piece); });
  }
  return false;
}

bool valueOfFormat(TableSource& source, int index, std::string& value) {
  std::string name;
  return nameOfParameter(source, kFormatKeyword, index, name) && readFormat(source, value);
}

bool readFormat(TableSource& source, std::string& value) {
  return readBody(source, [&](std::string_view token) { value = token; });
}

bool listOfSyntaxes(TableSource& source, std::vector<std::string>& syntaxes) {
  syntaxes.clear();
  if (!source.rewind()) return false;
  if (!findToken(source, kSyntaxesKeyword)) return !source.tooLong();
  return readBody(source, [&](std::string_view token) { syntaxes.emplace_back(token); });
}

bool listOfPPValues(TableSource& source, std::vector<int>& kinds,
                    std::vector<std::string>& pieces) {
  kinds.clear();
  pieces.clear();
  for (int kind = 1; kind <= kWordKinds; ++kind) {
    if (!source.rewind()) return false;
    if (!findToken(source, kKeywords[static_cast<std::size_t>(kind) - 1].text)) continue;
    const auto keep = [&](std::string_view piece) {
      kinds.push_back(kind);
      pieces.emplace_back(piece);
    };
    if (!readBody(source, [&](std::string_view token) { cutAtCommas(token, keep); })) return false;
  }
  return !source.tooLong();
}

}  // namespace ppword
