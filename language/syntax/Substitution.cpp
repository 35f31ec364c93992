#include "language/syntax/ParameterSource.h"
#include "language/syntax/Passes.h"
#include "language/syntax/References.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {

void substitute(SyntaxLine& line, References& references, ParameterSource& parameters) {
  references.find(line, parameters);
  if (references.found().empty()) return;
  const std::string_view text = line.text();
  LineWriter& out = line.writer();
  std::size_t from = 0;
  for (FoundReference& reference : references.found()) {
    out.append(text.substr(from, reference.start - from));
    parameters.appendText(reference.name, reference.parameter, out);
    if (reference.parentheses > 0) out.append(reference.parentheses, ')');
    from = reference.end;
  }
  out.append(text.substr(from));
  line.acceptWritten();
}

}  // namespace ppword
