#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string_view>

namespace {

/// Under a run that asks for a decimal comma the process must have one: otherwise the whole run
/// would prove nothing.
TEST(Locale, IsTheOneAskedFor) {
  const char* const asked = std::getenv("PPWORD_EXPECT_DECIMAL_POINT");
  const std::string_view expected = asked == nullptr ? "." : asked;
  EXPECT_EQ(std::localeconv()->decimal_point, expected);
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  // The messages that the tests expect are English; their translation has tests of its own.
  std::setlocale(LC_MESSAGES, "C");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
