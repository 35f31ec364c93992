#include "post/listing/BlockPlaces.h"

#include <algorithm>
#include <charconv>

namespace host {
namespace {

constexpr long kLinesOfFile = 1'000'000'000;

/// 0 for a text that is not a whole number from 0.
long whole(std::string_view text) {
  long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = error == std::errc() && end == text.data() + text.size() && number >= 0;
  return isWhole ? number : 0;
}

}  // namespace

std::string BlockPlaces::numberOf(long line) const {
  return std::to_string(static_cast<long>(files_.size() - 1) * kLinesOfFile + line);
}

LinePlace BlockPlaces::placeOf(std::string_view number) const {
  const long block = whole(number);
  return placeOf(static_cast<std::size_t>(block / kLinesOfFile), block % kLinesOfFile);
}

LinePlace BlockPlaces::placeOf(std::size_t file, long line) const {
  LinePlace place{files_.front().name, 0};
  place.hasColumns = false;
  if (file >= files_.size()) return place;
  place.file = files_[file].name;
  place.line = std::min(line, files_[file].lines);
  place.isCalled = file > 0;
  return place;
}

std::vector<std::string> BlockPlaces::names() const {
  std::vector<std::string> names;
  for (const File& file : files_) names.push_back(file.name);
  return names;
}

bool BlockPlaces::isAfterProgram(std::string_view number) const {
  return whole(number) == files_.front().lines + 1;
}

}  // namespace host
