#pragma once

#include <ostream>
#include <string>

#include "KEPIMfgSyntaxEvaluation.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {

/// The instruction's first syntax instantiated into a list that holds `before` already.
struct Instantiated {
  bool done;
  Texts lines;
  friend bool operator==(const Instantiated&, const Instantiated&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const Instantiated& result) {
  out << (result.done ? "true" : "false");
  for (const std::string& line : result.lines) out << " «" << line << "»";
  return out;
}

inline Instantiated instantiate(const KEPISpecObject_var& instruction, int index = 1,
                                const Texts& before = {}) {
  KEPListValKEPUnicodeString lines = list(before);
  const KEPIMfgSyntaxEvaluation_var evaluation = instruction;
  const bool done = evaluation->InstantiateSyntax(lines, index);
  return {done, texts(lines)};
}

}  // namespace ppword::test
