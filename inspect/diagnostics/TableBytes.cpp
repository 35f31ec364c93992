#include "inspect/diagnostics/TableBytes.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "inspect/diagnostics/TableFile.h"
#include "language/table/MemorySource.h"

namespace host {
namespace {

constexpr std::size_t kBlock = 512;

}  // namespace

TableBytes::TableBytes(std::string bytes) : bytes_(std::move(bytes)), blocks_{{0, 0}} {
  for (std::size_t block = kBlock; block <= bytes_.size(); block += kBlock) {
    blocks_.push_back(lineStartOf(block - 1));
    if (bytes_[block - 1] == '\n') blocks_.back() = {blocks_.back().line + 1, block};
  }
}

TableBytes TableBytes::read(const std::string& path) {
  errno = 0;
  auto bytes = ppword::tableBytes(path.c_str());
  if (!bytes) throw UnreadableTable{unreadableTable(path, errno)};
  return TableBytes(*std::move(bytes));
}

TableBytes::LineStart TableBytes::lineStartOf(std::size_t offset) const {
  const std::size_t block = offset / kBlock;
  LineStart start = blocks_[block];
  const std::string_view before = text().substr(0, offset);
  for (std::size_t at = block * kBlock; (at = before.find('\n', at)) != before.npos;) {
    start = {start.line + 1, ++at};
  }
  return start;
}

TableBytes::Place TableBytes::placeOf(std::size_t offset) const {
  const LineStart start = lineStartOf(offset);
  return {static_cast<long>(start.line) + 1, static_cast<long>(offset - start.offset) + 1};
}

std::size_t TableBytes::offsetOfLine(std::size_t line) const {
  const auto after =
      std::partition_point(blocks_.begin(), blocks_.end(),
                           [line](const LineStart& start) { return start.line <= line; });
  const auto block = static_cast<std::size_t>(after - blocks_.begin()) - 1;
  LineStart start = blocks_[block];
  for (std::size_t at = block * kBlock; start.line < line; ++start.line) {
    start.offset = at = bytes_.find('\n', at) + 1;
  }
  return start.offset;
}

Excerpt TableBytes::excerptAt(long line, long column) const {
  const std::size_t start = offsetOfLine(static_cast<std::size_t>(line) - 1);
  const std::size_t end = std::min(bytes_.find('\n', start), bytes_.size());
  return excerptOf(text().substr(start, end - start), column);
}

}  // namespace host
