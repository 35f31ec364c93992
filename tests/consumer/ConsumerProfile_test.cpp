// What a profile of a consumer says.

#include "post/consumer/ConsumerProfile.h"

#include <gtest/gtest.h>

#include <string>

#include "post/toolpath/LineReader.h"
#include "tests/support/InputFile.h"

namespace host::test {
namespace {

ConsumerProfile readText(const std::string& text) {
  const InputFile file(text);
  return readProfile(file.path());
}

/// "LINE:COLUMN MESSAGE"; empty for a profile that is right.
std::string mistake(const std::string& text) {
  try {
    static_cast<void>(readText(text));
    return "";
  } catch (const InputError& error) {
    return std::to_string(error.line()) + ':' + std::to_string(error.column()) + ' ' +
           error.message();
  }
}

TEST(ConsumerProfile, EmptyOneTakesEverything) {
  const Consumer consumer = readText("\n# nothing\r\n").consumer;
  EXPECT_EQ(consumer.columns, 0);
  EXPECT_FALSE(consumer.endsWithReturn);
  EXPECT_EQ(consumer.sequenceStep, 0);
  EXPECT_EQ(consumer.characters, Consumer::Characters::Any);
  EXPECT_EQ(consumer.replacement, '\0');
  EXPECT_EQ(consumer.longestWord, 0);
}

TEST(ConsumerProfile, EverySettingIsRead) {
  const ConsumerProfile profile = readText(
      "\xEF\xBB\xBF"
      "columns=72 # cards\r\n"
      "line-end = crlf\n"
      "  sequence-numbers\t= 100\n"
      "characters = capitals\n"
      "other-characters = *\n"
      "longest-word = 8\n"
      "word MOVE = GOTO\n"
      "word FAST=RAPID");
  const Consumer& consumer = profile.consumer;
  EXPECT_EQ(consumer.columns, 72);
  EXPECT_TRUE(consumer.endsWithReturn);
  EXPECT_EQ(consumer.sequenceStep, 100);
  EXPECT_EQ(consumer.characters, Consumer::Characters::Capitals);
  EXPECT_EQ(consumer.replacement, '*');
  EXPECT_EQ(consumer.longestWord, 8);
  ASSERT_EQ(profile.words.size(), 2U);
  EXPECT_EQ(profile.words[0].word, "MOVE");
  EXPECT_EQ(profile.words[0].known, "GOTO");
  EXPECT_EQ(profile.words[0].line, 7);
  EXPECT_EQ(profile.words[0].column, 13);
  EXPECT_EQ(profile.words[1].word, "FAST");
}

TEST(ConsumerProfile, MarkCanBeTheOtherCharacter) {
  EXPECT_EQ(readText("other-characters = =").consumer.replacement, '=');
  EXPECT_EQ(readText("other-characters = # # a comment").consumer.replacement, '#');
  EXPECT_EQ(readText("other-characters = refuse").consumer.replacement, '\0');
}

TEST(ConsumerProfile, ShippedOnesAreFilesOfTheSameForm) {
  const Consumer iso = readProfile("iso4343").consumer;
  EXPECT_EQ(iso.columns, 72);
  EXPECT_FALSE(iso.endsWithReturn);
  EXPECT_EQ(iso.sequenceStep, 0);
  EXPECT_EQ(iso.characters, Consumer::Characters::Ascii);
  EXPECT_EQ(iso.replacement, '\0');
  EXPECT_EQ(iso.longestWord, 6);
  const Consumer cl = readProfile("cl").consumer;
  EXPECT_EQ(cl.columns, 72);
  EXPECT_TRUE(cl.endsWithReturn);
  EXPECT_EQ(cl.sequenceStep, 10);
  EXPECT_EQ(cl.characters, Consumer::Characters::Ascii);
  EXPECT_EQ(cl.replacement, '?');
  EXPECT_EQ(cl.longestWord, 0);
  for (const ShippedProfile& shipped : shippedProfiles()) {
    EXPECT_EQ(mistake(std::string(shipped.text)), "") << shipped.name;
  }
}

TEST(ConsumerProfile, MistakesAreRefusedWithTheirPlace) {
  EXPECT_EQ(mistake("A\n"),
            "1:1 'A' is not 'word', 'columns', 'line-end', 'sequence-numbers', 'characters', "
            "'other-characters' or 'longest-word'");
  EXPECT_EQ(mistake("columns = 72\ncolumns = 80"), "2:1 'columns' is there twice");
  EXPECT_EQ(mistake("columns 72"), "1:9 '=' is expected after 'columns'");
  EXPECT_EQ(mistake("columns ="), "1:10 72, 80 or any is expected after '='");
  EXPECT_EQ(mistake("columns = 71"), "1:11 72, 80 or any is expected, found '71'");
  EXPECT_EQ(mistake("columns = 72 80"), "1:14 '80' is one word too many");
  EXPECT_EQ(mistake("line-end = cr"), "1:12 lf or crlf is expected, found 'cr'");
  EXPECT_EQ(mistake("columns = 72\nsequence-numbers = 0"),
            "2:20 off, or a step from 1 to 9999999, is expected, found '0'");
  EXPECT_EQ(mistake("sequence-numbers = 10000000"),
            "1:20 off, or a step from 1 to 9999999, is expected, found '10000000'");
  EXPECT_EQ(mistake("columns = 80\nsequence-numbers = 10\n"),
            "2:1 sequence-numbers need columns = 72");
  EXPECT_EQ(mistake("characters = latin"),
            "1:14 any, ascii or capitals is expected, found 'latin'");
  EXPECT_EQ(mistake("other-characters = ?!"),
            "1:20 refuse, or one printable character of ASCII, is expected, found '?!'");
  EXPECT_EQ(mistake("longest-word = 81"),
            "1:16 any, or a number from 1 to 80, is expected, found '81'");
  EXPECT_EQ(mistake("longest-word = -1"),
            "1:16 any, or a number from 1 to 80, is expected, found '-1'");
  EXPECT_EQ(mistake("word"), "1:5 a word is expected after 'word'");
  EXPECT_EQ(mistake("word = A"), "1:6 a word is expected after 'word'");
  EXPECT_EQ(mistake("word A B"), "1:8 '=' is expected after the word 'A'");
  EXPECT_EQ(mistake("word A ="), "1:9 a word that the reader knows is expected after '='");
  EXPECT_EQ(mistake("word A = B C"), "1:12 'C' is one word too many");
  EXPECT_EQ(mistake(std::string(10000, '\n')), "");
  EXPECT_EQ(mistake(std::string(10000, '\n') + "#\n"), "10001:1 a profile has at most 10000 lines");
}

TEST(ConsumerProfile, ReplacementIsOneThatTheReaderTakes) {
  const std::string advice =
      " is not among characters = capitals; write a capital, a digit or one of + - * / , . ( ) = "
      "$ '";
  EXPECT_EQ(mistake("characters = capitals\nother-characters = a"), "2:20 'a'" + advice);
  EXPECT_EQ(mistake("other-characters =  ? # mark\n\ncharacters = capitals\n"),
            "1:21 '?'" + advice);
  for (const char each : std::string("AZ09+-*/,.()=$'")) {
    EXPECT_EQ(mistake(std::string("characters = capitals\nother-characters = ") + each), "")
        << each;
  }
  EXPECT_EQ(mistake("characters = ascii\nother-characters = a"), "");
  EXPECT_EQ(mistake("characters = any\nother-characters = ~"), "");
  EXPECT_EQ(mistake("characters = capitals\nother-characters = refuse"), "");
}

}  // namespace
}  // namespace host::test
