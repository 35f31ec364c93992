#include "language/table/SyntaxPlaces.h"

#include "language/table/CommandQueries.h"
#include "language/table/CommandSyntax.h"
#include "language/table/MemorySource.h"

namespace ppword {

SyntaxPlaces::SyntaxPlaces(std::string_view table) : table_(table) {
  MemorySource source(table_);
  forEachCommand(source, [&](const std::string& /*name*/, long body) { bodies_.push_back(body); });
}

bool SyntaxPlaces::goTo(TableSource& source, int number) const {
  const auto index = static_cast<std::size_t>(number) - 1;
  return index < bodies_.size() && source.seek(bodies_[index]);
}

bool SyntaxPlaces::goTo(TableSource& source, const std::string& name, int sequence) const {
  const auto body = positions_->find(name);
  return body != positions_->end() && source.seek(body->second) && findSequence(source, sequence);
}

std::vector<long> SyntaxPlaces::placesOf(int number, const std::string& name, int sequence) {
  MemorySource source(table_);
  if (!positions_) positions_ = commandPositions(source);
  std::vector<long> places;
  if (sequence > 1 ? goTo(source, name, sequence) : goTo(source, number)) {
    static_cast<void>(readSyntax(source, name, positions_, &places));
  }
  return places;
}

}  // namespace ppword
