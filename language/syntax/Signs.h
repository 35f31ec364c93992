#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ppword {

class LineObserver;
class SyntaxLine;

/// The signs of a line, in the order in which they are masked.
inline constexpr std::string_view kSigns = "+*-";

/// The signs that were masked in a line: for each the ordinal, from 1, of the comma in its
/// place, and the sign. Two parallel lists, in the order in which the signs were masked.
struct SignRecords {
  std::vector<int> ordinals;
  std::string signs;
};

/// Replaces every "+", then every "*", then every "-" by a comma, at which the name of a parameter
/// ends, and sets `records`. For example
///   GOTO/%A+10,0  becomes  GOTO/%A,10,0  with the record (1, "+")
void maskSigns(SyntaxLine& line, SignRecords& records);

/// Puts the signs back in place of the commas with their ordinals, whatever commas the line holds
/// by now; a sign whose comma does not exist is lost. For example
///   GOTO/5,10,0  with the record (1, "+")  becomes  GOTO/5+10,0
/// False, with the line unchanged, when the lists differ in length. `observer` (may be null)
/// receives lost signs as deleted operations.
[[nodiscard]] bool restoreSigns(SyntaxLine& line, const SignRecords& records,
                                LineObserver* observer);

}  // namespace ppword
