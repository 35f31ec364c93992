#include "post/toolpath/ToolPath.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "post/text/NcBlock.h"
#include "post/text/Utf8.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kDigits = "0123456789";
/// How much of an input is looked at for the words of an NC program.
constexpr std::size_t kFirstLines = 8192;

std::string_view withoutLeading(std::string_view text, std::string_view set) {
  text.remove_prefix(std::min(text.find_first_not_of(set), text.size()));
  return text;
}

/// A job after a byte-order mark is a job too: its reader reports the mark.
bool beginsJob(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  return text.starts_with('{');
}

/// A running number, blanks and the letter of the block number.
bool beginsListing(std::string_view text) {
  const std::string_view afterNumber = withoutLeading(text, kDigits);
  if (afterNumber.size() == text.size()) return false;
  const std::string_view block = withoutLeading(afterNumber, " ");
  return block.size() < afterNumber.size() && block.starts_with('N');
}

/// Takes the number after the last colon off a text; nothing, with the text unchanged, when it has
/// none from 1.
std::optional<long> takeNumber(std::string_view& text) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const std::string_view digits = text.substr(colon + 1);
  long number = 0;
  const auto [rest, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isNumber = error == std::errc() && rest == digits.data() + digits.size();
  if (!isNumber || number < 1) return std::nullopt;
  text = text.substr(0, colon);
  return number;
}

}  // namespace

std::optional<ElementPlace> readElementPlace(std::string_view text) {
  const auto last = takeNumber(text);
  if (!last) return std::nullopt;
  const auto first = takeNumber(text);
  if (text.empty()) return std::nullopt;
  if (!first) return ElementPlace{std::string(text), *last};
  return ElementPlace{std::string(text), *first, *last};
}

ToolPathKind recogniseToolPath(LineReader& lines) {
  const std::string_view first = withoutLeading(lines.peek(), kBlanks);
  if (beginsJob(first)) return ToolPathKind::Job;
  if (beginsListing(first)) return ToolPathKind::Listing;
  if (first.empty()) {
    throw InputError(lines.name(), 0, 0,
                     "the input is empty; a job (JSON Lines), a canonical listing or an NC program "
                     "is expected");
  }
  if (looksLikeProgram(lines.peek(kFirstLines).substr(0, kFirstLines)))
    return ToolPathKind::Program;
  throw InputError(lines.name(), 1, 1,
                   "neither a job (JSON Lines, begins with '{') nor a canonical listing (begins "
                   "with '    1 N.....') nor an NC program (has words such as G1 in its first "
                   "lines)");
}

}  // namespace host
