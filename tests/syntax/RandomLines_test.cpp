// Random lines through the engine: what holds for every line, and the same lines through the rules
// written down step by step, which take every line through every pass.

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <random>
#include <span>
#include <string>
#include <string_view>

#include "Manufacturing/KEPMfgDesignParameter.h"
#include "language/syntax/Passes.h"
#include "language/syntax/SyntaxLine.h"
#include "tests/support/Mutator.h"
#include "tests/syntax/Instantiated.h"
#include "tests/syntax/LiteralPasses.h"

namespace ppword::test {
namespace {

constexpr int kLines = 100000;

constexpr std::string_view kPieces[] = {
    "GOTO/", "X/",    "X",   "/",    "/",    ",",  ",",  "+",   "-",        "*",          "=",
    "(",     ")",     " ",   "%",    "&",    "%(", "%A", "%B",  "%I",       "%J",         "%Z",
    "&W",    "&G",    "&L",  "%BAD", "1",    "2",  ".5", "0",   "12.25",    "1e5",        "1e-5",
    "9e30",  "MM",    "$",   "$$",   "\n",   "\"", "@",  "\\%", "PPRINT ",  "*VORTA ",    "A",
    "B)",    "(%A/2", "%R)", "(%I/", "(8/4", "-5", "+ ", "- ",  "\xC3\xA9", "99999999999"};

/// What parentheses, divisions and sums are made of.
constexpr std::string_view kArithmetic[] = {"(", "(", "%(", "%(", ")", ")", ")", "%",  "/", "/4",
                                            "+", "-", "*",  "=",  ",", " ", ".", "12", "A"};

/// Lines of pieces of syntaxes, now and then with a byte of any kind.
class RandomLines {
 public:
  explicit RandomLines(unsigned seed, std::span<const std::string_view> pieces = kPieces,
                       std::size_t most = 13)
      : random_(seed), pieces_(pieces), most_(most) {}

  [[nodiscard]] std::string next() {
    std::string line;
    for (std::size_t count = below(most_ + 1); count > 0; --count)
      line += pieces_[below(pieces_.size())];
    if (below(20) == 0) line += static_cast<char>(below(256));
    return line;
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }
  std::mt19937 random_;
  std::span<const std::string_view> pieces_;
  std::size_t most_;
};

class RandomSyntax : public testing::Test, protected PPWordDocument {
 protected:
  void SetUp() override {
    std::cout << "seed " << seed_ << " (PPWORD_TEST_SEED repeats it)\n";
    auto& parameters = operation_->parameters();
    parameters.set("A", host::realValue(1.5));
    parameters.set("B", host::realValue(-2));
    parameters.set("Z", host::realValue(0.0000001));
    parameters.set("R", host::realValue(1.0e15));
    parameters.set("I", host::integerValue(7));
    parameters.set("J", host::integerValue(-2));
    parameters.set("W", host::textValue("ON,OFF"));
    parameters.set("G", host::textValue("(%A/%B)"));
    parameters.set("L", host::textValue("%A+(%I-3)"));
    document->setDesignParameter("A", 12.5);
  }

  [[nodiscard]] std::string instantiated(const std::string& line) {
    KEPISpecAttrAccess_var(instruction_)->SetList("Syntaxe", list({line}));
    const Instantiated result = instantiate(instruction_);
    EXPECT_TRUE(result.done) << line;
    return result.lines.at(0);
  }

  [[nodiscard]] std::optional<KEPMfgParameterValue> lookUp(const std::string& name) const {
    KEPMfgParameterValue value;
    const bool isFound =
        name.starts_with('(')
            ? KEPSucceeded(KEPMfgDesignParameter::GetExtendedValue(instruction_, name, value))
            : operation_->parameters().GetValue(name, value) == 0;
    return isFound ? std::optional(value) : std::nullopt;
  }

