#include "post/toolpath/LineReader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

using Lines = std::vector<std::string>;

Lines linesOf(LineReader& reader) {
  Lines lines;
  std::string_view line;
  while (reader.next(line)) lines.emplace_back(line);
  return lines;
}

Lines linesOf(std::string_view text) {
  const Scratch scratch;
  LineReader reader(scratch.file("text", text));
  return linesOf(reader);
}

std::string errorOf(const std::string& path) {
  try {
    LineReader reader(path);
    static_cast<void>(linesOf(reader));
  } catch (const InputError& error) {
    return error.what();
  }
  return "none";
}

TEST(LineReader, LinesComeWithoutTheirLineFeed) {
  EXPECT_EQ(linesOf(""), Lines{});
  EXPECT_EQ(linesOf("\n"), Lines{""});
  EXPECT_EQ(linesOf("a"), Lines{"a"});
  EXPECT_EQ(linesOf("a\n"), Lines{"a"});
  EXPECT_EQ(linesOf("a\r\n\nb"), (Lines{"a\r", "", "b"}));
  EXPECT_EQ(linesOf(std::string_view("a\0b\nc", 5)), (Lines{std::string("a\0b", 3), "c"}));
}

TEST(LineReader, LinesAcrossReadsAreWhole) {
  Lines lines;
  std::string text;
  for (int i = 0; i < 300; ++i) {
    lines.emplace_back(static_cast<std::size_t>(i) * 97, static_cast<char>('a' + i % 26));
    text += lines.back() + '\n';
  }
  EXPECT_GT(text.size(), 2 * LineReader::kLongestLine);
  EXPECT_EQ(linesOf(text), lines);
}

TEST(LineReader, LineNumberCountsLinesRead) {
  const Scratch scratch;
  LineReader reader(scratch.file("text", "a\n\nb"));
  std::string_view line;
  EXPECT_EQ(reader.lineNumber(), 0);
  ASSERT_TRUE(reader.next(line));
  EXPECT_EQ(reader.lineNumber(), 1);
  ASSERT_TRUE(reader.next(line));
  ASSERT_TRUE(reader.next(line));
  EXPECT_EQ(reader.lineNumber(), 3);
  EXPECT_FALSE(reader.next(line));
  EXPECT_FALSE(reader.next(line));
  EXPECT_EQ(reader.lineNumber(), 3);
}

TEST(LineReader, PeekTakesNothing) {
  const Scratch scratch;
  LineReader reader(scratch.file("text", "first\nsecond"));
  EXPECT_EQ(reader.peek(), "first\nsecond");
  EXPECT_EQ(reader.lineNumber(), 0);
  EXPECT_EQ(linesOf(reader), (Lines{"first", "second"}));
  EXPECT_EQ(reader.peek(), "");
}

TEST(LineReader, PipeThatDribblesGivesWholeLines) {
  const Scratch scratch;
  const std::string path = scratch.path("pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  std::thread writer([&path] {
    std::ofstream stream(path);
    for (const char c : std::string_view("{\"a\":1}\nsecond\nlast")) stream << c << std::flush;
  });
  LineReader reader(path);
  EXPECT_EQ(reader.peek(), "{\"a\":1}\nsecond\nlast");
  EXPECT_EQ(linesOf(reader), (Lines{"{\"a\":1}", "second", "last"}));
  writer.join();
}

TEST(LineReader, LineOverTheLimitIsRefused) {
  const std::string longest(LineReader::kLongestLine, 'x');
  EXPECT_EQ(linesOf("a\n" + longest + "\nb"), (Lines{"a", longest, "b"}));
  EXPECT_EQ(linesOf(longest), Lines{longest});
  const Scratch scratch;
  const std::string path = scratch.file("long", "a\n" + longest + "x\nb");
  EXPECT_EQ(errorOf(path), path + ":2: error: the line is longer than 1 MiB (1048576 bytes)");
  EXPECT_EQ(errorOf(scratch.file("long", longest + "x")),
            path + ":1: error: the line is longer than 1 MiB (1048576 bytes)");
}

TEST(LineReader, DeviceWithoutEndIsRefused) {
  EXPECT_EQ(errorOf("/dev/zero"),
            "/dev/zero:1: error: the line is longer than 1 MiB (1048576 bytes)");
}

TEST(LineReader, UnreadableFileGivesTheReason) {
  const Scratch scratch;
  const std::string absent = scratch.path("absent");
  EXPECT_EQ(errorOf(absent), absent + ": error: cannot be opened: No such file or directory");
  EXPECT_EQ(errorOf(scratch.path("")),
            scratch.path("") + ": error: cannot be read: Is a directory");
}

}  // namespace
}  // namespace host::test
