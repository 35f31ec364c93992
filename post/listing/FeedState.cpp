#include "post/listing/FeedState.h"

#include "post/listing/TypedNumber.h"

namespace host {

void FeedState::setRate(double rate, LengthUnit unit) {
  rate_.value = rate;
  rate_.unit = unit;
  isSet_ = true;
}

std::optional<FeedrateChange> FeedState::due(const ListingWords& words, LengthUnit text) {
  if (!isSet_ && !synchronised_) return std::nullopt;
  const Rate& rate = synchronised_ ? *synchronised_ : rate_;
  const auto& named = rate.perRevolution ? words.feedPerRevolution : words.feedPerMinute;
  const LengthUnit unit = named.value_or(text);
  const Rate wanted{converted(rate.value, rate.unit, unit), unit, rate.perRevolution};
  if (told_ == wanted) return std::nullopt;
  told_ = wanted;
  FeedrateChange change;
  change.value =
      typedNumber(wanted.value, wanted.perRevolution ? "ANGULARFEEDRATE" : "LINEARFEEDRATE");
  return change;
}

}  // namespace host
