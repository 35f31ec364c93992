#include "language/table/TableCursor.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using ppword::TableCursor;

// "OFFSET:TEXT" for each token, with blanks between.
std::string tokens(std::string_view table) {
  TableCursor cursor(table);
  std::string text;
  while (const auto token = cursor.nextToken()) {
    text += (text.empty() ? "" : " ") + std::to_string(token->offset) + ':';
    text += token->text;
  }
  return text;
}

// "OFFSET:TEXT" for each line, with "|" between, and "$" for its end.
std::string lines(std::string_view table) {
  TableCursor cursor(table);
  std::string text;
  while (const auto line = cursor.nextLine()) {
    text += (text.empty() ? "" : "|") + std::to_string(line->offset) + ':';
    text += line->text;
    if (line->hasEnd) text += '$';
  }
  return text;
}

TEST(TableCursor, TokensHaveTheirOffsets) {
  EXPECT_EQ(tokens(""), "");
  EXPECT_EQ(tokens(" \t\r\n\v\f"), "");
  EXPECT_EQ(tokens(" A\tBC\r\nD"), "1:A 3:BC 7:D");
  EXPECT_EQ(tokens(std::string_view("A\0B C", 5)), std::string("0:A\0B 4:C", 9));
}

TEST(TableCursor, TokenIsReadUpToSoManyBytes) {
  TableCursor cursor(" ABCD E");
  EXPECT_EQ(cursor.nextToken(3)->text, "ABC");
  EXPECT_EQ(cursor.offset(), 4U);
  EXPECT_EQ(cursor.nextToken(3)->text, "D");
  EXPECT_EQ(cursor.nextToken(3)->text, "E");
  EXPECT_FALSE(cursor.nextToken(3).has_value());
}

TEST(TableCursor, PlainTokenDoesNotBeginWithASlash) {
  TableCursor cursor("/A /B C/ /D");
  EXPECT_EQ(cursor.nextPlainToken()->offset, 6U);
  EXPECT_FALSE(cursor.nextPlainToken().has_value());
}

TEST(TableCursor, LinesHaveTheirOffsetsAndNoEnds) {
  EXPECT_EQ(lines(""), "");
  EXPECT_EQ(lines("A B\n\nC"), "0:A B$|4:$|5:C");
  EXPECT_EQ(lines("A\r\nB\rC\r\r\nD\r"), "0:A$|3:B\rC\r$|9:D\r");
}

TEST(TableCursor, LineIsReadUpTo1023CharactersWithItsEnd) {
  const std::string text(1022, 'x');
  EXPECT_EQ(lines(text + "\nA"), "0:" + text + "$|1023:A");
  EXPECT_EQ(lines(text + "\r\nA"), "0:" + text + "$|1024:A");
  EXPECT_EQ(lines(text + "x\nA"), "0:" + text + "x|1023:$|1024:A");
  EXPECT_EQ(lines(text + "xyA"), "0:" + text + "x|1023:yA");
}

TEST(TableCursor, LineAsReadHasItsLineFeed) {
  TableCursor cursor("A\r\nB");
  EXPECT_EQ(cursor.nextLine()->asRead(), "A\n");
  EXPECT_EQ(cursor.nextLine()->asRead(), "B");
}

TEST(TableCursor, TokensAndLinesGoOnFromEachOther) {
  TableCursor cursor("A B C\nD");
  EXPECT_EQ(cursor.nextToken()->text, "A");
  EXPECT_EQ(cursor.nextLine()->text, " B C");
  EXPECT_EQ(cursor.nextToken()->text, "D");
  EXPECT_FALSE(cursor.nextLine().has_value());
  cursor.seek(2);
  EXPECT_EQ(cursor.nextToken()->text, "B");
}

}  // namespace
