#include "language/syntax/Continuation.h"

#include "language/syntax/Characters.h"

namespace ppword {

bool needsContinuationMark(std::string_view line, std::string_view next) {
  line = withoutBlanks(line);
  next = withoutBlanks(next);
  const bool isContinued = (next.starts_with(',') && !line.ends_with('$')) || line.ends_with(',');
  return isContinued && next.find('/') == std::string_view::npos;
}

}  // namespace ppword
