#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/explain/Explanation.h"

namespace host {

/// Follows the commas of a line from the masking of its signs to their restoring: a sign comes back
/// in place of the comma with its number, which may be another one by then.
class CommaTrail {
 public:
  struct Sign {
    char sign;
    /// Of the comma in its place, from 1.
    int ordinal;
    /// What was in front of it.
    std::string before;
  };

  /// Begins with a line before and after its signs were masked.
  CommaTrail(std::string_view line, std::string_view masked);

  /// Follows the line through a pass that replaced references and groups.
  void follow(const ExplainedPass& pass);

  /// The character directly after the next reference of the pass to be followed next, a masked
  /// sign as such; nothing at the end of the line. To be asked for all of them, from left to right.
  [[nodiscard]] std::optional<char> characterAfter(const ExplainedReference& reference);

  /// The signs in the order of the line.
  [[nodiscard]] const std::vector<Sign>& signs() const noexcept { return signs_; }
  /// What is now in front of the comma with a sign's number; nothing when it does not exist.
  [[nodiscard]] std::optional<std::string> placeOf(const Sign& sign) const;
  /// True when the comma with the sign's number is no longer the one that took the sign's place.
  [[nodiscard]] bool isMoved(const Sign& sign) const;

 private:
  void startAt(std::string_view line);
  /// What the comma at a place of the line is: itself, or the sign that it was made of.
  [[nodiscard]] char meantBy(std::size_t comma) const;

  /// For each comma the number that it had when the signs were masked, 0 for one that came since.
  std::vector<int> origins_;
  std::string line_;
  /// The places of its commas.
  std::vector<std::size_t> commas_;
  /// Where its next reference is looked for.
  std::size_t next_ = 0;
  std::vector<Sign> signs_;
};

}  // namespace host
