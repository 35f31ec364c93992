#include "post/parameters/Parameters.h"

#include <algorithm>
#include <array>
#include <vector>

#include "host/system/TextHash.h"

namespace host {
namespace {

using enum ParameterType;
using enum ParameterSource;

constexpr auto makeRows() {
  using enum BufferValue;
  return std::to_array<ParameterRow>({
#define PARAMETER(name, letters, type, unit, source, job, values, meaning) \
  {name, letters, type, unit, source, job, values, meaning},
#include "post/parameters/Parameters.def"
#undef PARAMETER
  });
}

constexpr auto kRows = makeRows();

/// A text with a letter of its row.
std::string withLetter(std::string_view text, const ParameterRow& row, std::size_t letter) {
  std::string with(text);
  if (!row.letters.empty()) std::replace(with.begin(), with.end(), '?', row.letters[letter]);
  return with;
}

std::vector<Parameter> makeParameters() {
  std::vector<Parameter> all;
  for (const ParameterRow& row : kRows) {
    const std::size_t count = std::max<std::size_t>(row.letters.size(), 1);
    for (std::size_t letter = 0; letter < count; ++letter) {
      all.push_back({withLetter(row.name, row, letter), &row, letter});
    }
  }
  return all;
}

TextMap<const Parameter*> makeIndex() {
  TextMap<const Parameter*> index;
  for (const Parameter& parameter : knownParameters()) index.emplace(parameter.name, &parameter);
  return index;
}

}  // namespace

std::span<const ParameterRow> parameterRows() { return kRows; }

std::span<const Parameter> knownParameters() {
  static const std::vector<Parameter> all = makeParameters();
  return all;
}

const Parameter* findParameter(std::string_view name) {
  static const TextMap<const Parameter*> index = makeIndex();
  const auto found = index.find(name);
  return found == index.end() ? nullptr : found->second;
}

std::string meaningOf(const Parameter& parameter) {
  std::string meaning = withLetter(parameter.row->meaning, *parameter.row, parameter.letter);
  std::erase(meaning, '`');
  return meaning;
}

std::string_view typeName(ParameterType type) {
  constexpr std::array<std::string_view, 5> kNames = {"real", "real", "integer", "text", "word"};
  return kNames[static_cast<std::size_t>(type)];
}

std::string_view sourceName(ParameterSource source) {
  constexpr std::array<std::string_view, 5> kNames = {"buffer", "activity", "tool", "assembly",
                                                      "insert"};
  return kNames[static_cast<std::size_t>(source)];
}

}  // namespace host
