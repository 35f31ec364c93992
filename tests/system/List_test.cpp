#include <gtest/gtest.h>

#include <string>

#include "System/KEPError.h"
#include "System/KEPList.h"

namespace {

KEPRawCollint numbers() {
  KEPRawCollint list;
  for (const int number : {10, 20, 30}) list.Append(number);
  return list;
}

/// The error that asking for a position raises.
template <class Operation>
std::string raised(Operation operation) {
  try {
    operation();
  } catch (const KEPErrorPositionOutOfList& error) {
    EXPECT_EQ(error.GetMessageKey().View(), "ERR_POSITION_OUT_OF_LIST");
    EXPECT_EQ(error.GetCatalogue().View(), "System");
    return std::string(error.GetNLSMessage().View());
  }
  return "nothing";
}

TEST(List, PositionsCountFromOne) {
  const KEPRawCollint list = numbers();
  EXPECT_EQ(list.Size(), 3);
  EXPECT_EQ(list[1], 10);
  EXPECT_EQ(list[3], 30);
}

TEST(List, PositionOutsideRaisesTheHostsError) {
  KEPRawCollint list = numbers();
  const KEPRawCollint& constant = list;
  EXPECT_EQ(raised([&] { static_cast<void>(list[0]); }),
            "position 0 is outside a list of 3 entries");
  EXPECT_EQ(raised([&] { static_cast<void>(constant[4]); }),
            "position 4 is outside a list of 3 entries");
  EXPECT_EQ(raised([&] { static_cast<void>(constant[-1]); }),
            "position -1 is outside a list of 3 entries");
  EXPECT_EQ(raised([&] { list[4] = 40; }), "position 4 is outside a list of 3 entries");
  EXPECT_EQ(raised([] { static_cast<void>(KEPRawCollint()[1]); }),
            "position 1 is outside a list of 0 entries");
  EXPECT_EQ(list, numbers());
}

TEST(List, EntryCanBeWritten) {
  KEPRawCollint list = numbers();
  list[2] = 25;
  EXPECT_EQ(list[2], 25);
}

TEST(List, RemoveAllLeavesAnEmptyList) {
  KEPRawCollint list = numbers();
  list.RemoveAll();
  EXPECT_EQ(list.Size(), 0);
}

TEST(List, AppendedListFollowsTheEntries) {
  KEPRawCollint list = numbers();
  list.Append(numbers());
  EXPECT_EQ(list.Size(), 6);
  EXPECT_EQ(list[4], 10);
}

TEST(List, LocateGivesTheFirstPosition) {
  KEPListValKEPString list;
  for (const char* word : {"GOTO", "RAPID", "GOTO"}) list.Append(word);
  EXPECT_EQ(list.Locate("GOTO"), 1);
  EXPECT_EQ(list.Locate("RAPID"), 2);
  EXPECT_EQ(list.Locate("goto"), 0);
}

TEST(List, CopyIsAListOfItsOwn) {
  KEPRawCollint list = numbers();
  const KEPRawCollint copy = list;
  list.RemoveAll();
  EXPECT_EQ(copy, numbers());
}

}  // namespace
