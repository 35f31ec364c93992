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
  EXPECT_NE(line.revision(), first);
}

TEST(SyntaxLine, LineThatIsResumedIsTheOneThatWasKnown) {
  SyntaxLine line;
  line.start("GOTO/1");
  line.resume("GOTO/(%A", {7, CharacterSet("GOTO/(%A"), false});
  EXPECT_EQ(line.text(), "GOTO/(%A");
  EXPECT_EQ(line.revision(), 7U);
  EXPECT_TRUE(line.holdsAny(CharacterSet("%")));
  EXPECT_FALSE(line.mayHoldGroups());
  line.draft() = "GOTO/(1";
  line.accept();
  EXPECT_TRUE(line.mayHoldGroups());
  line.draft() = "GOTO/1";
  line.accept();
  EXPECT_FALSE(line.mayHoldGroups());
}

}  // namespace
}  // namespace ppword
