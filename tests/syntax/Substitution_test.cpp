#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

#include "language/syntax/ParameterSource.h"
#include "language/syntax/Passes.h"
#include "language/syntax/References.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {
namespace {

/// Parameters from a map.
class MapParameters final : public ParameterSource {
 public:
  using Texts = std::map<std::string, std::string, std::less<>>;

  MapParameters(Texts texts, std::string_view unevaluated)
      : texts_(std::move(texts)), unevaluated_(unevaluated) {}

  void appendText(std::string_view name, FoundParameter&, LineWriter& out) override {
    const auto found = texts_.find(name);
    out.append(found == texts_.end() ? unevaluated_ : found->second);
  }
  [[nodiscard]] std::optional<ParameterNumber> number(std::string_view) override {
    return std::nullopt;
  }
  void textDropped(std::string_view name, std::string_view text) override {
    dropped += '[' + std::string(name) + '|' + std::string(text) + ']';
  }

  std::string dropped;

 private:
  Texts texts_;
  std::string unevaluated_;
};

const MapParameters::Texts& parameters() {
  static const MapParameters::Texts texts = {
      {"A", "1.5"},  {"B", "2"},       {"W", "RPM"},         {"R", "%A"},
      {"P", "50%"},  {"", "nameless"}, {"A B", "two words"}, {" A", "blank first"},
      {"(A*2", "3"}, {"(A", "group"}};
  return texts;
}

/// A line through the three substitutions in their order.
std::string substituted(std::string_view text, std::string_view unevaluated = "") {
  MapParameters map(parameters(), unevaluated);
  SyntaxLine line;
  line.start(text);
  for (const auto prefix : {kWordPrefix, kExpressionPrefix, kNumberPrefix}) {
    References references(prefix);
    substitute(line, references, map);
  }
  return std::string(line.text());
}

struct Case {
  const char* line;
  const char* result;
};

class Substitution : public testing::TestWithParam<Case> {};

TEST_P(Substitution, LineGivesResult) {
  EXPECT_EQ(substituted(GetParam().line), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Names, Substitution,
    testing::Values(
        Case{"CYCLE/ON", "CYCLE/ON"}, Case{"", ""}, Case{"GOTO/%A,%B", "GOTO/1.5,2"},
        Case{"SPINDL/%A,&W", "SPINDL/1.5,RPM"},
        // the comma wins over a nearer blank
        Case{"%A %B,X", ",X"}, Case{"%A B,X", "two words,X"},
        // without a comma behind, the nearest blank, line feed or quote ends the name
        Case{"$$ %A %B", "$$ 1.5 2"}, Case{"X,%A %B", "X,1.5 2"}, Case{"\"%A\" END", "\"1.5\" END"},
        // the character before a line feed is lost
        Case{"%AX\n%B", "1.5\n2"}, Case{"X/%A\xC3\xA9\n1", "X/1.5\n1"},
        Case{"%\n%B", "nameless\n2"},
        // a prefix at the end, and two in a row
        Case{"X%", "Xnameless"}, Case{"%%A", ""}, Case{"%,%A", "nameless,1.5"},
        // an unknown parameter is dropped, its separators stay
        Case{"GOTO/%BAD,1", "GOTO/,1"}, Case{"GOTO/%BAD", "GOTO/"},
        // closing parentheses come back behind the value; what follows them too, as parentheses
        Case{"(POINT/%A),X", "(POINT/1.5),X"}, Case{"((%A))", "((1.5))"}, Case{"%A)B,X", "1.5)),X"},
        Case{"%A)\xC3\xA9,X", "1.5)),X"},
        // a continuation mark behind a number is lost, behind a word it is part of the name
        Case{"GOTO/%A$", "GOTO/1.5"}, Case{"SPINDL/&W$", "SPINDL/"}, Case{"%A$)B", "1.5))"},
        Case{"GOTO/%A,$", "GOTO/1.5,$"},
        // a word that holds a reference is substituted again
        Case{"X/&R,1", "X/1.5,1"}, Case{"X/&P,1", "X/50nameless,1"},
        // the text of a number is not looked at again
        Case{"X/%R,1", "X/%A,1"},
        // blanks belong to the name
        Case{"X/% A,1", "X/blank first,1"}, Case{"X/%A ,1", "X/,1"}));

INSTANTIATE_TEST_SUITE_P(Expressions, Substitution,
                         testing::Values(Case{"X/%(A*2),1", "X/3,1"}, Case{"X/%(A*2)%A", "X/31.5"},
                                         Case{"X/%(A", "X/group"}, Case{"X/%(A B", "X/group B"},
                                         Case{"X/%(A*2)%(A*2)", "X/33"}, Case{"%(NONE)", ""},
                                         // the first ")" ends the group, wherever it stands
                                         Case{"%(NONE+(A))", ")"}));

TEST(Substitution, UnevaluatedTextTakesThePlaceOfAnUnknownParameter) {
  EXPECT_EQ(substituted("GOTO/%BAD,1", "0"), "GOTO/0,1");
  EXPECT_EQ(substituted("GOTO/%BAD)", "0"), "GOTO/0)");
  EXPECT_EQ(substituted("X/&BAD,1", "%A"), "X/1.5,1");
}

TEST(Substitution, LongLinesCostTheirLength) {
  std::string line;
  for (int i = 0; i < 200000; ++i) line += "%A ";
  EXPECT_EQ(substituted(line).substr(0, 12), "1.5 1.5 1.5 ");
  EXPECT_EQ(substituted(std::string(1000000, '%')), "");
}

/// What the number pass reports as dropped.
std::string dropped(std::string_view text) {
  MapParameters map(parameters(), "");
  SyntaxLine line;
  line.start(text);
  References references(kNumberPrefix);
  substitute(line, references, map);
  return map.dropped;
}

TEST(Substitution, DroppedTextIsReported) {
  EXPECT_EQ(dropped("%A),%B"), "");
  EXPECT_EQ(dropped("%A$,%B)X,"), "[A|$][B|)X]");
  EXPECT_EQ(dropped("%AX\n%B"), "[A|X]");
  EXPECT_EQ(dropped("%A\xC3\xA9\n1"), "[A|\xC3\xA9]");
}

TEST(Substitution, AnyLineEnds) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  constexpr std::string_view kPieces = "%&(),$ \n\"/AB*W\\";
  for (int i = 0; i < 100000; ++i) {
    std::string line;
    for (auto length = random() % 24; length > 0; --length)
      line += kPieces[random() % kPieces.size()];
    const std::string result = substituted(line);
    ASSERT_LE(result.size(), line.size() * 12) << line;
    ASSERT_EQ(result.find('&'), std::string::npos) << line;
  }
}

/// One line after the other through the number pass, with the rooms kept between them.
class KeptReferences : public testing::Test {
 protected:
  std::string substituted(std::string_view text) {
    line_.start(text);
    substitute(line_, references_, map_);
    return std::string(line_.text());
  }

