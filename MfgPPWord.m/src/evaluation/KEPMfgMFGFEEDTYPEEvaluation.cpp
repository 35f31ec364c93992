#include <algorithm>
#include <array>
#include <string_view>

#include "KEPIMfgBufferFeedrate.h"
#include "Manufacturing/KEPMfgNames.h"
#include "src/evaluation/ParameterContext.h"
#include "src/evaluation/ParameterEvaluations.h"

namespace {

struct FeedType {
  std::string_view name;
  std::string_view word;
};

constexpr std::array kFeedTypes = {
    FeedType{TPMachiningFeedrate, "MACHINING"}, FeedType{TPApproachFeedrate, "APPROACH"},
    FeedType{TPRetractFeedrate, "RETRACT"}, FeedType{TPFinishingFeedrate, "FINISHING"},
    FeedType{TPChamferingFeedrate, "CHAMFERING"}};

std::string_view wordOf(std::string_view feedType) {
  const auto found = std::find_if(kFeedTypes.begin(), kFeedTypes.end(),
                                  [&](const FeedType& type) { return type.name == feedType; });
  return found == kFeedTypes.end() ? "VALUE" : found->word;
}

}  // namespace

bool KEPMfgMFGFEEDTYPEEvaluation::evaluate(ppword::ParameterText& text) const {
  const auto* const feed = ppword::ParameterContext::ofAny(*this).buffer<KEPIMfgBufferFeedrate>();
  if (feed == nullptr) return false;
  KEPUnicodeString type;
  feed->GetFeedType(type);
  // deliberate: a plunge feed rate is a success that leaves the text as it was
  if (type.View() == TPPlungeFeedrate) return true;
  text.set(wordOf(type.View()));
  return true;
}
