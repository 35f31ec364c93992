#include "language/table/TableEntries.h"

#include <algorithm>
#include <utility>

#include "language/table/CommandSyntax.h"
#include "language/table/SectionQueries.h"

namespace ppword {

template <class Read>
std::optional<std::vector<std::string>> TableEntries::linesAt(long position, Read read) {
  if (linesLeft_ == 0 || !reading_.seek(position)) return std::nullopt;
  std::optional<Lines> lines = read();
  const std::size_t size = lines ? lines->size() : 0;
  linesLeft_ -= std::min(linesLeft_, std::max<std::size_t>(size, 1));
  return lines;
}

std::vector<CommandEntry> TableEntries::commands() {
  std::vector<CommandEntry> entries;
  MemorySource source(table_);
  forEachCommand(source, [&](const std::string& name, long body) {
    entries.push_back(name.empty() ? CommandEntry{} : commandAt(name, body));
  });
  return entries;
}

CommandEntry TableEntries::commandAt(const std::string& name, long body) {
  const auto read = [&] { return readSyntax(reading_, name, positions_); };
  CommandEntry entry{name, linesAt(body, read), {}};
  for (const long sequence : sequencesOf(body)) entry.sequences.push_back(linesAt(sequence, read));
  return entry;
}

// Where the sequences of a body begin; none when the body has no end.
std::vector<long> TableEntries::sequencesOf(long body) {
  std::vector<long> starts;
  if (linesLeft_ == 0 || !reading_.seek(body)) return starts;
  SequenceWalk walk(reading_);
  while (walk.next()) starts.push_back(reading_.position());
  if (!walk.closed()) starts.clear();
  return starts;
}

std::vector<ListEntry> TableEntries::lists() {
  std::vector<ListEntry> entries;
  MemorySource source(table_);
  const auto read = [&]() -> std::optional<Lines> {
    Lines values;
    return readValues(reading_, values) ? std::optional(std::move(values)) : std::nullopt;
  };
  forEachParameter(source, kListKeyword, [&](const std::string& name, long body) {
    entries.push_back(name.empty() ? ListEntry{} : ListEntry{name, linesAt(body, read)});
  });
  return entries;
}

std::vector<FormatEntry> TableEntries::formats() {
  std::vector<FormatEntry> entries;
  MemorySource source(table_);
  forEachParameter(source, kFormatKeyword, [&](const std::string& name, long body) {
    FormatEntry& entry = entries.emplace_back();
    if (name.empty()) return;
    entry.name = name;
    std::string format;
    if (reading_.seek(body) && readFormat(reading_, format)) entry.format = std::move(format);
  });
  return entries;
}

}  // namespace ppword
