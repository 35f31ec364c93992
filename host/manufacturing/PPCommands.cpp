#include "host/manufacturing/PPCommands.h"

namespace host {

std::vector<KEPIMfgPPCommand_var> ppCommands(const Document& document) {
  std::vector<KEPIMfgPPCommand_var> commands;
  for (const auto& member :
       document.features()->ListMembersHere(KEPInterfaceId<KEPIMfgPPCommand>())) {
    // The type that commands are made of is no command.
    const bool isInstance = KEPVar<Feature>(member)->kind() == Feature::Kind::Instance;
    if (isInstance) commands.emplace_back(member);
  }
  return commands;
}

}  // namespace host
