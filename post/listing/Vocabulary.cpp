#include "post/listing/Vocabulary.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "host/modeler/Document.h"

namespace host {
namespace {

using Texts = KEPListValKEPUnicodeString;

constexpr std::pair<std::string_view, LengthUnit> kUnits[] = {
    {"MMPM", LengthUnit::Millimetre}, {"MMPR", LengthUnit::Millimetre}, {"IPM", LengthUnit::Inch},
    {"IPR", LengthUnit::Inch},        {"SMM", LengthUnit::Millimetre},  {"SFM", LengthUnit::Inch},
};

std::optional<LengthUnit> unitNamedBy(std::string_view word) {
  for (const auto& [name, unit] : kUnits) {
    if (name == word) return unit;
  }
  return std::nullopt;
}

/// The texts of an attribute of a type; none where either is missing.
Texts textsOf(const Document& document, std::string_view type, std::string_view attribute) {
  const KEPISpecAttrAccess_var feature =
      KEPISpecObject_var::Adopt(document.features()->FindStartUp(type));
  const auto found = feature ? feature->FindAttribute(attribute) : std::nullopt;
  return found ? found->GetTexts() : Texts();
}

bool hasLines(const Document& document, std::string_view instruction,
              std::string_view sequence = "Syntaxe") {
  return textsOf(document, instruction, sequence).Size() > 0;
}

/// The unit that an entry (from 1) of a word list names, where an instruction prints such a word.
std::optional<LengthUnit> printedUnit(const Document& document, std::string_view instruction,
                                      std::string_view list, int entry) {
  const Texts lines = textsOf(document, instruction, "Syntaxe");
  const bool printed =
      std::any_of(lines.begin(), lines.end(), [list](const KEPUnicodeString& line) {
        return line.View().find(list) != std::string_view::npos;
      });
  const Texts words = textsOf(document, list, "MultiListValue");
  if (!printed || words.Size() < entry) return std::nullopt;
  return unitNamedBy(words[entry].View());
}

bool isBare(const KEPUnicodeString& line) {
  return line.View().starts_with("%MFG_OUTPUT_COMMENT") ||
         line.View().starts_with("&MFG_OUTPUT_COMMENT");
}

}  // namespace

Vocabulary vocabularyOf(const Document& document) {
  Vocabulary vocabulary;
  vocabulary.feedPerMinute = printedUnit(document, "NC_FEEDRATE", "MFG_FEED_UNIT", 1);
  vocabulary.feedPerRevolution = printedUnit(document, "NC_FEEDRATE", "MFG_FEED_UNIT", 2);
  vocabulary.surfaceSpeed = printedUnit(document, "NC_SPINDLE_START", "MFG_SPNDL_UNIT", 2);
  vocabulary.coolant = hasLines(document, "NC_COOLANT") &&
                       hasLines(document, "NC_COOLANT", "Syntaxe2") &&
                       hasLines(document, "NC_COOLANT", "Syntaxe3");
  vocabulary.programStop = hasLines(document, "NC_PROGRAM_STOP");
  vocabulary.optionalStop = hasLines(document, "NC_OPTIONAL_STOP");
  const Texts lines = textsOf(document, "NC_OUTPUT_COMMENT", "Syntaxe");
  vocabulary.bareTexts = std::any_of(lines.begin(), lines.end(), isBare);
  return vocabulary;
}

}  // namespace host
