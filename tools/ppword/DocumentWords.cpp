#include <cstdlib>
#include <string>
#include <utility>

#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "tools/ppword/Contents.h"
#include "tools/ppword/ReaderWords.h"

namespace {

void addInstruction(InstructionEntry& entry, verify::DocumentWords& words) {
  auto& sequences = words.instructions[entry.name.value_or("")];
  if (entry.sequences.empty()) entry.sequences.push_back(std::move(entry.lines));
  for (auto& lines : entry.sequences) sequences.push_back(std::move(lines).value_or(Lines()));
}

}  // namespace

verify::DocumentWords documentWords(const host::Document& document) {
  verify::DocumentWords words;
  Contents contents = documentContents(document);
  for (InstructionEntry& entry : contents.commands) addInstruction(entry, words);
  for (ListEntry& entry : contents.lists) {
    words.lists.emplace(entry.name.value_or(""), std::move(entry.values).value_or(Lines()));
  }
  for (FormatEntry& entry : contents.formats) {
    words.formats.emplace(entry.name.value_or(""), std::move(entry.format).value_or(""));
  }
  for (std::string& name : contents.emptyFormats) words.formats.emplace(std::move(name), "");
  for (const PPCommandEntry& entry : contents.ppCommands.value_or(PPCommandEntries())) {
    words.ppCommands.emplace_back(entry.name.value_or(""), entry.sequence.value_or(1));
  }
  const char* const unevaluated = std::getenv("MFG_UNEVALUATED_PPPARAMETER");
  if (unevaluated != nullptr) words.unevaluated = unevaluated;
  return words;
}

verify::Generation currentGeneration() {
  constexpr int kNcDataFormat = 1;
  verify::Generation current;
  const auto generation = KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData();
  if (!generation) return current;
  generation->GetAngleFactor(current.angleFactor);
  const KEPIMfgOutputSettings_var settings = generation->GetOutputSettings();
  if (!settings) return current;
  current.pointFormat = settings->GetPointFormat(kNcDataFormat).View();
  current.axisFormat = settings->GetAxisFormat(kNcDataFormat).View();
  return current;
}
