#include "language/number/IntegerPrefix.h"

#include <gtest/gtest.h>

namespace {

using ppword::integerPrefix;

TEST(IntegerPrefix, DigitsGiveTheirValue) { EXPECT_EQ(integerPrefix("12"), 12); }

TEST(IntegerPrefix, LeadingZerosAreDecimal) { EXPECT_EQ(integerPrefix("0012"), 12); }

TEST(IntegerPrefix, SignIsRead) {
  EXPECT_EQ(integerPrefix("-7"), -7);
  EXPECT_EQ(integerPrefix("+7"), 7);
}

TEST(IntegerPrefix, WhiteSpaceBeforeTheNumberIsPassedOver) {
  EXPECT_EQ(integerPrefix(" \t\n\v\f\r5"), 5);
}

TEST(IntegerPrefix, TextBehindTheDigitsIsIgnored) {
  EXPECT_EQ(integerPrefix("12A"), 12);
  EXPECT_EQ(integerPrefix("3.9"), 3);
  EXPECT_EQ(integerPrefix("4 5"), 4);
}

TEST(IntegerPrefix, OnlyANumberThatFitsAloneIsWhole) {
  const auto isWhole = [](std::string_view text) { return ppword::readInteger(text)->isWhole; };
  for (const char* text : {"0", "-7", "+7", " 12", "2147483647", "-2147483648"}) {
    EXPECT_TRUE(isWhole(text)) << text;
  }
  for (const char* text : {"1.5", "12A", "2147483648", "-2147483649", "99999999999999999999"}) {
    EXPECT_FALSE(isWhole(text)) << text;
  }
}

TEST(IntegerPrefix, TextWithoutANumberGivesNothing) {
  for (const char* text : {"", " ", "A1", "-", "+", "+-5", "--5", "- 5", "\u00A05"}) {
    EXPECT_EQ(integerPrefix(text), std::nullopt) << '"' << text << '"';
  }
}

TEST(IntegerPrefix, ValueAtTheEdgeOf32BitsIsExact) {
  EXPECT_EQ(integerPrefix("2147483647"), 2147483647);
  EXPECT_EQ(integerPrefix("-2147483648"), -2147483647 - 1);
}

TEST(IntegerPrefix, ValueBeyond32BitsSaturates) {
  EXPECT_EQ(integerPrefix("2147483648"), 2147483647);
  EXPECT_EQ(integerPrefix("-2147483649"), -2147483647 - 1);
  EXPECT_EQ(integerPrefix("4294967297"), 2147483647);
}

TEST(IntegerPrefix, ValueBeyond64BitsSaturates) {
  EXPECT_EQ(integerPrefix("99999999999999999999999999"), 2147483647);
  EXPECT_EQ(integerPrefix("-99999999999999999999999999"), -2147483647 - 1);
}

}  // namespace
