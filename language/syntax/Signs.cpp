// Signs are taken out of a line before its references are read, and put back afterwards.
//
// The name of a parameter ends at a comma. So that it ends at a sign too, each "+", "*" and "-"
// becomes a comma for a while. A record says which comma it was: its ordinal, counted from 1 over
// all commas of the masked line, those of the syntax included. All "+" are recorded first, then all
// "*", then all "-", each from left to right. For example
//
//   X/%A+1,%B*2-3     is masked as     X/%A,1,%B,2,3     with the records (1 +) (3 *) (4 -)
//
// The ordinals are those of the line after the last sign is masked, so the order in which signs are
// masked changes nothing about them: every sign and every comma is one comma, and a sign's ordinal
// is the number of signs and commas up to it.
//
// Then the references get their values, here A = 7 and B = 2.5, and the signs return, each in place
// of the comma that has its ordinal now:
//
//   X/7,1,2.5,2,3     becomes          X/7+1,2.5*2-3
//
// Nothing ties a sign to its own comma but the count. A value that brings a comma moves all signs
// after it by one: with A = "ON,OFF"
//
//   X/ON,OFF,1,2.5,2,3     becomes     X/ON+OFF,1*2.5-2,3
//
// A comma that is lost, as the one in the name of the expression %(A+B), moves them the other way,
// and the last sign may find no comma at all. It is lost then:
//
//   X/%(A+B)*2     is masked as        X/%(A,B),2        with the records (1 +) (2 *)
//   X/9,2          becomes             X/9+2             and the "*" is lost
//
// This is how the lines have always come out, and programs rely on it; explain shows the moves.

#include "language/syntax/Signs.h"

#include <algorithm>
#include <string_view>

#include "language/syntax/Characters.h"
#include "language/syntax/LineObserver.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {
namespace {

constexpr CharacterSet kAnySign(kSigns);
/// What is a comma in the masked line.
constexpr CharacterTable kCommas(",+*-");

/// Adds a record for each `sign` of a line. In the masked line every sign and every comma is a
/// comma.
void record(std::string_view line, char sign, SignRecords& records) {
  int ordinal = 0;
  for (std::size_t at = kCommas.firstIn(line); at < line.size();
       at = kCommas.firstIn(line, at + 1)) {
    ++ordinal;
    if (line[at] != sign) continue;
    records.ordinals.push_back(ordinal);
    records.signs += sign;
  }
}

/// Finds commas by their ordinals. The records of one sign go from left to right, so a line is
/// scanned once for each sign.
class CommaFinder {
 public:
  explicit CommaFinder(std::string_view line) : line_(line) {}

  /// Position of the comma with an ordinal; none when it does not exist.
  [[nodiscard]] std::size_t find(int ordinal) {
    if (ordinal <= found_) *this = CommaFinder(line_);
    for (; found_ < ordinal; ++found_) {
      const std::size_t at = line_.find(',', next_);
      // After the last comma nothing is looked for again.
      next_ = at == std::string_view::npos ? line_.size() : at + 1;
      if (at == std::string_view::npos) return at;
    }
    return next_ - 1;
  }

 private:
  std::string_view line_;
  int found_ = 0;
  std::size_t next_ = 0;
};

}  // namespace

void maskSigns(SyntaxLine& line, SignRecords& records) {
  records.ordinals.clear();
  records.signs.clear();
  if (!line.holdsAny(kAnySign)) return;
  const std::string_view text = line.text();
  for (const char sign : kSigns) {
    if (line.holdsAny(CharacterSet({&sign, 1}))) record(text, sign, records);
  }
  if (records.signs.empty()) return;
  std::string& out = line.draft();
  out = text;
  std::replace_if(
      out.begin(), out.end(), [](char character) { return kCommas.holds(character); }, ',');
  line.accept();
}

bool restoreSigns(SyntaxLine& line, const SignRecords& records, LineObserver* observer) {
  if (records.ordinals.size() != records.signs.size()) return false;
  if (records.signs.empty()) return true;
  CommaFinder commas(line.text());
  std::string& out = line.draft();
  out = line.text();
  for (std::size_t i = 0; i < records.signs.size(); ++i) {
    // deliberate: a comma that came with a value counts, so that the sign lands on another one.
    const std::size_t place = commas.find(records.ordinals[i]);
    if (place < out.size()) {
      out[place] = records.signs[i];
    } else if (observer != nullptr) {
      observer->operationEnded(OperationEnd::Deleted, {&records.signs[i], 1}, {});
    }
  }
  line.accept();
  return true;
}

}  // namespace ppword
