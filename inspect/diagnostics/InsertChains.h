#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace host {

/// An "*INSERT" of a command body: the command that it names, and where it begins in the table.
struct Insert {
  std::string_view name;
  std::size_t offset = 0;
};

/// The body of an NC command or NC instruction as the table reader takes it. The names point into
/// the table.
struct CommandBody {
  std::string_view name;
  std::size_t elements = 0;
  std::vector<Insert> inserts;
};

/// A command whose lines cannot be read because of what it inserts.
struct InsertFault {
  const CommandBody* command;
  const Insert* insert;
  /// True: the chain of inserts comes back to itself. False: it has too many lines.
  bool endless;
};

/// The faults of `commands`, of which the first of a name is the one that inserts mean. Each fault
/// points into `commands`.
[[nodiscard]] std::vector<InsertFault> insertFaults(const std::vector<CommandBody>& commands);

}  // namespace host
