#include "post/listing/CommentPieces.h"

#include "System/KEPUnicodeString.h"

namespace host {
namespace {

std::string_view withoutTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Where a text that is too long for one piece is cut.
std::size_t cutOf(std::string_view text) {
  const std::size_t blank = text.rfind(' ', kLongestPiece);
  if (blank != std::string_view::npos && text.find_first_not_of(' ') < blank) return blank;
  std::size_t cut = kLongestPiece;
  while (cut > 0 && !KEPUnicodeString::StartsCharacter(text[cut])) --cut;
  return cut > 0 ? cut : kLongestPiece;
}

}  // namespace

std::vector<std::string_view> commentPieces(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::string_view rest = withoutTrailingBlanks(text);
  while (rest.size() > kLongestPiece) {
    const std::size_t cut = cutOf(rest);
    const std::string_view piece = withoutTrailingBlanks(rest.substr(0, cut));
    if (!piece.empty()) pieces.push_back(piece);
    rest.remove_prefix(cut);
    rest.remove_prefix(rest.find_first_not_of(' '));
  }
  if (!rest.empty()) pieces.push_back(rest);
  return pieces;
}

}  // namespace host
