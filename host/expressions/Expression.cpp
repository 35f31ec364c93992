#include "host/expressions/Expression.h"

#include <muParser.h>

#include <cmath>
#include <string>

namespace {

/// The expression without its opening parenthesis. Nothing that could be computed truthfully comes
/// with a further parenthesis, where the text was cut at the first ")" inside a nested group, and
/// with a comma, which is where the syntax had a "+", "-" or "*".
std::string_view flatExpression(std::string_view text) {
  if (text.empty() || text.front() != '(') return {};
  text.remove_prefix(1);
  return text.find_first_of("(),") == std::string_view::npos ? text : std::string_view{};
}

}  // namespace

bool ppwordComputeExpression(std::string_view expression, const host::TextMap<double>& parameters,
                             double& result) {
  const std::string_view flat = flatExpression(expression);
  if (flat.empty()) return false;
  try {
    mu::Parser parser;
    for (const auto& [name, number] : parameters) {
      // Only what the expression may name: a name that is no identifier must not spoil the others.
      if (flat.find(name) != std::string_view::npos) parser.DefineConst(name, number);
    }
    parser.SetExpr(std::string(flat));
    const double computed = parser.Eval();
    if (!std::isfinite(computed)) return false;
    result = computed;
    return true;
  } catch (const mu::Parser::exception_type&) {
    return false;
  }
}
