#include "inspect/lint/LintCatalogue.h"

#include <algorithm>

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "host/modeler/Document.h"
#include "inspect/lint/LineWords.h"
#include "inspect/lint/SyntaxLineReader.h"
#include "language/number/NumberFormat.h"
#include "post/listing/Vocabulary.h"
#include "post/parameters/Parameters.h"

namespace host {
namespace {

// A number in a format without a field width has up to four digits before its point.
constexpr double kWideNumber = -8888.888888888888;

/// True for a format whose conversion has a field width.
bool hasFieldWidth(std::string_view format) {
  std::size_t at = format.find('%');
  while (at != format.npos && format.substr(at + 1).starts_with('%')) at = format.find('%', at + 2);
  if (at == format.npos) return false;
  at = format.find_first_not_of("-+ #0", at + 1);
  return at != format.npos && format[at] >= '1' && format[at] <= '9';
}

class CatalogueReader {
 public:
  LintCatalogue read() && {
    const KEPVar<Document> document = newDocument();
    for (const KEPISpecObject_var type :
         document->features()->ListMembersHere(KEPInterfaceId<KEPISpecObject>())) {
      readType(type);
    }
    for (const Parameter& known : knownParameters()) all_.parameters.try_emplace(known.name, 0);
    for (const auto& [name, width] : all_.parameters) all_.parameterNames.insert(name);
    all_.instructions.insert(std::begin(kListingInstructions), std::end(kListingInstructions));
    all_.nearParameters = nearTo(all_.parameterNames);
    all_.nearInstructions = nearTo(all_.instructions);
    return std::move(all_);
  }

 private:
  /// The names stay where they are when the catalogue is moved.
  static NearWords nearTo(const std::set<std::string, std::less<>>& names) {
    return NearWords({names.begin(), names.end()});
  }

  void readType(const KEPISpecObject_var& type) {
    const KEPISpecAttrAccess_var attributes = type;
    const auto lines = attributes->FindAttribute("Syntaxe");
    if (lines && lines->IsSet()) {
      all_.instructions.emplace(type->GetName());
      for (const KEPUnicodeString& line : lines->GetTexts()) readLine(line.View());
    } else {
      const std::string name(type->GetName());
      all_.parameters.insert_or_assign(name, widthOf(attributes));
      if (attributes->FindAttribute("MultiListValue")) all_.withList.insert(name);
      if (attributes->FindAttribute("Format")) all_.withFormat.insert(name);
      const bool hasValue = all_.withList.contains(name) || all_.withFormat.contains(name);
      if (!hasValue && name.starts_with("MFG_")) all_.typesWithoutValue.insert(name);
    }
  }

  void readLine(std::string_view line) {
    const LineReading& reading = reader_.read(line);
    for (const LineReference& reference : reading.references) {
      all_.parameters.try_emplace(std::string(reference.parameter), 0);
    }
    for (const LineWord& word : wordsOf(reading)) all_.words.emplace(word.text);
  }

  std::size_t widthOf(const KEPISpecAttrAccess_var& attributes) {
    const KEPUnicodeString* const format = attributes->FindText("Format");
    if (format != nullptr) return widthOfFormat(format->View());
    std::size_t width = 0;
    const auto words = attributes->FindAttribute("MultiListValue");
    if (!words || !words->IsSet()) return width;
    for (const KEPUnicodeString& word : words->GetTexts()) {
      all_.words.emplace(word.View());
      width = std::max(width, word.View().size());
    }
    return width;
  }

  SyntaxLineReader reader_;
  LintCatalogue all_;
};

}  // namespace

const LintCatalogue& lintCatalogue() {
  static const LintCatalogue catalogue = CatalogueReader().read();
  return catalogue;
}

std::size_t widthOfFormat(std::string_view format) {
  const double number = hasFieldWidth(format) ? -1.0 : kWideNumber;
  std::string text;
  return ppword::printNumber(format, number, text) ? text.size() : 0;
}

}  // namespace host
