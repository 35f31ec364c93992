#include "post/output/FileMark.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <string>

#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

std::string digestOf(std::string_view text) {
  FileMark mark;
  mark.add(text);
  return mark.digest();
}

// The test values that the authors of the checksum publish.
TEST(FileMark, DigestIsThatOfTheMethod) {
  EXPECT_EQ(digestOf(""), "cbf29ce484222325");
  EXPECT_EQ(digestOf("a"), "af63dc4c8601ec8c");
  EXPECT_EQ(digestOf("foobar"), "85944171f73967e8");
}

TEST(FileMark, PiecesAreOneText) {
  FileMark mark;
  mark.add("foo");
  mark.add("");
  mark.add("bar");
  EXPECT_EQ(mark.digest(), digestOf("foobar"));
  EXPECT_EQ(mark.size(), 6U);
}

TEST(FileMark, FileIsReadWhole) {
  const Scratch folder;
  const std::string path = folder.path("file");
  const std::string text = std::string(70000, 'X') + '\0' + "\xFF";
  std::ofstream(path, std::ios::binary) << text;
  const auto mark = markOfFile(path);
  ASSERT_TRUE(mark.has_value());
  EXPECT_EQ(mark->size(), 70002U);
  EXPECT_EQ(mark->digest(), digestOf(text));
}

TEST(FileMark, WhatIsNoFileHasNone) {
  const Scratch folder;
  EXPECT_FALSE(markOfFile(folder.path("absent")).has_value());
  EXPECT_FALSE(markOfFile(folder.path("")).has_value());
  EXPECT_FALSE(markOfFile("/dev/null").has_value());
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(markOfFile(folder.path("pipe")).has_value());
}

}  // namespace
}  // namespace host::test