  unsigned seed_ = chosenSeed();
  RandomLines lines_{seed_};
  RandomLines arithmetic_{seed_, kArithmetic, 30};
  KEPVar<host::Activity> operation_ = activity();
  KEPISpecObject_var instruction_ = instruction("NC_X", {});
};

/// Length that no result may exceed: no number that a reference or a group gives is longer than 320
/// characters, and no result of an operator than 32.
std::size_t bound(const std::string& line) {
  const auto values = std::count_if(line.begin(), line.end(),
                                    [](char c) { return c == '%' || c == '&' || c == '('; });
  return 32 * (line.size() + 1) + 320 * static_cast<std::size_t>(values);
}

auto commas(const std::string& line) { return std::count(line.begin(), line.end(), ','); }

TEST_F(RandomSyntax, EngineFollowsTheRulesStepByStep) {
  LiteralPasses literal([this](const std::string& name) { return lookUp(name); });
  for (int i = 0; i < kLines; ++i) {
    const std::string line = lines_.next();
    const std::string result = instantiated(line);
    ASSERT_EQ(result, literal.instantiated(line)) << "seed " << seed_ << " «" << line << "»";
    ASSERT_LE(result.size(), bound(line)) << line;
    if (line.find_first_of("%&(") == std::string::npos) {
      ASSERT_EQ(commas(result), commas(line)) << line;
    }
  }
}

TEST_F(RandomSyntax, LineThatComesAgainReadsItsParametersAgain) {
  LiteralPasses literal([this](const std::string& name) { return lookUp(name); });
  for (int i = 0; i < kLines / 4; ++i) {
    const std::string line = lines_.next();
    for (const double value : {0.25, -31.0}) {
      operation_->parameters().set("A", host::realValue(value));
      operation_->parameters().set("W", host::textValue(value < 0 ? "MM" : "%B)"));
      ASSERT_EQ(instantiated(line), literal.instantiated(line))
          << "seed " << seed_ << " «" << line << "»";
    }
  }
}

/// The continuation marks of a list, as they are described.
Texts marked(Texts lines) {
  const auto trimmed = [](std::string line) {
    while (!line.empty() && line.front() == ' ') line.erase(0, 1);
    while (!line.empty() && line.back() == ' ') line.pop_back();
    return line;
  };
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    const std::string line = trimmed(lines[i]);
    const std::string next = trimmed(lines[i + 1]);
    const bool isAsked = next.starts_with(',') && !line.ends_with('$');
    if (next.find('/') == std::string::npos && (isAsked || line.ends_with(','))) lines[i] += '$';
  }
  return lines;
}

TEST_F(RandomSyntax, SyntaxesOfManyLinesFollowTheRulesStepByStep) {
  LiteralPasses literal([this](const std::string& name) { return lookUp(name); });
  std::mt19937 random(seed_);
  Texts syntax;
  for (int i = 0; i < kLines / 20; ++i) {
    // Some lines stay, some change, come or go.
    syntax.resize(random() % 20);
    for (std::size_t changes = 1 + random() % 3; changes > 0 && !syntax.empty(); --changes) {
      syntax[random() % syntax.size()] = lines_.next();
    }
    Texts before(random() % 4);
    for (std::string& line : before) line = lines_.next();
    Texts expected = before;
    for (const std::string& line : syntax) expected.push_back(literal.instantiated(line));
    KEPISpecAttrAccess_var(instruction_)->SetList("Syntaxe", list(syntax));
    ASSERT_EQ(instantiate(instruction_, 1, before).lines, marked(expected)) << "seed " << seed_;
  }
}

TEST_F(RandomSyntax, LinesOfOperatorsFollowTheRulesStepByStep) {
  LiteralPasses literal([this](const std::string& name) { return lookUp(name); });
  for (int i = 0; i < kLines / 4; ++i) {
    const std::string line = arithmetic_.next();
    ASSERT_EQ(instantiated(line), literal.instantiated(line))
        << "seed " << seed_ << " «" << line << "»";
  }
}

/// A pass alone, on lines of either kind.
void expectPass(void (*pass)(SyntaxLine&), std::string (*literal)(std::string),
                std::initializer_list<RandomLines*> kinds) {
  SyntaxLine passed;
  for (RandomLines* const lines : kinds) {
    for (int i = 0; i < kLines; ++i) {
      const std::string line = lines->next();
      passed.start(line);
      pass(passed);
      ASSERT_EQ(passed.text(), literal(line)) << "«" << line << "»";
    }
  }
}

TEST_F(RandomSyntax, ParenthesesAreCleanedStepByStep) {
  expectPass(cleanParentheses, LiteralPasses::cleaned, {&lines_, &arithmetic_});
}

TEST_F(RandomSyntax, DivisionsAreRewrittenStepByStep) {
  expectPass(rewriteDivisions, LiteralPasses::divisionsRewritten, {&lines_, &arithmetic_});
}

}  // namespace
}  // namespace ppword::test
