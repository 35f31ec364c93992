#include "post/generator/Tally.h"

namespace host {

void Tally::add(std::string_view name, long line, std::string_view instruction, long times) {
  total_ += times;
  const auto known = places_.find(name);
  if (known != places_.end()) {
    entries_[known->second].count += times;
  } else if (entries_.size() < kMostNames) {
    places_.emplace(name, entries_.size());
    entries_.push_back({std::string(name), times, line, std::string(instruction)});
  } else {
    others_ += times;
  }
}

}  // namespace host
