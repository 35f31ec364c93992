#include "tests/container/Listing.h"

#include <fstream>

namespace ppword::test {
namespace {

std::string attributeLines(const KEPISpecAttribute& attribute) {
  using Kind = KEPISpecAttribute::Kind;
  const std::string label = "  " + std::string(attribute.GetName());
  if (!attribute.IsSet()) return label + " unset\n";
  if (attribute.GetKind() == Kind::Integer) {
    return label + ": " + std::to_string(attribute.GetInteger()) + "\n";
  }
  if (attribute.GetTexts().Size() == 0) return label + " empty\n";
  std::string lines;
  for (const KEPUnicodeString& text : attribute.GetTexts()) {
    lines.append(label).append(": ").append(text.View()).append("\n");
  }
  return lines;
}

}  // namespace

std::string entryOf(const KEPISpecObject_var& feature) {
  std::string entry(feature->GetName());
  if (const KEPISpecObject_var base = feature->GetBaseType()) {
    entry.append(" : ").append(base->GetName());
  }
  entry += "\n";
  for (int i = 1; i <= feature->GetNumberOfAttributes(); ++i) {
    entry += attributeLines(feature->GetAttribute(i));
  }
  return entry;
}

std::vector<std::string> listing(const KEPIContainer_var& container) {
  std::vector<std::string> entries;
  for (const auto& member : container->ListMembersHere(KEPInterfaceId<KEPISpecObject>())) {
    entries.push_back(entryOf(member));
  }
  return entries;
}

std::vector<std::string> writtenOutCatalogue() {
  std::ifstream file(PPWORD_SOURCE_DIR "/tests/container/default_catalogue.txt");
  std::vector<std::string> entries;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("  ")) entries.emplace_back();
    entries.back() += line + "\n";
  }
  return entries;
}

References referencesOf(const KEPVar<host::Document>& document) {
  const KEPIContainer_var features = document->features();
  // Without the handles that count here.
  References references{document->GetReferenceCount(), features->GetReferenceCount() - 1, {}};
  for (const auto& member : features->ListMembersHere(KEPInterfaceId<KEPISpecObject>())) {
    references.members.push_back(member->GetReferenceCount() - 1);
  }
  return references;
}

std::ostream& operator<<(std::ostream& out, const References& references) {
  out << "document " << references.document << " container " << references.container << " members";
  for (const int count : references.members) out << ' ' << count;
  return out;
}

}  // namespace ppword::test
