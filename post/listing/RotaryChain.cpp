#include "post/listing/RotaryChain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace host {
namespace {

constexpr std::string_view kWords = "ABC";
constexpr std::string_view kAxes = "XYZ";

/// Place of a one-letter text in `letters`.
std::optional<std::size_t> placeIn(std::string_view letters, std::string_view letter) {
  const std::size_t place = letter.size() == 1 ? letters.find(letter) : std::string_view::npos;
  return place == std::string_view::npos ? std::nullopt : std::optional(place);
}

/// The text up to a colon; the text after it stays in `rest`.
std::string_view cut(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(':'), rest.size());
  const std::string_view piece = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return piece;
}

std::optional<RotaryAxis> readAxis(std::string_view entry) {
  const auto word = placeIn(kWords, cut(entry));
  const std::string_view turned = cut(entry);
  const bool reversed = entry.starts_with('-');
  const auto axis = placeIn(kAxes, entry.substr(reversed ? 1 : 0));
  if (!word || !axis || (turned != "table" && turned != "head")) return std::nullopt;
  return RotaryAxis{*word, turned == "table", *axis, reversed};
}

/// Turns a vector counterclockwise about a coordinate axis.
Triple turned(const Triple& vector, std::size_t axis, double degrees) {
  const double angle = std::remainder(degrees, 360.0) * std::numbers::pi / 180.0;
  const std::size_t first = (axis + 1) % 3;
  const std::size_t second = (axis + 2) % 3;
  Triple result = vector;
  result[first] = vector[first] * std::cos(angle) - vector[second] * std::sin(angle);
  result[second] = vector[first] * std::sin(angle) + vector[second] * std::cos(angle);
  return result;
}

}  // namespace

std::optional<RotaryChain> RotaryChain::parse(std::string_view text, std::string& reason) {
  RotaryChain chain;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(',', start), text.size());
    std::string wrong = chain.add(text.substr(start, end - start));
    if (!wrong.empty()) {
      reason = std::move(wrong);
      return std::nullopt;
    }
    start = end + 1;
  }
  return chain;
}

std::string RotaryChain::add(std::string_view entry) {
  const auto axis = readAxis(entry);
  if (!axis) {
    return std::string("'").append(entry) +
           "' names no rotary axis; write WORD:table:AXIS or WORD:head:AXIS, from the part to the "
           "tool, for example C:table:Z,A:table:X";
  }
  if (names(axis->word)) return std::string("the word ") + kWords[axis->word] + " is named twice";
  if (axis->table && !axes_.empty() && !axes_.back().table) {
    return std::string("'").append(entry) +
           "' comes after a head; the order is from the part to the tool, tables first";
  }
  axes_.push_back(*axis);
  return {};
}

Triple RotaryChain::toolAxis(const Triple& words) const {
  Triple tool{0.0, 0.0, 1.0};
  for (auto axis = axes_.rbegin(); axis != axes_.rend(); ++axis) {
    // Seen from the part, a table that turns one way turns the tool the other way.
    const double sense = axis->table == axis->reversed ? 1.0 : -1.0;
    tool = turned(tool, axis->axis, sense * words[axis->word]);
  }
  return tool;
}

bool RotaryChain::names(std::size_t word) const {
  return std::any_of(axes_.begin(), axes_.end(),
                     [word](const RotaryAxis& axis) { return axis.word == word; });
}

}  // namespace host
