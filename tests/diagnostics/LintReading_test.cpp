// What the lint reads of a line equals what the passes do to it. From the reading of a random line
// the text after each pass is put together, with the values and results that the passes report, and
// compared with what the passes have made of the line.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "inspect/lint/SyntaxLineReader.h"
#include "language/syntax/Characters.h"
#include "language/syntax/LinePasses.h"
#include "tests/support/Mutator.h"

namespace ppword::test {
namespace {

constexpr std::size_t kNone = std::string::npos;

constexpr std::string_view kPieces[] = {
    "GOTO/",    "X/",       "/",       "/",         "/4",    "/3",         "/20000", ",",
    ",",        "+",        "-",       "*",         "=",     "(",          "(",      ")",
    ")",        " ",        "%",       "&",         "%(",    "%A",         "%B",     "%A/2",
    "&W",       "&G ",      "%A B",    "1",         "2",     ".5",         "0",      "-5",
    "12.25",    "1.5e5",    "1e-5",    "(9e30/%A)", "MM",    "A",          "B)",     "(%A/2)",
    "%(R)",     "(%A/%B)",  "(6/&W)",  "(8/4)",     "(%A/2", "+ ",         "- ",     "$",
    "$$",       "\n",       "\"",      "@",         "\\%",   "PPRINT ",    "--",     ")$",
    "\xC3\xA9", "@#@#@#@#", "*VORTA ", "2*3",       "4-1",   "99999999999"};

class RandomLines {
 public:
  explicit RandomLines(unsigned seed) : random_(seed) {}

  [[nodiscard]] std::string next() {
    std::string line;
    for (std::size_t count = below(14); count > 0; --count) {
      line += kPieces[below(std::size(kPieces))];
    }
    if (below(20) == 0) line += static_cast<char>(below(256));
    return line;
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }
  std::mt19937 random_;
};

constexpr std::size_t place(Pass pass) { return static_cast<std::size_t>(pass); }

/// The passes on one line, and what they report. Whatever can be the name of a parameter has a
/// number, and every reference the same text.
class Passes final : public ParameterSource, public LineObserver {
 public:
  struct Ended {
    OperationEnd end;
    std::string operation;
    std::string result;
    /// What was asked for it.
    std::vector<std::string> names;
  };
  struct State {
    std::string line;
    std::vector<std::string> names;
    std::vector<Ended> ended;
  };

  explicit Passes(std::string text) : text_(std::move(text)) {}

  void run(std::string_view line) {
    scratch_.start(1, line);
    EXPECT_TRUE(instantiateLine(scratch_, *this, this));
  }
  [[nodiscard]] const State& after(Pass pass) { return states_[place(pass)]; }
  [[nodiscard]] const std::string& text() const { return text_; }

  void appendText(std::string_view name, FoundParameter&, LineWriter& out) override {
    state_.names.emplace_back(name);
    out.append(text_);
  }
  std::optional<ParameterNumber> number(std::string_view name) override {
    asked_.emplace_back(name);
    name = withoutBlanks(name);
    if (name.empty() || name.find_first_of("%&(), +-*/") != kNone) return std::nullopt;
    return ParameterNumber{2.5, false};
  }
  void textDropped(std::string_view, std::string_view) override {}
  [[nodiscard]] bool receivesLines() const override { return true; }
  void lineAfterPass(Pass pass, std::string_view line) override {
    state_.line = line;
    // The strings and lists of the line before are used again.
    std::swap(states_[place(pass)], state_);
    state_.names.clear();
    state_.ended.clear();
  }
  void operationEnded(OperationEnd end, std::string_view operation,
                      std::string_view result) override {
    state_.ended.push_back(
        {end, std::string(operation), std::string(result), std::exchange(asked_, {})});
  }

