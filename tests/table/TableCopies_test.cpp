#include <gtest/gtest.h>

#include <memory>

#include "tests/table/TableAnswers.h"

namespace {

TEST(TableCopies, DestructorClosesTheStream) {
  const TableFile file(kWholeTable);
  const int before = openFiles();
  {
    KEPMfgPPTableTxt reader(file.path());
    EXPECT_EQ(openFiles(), before);
    EXPECT_EQ(answersOf(reader), kWholeAnswers);
    EXPECT_EQ(openFiles(), before + 1);
  }
  EXPECT_EQ(openFiles(), before);
}

TEST(TableCopies, CopySharesStreamAndPosition) {
  const TableFile file(kWholeTable);
  KEPMfgPPTableTxt reader(file.path());
  KEPString name;
  ASSERT_TRUE(reader.GetNameOfCommand(1, name));
  KEPMfgPPTableTxt copy(reader);
  EXPECT_TRUE(KEPMfgPPTableTxtTest(copy).sharesStreamWith(reader));
  EXPECT_TRUE(KEPMfgPPTableTxtTest(copy).isOpen());
  EXPECT_EQ(KEPMfgPPTableTxtTest(copy).nextToken(), "A1");
  EXPECT_EQ(KEPMfgPPTableTxtTest(reader).nextToken(), "*END");
  EXPECT_EQ(answersOf(copy), kWholeAnswers);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  EXPECT_TRUE(KEPMfgPPTableTxtTest(copy).sharesStreamWith(reader));
}

TEST(TableCopies, SharedStreamIsClosedOnceInBothOrders) {
  const TableFile file(kWholeTable);
  const int before = openFiles();
  for (const bool originalFirst : {true, false}) {
    auto original = std::make_unique<KEPMfgPPTableTxt>(file.path());
    int count = 0;
    ASSERT_TRUE(original->GetNumberOfCommand(count));
    auto copy = std::make_unique<KEPMfgPPTableTxt>(*original);
    auto& first = originalFirst ? original : copy;
    auto& second = originalFirst ? copy : original;
    EXPECT_EQ(openFiles(), before + 1);
    first.reset();
    EXPECT_EQ(openFiles(), before + 1);
    EXPECT_EQ(answersOf(*second), kWholeAnswers);
    second.reset();
    EXPECT_EQ(openFiles(), before);
  }
}

TEST(TableCopies, AssignmentSharesTheStreamAndLetsGoOfItsOwn) {
  const TableFile file(kWholeTable);
  const TableFile other("*START_NC_COMMAND NC_OTHER *END");
  const int before = openFiles();
  for (const bool originalFirst : {true, false}) {
    auto original = std::make_unique<KEPMfgPPTableTxt>(file.path());
    auto assigned = std::make_unique<KEPMfgPPTableTxt>(other.path());
    int count = 0;
    ASSERT_TRUE(original->GetNumberOfCommand(count));
    ASSERT_TRUE(assigned->GetNumberOfCommand(count));
    EXPECT_EQ(openFiles(), before + 2);
    *assigned = *original;
    EXPECT_EQ(openFiles(), before + 1);
    EXPECT_EQ(answersOf(*assigned), kWholeAnswers);
    auto& first = originalFirst ? original : assigned;
    auto& second = originalFirst ? assigned : original;
    first.reset();
    EXPECT_EQ(answersOf(*second), kWholeAnswers);
    second.reset();
    EXPECT_EQ(openFiles(), before);
  }
}

TEST(TableCopies, SelfAssignmentChangesNothing) {
  const TableFile file(kWholeTable);
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  const KEPMfgPPTableTxt& same = reader;
  reader = same;
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

TEST(TableCopies, CopyOfAClosedReaderSharesNothing) {
  const TableFile file(kWholeTable);
  const int before = openFiles();
  KEPMfgPPTableTxt reader(file.path());
  KEPMfgPPTableTxt copy(reader);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  EXPECT_FALSE(KEPMfgPPTableTxtTest(copy).isOpen());
  EXPECT_EQ(answersOf(copy), kWholeAnswers);
  EXPECT_FALSE(KEPMfgPPTableTxtTest(copy).sharesStreamWith(reader));
  EXPECT_EQ(openFiles(), before + 2);
}

TEST(TableCopies, CopyOfAReaderThatFailedToOpenSharesNothing) {
  const TableFile file("");
  file.remove();
  KEPMfgPPTableTxt reader(file.path());
  int count = 0;
  EXPECT_FALSE(reader.GetNumberOfCommand(count));
  KEPMfgPPTableTxt copy(reader);
  file.write(kWholeTable);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  EXPECT_EQ(answersOf(copy), kWholeAnswers);
  EXPECT_FALSE(KEPMfgPPTableTxtTest(copy).sharesStreamWith(reader));
}

TEST(TableCopies, CopyOfAReaderWhoseReopenFailedRecoversWithIt) {
  const TableFile file(kWholeTable);
  KEPMfgPPTableTxt reader(file.path());
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
  file.remove();
  EXPECT_EQ(answersOf(reader), kUnopenedAnswers);
  KEPMfgPPTableTxt copy(reader);
  file.write(kWholeTable);
  EXPECT_EQ(answersOf(copy), kWholeAnswers);
  EXPECT_EQ(answersOf(reader), kWholeAnswers);
}

}  // namespace
