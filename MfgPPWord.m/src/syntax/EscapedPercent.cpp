#include "src/syntax/EscapedPercent.h"

#include <string>
#include <string_view>

namespace ppword {
namespace {

constexpr std::string_view kEscaped = "\\%";
constexpr std::string_view kMarker = "@#@#@#@#";

void replaceAll(PassedLine& line, std::string_view what, std::string_view by) {
  const std::string_view text = line.text();
  // One scan for the first character: hardly any line holds it.
  std::size_t at = text.find(what.front());
  if (at != std::string_view::npos) at = text.find(what, at);
  if (at == std::string_view::npos) return;
  std::string& result = line.draft();
  std::size_t from = 0;
  for (; at != std::string_view::npos; at = text.find(what, from)) {
    result.append(text, from, at - from).append(by);
    from = at + what.size();
  }
  result.append(text, from);
  line.accept();
}

}  // namespace

void maskEscapedPercents(PassedLine& line) { replaceAll(line, kEscaped, kMarker); }
void unmaskEscapedPercents(PassedLine& line) { replaceAll(line, kMarker, "%"); }

}  // namespace ppword
