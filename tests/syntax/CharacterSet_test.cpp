#include <gtest/gtest.h>

#include <string>

#include "language/syntax/Characters.h"
#include "language/syntax/SyntaxLine.h"

namespace ppword {
namespace {

TEST(CharacterSet, OtherCharactersAreNotKept) {
  const CharacterSet all("%&()\\+-*/=,$ \n\"@");
  EXPECT_FALSE(CharacterSet("GOTO1.5_abz#'.:;<>?[]^`{|}~!\t\r\x7f\x80\xff").holdsAny(all));
}

TEST(CharacterSet, SyntaxCharactersAreToldApart) {
  const std::string marks = "%&()\\+-*/=,$ \n\"@";
  for (const char held : marks) {
    for (const char asked : marks) {
      const CharacterSet set(std::string_view(&held, 1));
      EXPECT_EQ(set.holdsAny(CharacterSet(std::string_view(&asked, 1))), held == asked)
          << held << ' ' << asked;
    }
  }
}

TEST(CharacterSet, EmptyTextHoldsNothing) {
  EXPECT_FALSE(CharacterSet("").holdsAny(CharacterSet("%&()\\+-*/$=,")));
}

TEST(SyntaxLine, AcceptedDraftIsScannedAnew) {
  SyntaxLine line;
  line.start("GOTO/%A");
  EXPECT_FALSE(line.holdsAny(CharacterSet("&")));
  line.draft() = "GOTO/&A";
  EXPECT_FALSE(line.holdsAny(CharacterSet("&")));
  line.accept();
  EXPECT_TRUE(line.holdsAny(CharacterSet("&")));
  line.start("GOTO/1");
  EXPECT_FALSE(line.holdsAny(CharacterSet("&")));
}

TEST(SyntaxLine, RevisionTellsTextsApart) {
  SyntaxLine line;
  line.start("GOTO/%A");
  const SyntaxLine::Revision first = line.revision();
  line.draft() = "GOTO/1";
  line.accept();
  EXPECT_NE(line.revision(), first);
  line.start("GOTO/%A");
  EXPECT_EQ(line.revision(), first);
  EXPECT_TRUE(line.holdsAny(CharacterSet("%")));
  line.start("GOTO/%B");
  EXPECT_NE(line.revision(), first);
  line.start("GOTO/%A");
  EXPECT_NE(line.revision(), first);
}

}  // namespace
}  // namespace ppword