 private:
  LineScratch scratch_{false};
  std::string text_;
  std::array<State, place(Pass::UnmaskEscapes) + 1> states_;
  State state_;
  std::vector<std::string> asked_;
};

/// A line that changes as its reading says: for each byte what is in its place by now.
class Cells {
 public:
  explicit Cells(std::string_view text) {
    cells_.reserve(text.size());
    for (const char byte : text) cells_.emplace_back(1, byte);
  }

  [[nodiscard]] std::string& at(std::size_t place) { return cells_.at(place); }
  [[nodiscard]] std::size_t size() const { return cells_.size(); }
  [[nodiscard]] std::string text(std::size_t begin, std::size_t end) const {
    std::string text;
    text.reserve(2 * (end - begin));
    for (std::size_t i = begin; i < end; ++i) text += cells_.at(i);
    return text;
  }
  [[nodiscard]] std::string text() const { return text(0, size()); }

  void put(std::size_t begin, std::size_t end, std::string text) {
    for (std::size_t i = begin; i < end; ++i) cells_.at(i).clear();
    cells_.at(begin) = std::move(text);
  }

 private:
  std::vector<std::string> cells_;
};

/// Follows the passes on a line with what the lint read of it.
class Follower {
 public:
  Follower(const host::LineReading& reading, Passes& passes)
      : reading_(reading), passes_(passes), cells_(reading.text) {
    const auto computed = std::count_if(reading.operations.begin(), reading.operations.end(),
                                        [](const auto& operation) { return operation.isComputed; });
    // Those of operations come last.
    groups_.assign(reading.results.begin(), reading.results.end() - computed);
    std::erase_if(groups_, [&](const auto& each) { return reading.text[each.begin] != '('; });
  }

  /// Until the signs are back, unless the length of a value decides how the line goes on.
  void follow() {
    expect(Pass::MaskEscapes);
    divide();
    mask();
    replace(Pass::WordGroups, Pass::Words, "&");
    replace(Pass::ExpressionGroups, Pass::Expressions, "%(");
    replace(Pass::NumberGroups, Pass::Numbers, "%");
    if (!isKnown_) return;
    EXPECT_EQ(nextGroup_, groups_.size());
    restore();
  }
  [[nodiscard]] bool isKnown() const { return isKnown_; }
  [[nodiscard]] bool hasGroups() const { return hasGroups_; }

  void evaluate() {
    const auto& ended = passes_.after(Pass::Evaluate).ended;
    std::size_t next = 0;
    for (const host::LineOperation& operation : reading_.operations) {
      if (operation.operands == Operands::SignOfNumber) continue;
      ASSERT_LT(next, ended.size());
      end(operation, ended[next++]);
    }
    EXPECT_EQ(next, ended.size());
    EXPECT_TRUE(!reading_.isComment || reading_.operations.empty());
    if (!reading_.isComment) closeUp();
    expect(Pass::Evaluate);
  }

 private:
  void expect(Pass pass) {
    EXPECT_EQ(cells_.text(), passes_.after(pass).line) << "pass " << static_cast<int>(pass);
  }

  void divide() {
    for (const Division& division : reading_.divisions) {
      if (division.reciprocal.empty()) continue;
      cells_.at(division.at) = "*";
      const std::size_t sign = division.reciprocal.find('-');
      cells_.put(division.at + 1, division.end(), division.reciprocal.substr(0, sign));
      if (sign == kNone) continue;
      cells_.at(division.at + 3) = "-";
      cells_.at(division.at + 4) = division.reciprocal.substr(sign + 1);
    }
    expect(Pass::RewriteDivisions);
  }

  void mask() {
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      std::string& cell = cells_.at(i);
      if (cell == "+" || cell == "-" || cell == "*") cell = ",";
    }
    expect(Pass::MaskSigns);
  }

  void replace(Pass groups, Pass references, std::string_view prefix) {
    if (isKnown_) computeGroups(groups, prefix);
    if (!passGroups_.empty()) hasGroups_ = true;
    if (isKnown_) substitute(references, prefix);
  }

