#include "post/listing/Vocabulary.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "host/modeler/Document.h"
#include "post/parameters/Parameters.h"
#include "post/text/TextLine.h"

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

bool refersTo(const KEPUnicodeString& line, std::string_view parameter) {
  const std::string_view text = line.View();
  const std::size_t at = text.find(parameter);
  return at != text.npos && at > 0 && (text[at - 1] == '%' || text[at - 1] == '&');
}

bool prints(const Texts& lines, std::string_view parameter) {
  return std::any_of(lines.begin(), lines.end(),
                     [&](const KEPUnicodeString& line) { return refersTo(line, parameter); });
}

/// The lines of statements, which begin with a word, with those that they go on in.
Texts statementsOf(const Texts& lines, const std::vector<std::string>& textWords) {
  Texts statements;
  bool goesOn = false;
  for (const KEPUnicodeString& line : lines) {
    const bool hasWord = line.View().find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") == 0;
    const bool isTaken = goesOn || (hasWord && !isTextLine(line.View(), textWords));
    if (isTaken) statements.Append(line);
    goesOn = isTaken && line.View().ends_with('$');
  }
  return statements;
}

OriginWords originWords(const Texts& lines) {
  const auto printsAll = [&lines](std::initializer_list<std::string_view> parameters) {
    return std::ranges::all_of(parameters,
                               [&](auto parameter) { return prints(lines, parameter); });
  };
  return {prints(lines, "MFG_ORIGIN_NUMBER"),
          printsAll({"MFG_NCAXIS_X_ORIG", "MFG_NCAXIS_Y_ORIG", "MFG_NCAXIS_Z_ORIG"}),
          printsAll({"MFG_NCAXIS_X_VECX", "MFG_NCAXIS_Y_VECX"})};
}

/// True when some instruction of a document refers to a parameter.
bool isAskedFor(const Document& document, std::string_view parameter) {
  const auto types = document.features()->ListMembersHere(KEPInterfaceId<KEPISpecObject>());
  for (const KEPISpecObject_var type : types) {
    for (int position = 1; position <= type->GetNumberOfAttributes(); ++position) {
      const Texts lines =
          textsOf(document, type->GetName(), type->GetAttribute(position).GetName());
      if (prints(lines, parameter)) return true;
    }
  }
  return false;
}

}  // namespace

bool writesBareTexts(const Document& document, const std::vector<std::string>& textWords) {
  const Texts lines = textsOf(document, "NC_OUTPUT_COMMENT", "Syntaxe");
  return std::any_of(lines.begin(), lines.end(), [&](const auto& line) {
    return refersTo(line, "MFG_OUTPUT_COMMENT") && !isTextLine(line.View(), textWords);
  });
}

Vocabulary vocabularyOf(const Document& document, const TableWords& table) {
  Vocabulary vocabulary;
  vocabulary.feedPerMinute = printedUnit(document, "NC_FEEDRATE", "MFG_FEED_UNIT", 1);
  vocabulary.feedPerRevolution = printedUnit(document, "NC_FEEDRATE", "MFG_FEED_UNIT", 2);
  vocabulary.surfaceSpeed = printedUnit(document, "NC_SPINDLE_START", "MFG_SPNDL_UNIT", 2);
  vocabulary.coolant = hasLines(document, "NC_COOLANT") &&
                       hasLines(document, "NC_COOLANT", "Syntaxe2") &&
                       hasLines(document, "NC_COOLANT", "Syntaxe3");
  vocabulary.programStop = hasLines(document, "NC_PROGRAM_STOP");
  vocabulary.optionalStop = hasLines(document, "NC_OPTIONAL_STOP");
  vocabulary.bareTexts = writesBareTexts(document, table.textWords);
  vocabulary.startMacro = table.startMacro && hasLines(document, "NC_START_MACRO");
  const Texts origin = textsOf(document, "NC_ORIGIN", "Syntaxe");
  if (table.origin && origin.Size() > 0) {
    vocabulary.origin = originWords(statementsOf(origin, table.textWords));
  }
  vocabulary.unit = isAskedFor(document, kUnitParameter);
  return vocabulary;
}

}  // namespace host
