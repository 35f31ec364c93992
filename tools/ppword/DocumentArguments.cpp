#include "tools/ppword/DocumentArguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "tools/ppword/Suggestion.h"

namespace {

using Action = DocumentOptions::Action;

struct ActionRow {
  std::string_view name;
  Action action;
  std::size_t least;
  std::size_t most;
  std::string_view needs;
};
constexpr std::array<ActionRow, 7> kActions{{
    {"new", Action::New, 0, 0, ""},
    {"load-table", Action::LoadTable, 1, 1, "TABLE"},
    {"show", Action::Show, 0, 1, ""},
    {"set-syntax", Action::SetSyntax, 1, 1, "LINE"},
    {"add-command", Action::AddCommand, 1, 2, "NAME"},
    {"reset", Action::Reset, 0, 0, ""},
    {"upgrade", Action::Upgrade, 0, 0, ""},
}};
constexpr std::array<std::string_view, 5> kSections = {"commands", "sequences", "lists", "formats",
                                                       "pp-commands"};

const ActionRow& rowOf(const std::string& name) {
  std::array<std::string_view, kActions.size()> names{};
  for (std::size_t i = 0; i < kActions.size(); ++i) {
    if (kActions[i].name == name) return kActions[i];
    names[i] = kActions[i].name;
  }
  throw ArgumentError("there is no action '" + name + "'" + suggestion(name, names));
}

int sequenceOf(const std::string& text) {
  int sequence = 0;
  const char* const end = text.data() + text.size();
  const auto [behind, error] = std::from_chars(text.data(), end, sequence);
  if (error == std::errc() && behind == end && sequence >= 1) return sequence;
  throw ArgumentError("NUMBER is a whole number from 1 to 2147483647, not '" + text + "'");
}

std::string sectionOf(const std::string& text) {
  if (std::find(kSections.begin(), kSections.end(), text) != kSections.end()) return text;
  throw ArgumentError("there is no section '" + text + "'" + suggestion(text, kSections));
}

}  // namespace

DocumentOptions documentOptions(const std::string& action, const std::string& file,
                                const std::vector<std::string>& arguments) {
  const ActionRow& row = rowOf(action);
  if (file.empty()) throw ArgumentError("FILE is required");
  if (arguments.size() < row.least) {
    throw ArgumentError(std::string(row.name) + " needs " + std::string(row.needs));
  }
  if (arguments.size() > row.most) {
    throw ArgumentError("'" + arguments[row.most] + "' is one argument too many");
  }
  DocumentOptions options;
  options.action = row.action;
  options.file = file;
  if (row.action == Action::LoadTable) options.table = arguments[0];
  if (row.action == Action::SetSyntax) options.line = arguments[0];
  if (row.action == Action::AddCommand) options.name = arguments[0];
  if (row.action == Action::AddCommand && arguments.size() > 1) {
    options.sequence = sequenceOf(arguments[1]);
  }
  if (row.action == Action::Show && !arguments.empty()) options.section = sectionOf(arguments[0]);
  return options;
}
