#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "post/consumer/Consumer.h"

namespace host {

/// A word that means to the reader what the word `known` means, and its place in the profile.
struct WordMeaning {
  std::string word;
  std::string known;
  long line;
  /// Of `known`, from 1.
  long column;
};

/// What a file says of a consumer.
struct ConsumerProfile {
  /// The file, or the name of a shipped profile.
  std::string name;
  Consumer consumer;
  std::vector<WordMeaning> words;
};

/// A profile that the program has, with its text.
struct ShippedProfile {
  std::string_view name;
  std::string_view text;
};
[[nodiscard]] std::span<const ShippedProfile> shippedProfiles();
[[nodiscard]] bool isShipped(std::string_view name);

/// Reads the shipped profile of that name, otherwise the file; "-" is the standard input. Each line
/// is one setting; # begins a comment:
///
///   columns = 72 | 80 | any
///   line-end = lf | crlf
///   sequence-numbers = off | STEP     a whole number from 1 to 9999999
///   characters = any | ascii | capitals
///   other-characters = refuse | CHARACTER     one of the characters above
///   longest-word = any | LETTERS      from 1 to 80
///   word WORD = KNOWN
///
/// Raises an InputError with the place of what is wrong: an unknown setting, one that is there
/// twice, another value, numbers without columns = 72, a replacement that is not among the
/// characters, more than 10,000 lines, and what a LineReader refuses.
[[nodiscard]] ConsumerProfile readProfile(const std::string& nameOrFile);

}  // namespace host
