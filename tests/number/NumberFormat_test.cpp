#include "language/number/NumberFormat.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>
#include <random>
#include <string>

namespace ppword {
namespace {

struct Print {
  const char* format;
  double value;
  const char* text;
};

/// The printed text; nothing, and the text left alone, when it cannot be printed.
std::optional<std::string> print(std::string_view format, double value) {
  std::string text = "untouched";
  if (printNumber(format, value, text)) return text;
  EXPECT_EQ(text, "untouched");
  return std::nullopt;
}

class PrintNumber : public testing::TestWithParam<Print> {};

TEST_P(PrintNumber, FormatAndValueGiveText) {
  const auto& [format, value, text] = GetParam();
  EXPECT_EQ(print(format, value), text) << format;
}

INSTANTIATE_TEST_SUITE_P(
    Rules, PrintNumber,
    testing::Values(
        // the formats of the default catalogue
        Print{"%11.5f", 12.5, "   12.50000"}, Print{"%9.6f", -0.5, "-0.500000"},
        Print{"%10.4f", 1000.0, " 1000.0000"}, Print{"%13.5f", 0.0, "      0.00000"},
        Print{"%12.6f", -2.0, "   -2.000000"},
        // the snap to zero: strictly below 1e-6
        Print{"%.3f", -0.0000004, "0.000"}, Print{"%.7f", 0.000001, "0.0000010"},
        Print{"%.7f", 0.0000009999999, "0.0000000"}, Print{"%.7f", -0.000001, "-0.0000010"},
        Print{"%g", -0.0, "0"},
        // half to even on the exact binary value
        Print{"%.0f", 0.5, "0"}, Print{"%.0f", 1.5, "2"}, Print{"%.0f", 2.5, "2"},
        Print{"%.2f", 2.675, "2.67"}, Print{"%.1f", 0.25, "0.2"}, Print{"%.1f", 0.35, "0.3"},
        Print{"%.1f", 0.75, "0.8"}, Print{"%.3f", 999.9995, "1000.000"},
        Print{"%.3f", 0.9999, "1.000"}, Print{"%.5f", 123456789.123455, "123456789.12346"},
        // numbers at the limits of exact arithmetic
        Print{"%12.6f", 0.0001, "    0.000100"}, Print{"%.3f", 2147483647.5, "2147483647.500"},
        Print{"%.3f", 2147483648.0, "2147483648.000"}, Print{"%1.0f", 0.5, "0"},
        Print{"%12.9f", -1.0, "-1.000000000"},
        Print{"%.1f", 9007199254740993.0, "9007199254740992.0"},
        // flags, width, precision
        Print{"%-8.2f|", 1.5, "1.50    |"}, Print{"%08.2f", -1.5, "-0001.50"},
        Print{"%+.1f", 2.0, "+2.0"}, Print{"% .1f", 2.0, " 2.0"}, Print{"%+ .1f", 2.0, "+2.0"},
        Print{"%-08.1f|", 2.0, "2.0     |"}, Print{"%#.0f", 3.0, "3."}, Print{"%.f", 3.7, "4"},
        Print{"%f", 0.1, "0.100000"}, Print{"%lf", 0.1, "0.100000"}, Print{"%2.1f", 123.4, "123.4"},
        // the other conversions
        Print{"%e", 12345.678, "1.234568e+04"}, Print{"%.0E", 5e10, "5E+10"},
        Print{"%#.0e", 5e10, "5.e+10"}, Print{"%g", 0.0001, "0.0001"},
        Print{"%g", 0.00001, "1e-05"}, Print{"%g", 1e6, "1e+06"}, Print{"%G", 1e-5, "1E-05"},
        Print{"%.3g", 3.14159, "3.14"}, Print{"%#g", 2.0, "2.00000"},
        Print{"%#.3g", 1e5, "1.00e+05"}, Print{"%.0g", 25.0, "2e+01"}, Print{"%a", 1.0, "0x1p+0"},
        Print{"%A", 10.5, "0X1.5P+3"}, Print{"%012a", 1.0, "0x0000001p+0"},
        Print{"%.1a", 1.96875, "0x2.0p+0"}, Print{"%F", 1e20, "100000000000000000000.000000"},
        // literal text
        Print{"X%.1fY", 1.0, "X1.0Y"}, Print{"%%%.1f%%", 1.0, "%1.0%"}, Print{"abc", 1.0, "abc"},
        Print{"100%%", 1.0, "100%"}, Print{"", 1.0, ""},
        Print{"\xC3\xA9%.0f", 1.0,
              "\xC3\xA9"
              "1"},
        // the first comma of the whole text
        Print{"%.1f,A,B", 1.5, "1.5.A,B"}, Print{",%.1f,", 1.5, ".1.5,"}));

TEST(PrintNumber, RefusesWhatIsNoFormatOfOneNumber) {
  for (const char* format :
       {"%n",      "%s",   "%d",  "%i",   "%x",  "%c",  "%p",    "%",    "%5",          "%.2",
        "%l",      "%ll",  "%Lf", "%llf", "%hf", "%*f", "%.*f",  "%1$f", "%.99999999f", "%1000f",
        "%.1000f", "%f%f", "%f%", "%f%d", "%'f", "%If", "%.-1f", "% ",   "%-+ #0",      "%f %n"}) {
    EXPECT_EQ(print(format, 1.0), std::nullopt) << format;
  }
}

TEST(PrintNumber, FormatWithAConversionPrintsNumbers) {
  for (const char* format : {"%f", "X%-11.5lg!", "%%%a"}) {
    EXPECT_TRUE(ppword::printsNumbers(format)) << format;
  }
  for (const char* format : {"", "X", "%%", "%d", "%", "%f%f"}) {
    EXPECT_FALSE(ppword::printsNumbers(format)) << format;
  }
}

TEST(PrintNumber, RefusesWhatIsNotFinite) {
  EXPECT_EQ(print("%f", std::numeric_limits<double>::quiet_NaN()), std::nullopt);
  EXPECT_EQ(print("%f", std::numeric_limits<double>::infinity()), std::nullopt);
  EXPECT_EQ(print("%f", -std::numeric_limits<double>::infinity()), std::nullopt);
  EXPECT_EQ(print("no conversion", std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

TEST(PrintNumber, PrintsTheLargestSizes) {
  EXPECT_EQ(print("%999f", 1.0)->size(), 999U);
  EXPECT_EQ(print("%.999f", std::numeric_limits<double>::max())->size(), 309U + 1U + 999U);
}

/// printf itself, in the C locale.
std::string printed(const std::string& format, double value) {
  std::string text(4000, '\0');
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  std::setlocale(LC_NUMERIC, "C");
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  const int length = std::snprintf(text.data(), text.size(), format.c_str(), value);
#pragma GCC diagnostic pop
  std::setlocale(LC_NUMERIC, before.c_str());
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::string randomFormat(std::mt19937_64& random) {
  std::string format = "%";
  for (auto flags = random() % 3; flags > 0; --flags) format += "-+ 0"[random() % 4];
  if (random() % 2 == 0) format += std::to_string(random() % 30);
  if (random() % 4 != 0) format += '.' + std::to_string(random() % (random() % 8 == 0 ? 400 : 19));
  return format + "eEfFgGaA"[random() % 8];
}

double randomValue(std::mt19937_64& random) {
  const auto bits = random();
  switch (random() % 5) {
    case 0:
      return static_cast<double>(bits % 2000000) / 1000.0 - 1000.0;
    case 1:
      return std::ldexp(static_cast<double>(bits % 4096), -static_cast<int>(random() % 20));
    case 2:
      return static_cast<double>(bits % 100000) + 0.5;
    case 3:
      return std::ldexp(static_cast<double>(bits), -static_cast<int>(random() % 200));
    default:
      return std::bit_cast<double>(bits);
  }
}

TEST(NumberFormat, RandomFormatsPrintAsPrintfDoes) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  for (int i = 0; i < 100000; ++i) {
    const std::string format = randomFormat(random);
    const double value = randomValue(random);
    if (!std::isfinite(value) || std::fpclassify(value) == FP_SUBNORMAL) continue;
    std::string text;
    const bool isSnapped = std::fabs(value) < 1e-6;
    ASSERT_TRUE(printNumber(format, value, text)) << format;
    ASSERT_EQ(text, printed(format, isSnapped ? 0.0 : value)) << format << " of " << value;
  }
}

}  // namespace
}  // namespace ppword
