#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "language/syntax/Characters.h"
#include "language/syntax/Passes.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr CharacterSet kOpening("(");
constexpr CharacterSet kSigns("+-*");

/// For every place the ")" that goes with a "(" removed in front of it. Found from the end of the
/// line, so that every character is looked at once.
std::vector<std::size_t> findPartners(std::string_view text) {
  std::vector<std::size_t> partners(text.size() + 1, kNone);
  std::size_t outside = kNone;
  std::size_t insideGroup = kNone;
  for (std::size_t at = text.size(); at-- > 0;) {
    if (text[at] == ')') {
      insideGroup = std::exchange(outside, at);
    } else if (text[at] == '(' && at > 0 && text[at - 1] == '%') {
      // deliberate: a plain "(" is not counted, and a "%(" within a group does not deepen it.
      outside = insideGroup;
    }
    partners[at] = outside;
  }
  return partners;
}

}  // namespace

void cleanParentheses(SyntaxLine& line) {
  if (!line.holdsAny(kOpening) || !line.holdsAny(kSigns)) return;
  const std::string_view text = line.text();
  const auto partners = findPartners(text);
  std::string& out = line.draft();
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isRemoved = text[at] == '(' && !out.empty() && out.back() != '%';
    if (!isRemoved) {
      out += text[at];
      continue;
    }
    const std::size_t partner = partners[at + 1];
    if (partner == kNone) continue;
    out.append(text, at + 1, partner - at - 1);
    at = partner;
  }
  line.accept();
}

}  // namespace ppword
