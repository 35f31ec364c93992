#include "language/number/DecimalPrefix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using ppword::decimalPrefix;

struct Reading {
  const char* text;
  double value;
};

TEST(DecimalPrefix, NumberAtTheStartIsRead) {
  constexpr Reading kReadings[] = {
      {"1000", 1000.0}, {"0.25", 0.25},        {".5", 0.5},
      {"5.", 5.0},      {"+7.5", 7.5},         {"-.5e1", -5.0},
      {"1E3", 1000.0},  {"25e-2", 0.25},       {" \t\r\n\v\f12", 12.0},
      {"2e+2", 200.0},  {"1000mm_mn", 1000.0}, {"1.5.2", 1.5},
      {"3 4", 3.0},     {"1e5e5", 100000.0},   {"0.1", 0.1},
  };
  for (const auto& [text, value] : kReadings) EXPECT_EQ(decimalPrefix(text), value) << text;
}

TEST(DecimalPrefix, ExponentWithoutDigitsIsLeftOut) {
  EXPECT_EQ(decimalPrefix("100ergs"), 100.0);
  EXPECT_EQ(decimalPrefix("5E+"), 5.0);
}

TEST(DecimalPrefix, TextThatBeginsWithNoNumberGivesNothing) {
  for (const char* text : {"", " ", "abc", ".", "-", "+", "--1", "+-1", "-+1", "- 1", ".e5", "e5",
                           ",5", "-.", "\u00A01"}) {
    EXPECT_EQ(decimalPrefix(text), std::nullopt) << text;
  }
}

TEST(DecimalPrefix, InfinityAndNanGiveNothing) {
  for (const char* text : {"inf", "-INF", "infinity", "nan", "NaN(1)"}) {
    EXPECT_EQ(decimalPrefix(text), std::nullopt) << text;
  }
}

TEST(DecimalPrefix, HexadecimalTextGivesItsZero) { EXPECT_EQ(decimalPrefix("0x1F"), 0.0); }

TEST(DecimalPrefix, NumberTooLargeGivesNothing) {
  for (const char* text : {"1e400", "-1e400", "1e309", "1e99999999999999999999", "0.001e312"}) {
    EXPECT_EQ(decimalPrefix(text), std::nullopt) << text;
  }
  EXPECT_EQ(decimalPrefix("1" + std::string(400, '0')), std::nullopt);
  EXPECT_EQ(decimalPrefix("1" + std::string(400, '0') + ".5.e-400"), std::nullopt);
}

TEST(DecimalPrefix, NumberTooSmallGivesZero) {
  for (const char* text : {"1e-400", "1e-99999999999999999999", "1e-324", "1000e-400"}) {
    EXPECT_EQ(decimalPrefix(text), 0.0) << text;
  }
  EXPECT_EQ(decimalPrefix("0." + std::string(400, '0') + "1"), 0.0);
  EXPECT_TRUE(std::signbit(decimalPrefix("-1e-400").value()));
}

TEST(DecimalPrefix, NumberAtTheEdgeOfTheRangeIsRead) {
  EXPECT_EQ(decimalPrefix("1.7976931348623157e308"), 1.7976931348623157e308);
  EXPECT_EQ(decimalPrefix("4.9406564584124654e-324"), 4.9406564584124654e-324);
  EXPECT_EQ(decimalPrefix("1" + std::string(400, '0') + "e-400"), 1.0);
  EXPECT_EQ(decimalPrefix("0e999999999999"), 0.0);
}

TEST(DecimalPrefix, DecimalCommaEndsTheNumber) { EXPECT_EQ(decimalPrefix("1,5"), 1.0); }

TEST(DecimalPrefix, NulByteEndsTheNumber) {
  EXPECT_EQ(decimalPrefix(std::string_view("12\0"
                                           "34",
                                           5)),
            12.0);
}

}  // namespace
