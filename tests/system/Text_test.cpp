#include <gtest/gtest.h>

#include "System/KEPString.h"

namespace {

TEST(String, NullPointerGivesEmptyText) {
  EXPECT_TRUE(KEPString(static_cast<const char*>(nullptr)).IsEmpty());
  EXPECT_TRUE(KEPUnicodeString(static_cast<const char*>(nullptr)).IsEmpty());
}

TEST(String, BytesAreKeptAsTheyCame) {
  const std::string_view bytes("\xFF\0\xC3(", 4);
  EXPECT_EQ(KEPString(bytes).View(), bytes);
  EXPECT_EQ(KEPUnicodeString(bytes).View(), bytes);
  EXPECT_STREQ(KEPString("GOTO").CastToCharPtr(), "GOTO");
  EXPECT_STREQ(KEPUnicodeString("GOTO").ConvertToChar(), "GOTO");
}

TEST(String, EqualityIsThatOfTheBytes) {
  EXPECT_EQ(KEPString("A"), KEPString(std::string("A")));
  EXPECT_NE(KEPString("A"), KEPString("a"));
  EXPECT_NE(KEPUnicodeString("A"), KEPUnicodeString("A "));
}

TEST(UnicodeString, LengthCountsCharacters) {
  EXPECT_EQ(KEPUnicodeString("").GetLengthInChar(), 0);
  EXPECT_EQ(KEPUnicodeString("GOTO").GetLengthInChar(), 4);
  EXPECT_EQ(KEPUnicodeString("45\xC2\xB0").GetLengthInChar(), 3);
  EXPECT_EQ(KEPUnicodeString("\xE2\x82\xAC\xF0\x9F\x94\xA7").GetLengthInChar(), 2);
}

TEST(UnicodeString, BytesThatAreNotUtf8CountAsTheyStand) {
  EXPECT_EQ(KEPUnicodeString("\xE9t\xE9").GetLengthInChar(), 3);
  EXPECT_EQ(KEPUnicodeString("A\x80\x80").GetLengthInChar(), 1);
}

}  // namespace
