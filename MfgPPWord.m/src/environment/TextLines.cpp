#include "src/environment/TextLines.h"

#include <algorithm>
#include <string_view>

namespace ppword {

KEPListValKEPUnicodeString linesOf(const KEPUnicodeString& text) {
  KEPListValKEPUnicodeString lines;
  std::string_view rest = text.View();
  // deliberate: a text of one line keeps its line end
  if (!rest.empty() && rest.find('\n') >= rest.size() - 1) {
    lines.Append(text);
    return lines;
  }
  while (!rest.empty()) {
    const std::size_t feed = std::min(rest.find('\n'), rest.size());
    const bool endsWithReturn = feed > 0 && feed < rest.size() && rest[feed - 1] == '\r';
    lines.Append(rest.substr(0, endsWithReturn ? feed - 1 : feed));
    rest.remove_prefix(std::min(feed + 1, rest.size()));
  }
  return lines;
}

}  // namespace ppword
