#include "inspect/diagnostics/Excerpt.h"

#include <algorithm>

namespace host {

Excerpt excerptOf(std::string_view line, long column) {
  const long firstColumn = std::max(1L, column - kExcerptReach);
  const std::size_t first = std::min(line.size(), static_cast<std::size_t>(firstColumn) - 1);
  const std::size_t last = std::min(line.size(), static_cast<std::size_t>(column + kExcerptReach));
  Excerpt excerpt{std::string(line.substr(first, last - first)), firstColumn, last < line.size()};
  if (!excerpt.goesOn && excerpt.text.ends_with('\r')) excerpt.text.pop_back();
  return excerpt;
}

}  // namespace host
