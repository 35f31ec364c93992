#include <string>
#include <string_view>

#include "language/syntax/Characters.h"
#include "language/syntax/DivisionCursor.h"
#include "language/syntax/Passes.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {

void rewriteDivisions(SyntaxLine& line) {
  static constexpr CharacterSet kReference("%");
  if (!line.holdsAny(kReference)) return;
  const std::string_view text = line.text();
  // Most lines have no "/" but that of their major word.
  if (text.find('/', text.find('/') + 1) == std::string_view::npos) return;
  DivisionCursor divisions(text);
  std::string& out = line.draft();
  std::size_t from = 0;
  while (const auto division = divisions.next()) {
    if (division->reciprocal.empty()) continue;
    out.append(text, from, division->at - from).append("*").append(division->reciprocal);
    from = division->end();
  }
  if (from == 0) return;
  out.append(text, from);
  line.accept();
}

}  // namespace ppword
