#include "inspect/diagnostics/InsertChains.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "language/table/CommandSyntax.h"

namespace host {
namespace {

using ppword::kMostElements;

// Expands the commands from those that insert nothing upwards; a command that is never reached has
// an endless chain.
class Expansion {
 public:
  explicit Expansion(const std::vector<CommandBody>& commands)
      : commands_(commands), sizes_(commands.size()), waitingFor_(commands.size()) {
    for (std::size_t i = 0; i < commands.size(); ++i) places_.try_emplace(commands[i].name, i);
    for (std::size_t i = 0; i < commands.size(); ++i) connect(i);
    run();
  }

  [[nodiscard]] std::optional<InsertFault> faultOf(std::size_t i) const {
    const CommandBody& command = commands_[i];
    for (const Insert& insert : command.inserts) {
      const auto target = places_.find(insert.name);
      if (target == places_.end()) continue;
      if (!sizes_[target->second]) return InsertFault{&command, &insert, true};
    }
    if (command.inserts.empty() || sizes_[i].value_or(0) <= kMostElements) return std::nullopt;
    return InsertFault{&command, &command.inserts.front(), false};
  }

 private:
  void connect(std::size_t i) {
    for (const Insert& insert : commands_[i].inserts) {
      const auto target = places_.find(insert.name);
      if (target == places_.end()) continue;
      users_[target->second].push_back(i);
      ++waitingFor_[i];
    }
    if (waitingFor_[i] == 0) ready_.push_back(i);
  }

  void run() {
    while (!ready_.empty()) {
      const std::size_t i = ready_.back();
      ready_.pop_back();
      sizes_[i] = sizeOf(commands_[i]);
      for (const std::size_t user : users_[i]) {
        if (--waitingFor_[user] == 0) ready_.push_back(user);
      }
    }
  }

  [[nodiscard]] std::size_t sizeOf(const CommandBody& command) const {
    std::size_t size = command.elements;
    for (const Insert& insert : command.inserts) {
      const auto target = places_.find(insert.name);
      if (target != places_.end()) size += *sizes_[target->second];
      size = std::min(size, kMostElements + 1);
    }
    return size;
  }

  const std::vector<CommandBody>& commands_;
  std::unordered_map<std::string_view, std::size_t> places_;
  std::unordered_map<std::size_t, std::vector<std::size_t>> users_;
  std::vector<std::optional<std::size_t>> sizes_;
  std::vector<std::size_t> waitingFor_;
  std::vector<std::size_t> ready_;
};

}  // namespace

std::vector<InsertFault> insertFaults(const std::vector<CommandBody>& commands) {
  const Expansion expansion(commands);
  std::vector<InsertFault> faults;
  for (std::size_t i = 0; i < commands.size(); ++i) {
    if (const auto fault = expansion.faultOf(i)) faults.push_back(*fault);
  }
  return faults;
}

}  // namespace host
