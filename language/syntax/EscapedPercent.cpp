#include "language/syntax/EscapedPercent.h"

#include <string>
#include <string_view>

namespace ppword {
namespace {

constexpr std::string_view kEscaped = "\\%";
constexpr std::string_view kMarker = "@#@#@#@#";

/// Appends `text` to `result` with every `what` replaced, the first of which stands at `at`.
void appendReplaced(std::string_view text, std::size_t at, std::string_view what,
                    std::string_view by, std::string& result) {
  std::size_t from = 0;
  for (; at != std::string_view::npos; at = text.find(what, from)) {
    result.append(text, from, at - from).append(by);
    from = at + what.size();
  }
  result.append(text, from);
}

/// `at`: where the first `what` may stand, at the earliest.
void replaceAll(SyntaxLine& line, std::size_t at, std::string_view what, std::string_view by) {
  const std::string_view text = line.text();
  if (at != std::string_view::npos) at = text.find(what, at);
  if (at == std::string_view::npos) return;
  appendReplaced(text, at, what, by, line.draft());
  line.accept();
}

}  // namespace

void maskEscapedPercents(SyntaxLine& line) {
  static constexpr CharacterSet kBackslash("\\");
  if (line.holdsAny(kBackslash)) replaceAll(line, 0, kEscaped, kMarker);
}

void unmaskEscapedPercents(SyntaxLine& line) {
  replaceAll(line, line.text().find(kMarker.front()), kMarker, "%");
}

std::string withEscapedPercents(std::string_view masked) {
  std::string text;
  appendReplaced(masked, masked.find(kMarker), kMarker, kEscaped, text);
  return text;
}

}  // namespace ppword
