#include "post/program/InterpreterError.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "post/text/NcBlock.h"

namespace host {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

/// The lines after the last "executing", which rs274 writes when it opens a file.
std::vector<std::string_view> linesOf(std::string_view errors) {
  std::vector<std::string_view> lines;
  while (!errors.empty()) {
    const std::string_view line = errors.substr(0, errors.find('\n'));
    errors.remove_prefix(std::min(line.size() + 1, errors.size()));
    if (line == "executing") {
      lines.clear();
    } else {
      lines.push_back(line);
    }
  }
  return lines;
}

/// The text between two others; empty when they are not there.
std::string_view between(std::string_view text, std::string_view first, std::string_view second) {
  const std::size_t start = text.find(first);
  if (start == std::string_view::npos) return {};
  const std::string_view rest = text.substr(start + first.size());
  const std::size_t end = rest.find(second);
  return end == std::string_view::npos ? std::string_view() : rest.substr(0, end);
}

template <class Number>
std::optional<Number> whole(std::string_view text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() ? std::optional(number) : std::nullopt;
}

/// The block number of a block of the copy; empty for one without.
std::string_view blockNumber(std::string_view block) {
  if (block.starts_with('/')) block.remove_prefix(1);
  if (!block.starts_with('N')) return {};
  return block.substr(1, block.find_first_not_of("0123456789", 1) - 1);
}

/// The first line of a copied file that begins with a block; 0 for none.
long lineOf(const std::filesystem::path& file, std::string_view block) {
  LineReader lines(file.string());
  for (std::string_view line; lines.next(line);) {
    const std::string_view text = trimmed(line);
    if (text.starts_with(block)) return lines.lineNumber();
  }
  return 0;
}

}  // namespace

InterpreterError readInterpreterError(std::string_view errors) {
  const auto lines = linesOf(errors);
  InterpreterError error;
  constexpr std::size_t kLongestMessage = 500;
  if (!lines.empty()) error.message = lines[0].substr(0, kLongestMessage);
  if (lines.size() > 1) error.block = trimmed(lines[1]);
  error.tool = whole<int>(between(error.message, "Requested tool ", " not found"));
  error.called = between(error.message, "seeking o-word: o<", ">");
  error.file = between(error.message, "EOF in file:", " seeking");
  error.line = whole<long>(between(error.message + '\n', "from line: ", "\n")).value_or(0);
  return error;
}

LinePlace placeOfError(const InterpreterError& error, const ProgramCopy& copy) {
  const auto& copies = copy.copies();
  for (std::size_t file = 0; file < copies.size() && !error.called.empty(); ++file) {
    const bool isNamed = copies[file].filename() == std::filesystem::path(error.file).filename();
    if (isNamed) return copy.places()->placeOf(file, error.line);
  }
  const LinePlace place = copy.places()->placeOf(blockNumber(error.block));
  if (place.line > 0 || error.block.empty()) return place;
  for (std::size_t file = 0; file < copies.size(); ++file) {
    const long line = lineOf(copies[file], error.block);
    if (line > 0) return copy.places()->placeOf(file, line);
  }
  return place;
}

}  // namespace host
