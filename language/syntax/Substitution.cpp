#include "language/syntax/Substitution.h"

namespace ppword {

void substitute(SyntaxLine& line, References& references, ParameterSource& parameters) {
  references.find(line, parameters);
  if (references.found().empty()) return;
  LineWriter& out = line.writer();
  for (const Reference& reference : references.found()) {
    out.append(reference.before);
    parameters.appendText(reference.name, out);
    if (reference.parentheses > 0) out.append(reference.parentheses, ')');
  }
  out.append(references.rest());
  line.acceptWritten();
}

}  // namespace ppword
