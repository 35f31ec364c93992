#pragma once

#include <vector>

#include "KEPIMfgPPCommand.h"
#include "host/modeler/Document.h"

namespace host {

/// The PP commands of a document, each an instance in its PP word container, in the order of their
/// making. They have no name of their own: a command is known by its position here, from 1.
[[nodiscard]] KEP_PLATFORM std::vector<KEPIMfgPPCommand_var> ppCommands(const Document& document);

}  // namespace host
