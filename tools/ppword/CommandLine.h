#pragma once

#include <variant>

#include "tools/ppword/ExitStatus.h"
#include "tools/ppword/Options.h"

/// The command that the arguments ask for; or the exit status of a run that ends here, because a
/// help text or the version was asked for and written, or because of a mistake that was told.
[[nodiscard]] std::variant<CommandOptions, ExitStatus> parseCommandLine(int argc,
                                                                        const char* const* argv);
