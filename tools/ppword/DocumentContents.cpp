#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "host/modeler/Document.h"
#include "tools/ppword/Contents.h"

namespace {

std::optional<Lines> textsOf(const KEPISpecObject_var& type, std::string_view attribute) {
  const auto found = KEPISpecAttrAccess_var(type)->FindAttribute(attribute);
  if (!found || !found->IsSet()) return std::nullopt;
  Lines texts;
  for (const KEPUnicodeString& text : found->GetTexts()) texts.emplace_back(text.View());
  return texts;
}

void addParameter(const KEPISpecObject_var& type, Contents& contents) {
  const std::string name(type->GetName());
  if (const auto values = textsOf(type, "MultiListValue")) {
    contents.lists.push_back({name, values});
  } else if (const auto format = textsOf(type, "Format"); format && !format->empty()) {
    contents.formats.push_back({name, format->front()});
  } else {
    contents.otherParameters.push_back(name);
    if (format) contents.emptyFormats.push_back(name);
  }
}

/// The lines of every sequence of an instruction; none of one that has a single sequence.
std::vector<std::optional<Lines>> sequencesOf(const KEPISpecObject_var& type) {
  std::vector<std::optional<Lines>> sequences;
  const int count = type->GetNumberOfAttributes();
  for (int position = 1; count > 1 && position <= count; ++position) {
    sequences.push_back(textsOf(type, type->GetAttribute(position).GetName()));
  }
  return sequences;
}

PPCommandEntry entryOf(const KEPIMfgPPCommand& command) {
  PPCommandEntry entry;
  KEPUnicodeString name;
  int sequence = 0;
  if (command.GetCommandName(name)) entry.name = name.View();
  if (command.GetSequenceNumber(sequence)) entry.sequence = sequence;
  return entry;
}

}  // namespace

Contents documentContents(const host::Document& document) {
  Contents contents{std::vector<AptWord>{}, Lines{}, {}, {}, {}, {}, {}};
  const auto types = document.features()->ListMembersHere(KEPInterfaceId<KEPISpecObject>());
  for (const KEPISpecObject_var type : types) {
    const KEPISpecObject_var base = type->GetBaseType();
    const std::string_view baseName = base ? base->GetName() : std::string_view();
    if (baseName == "MfgPPSyntax") {
      contents.commands.push_back(
          {std::string(type->GetName()), textsOf(type, "Syntaxe"), sequencesOf(type)});
    } else if (baseName == "MfgPPParameter") {
      addParameter(type, contents);
    }
  }
  contents.ppCommands.emplace();
  for (const auto& command : host::ppCommands(document)) {
    contents.ppCommands->push_back(entryOf(*command));
  }
  return contents;
}
