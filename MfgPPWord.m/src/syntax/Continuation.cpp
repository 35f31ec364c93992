#include "src/syntax/Continuation.h"

#include <string>
#include <string_view>

#include "src/syntax/Blanks.h"

namespace ppword {
namespace {

bool goesOn(std::string_view line, std::string_view next) {
  const bool isContinued = (next.starts_with(',') && !line.ends_with('$')) || line.ends_with(',');
  return isContinued && next.find('/') == std::string_view::npos;
}

}  // namespace

void setContinuationMarks(KEPListValKEPUnicodeString& lines) {
  for (int k = 1; k < lines.Size(); ++k) {
    if (goesOn(withoutBlanks(lines[k]), withoutBlanks(lines[k + 1]))) {
      lines[k] = KEPUnicodeString(std::string(lines[k].View()) + '$');
    }
  }
}

bool hasTrailingComma(const KEPListValKEPUnicodeString& lines) {
  return lines.Size() == 1 && lines[1].View().ends_with(',');
}

void dropTrailingComma(KEPListValKEPUnicodeString& lines) {
  if (!hasTrailingComma(lines)) return;
  std::string line(lines[1].View());
  line.pop_back();
  lines[1] = KEPUnicodeString(std::move(line));
}

}  // namespace ppword
