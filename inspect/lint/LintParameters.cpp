#include "inspect/lint/LintParameters.h"

#include <algorithm>
#include <string>
#include <vector>

#include "inspect/lint/LintCatalogue.h"
#include "post/text/SpellingSuggestion.h"

namespace host {

LintParameters::LintParameters(const TableBlocks& blocks) {
  for (const auto& list : blocks.lists) {
    std::size_t width = 0;
    for (const Token& word : list.values) width = std::max(width, word.text.size());
    own_.insert_or_assign(std::string(list.name.text), width);
  }
  for (const auto& format : blocks.formats) {
    const std::string_view text = format.values.empty() ? "" : format.values.back().text;
    own_.insert_or_assign(std::string(format.name.text), widthOfFormat(text));
  }
}

bool LintParameters::knows(std::string_view name) const {
  return own_.contains(name) || lintCatalogue().parameters.contains(name);
}

std::string_view LintParameters::nearestTo(std::string_view name) {
  const auto& all = lintCatalogue().parameterNames;
  const std::vector<std::string_view> names(all.begin(), all.end());
  return nearest(name, names);
}

std::size_t LintParameters::widthOf(std::string_view name) const {
  // What the table says holds before the catalogue.
  if (const auto own = own_.find(name); own != own_.end()) return own->second;
  const auto& all = lintCatalogue().parameters;
  const auto found = all.find(name);
  return found == all.end() ? 0 : found->second;
}

}  // namespace host
