// Random lines that compute: what the lint does not tell comes out as on paper.

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iostream>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/lint/Lint.h"
#include "tests/support/Mutator.h"
#include "tests/syntax/Instantiated.h"
#include "tests/table/TableFiles.h"

namespace ppword::test {
namespace {

constexpr int kLines = 20000;
constexpr double kA = 7.25;
constexpr double kB = -2.5;

/// Arithmetic as it is taught: products before sums, parentheses before both.
class OnPaper {
 public:
  [[nodiscard]] static double value(std::string_view text) { return OnPaper(text).sum(); }

 private:
  explicit OnPaper(std::string_view text) : text_(text) {}

  [[nodiscard]] bool take(std::string_view word) {
    const bool isNext = text_.starts_with(word);
    if (isNext) text_.remove_prefix(word.size());
    return isNext;
  }

  double sum() {
    double value = product();
    while (true) {
      if (take("+")) {
        value += product();
      } else if (take("-")) {
        value -= product();
      } else {
        return value;
      }
    }
  }

  double product() {
    double value = operand();
    while (true) {
      if (take("*")) {
        value *= operand();
      } else if (take("/")) {
        value /= operand();
      } else {
        return value;
      }
    }
  }

  double operand() {
    if (take("-")) return -operand();
    if (take("%MFG_A")) return kA;
    if (take("%MFG_B")) return kB;
    if (take("(")) {
      const double value = sum();
      EXPECT_TRUE(take(")"));
      return value;
    }
    double value = 0.0;
    const auto read = std::from_chars(text_.data(), text_.data() + text_.size(), value);
    EXPECT_EQ(read.ec, std::errc()) << text_;
    text_.remove_prefix(static_cast<std::size_t>(read.ptr - text_.data()));
    return value;
  }

  std::string_view text_;
};

/// Expressions of numbers, two parameters, signs and parentheses.
class Expressions {
 public:
  explicit Expressions(unsigned seed) : random_(seed) {}

  [[nodiscard]] std::string next(int depth = 1) {
    std::string text = below(10) == 0 ? "-" : "";
    text += operand(depth);
    for (std::size_t more = below(4); more > 0; --more) {
      text += "+-*/"[below(4)];
      text += operand(depth);
    }
    return text;
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }

  std::string operand(int depth) {
    constexpr std::string_view kOperands[] = {
        "2", "3", "4",      "0.5",    "1.25",   "10",     "7.",   "-3",  ".25",
        "0", "8", "%MFG_A", "%MFG_B", "%MFG_A", "%MFG_B", "-0.1", "1e2", "5e-1"};
    if (depth == 0 || below(5) > 0) return std::string(kOperands[below(std::size(kOperands))]);
    if (below(2) == 0) return "(" + operand(0) + "/" + operand(0) + ")";
    return "(" + next(depth - 1) + ")";
  }

  std::mt19937 random_;
};

/// The numbers of the lines, from 0, of which something is told.
std::set<std::size_t> toldLines(const Texts& lines) {
  std::string table = "*START_FORMAT MFG_A\n%f\n*END\n*START_FORMAT MFG_B\n%f\n*END\n";
  constexpr long kFirst = 8;
  table += "*START_NC_COMMAND NC_A\n";
  for (const std::string& line : lines) table += line + '\n';
  const TableFile file(table + "*END\n");
  std::set<std::size_t> told;
  for (const auto& finding :
       host::lintTable(std::string(file.path().View()), std::numeric_limits<long>::max())) {
    told.insert(static_cast<std::size_t>(finding.line - kFirst));
  }
  return told;
}

bool isNumber(std::string_view text, double expected) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  double value = 0.0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  // Every result on the way is rounded to six decimals.
  return read.ec == std::errc() && read.ptr == text.data() + text.size() &&
         std::fabs(value - expected) <= 1.0e-4 * std::max(1.0, std::fabs(expected));
}

TEST(LintArithmetic, LineThatIsNotToldComesOutAsOnPaper) {
  const unsigned seed = chosenSeed();
  std::cout << "seed " << seed << " (PPWORD_TEST_SEED repeats it)\n";
  Expressions expressions(seed);
  Texts lines;
  while (lines.size() < kLines) {
    std::string line = "X/" + expressions.next();
    if (line.size() <= 60) lines.push_back(std::move(line));
  }
  const auto told = toldLines(lines);
  PPWordDocument document;
  const auto activity = document.activity();
  activity->parameters().set("MFG_A", host::realValue(kA));
  activity->parameters().set("MFG_B", host::realValue(kB));
  const auto results = instantiate(document.instruction("NC_A", lines)).lines;
  ASSERT_EQ(results.size(), lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (told.contains(i)) continue;
    const double expected = OnPaper::value(std::string_view(lines[i]).substr(2));
    EXPECT_TRUE(isNumber(std::string_view(results[i]).substr(2), expected))
        << "seed " << seed << ' ' << lines[i] << " gives " << results[i] << ", not " << expected;
  }
  EXPECT_GT(told.size(), kLines / 10U);
  EXPECT_LT(told.size(), kLines * 8U / 10U);
}

}  // namespace
}  // namespace ppword::test
