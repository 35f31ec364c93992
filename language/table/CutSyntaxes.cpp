#include "language/table/CutSyntaxes.h"

#include <algorithm>
#include <utility>

namespace ppword {
namespace {

bool endsInParameter(std::string_view line) {
  if (line.size() != kCutWidth || line.back() == ',') return false;
  const std::size_t mark = line.find_last_of(",%", kCutWidth - 2);
  return mark != std::string_view::npos && line[mark] == '%';
}

}  // namespace

CutSyntaxes::CutSyntaxes(std::span<const std::string> elements) {
  for (const std::string& element : elements) {
    text_ += element;
    ends_.push_back(text_.size());
  }
  for (std::size_t at = text_.find(','); at != std::string::npos; at = text_.find(',', at + 1)) {
    commas_.push_back(at);
  }
  for (std::size_t i = 0; i < ends_.size(); ++i) lookAgainAt(i);
}

std::size_t CutSyntaxes::mend(std::size_t first, std::size_t last) {
  // The last element of a list is never cut.
  const auto from = unseen_.lower_bound(first);
  const auto to = last > first ? unseen_.lower_bound(last - 1) : from;
  const std::vector<std::size_t> seen(from, to);
  unseen_.erase(from, to);
  std::vector<std::pair<std::size_t, std::size_t>> moves;
  for (const std::size_t i : seen) {
    if (const std::size_t end = mendedEnd(i); end != ends_[i]) moves.emplace_back(i, end);
  }
  for (const auto& [i, end] : moves) ends_[i] = end;
  for (const auto& [i, end] : moves) {
    if (i != 0) lookAgainAt(i - 1);
    lookAgainAt(i + 1);
  }
  return seen.size();
}

std::vector<std::string> CutSyntaxes::elements() const {
  std::vector<std::string> elements;
  elements.reserve(ends_.size());
  for (std::size_t i = 0; i < ends_.size(); ++i) elements.emplace_back(element(i));
  return elements;
}

std::string_view CutSyntaxes::element(std::size_t i) const {
  return std::string_view(text_).substr(startOf(i), ends_[i] - startOf(i));
}

// Where the element ends once it is mended; it is not the last one.
std::size_t CutSyntaxes::mendedEnd(std::size_t i) const {
  const std::size_t end = ends_[i];
  if (!endsInParameter(element(i))) return end;
  const auto comma = std::lower_bound(commas_.begin(), commas_.end(), end);
  // deliberate: a parameter that is the last argument of its line stays cut
  const bool stays = comma == commas_.end() || *comma >= ends_[i + 1] || *comma == end;
  return stays ? end : *comma + 1;
}

void CutSyntaxes::lookAgainAt(std::size_t i) {
  if (element(i).size() == kCutWidth) unseen_.insert(i);
}

}  // namespace ppword
