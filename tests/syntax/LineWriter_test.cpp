#include "language/syntax/LineWriter.h"

#include <gtest/gtest.h>

#include <string>

namespace ppword {
namespace {

TEST(LineWriter, PiecesOfEverySizeStandOneBehindTheOther) {
  const std::string all = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  LineWriter writer;
  for (std::size_t first = 0; first <= all.size(); ++first) {
    for (std::size_t second = 0; second <= all.size() - first; ++second) {
      writer.clear();
      writer.append(std::string_view(all).substr(0, first));
      writer.append(std::string_view(all).substr(first, second));
      ASSERT_EQ(writer.text(), all.substr(0, first + second));
    }
  }
}

TEST(LineWriter, NothingWrittenGivesAnEmptyLine) {
  LineWriter writer;
  writer.append("before");
  writer.clear();
  writer.append("");
  writer.append({});
  writer.append(0, ')');
  EXPECT_EQ(writer.text(), "");
}

TEST(LineWriter, CharacterIsRepeated) {
  LineWriter writer;
  writer.append("A");
  writer.append(300, ')');
  writer.append("B");
  EXPECT_EQ(writer.text(), "A" + std::string(300, ')') + "B");
}

TEST(LineWriter, LineGrowsAsFarAsItsPieces) {
  LineWriter writer;
  std::string expected;
  for (int i = 0; i < 5000; ++i) {
    const std::string piece(static_cast<std::size_t>(i % 40), static_cast<char>('a' + i % 26));
    writer.append(piece);
    expected += piece;
  }
  EXPECT_EQ(writer.text(), expected);
}

TEST(LineWriter, BytesOfEveryValueAreKept) {
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
  LineWriter writer;
  for (std::size_t at = 0; at < bytes.size(); at += 5) {
    writer.append(std::string_view(bytes).substr(at, 5));
  }
  EXPECT_EQ(writer.text(), bytes);
}

}  // namespace
}  // namespace ppword
