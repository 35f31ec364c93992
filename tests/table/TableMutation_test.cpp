#include <gtest/gtest.h>

#include <iostream>
#include <random>
#include <string>

#include "tests/table/TableFiles.h"

namespace {

using Random = std::mt19937;

const Texts kFragments = {"*START_MAJOR_WORDS_WITHOUT_PARAMETERS",
                          "*START_MAJOR_WORDS_WITH_TEXT",
                          "*START_MAJOR_WORDS_WITH_PARAMETERS",
                          "*START_MINOR_WORDS",
                          "*START_SYNTAXES",
                          "*START_NC_COMMAND NC_A",
                          "*START_NC_COMMAND NC_B",
                          "*START_NC_INSTRUCTION NC_C",
                          "*START_LIST MFG_L",
                          "*START_FORMAT MFG_F",
                          "*START_SEQUENCE",
                          "*INSERT NC_A",
                          "*INSERT NC_B",
                          "*INSERT NC_C",
                          "*INSERT X",
                          "*END",
                          "*END",
                          "*END",
                          "*COMMENT",
                          "NC_A",
                          "PPRINT TEXT WORD",
                          "$$",
                          "PARTNO",
                          "WORD,12,",
                          "/SLASH",
                          ",",
                          "%11.5f",
                          std::string(79, 'x') + "%",
                          std::string(80, 'y') + "%MFG",
                          std::string(1, '\0'),
                          "\r",
                          std::string(1023, 'z'),
                          "\xEF\xBB\xBF",
                          "\xFF\x80"};

std::size_t below(Random& random, std::size_t bound) { return random() % bound; }

std::string madeTable(Random& random) {
  std::string table;
  const std::size_t size = below(random, 40);
  for (std::size_t i = 0; i < size; ++i) {
    table += kFragments[below(random, kFragments.size())];
    table += below(random, 4) == 0 ? " " : below(random, 4) == 0 ? "\r\n" : "\n";
  }
  return table;
}

// Changes, doubles or removes a few bytes anywhere.
void mutate(std::string& table, Random& random) {
  for (std::size_t i = below(random, 4); i > 0 && !table.empty(); --i) {
    const std::size_t place = below(random, table.size());
    const std::size_t size = below(random, 30);
    switch (below(random, 3)) {
      case 0:
        table[place] = static_cast<char>(below(random, 256));
        break;
      case 1:
        table.insert(below(random, table.size()), table.substr(place, size));
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
  constexpr Random::result_type kSeed = 20240517;
  std::cout << "seed " << kSeed << '\n';
  Random random(kSeed);
  const TableFile file("");
  for (int round = 0; round < 2000 && !HasFailure(); ++round) {
    std::string table = madeTable(random);
    mutate(table, random);
    file.write(table);
    KEPMfgPPTableTxt reader(file.path());
    expectProperties(reader);
    if (HasFailure()) std::cout << "round " << round << ":\n" << table << '\n';
  }
}

}  // namespace
