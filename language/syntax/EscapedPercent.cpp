#include <string>
#include <string_view>

#include "language/syntax/Passes.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {
namespace {

/// Appends `text` to `result` with every `what` replaced, the first of which is at `at`.
void appendReplaced(std::string_view text, std::size_t at, std::string_view what,
                    std::string_view by, std::string& result) {
  std::size_t from = 0;
  for (; at != std::string_view::npos; at = text.find(what, from)) {
    result.append(text, from, at - from).append(by);
    from = at + what.size();
  }
  result.append(text, from);
}

std::string withReplaced(std::string_view text, std::string_view what, std::string_view by) {
  std::string result;
  appendReplaced(text, text.find(what), what, by, result);
  return result;
}

/// `at`: where the first `what` may be, at the earliest.
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
  if (line.holdsAny(kBackslash)) replaceAll(line, 0, kEscapedPercent, kPercentMask);
}

void unmaskEscapedPercents(SyntaxLine& line) {
  replaceAll(line, line.text().find(kPercentMask.front()), kPercentMask, "%");
}

std::string withEscapedPercents(std::string_view masked) {
  return withReplaced(masked, kPercentMask, kEscapedPercent);
}

std::string withMaskedPercents(std::string_view written) {
  return withReplaced(written, kEscapedPercent, kPercentMask);
}

}  // namespace ppword
