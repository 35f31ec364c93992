#include "src/syntax/EscapedPercent.h"

#include <string_view>

namespace ppword {
namespace {

constexpr std::string_view kEscaped = "\\%";
constexpr std::string_view kMarker = "@#@#@#@#";

void replaceAll(std::string& line, std::string_view what, std::string_view by) {
  std::size_t at = line.find(what);
  if (at == std::string::npos) return;
  std::string result;
  std::size_t from = 0;
  for (; at != std::string::npos; at = line.find(what, from)) {
    result.append(line, from, at - from).append(by);
    from = at + what.size();
  }
  line = result.append(line, from);
}

}  // namespace

void maskEscapedPercents(std::string& line) { replaceAll(line, kEscaped, kMarker); }
void unmaskEscapedPercents(std::string& line) { replaceAll(line, kMarker, "%"); }

}  // namespace ppword
