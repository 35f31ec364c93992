#include "tools/ppword/lsp/Catalogue.h"

#include <algorithm>
#include <optional>

#include "host/modeler/Document.h"

namespace lsp {
namespace {

Catalogue makeCatalogue() {
  Catalogue made{documentContents(*host::newDocument()), {}};
  made.parameters = parametersOf(made.contents, std::nullopt);
  return made;
}

}  // namespace

const Catalogue& catalogue() {
  static const Catalogue made = makeCatalogue();
  return made;
}

const InstructionEntry* Catalogue::instruction(std::string_view name) const {
  const auto found = std::find_if(contents.commands.begin(), contents.commands.end(),
                                  [name](const auto& entry) { return entry.name == name; });
  return found == contents.commands.end() ? nullptr : &*found;
}

const ParameterEntry* Catalogue::parameter(std::string_view name) const {
  const auto found = std::find_if(parameters.begin(), parameters.end(),
                                  [name](const auto& entry) { return entry.name == name; });
  return found == parameters.end() ? nullptr : &*found;
}

std::string parameterMeaning(std::string_view name) {
  const host::Parameter* const known = host::findParameter(name);
  return known == nullptr ? std::string() : host::meaningOf(*known);
}

}  // namespace lsp
