#include "post/listing/CallCounts.h"

#include <algorithm>

namespace host {

void CallCounts::add(std::string_view name, CallFate fate, SourceLine place) {
  const auto known = std::ranges::find_if(counts_, [name, fate](const CallCount& call) {
    return call.name == name && call.fate == fate;
  });
  if (known == counts_.end()) {
    counts_.push_back({std::string(name), fate, 1, place.line, std::string(place.file)});
  } else {
    ++known->count;
  }
}

long CallCounts::total(CallFate fate) const {
  long sum = 0;
  for (const CallCount& call : counts_) {
    if (call.fate == fate) sum += call.count;
  }
  return sum;
}

std::size_t CallCounts::names(CallFate fate) const {
  return static_cast<std::size_t>(std::ranges::count(counts_, fate, &CallCount::fate));
}

}  // namespace host
