#include "src/syntax/CharacterSet.h"

#include <gtest/gtest.h>

#include <string>

#include "src/syntax/PassedLine.h"

namespace ppword {
namespace {

TEST(CharacterSet, CharacterThatOccursIsNeverDenied) {
  for (int code = 0; code < 256; ++code) {
    const std::string one(1, static_cast<char>(code));
    EXPECT_TRUE(CharacterSet("GOTO/" + one + ",1").mayHoldAny(CharacterSet(one))) << code;
  }
}

TEST(CharacterSet, SyntaxCharactersAreToldApart) {
  const std::string marks = "%&()\\+-*/$=,\"@";
  for (const char held : marks) {
    for (const char asked : marks) {
      const CharacterSet set(std::string_view(&held, 1));
      EXPECT_EQ(set.mayHoldAny(CharacterSet(std::string_view(&asked, 1))), held == asked)
          << held << ' ' << asked;
    }
  }
}

TEST(CharacterSet, EmptyTextHoldsNothing) {
  EXPECT_FALSE(CharacterSet("").mayHoldAny(CharacterSet("%&()\\+-*/$=,")));
}

TEST(PassedLine, AcceptedDraftIsScannedAnew) {
  PassedLine line;
  line.start("GOTO/%A");
  EXPECT_FALSE(line.mayHoldAny(CharacterSet("&")));
  line.draft() = "GOTO/&A";
  EXPECT_FALSE(line.mayHoldAny(CharacterSet("&")));
  line.accept();
  EXPECT_TRUE(line.mayHoldAny(CharacterSet("&")));
  line.start("GOTO/1");
  EXPECT_FALSE(line.mayHoldAny(CharacterSet("&")));
}

}  // namespace
}  // namespace ppword