  MapParameters map_{parameters(), ""};
  SyntaxLine line_;
  References references_{kNumberPrefix};
};

TEST_F(KeptReferences, LineThatComesAgainGivesTheSame) {
  EXPECT_EQ(substituted(""), "");
  EXPECT_EQ(substituted("GOTO/%A,%B"), "GOTO/1.5,2");
  EXPECT_EQ(substituted("GOTO/%A,%B"), "GOTO/1.5,2");
  EXPECT_EQ(substituted("GOTO/%B,%A"), "GOTO/2,1.5");
  EXPECT_EQ(substituted("GOTO/"), "GOTO/");
  EXPECT_EQ(substituted(""), "");
  EXPECT_EQ(substituted("GOTO/%A,%B"), "GOTO/1.5,2");
}

TEST_F(KeptReferences, LineThatAPassChangedIsReadAnew) {
  for (const char* const changed : {"X/%B", "Y/%A,"}) {
    line_.start("GOTO/%A,%B");
    line_.draft() = changed;
    line_.accept();
    substitute(line_, references_, map_);
    EXPECT_EQ(line_.text(), changed[0] == 'X' ? "X/2" : "Y/1.5,");
  }
}

TEST_F(KeptReferences, DroppedTextIsReportedEachTime) {
  EXPECT_EQ(substituted("%A$,%B"), "1.5,2");
  EXPECT_EQ(substituted("%A$,%B"), "1.5,2");
  EXPECT_EQ(map_.dropped, "[A|$][A|$]");
}

/// Notes how often it was asked with what it found for a reference.
class NotingParameters final : public ParameterSource {
 public:
  void appendText(std::string_view name, FoundParameter& found, LineWriter&) override {
    (notes += name) += std::to_string(found.revision++);
  }
  [[nodiscard]] std::optional<ParameterNumber> number(std::string_view) override {
    return std::nullopt;
  }
  void textDropped(std::string_view, std::string_view) override {}

  std::string notes;
};

TEST(References, WhatWasFoundIsKnownAsLongAsTheTextIsTheSame) {
  SyntaxLine line;
  References references(kNumberPrefix);
  NotingParameters parameters;
  for (const char* const text :
       {"X/%A,%B", "X/%A,%B", "X/%A,%B", "X/%B", "X/%A,%B", "%A$", "%A$"}) {
    line.start(text);
    substitute(line, references, parameters);
    parameters.notes += ' ';
  }
  EXPECT_EQ(parameters.notes, "A0B0 A1B1 A2B2 B0 A0B0 A0 A0 ");
}

}  // namespace
}  // namespace ppword