  void computeGroups(Pass pass, std::string_view prefix) {
    passGroups_.clear();
    for (const auto& ended : passes_.after(pass).ended) {
      if (ended.end != OperationEnd::Computed) continue;
      ASSERT_LT(nextGroup_, groups_.size());
      const auto [begin, end] = passGroups_.emplace_back(groups_[nextGroup_++]);
      if (joinsNumber(begin, end)) isKnown_ = false;
      EXPECT_EQ(withEscapedPercents(cells_.text(begin, end)), ended.operation);
      EXPECT_EQ(namesIn(begin, end, prefix), trimmed(ended.names));
      cells_.put(begin, end, ended.result);
    }
    expect(pass);
  }

  /// True when the result of a group is beside digits, so that its own ones are part of another
  /// number.
  [[nodiscard]] bool joinsNumber(std::size_t begin, std::size_t end) {
    constexpr std::string_view kOfNumber = "0123456789.eE";
    std::string before = cells_.text(0, begin);
    std::string after = cells_.text(end, cells_.size());
    return (!before.empty() && kOfNumber.find(before.back()) != kNone) ||
           (!after.empty() && kOfNumber.find(after.front()) != kNone);
  }

  void substitute(Pass pass, std::string_view prefix) {
    std::vector<std::string> names;
    for (const host::LineReference& reference : reading_.references) {
      if (isInGroup(reference) || prefixOf(reference) != prefix) continue;
      names.push_back(nameOf(reference));
      if (cutsOffValues(reference)) isKnown_ = false;
      if (!isKnown_) return;
      const std::size_t closed = reference.end() - reference.parentheses;
      const bool hasEnd = reference.isExpression && reference.end() < cells_.size() &&
                          cells_.at(reference.end()) == ")";
      cells_.put(reference.start, reference.end() + (hasEnd ? 1 : 0), passes_.text());
      for (std::size_t i = 0; i < reference.parentheses; ++i) cells_.at(closed + i) = ")";
    }
    EXPECT_EQ(names, trimmed(passes_.after(pass).names));
    expect(pass);
  }

  void restore() {
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      const char byte = reading_.flat[i];
      if (cells_.at(i) == "," && byte != ',') cells_.at(i) = byte;
    }
    expect(Pass::RestoreSigns);
  }

  void end(const host::LineOperation& operation, const Passes::Ended& ended) {
    const bool hasBoth = operation.operands == Operands::Both;
    EXPECT_EQ(ended.end, !hasBoth               ? OperationEnd::Deleted
                         : operation.isComputed ? OperationEnd::Computed
                                                : OperationEnd::Kept);
    std::string text = withEscapedPercents(cells_.text(operation.begin, operation.end()));
    const std::string_view seen = ended.operation;
    // Of a long one the end is reported.
    if (seen.starts_with("...")) text.replace(0, text.size() + 3 - seen.size(), "...");
    EXPECT_EQ(text, seen);
    if (ended.end != OperationEnd::Kept) {
      cells_.put(operation.begin, operation.end(), ended.result);
    }
  }

  /// Blanks after a "-" go.
  void closeUp() {
    std::string text = cells_.text();
    for (std::size_t at = text.find("- "); at != kNone; at = text.find("- ")) text.erase(at + 1, 1);
    cells_ = Cells(text);
  }

