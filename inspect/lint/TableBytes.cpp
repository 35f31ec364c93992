#include "inspect/lint/TableBytes.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace host {
namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";
constexpr std::size_t kExcerptReach = 400;

}  // namespace

TableBytes::TableBytes(std::string bytes) : bytes_(std::move(bytes)) {
  for (std::size_t at = 0; (at = bytes_.find('\n', at)) != std::string::npos;) {
    lineStarts_.push_back(++at);
  }
}

TableBytes TableBytes::read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return TableBytes({std::istreambuf_iterator<char>(file), {}});
}

std::size_t TableBytes::lineOf(std::size_t offset) const {
  const auto behind = std::upper_bound(lineStarts_.begin(), lineStarts_.end(), offset);
  return static_cast<std::size_t>(behind - lineStarts_.begin()) - 1;
}

TableBytes::Place TableBytes::placeOf(std::size_t offset) const {
  const std::size_t line = lineOf(offset);
  return {static_cast<long>(line) + 1, static_cast<long>(offset - lineStarts_[line]) + 1};
}

std::size_t TableBytes::offsetOf(long line, long column) const {
  return lineStarts_[static_cast<std::size_t>(line) - 1] + static_cast<std::size_t>(column) - 1;
}

Excerpt TableBytes::excerptAt(long line, long column) const {
  const auto number = static_cast<std::size_t>(line);
  const std::size_t start = lineStarts_[number - 1];
  const std::size_t end = number == lineStarts_.size() ? bytes_.size() : lineStarts_[number] - 1;
  const std::size_t offset = start + static_cast<std::size_t>(column) - 1;
  const std::size_t first = std::max(start, offset - std::min(offset, kExcerptReach));
  const std::size_t last = std::min(end, offset + kExcerptReach + 1);
  Excerpt excerpt{bytes_.substr(first, last - first), static_cast<long>(first - start) + 1,
                  last < end};
  if (last == end && excerpt.text.ends_with('\r')) excerpt.text.pop_back();
  return excerpt;
}

Token TokenScanner::next() {
  const std::size_t first = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
  at_ = std::min(text_.find_first_of(kBlanks, first), text_.size());
  return {text_.substr(first, at_ - first), first};
}

Token TokenScanner::nextPlain() {
  Token token = next();
  while (token.text.starts_with('/')) token = next();
  return token;
}

std::string_view TokenScanner::restOfLine() {
  const std::size_t end = std::min(text_.find('\n', at_), text_.size());
  const std::string_view rest = text_.substr(at_, end - at_);
  at_ = end;
  return rest.substr(0, rest.find_last_not_of(kBlanks) + 1);
}

}  // namespace host
