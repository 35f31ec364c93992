#include <gtest/gtest.h>

#include <iostream>
#include <string>

#include "tests/table/TableFiles.h"
#include "tests/table/TableMaker.h"

namespace {

// Changes, doubles or removes a few bytes anywhere.
void mutate(std::string& table, TableMaker& random) {
  for (std::size_t i = random.below(4); i > 0 && !table.empty(); --i) {
    const std::size_t place = random.below(table.size());
    const std::size_t size = random.below(30);
    switch (random.below(3)) {
      case 0:
        table[place] = static_cast<char>(random.below(256));
        break;
      case 1:
        table.insert(random.below(table.size()), table.substr(place, size));
        break;
      default:
        table.erase(place, size);
    }
  }
}

// The list stays as it was after false; after true it has grown by at most 100,000.
void expectGrowth(bool result, const KEPListValKEPString& list) {
  EXPECT_EQ(list[1], KEPString("before"));
  EXPECT_LE(list.Size(), result ? 100'001 : 1);
}

void expectCommandProperties(KEPMfgPPTableTxt& reader, int index) {
  KEPString name = "before";
  const bool named = reader.GetNameOfCommand(index, name);
  EXPECT_EQ(named, name.View().starts_with("NC_"));
  KEPListValKEPString syntaxes = listOf({"before"});
  expectGrowth(reader.GetSyntaxOfCommand(index, syntaxes), syntaxes);
  int sequences = -1;
  const bool counted = reader.GetNumberOfSequenceForCommand(index, sequences);
  EXPECT_EQ(counted, sequences >= 0);
  for (int sequence = 0; sequence <= sequences + 1; ++sequence) {
    KEPListValKEPString elements = listOf({"before"});
    const bool read = reader.GetSyntaxOfSequenceForCommand(index, sequence, elements);
    expectGrowth(read, elements);
    EXPECT_FALSE(read && (sequence < 1 || sequence > sequences));
  }
}

void expectParameterProperties(KEPMfgPPTableTxt& reader, int index) {
  KEPString name = "before";
  KEPListValKEPString values;
  const bool named = reader.GetNameOfMultiListParameter(index, name);
  EXPECT_EQ(named, name.View().starts_with("MFG_"));
  const bool read = reader.GetValuesOfMultiListParameter(index, values);
  EXPECT_FALSE(read && !named);
  for (const KEPString& value : values) EXPECT_FALSE(value.IsEmpty());
  KEPString value = "before";
  if (!reader.GetNameOfFormatParameter(index, name)) {
    EXPECT_FALSE(reader.GetValueOfFormatParameter(index, value));
    EXPECT_EQ(value, KEPString("before"));
  }
}

void expectWordProperties(KEPMfgPPTableTxt& reader) {
  KEPListValKEPString words = listOf({"before"});
  KEPRawCollint kinds;
  KEPRawCollint codes;
  const bool read = reader.GetListOfAptWord(kinds, words);
  expectGrowth(read, words);
  EXPECT_EQ(kinds.Size(), words.Size() - 1);
  EXPECT_EQ(reader.GetListOfNcCode(codes), read);
  EXPECT_LE(codes.Size(), kinds.Size());
}

void expectProperties(KEPMfgPPTableTxt& reader) {
  int commands = -1;
  int lists = -1;
  KEPListValKEPString syntaxes;
  reader.CheckFileSyntax();
  reader.GetNumberOfCommand(commands);
  reader.GetNumberOfMultiListParameter(lists);
  reader.GetListOfSyntaxes(syntaxes);
  for (int index = 0; index <= commands + 1; ++index) expectCommandProperties(reader, index);
  for (int index = 0; index <= lists + 1; ++index) expectParameterProperties(reader, index);
  expectWordProperties(reader);
}

TEST(TableMutation, EveryQueryOfADamagedTableEndsAndKeepsItsPromises) {
  constexpr unsigned kSeed = 20240517;
  std::cout << "seed " << kSeed << '\n';
  TableMaker random(kSeed);
  const TableFile file("");
  for (int round = 0; round < 2000 && !HasFailure(); ++round) {
    std::string table = random.table();
    mutate(table, random);
    file.write(table);
    KEPMfgPPTableTxt reader(file.path());
    expectProperties(reader);
    if (HasFailure()) std::cout << "round " << round << ":\n" << table << '\n';
  }
}

}  // namespace
