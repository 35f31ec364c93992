#include "post/text/NearWords.h"

#include <algorithm>
#include <tuple>

namespace host {
namespace {

// A longer word is not searched for.
constexpr std::size_t kLongestNear = 64;

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; }

bool isSame(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return upper(a) == upper(b); });
}

/// The hash of a word without the letter at `out`.
std::uint32_t hashWithout(std::string_view word, std::size_t out) {
  std::uint32_t hash = 2166136261U;
  for (std::size_t at = 0; at < word.size(); ++at) {
    if (at != out) hash = (hash ^ static_cast<unsigned char>(upper(word[at]))) * 16777619U;
  }
  return hash;
}

/// Calls `visit` with the hash of a word, which others have that lack a letter in it, and then of
/// what is left of it without each of its letters.
template <class Visit>
void visitHashes(std::string_view word, Visit visit) {
  visit(hashWithout(word, word.size()));
  for (std::size_t out = 0; out < word.size(); ++out) visit(hashWithout(word, out));
}

}  // namespace

NearWords::NearWords(std::vector<std::string_view> words) : words_(std::move(words)) {
  for (std::uint32_t index = 0; index < words_.size(); ++index) {
    if (words_[index].size() > kLongestNear) continue;
    visitHashes(words_[index], [&](std::uint32_t hash) { entries_.push_back({hash, index}); });
  }
  std::sort(entries_.begin(), entries_.end(), [](const Entry& left, const Entry& right) {
    return std::tie(left.hash, left.index) < std::tie(right.hash, right.index);
  });
}

std::string_view NearWords::near(std::string_view word,
                                 const std::function<bool(std::string_view)>& isMeant) const {
  std::string_view found;
  if (word.size() > kLongestNear) return found;
  visitHashes(word, [&](std::uint32_t hash) {
    auto at = std::partition_point(entries_.begin(), entries_.end(),
                                   [hash](const Entry& entry) { return entry.hash < hash; });
    for (; found.empty() && at != entries_.end() && at->hash == hash; ++at) {
      const std::string_view other = words_[at->index];
      if (isOneMistake(word, other) && isMeant(other)) found = other;
    }
  });
  return found;
}

std::string_view withoutNumber(std::string_view word) {
  return word.substr(0, word.find_last_not_of("0123456789") + 1);
}

bool isOneMistake(std::string_view left, std::string_view right) {
  if (left.size() > right.size()) std::swap(left, right);
  if (right.size() - left.size() > 1 || left == right) return false;
  std::size_t at = 0;
  while (at < left.size() && upper(left[at]) == upper(right[at])) ++at;
  if (left.size() < right.size()) return isSame(left.substr(at), right.substr(at + 1));
  if (at == left.size()) return true;
  if (isSame(left.substr(at + 1), right.substr(at + 1))) return true;
  return at + 1 < left.size() && upper(left[at]) == upper(right[at + 1]) &&
         upper(left[at + 1]) == upper(right[at]) &&
         isSame(left.substr(at + 2), right.substr(at + 2));
}

}  // namespace host
