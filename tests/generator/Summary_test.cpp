#include "post/generator/Summary.h"

#include <gtest/gtest.h>

namespace host::test {
namespace {

TEST(Tally, NamesStandInOrderOfFirstAppearance) {
  Tally tally;
  tally.add("MFG_B", 3, "NC_GOTO");
  tally.add("MFG_A", 4, "NC_RAPID", 10);
  tally.add("MFG_B", 5, "NC_RAPID", 2);
  ASSERT_EQ(tally.entries().size(), 2U);
  EXPECT_EQ(tally.entries()[0].name, "MFG_B");
  EXPECT_EQ(tally.entries()[0].count, 3);
  EXPECT_EQ(tally.entries()[0].firstLine, 3);
  EXPECT_EQ(tally.entries()[0].firstInstruction, "NC_GOTO");
  EXPECT_EQ(tally.entries()[1].name, "MFG_A");
  EXPECT_EQ(tally.entries()[1].count, 10);
  EXPECT_EQ(tally.entries()[1].firstLine, 4);
  EXPECT_EQ(tally.total(), 13);
  EXPECT_EQ(tally.others(), 0);
}

TEST(Tally, NamesBeyondTheBoundCountAsOthers) {
  Tally tally;
  for (int i = 0; i < 1500; ++i) tally.add("N" + std::to_string(i), 1, "NC_GOTO");
  tally.add("N7", 2, "NC_GOTO");
  tally.add("N1200", 2, "NC_GOTO", 4);
  EXPECT_EQ(tally.entries().size(), 1000U);
  EXPECT_EQ(tally.entries()[7].count, 2);
  EXPECT_EQ(tally.others(), 504);
  EXPECT_EQ(tally.total(), 1505);
}

}  // namespace
}  // namespace host::test
