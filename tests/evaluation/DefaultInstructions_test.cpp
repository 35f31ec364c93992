#include <fstream>
#include <iterator>

#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "tests/generator/Generation.h"

namespace host::test {
namespace {

/// An NC instruction and the lines that it gives.
struct Instruction {
  std::string name;
  Lines lines;
};

/// What is written down: a line for each name, and lines that begin with "> " for what it gives.
std::vector<Instruction> expectedInstructions() {
  std::ifstream file(PPWORD_SOURCE_DIR "/tests/evaluation/default_instructions.txt");
  std::vector<Instruction> all;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("> ")) {
      all.back().lines.push_back(line.substr(2));
    } else {
      all.push_back({line, {}});
    }
  }
  return all;
}

/// The names of the types under MfgPPSyntax, in the order in which they were made.
Lines catalogueInstructions() {
  Lines names;
  const auto document = newDocument();
  for (const KEPISpecObject_var member :
       document->features()->ListMembersHere(KEPInterfaceId<KEPISpecObject>())) {
    const KEPISpecObject_var base = member->GetBaseType();
    if (base && base->GetName() == "MfgPPSyntax") names.emplace_back(member->GetName());
  }
  return names;
}

/// The lines of a job that set every value which the syntaxes of the catalogue name.
std::string everyValue() {
  std::ifstream file(PPWORD_SOURCE_DIR "/tests/evaluation/default_instructions.jsonl");
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What an instruction gives once every value is set.
Lines linesOf(std::string_view instruction) {
  const Posting posting =
      post(everyValue().append(R"({"nc":")").append(instruction).append(R"("})"));
  EXPECT_EQ(posting.error, "");
  EXPECT_EQ(posting.summary.unevaluated.total(), 0) << instruction;
  EXPECT_EQ(posting.lines.at(0), "RAPID");
  return {posting.lines.begin() + 1, posting.lines.end()};
}

TEST(DefaultInstructions, EachOneOfTheCatalogueIsWrittenDown) {
  Lines names;
  for (const Instruction& instruction : expectedInstructions()) names.push_back(instruction.name);
  EXPECT_EQ(names.size(), 80U);
  EXPECT_EQ(names, catalogueInstructions());
}

TEST(DefaultInstructions, EachOneGivesItsLinesWithNothingUnevaluated) {
  for (const Instruction& instruction : expectedInstructions()) {
    EXPECT_EQ(linesOf(instruction.name), instruction.lines) << instruction.name;
  }
}

TEST(DefaultInstructions, DelayByTimeHasNoUnit) {
  const std::string activity =
      R"({"activity":"Hole.1","kind":"machining","strategy":{"dwell":"time"},)"
      R"("parameters":{"MFG_DELAY_VALUE":{"real":0.5}}})";
  EXPECT_EQ(post(activity + "\n" + R"({"nc":"NC_DELAY"})").lines, Lines{"DELAY/    0.500000"});
}

}  // namespace
}  // namespace host::test
