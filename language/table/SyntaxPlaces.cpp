#include "language/table/SyntaxPlaces.h"

#include "language/table/CommandSyntax.h"
#include "language/table/MemorySource.h"

namespace ppword {

SyntaxPlaces::SyntaxPlaces(std::string_view table) : table_(table) {
  MemorySource source(table_);
  walkCommands(source, [&] {
    const long here = source.position();
    static_cast<void>(nextName(source, kCommandPrefix));
    bodies_.push_back(source.position());
    return !source.seek(here);
  });
}

std::vector<long> SyntaxPlaces::placesOf(int number, const std::string& name, int sequence) {
  MemorySource source(table_);
  if (!positions_) positions_ = commandPositions(source);
  bool isFound = false;
  if (sequence > 1) {
    const auto body = positions_->find(name);
    isFound =
        body != positions_->end() && source.seek(body->second) && findSequence(source, sequence);
  } else {
    const auto index = static_cast<std::size_t>(number) - 1;
    isFound = index < bodies_.size() && source.seek(bodies_[index]);
  }
  std::vector<long> places;
  if (isFound) static_cast<void>(readSyntax(source, name, positions_, &places));
  return places;
}

}  // namespace ppword
