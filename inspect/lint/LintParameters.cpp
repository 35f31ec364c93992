#include "inspect/lint/LintParameters.h"

#include <algorithm>
#include <vector>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "host/modeler/Document.h"
#include "inspect/lint/SyntaxLineReader.h"
#include "language/number/NumberFormat.h"
#include "post/text/SpellingSuggestion.h"

namespace host {
namespace {

// A number in a format without a field width has up to four digits before its point.
constexpr double kWideNumber = -8888.888888888888;

std::size_t longest(const KEPListValKEPUnicodeString& words) {
  std::size_t size = 0;
  for (const KEPUnicodeString& word : words) size = std::max(size, word.View().size());
  return size;
}

/// True for a format whose conversion has a field width.
bool hasFieldWidth(std::string_view format) {
  std::size_t at = format.find('%');
  while (at != format.npos && format.substr(at + 1).starts_with('%')) at = format.find('%', at + 2);
  if (at == format.npos) return false;
  at = format.find_first_not_of("-+ #0", at + 1);
  return at != format.npos && format[at] >= '1' && format[at] <= '9';
}

std::size_t widthOfFormat(std::string_view format) {
  const double number = hasFieldWidth(format) ? -1.0 : kWideNumber;
  std::string text;
  return ppword::printNumber(format, number, text) ? text.size() : 0;
}

}  // namespace

LintParameters::LintParameters(const TableBlocks& blocks) {
  // What the table says holds before the catalogue.
  readCatalogue();
  for (const auto& [name, width] : known_) catalogue_.insert(name);
  for (const auto& list : blocks.lists) {
    std::size_t width = 0;
    for (const Token& word : list.values) width = std::max(width, word.text.size());
    known_.insert_or_assign(std::string(list.name.text), width);
  }
  for (const auto& format : blocks.formats) {
    const std::string_view text = format.values.empty() ? "" : format.values.back().text;
    known_.insert_or_assign(std::string(format.name.text), widthOfFormat(text));
  }
}

void LintParameters::readCatalogue() {
  SyntaxLineReader reader;
  const KEPVar<Document> document = newDocument();
  const auto types = document->features()->ListMembersHere(KEPInterfaceId<KEPISpecObject>());
  for (const KEPISpecObject_var type : types) {
    const KEPISpecAttrAccess_var attributes = type;
    if (const auto lines = attributes->FindAttribute("Syntaxe"); lines && lines->IsSet()) {
      for (const KEPUnicodeString& line : lines->GetTexts()) {
        addReferences(reader.read(line.View()));
      }
      continue;
    }
    std::size_t width = 0;
    const auto words = attributes->FindAttribute("MultiListValue");
    if (words && words->IsSet()) width = longest(words->GetTexts());
    const KEPUnicodeString* const format = attributes->FindText("Format");
    if (format != nullptr) width = widthOfFormat(std::string(format->View()));
    known_.insert_or_assign(std::string(type->GetName()), width);
  }
}

void LintParameters::addReferences(const LineReading& reading) {
  for (const LineReference& reference : reading.references) {
    known_.try_emplace(std::string(reference.parameter), 0);
  }
}

std::string_view LintParameters::nearestTo(std::string_view name) const {
  const std::vector<std::string_view> names(catalogue_.begin(), catalogue_.end());
  return nearest(name, names);
}

std::size_t LintParameters::widthOf(std::string_view name) const {
  const auto found = known_.find(name);
  return found == known_.end() ? 0 : found->second;
}

}  // namespace host
