#include "src/syntax/LineWriter.h"

#include <gtest/gtest.h>

#include <string>

namespace ppword {
namespace {

TEST(LineWriter, PiecesOfEverySizeStandOneBehindTheOther) {
  const std::string all = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  for (std::size_t first = 0; first <= all.size(); ++first) {
    for (std::size_t second = 0; second <= all.size() - first; ++second) {
      std::string room = "what was there before";
      LineWriter writer(room);
      writer.append(std::string_view(all).substr(0, first));
      writer.append(std::string_view(all).substr(first, second));
      EXPECT_EQ(writer.text(), all.substr(0, first + second));
      writer.finish();
      ASSERT_EQ(room, all.substr(0, first + second));
    }
  }
}

TEST(LineWriter, NothingWrittenGivesAnEmptyLine) {
  std::string room = "before";
  LineWriter writer(room);
  writer.append("");
  writer.append(0, ')');
  writer.finish();
  EXPECT_EQ(room, "");
}

TEST(LineWriter, CharacterIsRepeated) {
  std::string room;
  LineWriter writer(room);
  writer.append("A");
  writer.append(300, ')');
  writer.append("B");
  writer.finish();
  EXPECT_EQ(room, "A" + std::string(300, ')') + "B");
}

TEST(LineWriter, LineGrowsAsFarAsItsPieces) {
  std::string room;
  LineWriter writer(room);
  std::string expected;
  for (int i = 0; i < 5000; ++i) {
    const std::string piece(static_cast<std::size_t>(i % 40), static_cast<char>('a' + i % 26));
    writer.append(piece);
    expected += piece;
  }
  writer.finish();
  EXPECT_EQ(room, expected);
}

TEST(LineWriter, BytesOfEveryValueAreKept) {
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
  std::string room;
  LineWriter writer(room);
  for (std::size_t at = 0; at < bytes.size(); at += 5) {
    writer.append(std::string_view(bytes).substr(at, 5));
  }
  writer.finish();
  EXPECT_EQ(room, bytes);
}

}  // namespace
}  // namespace ppword
