#include "language/number/DecimalPrefix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "tests/support/Mutator.h"
#include "tests/support/PointNumber.h"

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

/// Digits, points, signs, blanks and letters that may be part of a number.
std::string randomNumber(std::mt19937& random) {
  constexpr std::string_view kLetters = "0123456789012345678901234567890000999.. -+eE\tx,";
  std::string text;
  for (std::size_t count = random() % 20; count > 0; --count) {
    text += kLetters[random() % kLetters.size()];
  }
  return text;
}

/// What the C library reads with a decimal point, also under another locale; hexadecimal numbers
/// are cut before their "x".
std::optional<double> readByLibrary(std::string text) {
  text = text.substr(0, text.find('x'));
  char* end = nullptr;
  const double value = readWithPoint(text.c_str(), &end);
  if (end == text.c_str() || std::isinf(value)) return std::nullopt;
  return value;
}

bool isSame(std::optional<double> left, std::optional<double> right) {
  return left == right && (!left || std::signbit(*left) == std::signbit(*right));
}

/// True for blanks, at most one "-", then digits with at most one point.
bool readsAsPlain(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  text.remove_prefix(text.starts_with('-') ? 1 : 0);
  return text.find_first_not_of("0123456789.") == std::string_view::npos &&
         std::count(text.begin(), text.end(), '.') <= 1;
}

TEST(DecimalPrefix, RandomNumbersAreReadAsTheStandardLibraryReadsThem) {
  const unsigned seed = chosenSeed();
  std::mt19937 random(seed);
  for (int i = 0; i < 200000; ++i) {
    const std::string text = randomNumber(random);
    const auto expected = readByLibrary(text);
    ASSERT_TRUE(isSame(decimalPrefix(text), expected)) << "seed " << seed << " «" << text << "»";
    const auto plain = ppword::plainDecimal(text);
    const bool isPlain = text.size() <= 15 && expected && readsAsPlain(text);
    ASSERT_TRUE(plain || !isPlain) << "seed " << seed << " «" << text << "»";
    ASSERT_TRUE(!plain || isSame(plain, expected)) << "seed " << seed << " «" << text << "»";
  }
}

TEST(PlainDecimal, IsAWholeText) {
  constexpr Reading kReadings[] = {{"5", 5.0},
                                   {"  5", 5.0},
                                   {" -5", -5.0},
                                   {"5.", 5.0},
                                   {".5", 0.5},
                                   {"0.1", 0.1},
                                   {"999999999999999", 999999999999999.0},
                                   {"0.00000000000001", 1e-14},
                                   {".000000000000001", 1e-15}};
  for (const auto& [text, value] : kReadings) EXPECT_EQ(ppword::plainDecimal(text), value) << text;
  for (const char* text : {"", " ", "-", ".", "- 5", "+5", "\t5", "5 ", "5-", "--5", "5,", "1.2.3",
                           "5e1", "1000000000000000", "0.000000000000001", "nan"}) {
    EXPECT_EQ(ppword::plainDecimal(text), std::nullopt) << text;
  }
  EXPECT_TRUE(std::signbit(ppword::plainDecimal("-0").value()));
}

TEST(DecimalPrefix, DecimalCommaEndsTheNumber) { EXPECT_EQ(decimalPrefix("1,5"), 1.0); }

TEST(DecimalPrefix, NulByteEndsTheNumber) {
  EXPECT_EQ(decimalPrefix(std::string_view("12\0"
                                           "34",
                                           5)),
            12.0);
}

}  // namespace
