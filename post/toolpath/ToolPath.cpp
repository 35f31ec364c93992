#include "post/toolpath/ToolPath.h"

#include <algorithm>
#include <string_view>

#include "post/text/Utf8.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kDigits = "0123456789";

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

}  // namespace

ToolPathKind recogniseToolPath(LineReader& lines) {
  const std::string_view first = withoutLeading(lines.peek(), kBlanks);
  if (beginsJob(first)) return ToolPathKind::Job;
  if (beginsListing(first)) return ToolPathKind::Listing;
  if (first.empty()) {
    throw InputError(lines.name(), 0, 0,
                     "the input is empty; a job (JSON Lines) or a canonical listing is expected");
  }
  throw InputError(lines.name(), 1, 1,
                   "neither a job (JSON Lines, begins with '{') nor a canonical listing (begins "
                   "with '    1 N.....'); to create the listing of an NC program, use: rs274 -g "
                   "PROGRAM LISTING");
}

}  // namespace host
