#include "src/container/SyntaxLookup.h"

#include "language/number/IntegerPrefix.h"
#include "src/container/TypeTree.h"

namespace ppword {
namespace {

constexpr std::string_view kMotionMarker = "#SEQMOTION#";
constexpr int kNoMotion = -1;

}  // namespace

KEPIMfgSyntaxEvaluation_var findSyntaxEvaluation(const KEPIContainer_var& container,
                                                 std::string_view name) {
  int motion = kNoMotion;
  KEPISpecObject_var type = findType(container, name);
  if (!type) {
    const std::size_t marker = name.find(kMotionMarker);
    // deliberate: a marker at the very start is no marker, and hides those behind it
    if (marker == 0 || marker == std::string_view::npos) return nullptr;
    motion = integerPrefix(name.substr(marker + kMotionMarker.size())).value_or(kNoMotion);
    type = findType(container, name.substr(0, marker));
  }
  KEPIMfgSyntaxEvaluation_var evaluation = type;
  if (!evaluation && motion < 1) return nullptr;
  // deliberate: for a motion of an unknown instruction this raises the null-handle error
  evaluation->SetSeqMotionNumber(motion);
  return evaluation;
}

}  // namespace ppword
