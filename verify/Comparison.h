#pragma once

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/system/TextHash.h"
#include "post/toolpath/ToolPath.h"
#include "verify/DocumentWords.h"
#include "verify/ExpectedStatements.h"
#include "verify/InputValues.h"
#include "verify/TableLines.h"

namespace verify {

class StatementReader;

/// A place of an input: a line of it, or of a file that an NC program calls.
struct InputPlace {
  long line = 0;
  /// Empty for the input itself.
  std::string file{};
};

/// The first place where a text is not what the input says.
struct Difference {
  /// Where the text ends, if it ends too early: line 0.
  TextPlace text;
  /// The statement, where it is in one line.
  std::string line;
  InputPlace input;
  /// "NC_GOTO, point 2"; empty where the input has ended.
  std::string element;
  /// What is in the text and in the input; empty where there is nothing.
  std::string found;
  std::string expected;
};

/// How often something was seen, and where first.
struct Sighting {
  long count = 0;
  InputPlace first;
};

/// An element that the document has no instruction for, so that there is no text of the input.
struct UnknownInstruction {
  std::string name;
  InputPlace place;
};

/// Compares a text with an input, event by event, in constant memory.
class Comparison {
 public:
  using Sightings = std::map<std::string, Sighting, std::less<>>;
  /// Sets the next statement of the text; false at its end.
  using StatementSource = std::function<bool(Statement& statement)>;

  /// The references must stay valid.
  Comparison(const DocumentWords& document, const Words& words, StatementSource next,
             Generation generation = {});

  /// What the text was written for, from the beginning.
  void setConsumer(const host::Consumer& consumer) { consumer_ = consumer; }

  /// The reader that the statements come from. Lines that are plainly as expected are then not read
  /// as statements. It must outlive the object.
  void takeLinesFrom(StatementReader& reader) { reader_ = &reader; }

  /// Compares what an event of the input writes. False from the first difference on. Raises an
  /// UnknownInstruction.
  bool put(const host::ToolPathEvent& event);
  /// Something of the input that is not in the text, and is not an element either.
  void noteLeftOut(const std::string& name, const Sighting& sighting) {
    leftOut_.insert_or_assign(name, sighting);
  }
  /// After the last event: the text must have ended.
  bool finish();

  [[nodiscard]] const std::optional<Difference>& difference() const { return difference_; }
  /// Elements, one for each point, and statements that are as the input says.
  [[nodiscard]] long elements() const { return elements_; }
  [[nodiscard]] long verified() const { return verified_; }
  /// Those among them without a value of the input: the table's own.
  [[nodiscard]] long ownOfTable() const { return ownOfTable_; }
  /// Statements that were not verified, and elements that are not in the text, by their
  /// instructions.
  [[nodiscard]] const Sightings& notVerified() const { return notVerified_; }
  [[nodiscard]] const Sightings& leftOut() const { return leftOut_; }
  /// Elements whose point in the text is not one that they state.
  [[nodiscard]] const Sightings& otherPoints() const { return otherPoints_; }

 private:
  bool putElement(const host::Element& element);
  bool write(const host::Element& element, long point);
  bool takeLine(const ExpectedStatement& expected);
  bool take(const ExpectedStatement& expected, const host::Element& element, long point);
  void differ(Mismatch mismatch, bool hasStatement);
  void chooseLines(const host::Element& element);
  [[nodiscard]] const InstructionLines& linesOf(const host::Element& element);
  [[nodiscard]] const InstructionLines& linesNamedBy(const host::Element& element);
  void count(const ExpectedStatement& expected, const host::Element& element);
  void noteLeftOut(const host::Element& element);
  void noteValues(const host::Element& element);
  void noteOtherPoint(const host::Element& element);

  const DocumentWords& document_;
  Generation generation_;
  host::Consumer consumer_;
  StatementSource next_;
  StatementReader* reader_ = nullptr;
  TableLines tables_;
  InputValues values_;
  Statement statement_;
  std::optional<Difference> difference_;
  long elements_ = 0;
  long verified_ = 0;
  long ownOfTable_ = 0;
  Sightings notVerified_;
  Sightings leftOut_;
  Sightings otherPoints_;
  /// A value that was stated and is not yet in the text: where, and what it is called.
  struct Unprinted {
    std::string name;
    InputPlace place;
  };
  /// A tool axis, a feed rate and a spindle speed.
  std::array<std::optional<Unprinted>, 3> unprinted_;
  bool hasUnprinted_ = false;
  /// Of the element that is being compared, and what it names.
  const InstructionLines* lines_ = nullptr;
  std::string named_;
  int sequence_ = 0;
  ExpectedStatements* expected_ = nullptr;
  /// First sequences of instructions, by their names, and what each expects.
  host::TextMap<const InstructionLines*> firstSequences_;
  std::unordered_map<const InstructionLines*, ExpectedStatements> allExpected_;
  Mismatch mismatch_;
  /// True after a statement that can be an empty line, until one with a value is found; and where
  /// the statement after it was another one: nothing can be compared from there on.
  bool mayBeShifted_ = false;
  bool isLost_ = false;
};

}  // namespace verify
