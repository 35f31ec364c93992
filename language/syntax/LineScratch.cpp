#include "language/syntax/LineScratch.h"

#include <algorithm>

#include "language/syntax/GroupCursor.h"

namespace ppword {

void LineScratch::start(std::size_t number, std::string_view text) {
  const std::size_t place = std::min(number, kMostKnown) - 1;
  while (lines_.size() <= place) lines_.push_back(std::make_unique<KnownLine>());
  known_ = lines_[place].get();
  if (text == known_->written) return;
  known_->isRead = false;
  known_->written = text;
}

void LineScratch::store() {
  known_->masked = line_.text();
  // Whether a side is a reference depends on the prefix, whether there is a group does not.
  const bool holdsGroups =
      line_.mayHoldGroups() && GroupCursor(known_->masked, kNumberPrefix).next();
  known_->facts = {line_.revision(), line_.characters(), holdsGroups};
  known_->isRead = true;
}

}  // namespace ppword
