#include "inspect/explain/TableOrigins.h"

namespace host {

void TableOrigins::TableEntry(Section section, int number, std::string_view name, Outcome outcome) {
  const bool isLoaded = outcome == Outcome::Created || outcome == Outcome::Replaced;
  if (isLoaded && section == Section::Command) loaded_[std::string(name)] = number;
}

void TableOrigins::read(const std::string& path) {
  table_ = TableBytes::read(path);
  lines_.emplace(table_->text());
}

std::optional<TableBytes::Place> TableOrigins::placeOf(std::string_view instruction, int sequence,
                                                       long index) {
  if (!table_ || !loaded_.contains(instruction)) return std::nullopt;
  const std::pair key(std::string(instruction), sequence);
  auto known = known_.find(key);
  if (known == known_.end()) {
    known = known_.emplace(key, placesOf(key.first, sequence)).first;
  }
  const Places& places = known->second;
  if (index < 1 || static_cast<std::size_t>(index) > places.size()) return std::nullopt;
  return places[static_cast<std::size_t>(index) - 1];
}

TableOrigins::Places TableOrigins::placesOf(const std::string& instruction, int sequence) {
  Places places;
  const int number = loaded_.find(instruction)->second;
  for (const long offset : lines_->placesOf(number, instruction, sequence)) {
    places.push_back(table_->placeOf(static_cast<std::size_t>(offset)));
  }
  return places;
}

}  // namespace host