  [[nodiscard]] static std::vector<std::string> trimmed(const std::vector<std::string>& names) {
    std::vector<std::string> all;
    all.reserve(names.size());
    for (const std::string& name : names) all.emplace_back(withoutBlanks(name));
    return all;
  }
  [[nodiscard]] std::vector<std::string> namesIn(std::size_t begin, std::size_t end,
                                                 std::string_view prefix) const {
    std::vector<std::string> names;
    for (const host::LineReference& reference : reading_.references) {
      const bool isInside = reference.start >= begin && reference.start < end;
      if (isInside && prefixOf(reference) == prefix) names.push_back(nameOf(reference));
    }
    return names;
  }
  [[nodiscard]] std::string nameOf(const host::LineReference& reference) const {
    if (reference.parameter.empty()) return {};
    const auto begin = static_cast<std::size_t>(reference.parameter.data() - reading_.text.data());
    const std::string name = cells_.text(begin, begin + reference.parameter.size());
    return std::string(withoutBlanks(name));
  }
  /// True when values follow the ")" of a name, each character of which becomes a ")", a value
  /// loses its last character to a line feed, or a blank of a value ends a name that no comma ends.
  [[nodiscard]] bool cutsOffValues(const host::LineReference& reference) {
    std::size_t at = reference.start + 1;
    const std::size_t end = reference.end();
    if (end < cells_.size() && cells_.at(end) == "\n" && isComputed(end - 1)) return true;
    if (reference.isExpression) return false;
    const bool hasComma = end < cells_.size() && cells_.at(end) == ",";
    if (!hasComma && holdsBlankValue(at, end)) return true;
    while (at < end && cells_.at(at) != ")") ++at;
    while (at < end && cells_.at(at).size() == 1) ++at;
    return at < end;
  }
  [[nodiscard]] bool holdsBlankValue(std::size_t begin, std::size_t end) {
    while (begin < end && (cells_.at(begin).size() < 2 || cells_.at(begin).find(' ') == kNone)) {
      ++begin;
    }
    return begin < end;
  }
  /// True where digits are in place of what is written.
  [[nodiscard]] bool isComputed(std::size_t at) const {
    return reading_.isValue(at) ||
           std::any_of(groups_.begin(), groups_.end(),
                       [at](const auto& each) { return at >= each.begin && at < each.end; });
  }
  [[nodiscard]] bool isInGroup(const host::LineReference& reference) const {
    return std::any_of(passGroups_.begin(), passGroups_.end(), [&](const auto& group) {
      return reference.start >= group.begin && reference.start < group.end;
    });
  }
  [[nodiscard]] std::string_view prefixOf(const host::LineReference& reference) const {
    return reference.isExpression ? "%(" : reading_.text.substr(reference.start, 1);
  }

  const host::LineReading& reading_;
  Passes& passes_;
  Cells cells_;
  std::vector<host::LineResult> groups_;
  std::size_t nextGroup_ = 0;
  /// Those that this prefix has computed.
  std::vector<host::LineResult> passGroups_;
  bool isKnown_ = true;
  bool hasGroups_ = false;
};

long chosenLines() {
  const char* const lines = std::getenv("PPWORD_TEST_LINES");
  return lines == nullptr ? 100000 : std::atol(lines);
}

/// True when the line was followed to its end.
bool follow(const host::LineReading& reading, Passes& passes, bool isEvaluated) {
  passes.run(reading.line);
  Follower follower(reading, passes);
  follower.follow();
  // What is computed with the result of a group depends on the sign of the result.
  if (isEvaluated && follower.isKnown() && !follower.hasGroups()) follower.evaluate();
  return follower.isKnown();
}

TEST(LintReading, EqualsWhatThePassesDo) {
  const unsigned seed = chosenSeed();
  std::cout << "seed " << seed << " (PPWORD_TEST_SEED repeats it; PPWORD_TEST_LINES: how many)\n";
  RandomLines lines(seed);
  host::SyntaxLineReader reader;
  Passes numbers("7.25");
  // Signs and text change what is computed. Without groups they do not change where references are.
  Passes others[] = {Passes("-3.5"), Passes("MM")};
  const long count = chosenLines();
  long known = 0;
  for (long i = 0; i < count; ++i) {
    const std::string line = lines.next();
    const host::LineReading& reading = reader.read(line);
    EXPECT_EQ(reading.written(0, reading.text.size()), line);
    known += follow(reading, numbers, true) ? 1 : 0;
    if (i % 8 == 0 && line.find('(') == kNone) (void)follow(reading, others[i % 16 / 8], false);
    ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed << " «" << line << "»";
  }
  EXPECT_GT(known, count / 10 * 8);
}

}  // namespace
}  // namespace ppword::test
