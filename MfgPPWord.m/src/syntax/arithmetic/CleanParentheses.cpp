#include "src/syntax/arithmetic/CleanParentheses.h"

#include <string>
#include <string_view>

namespace ppword {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr CharacterSet kOpening("(");
constexpr CharacterSet kSigns("+-*");

/// The ")" that goes with a "(" removed in front of `from`.
std::size_t findPartner(std::string_view text, std::size_t from) {
  bool isProtected = false;
  for (std::size_t at = from; at < text.size(); ++at) {
    // deliberate: a plain "(" is not counted, and a "%(" within a group does not deepen it.
    if (text[at] == '(' && text[at - 1] == '%') isProtected = true;
    if (text[at] != ')') continue;
    if (!isProtected) return at;
    isProtected = false;
  }
  return kNone;
}

}  // namespace

void cleanParentheses(PassedLine& line) {
  if (!line.holdsAny(kOpening) || !line.holdsAny(kSigns)) return;
  const std::string_view text = line.text();
  std::string& out = line.draft();
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isRemoved = text[at] == '(' && !out.empty() && out.back() != '%';
    if (!isRemoved) {
      out += text[at];
      continue;
    }
    const std::size_t partner = findPartner(text, at + 1);
    if (partner == kNone) continue;
    out.append(text, at + 1, partner - at - 1);
    at = partner;
  }
  line.accept();
}

}  // namespace ppword
