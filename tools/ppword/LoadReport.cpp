#include "tools/ppword/LoadReport.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <utility>

#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Contents.h"

namespace {

using Section = KEPMfgPPWordListener::Section;
using Outcome = KEPMfgPPWordListener::Outcome;

constexpr std::size_t kWidth = 92;

std::string_view nameOf(Section section) {
  constexpr std::array<std::string_view, 4> kNames = {"command", "sequence", "list", "format"};
  return kNames[static_cast<std::size_t>(section)];
}

std::string entryText(Section section, int number, std::string_view name) {
  std::string text = std::string(nameOf(section)) + ' ' + std::to_string(number);
  if (section == Section::Sequence) return text + " of " + std::string(name);
  return name.empty() ? text : text + ' ' + std::string(name);
}

std::string_view reasonOf(Section section, Outcome outcome) {
  if (outcome == Outcome::NeverLoaded) return "this command is never loaded";
  if (outcome == Outcome::NameUnreadable) return "its name cannot be read";
  if (outcome == Outcome::NotDeclared)
    return "the document's type with this name has no such value";
  const bool command = section == Section::Command || section == Section::Sequence;
  return command ? "its lines cannot be read" : "its values cannot be read";
}

// Names separated by commas, in indented lines of limited width.
std::string wrapped(const std::vector<std::string>& names) {
  std::string text;
  std::string line = "   ";
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string word = ' ' + host::terminalSafe(names[i]) + (i + 1 < names.size() ? "," : "");
    if (line.size() + word.size() > kWidth && line.size() > 3) {
      text += std::exchange(line, "   ") + '\n';
    }
    line += word;
  }
  return names.empty() ? "    nothing\n" : text + line + '\n';
}

Json namesJson(const std::vector<std::string>& names) {
  Json array = Json::array();
  for (const std::string& name : names) array.push_back(textJson(name));
  return array;
}

}  // namespace

void LoadReport::TableEntry(Section section, int number, std::string_view name, Outcome outcome) {
  const bool taken = outcome == Outcome::Created || outcome == Outcome::Replaced;
  if (taken && section == Section::Sequence) return;
  if (taken) {
    if (section == Section::Command) instructions_.emplace(name);
    (outcome == Outcome::Created ? added_ : replaced_).emplace_back(name);
    return;
  }
  const bool parameter = section == Section::MultiList || section == Section::Format;
  if (parameter && outcome == Outcome::ContentUnreadable) emptied_.emplace_back(name);
  skipped_.push_back({entryText(section, number, name), std::string(reasonOf(section, outcome)),
                      outcome != Outcome::NeverLoaded});
}

long LoadReport::missing() const {
  return std::count_if(skipped_.begin(), skipped_.end(),
                       [](const Skipped& entry) { return entry.missing; });
}

std::vector<std::string> LoadReport::fromCatalogue(const host::Document& document) const {
  std::set<std::string> fromTable(added_.begin(), added_.end());
  fromTable.insert(replaced_.begin(), replaced_.end());
  fromTable.insert(emptied_.begin(), emptied_.end());
  std::vector<std::string> names;
  const auto add = [&](const std::optional<std::string>& name) {
    if (name && !fromTable.contains(*name)) names.push_back(*name);
  };
  const Contents contents = documentContents(document);
  for (const auto& entry : contents.commands) add(entry.name);
  for (const auto& entry : contents.lists) add(entry.name);
  for (const auto& entry : contents.formats) add(entry.name);
  for (const auto& name : contents.otherParameters) add(name);
  return names;
}

std::string LoadReport::text(const host::Document& document) const {
  std::string text = "  from the table, new:\n" + wrapped(added_);
  text += "  from the table, replacing the default catalogue's:\n" + wrapped(replaced_);
  text += "  skipped:\n";
  if (skipped_.empty()) text += "    nothing\n";
  for (const Skipped& entry : skipped_) {
    text += "    " + host::terminalSafe(entry.entry) + ": " + entry.reason + '\n';
  }
  return text + "  from the default catalogue:\n" + wrapped(fromCatalogue(document));
}

Json LoadReport::json(const host::Document& document) const {
  Json skipped = Json::array();
  for (const Skipped& entry : skipped_) {
    skipped.push_back({{"entry", textJson(entry.entry)}, {"reason", entry.reason}});
  }
  return {{"added", namesJson(added_)},
          {"replaced", namesJson(replaced_)},
          {"skipped", skipped},
          {"fromDefaultCatalogue", namesJson(fromCatalogue(document))}};
}
