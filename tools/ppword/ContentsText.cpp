#include <algorithm>
#include <array>

#include "inspect/diagnostics/Diagnostic.h"
#include "tools/ppword/Contents.h"

namespace {

constexpr std::string_view kUnreadable = "(cannot be read)";
constexpr std::array<std::string_view, 5> kKinds = {"", "major word without parameters",
                                                    "major word with text",
                                                    "major word with parameters", "minor word"};

std::string shown(const std::optional<std::string>& text) {
  return text ? host::terminalSafe(*text) : std::string(kUnreadable);
}

std::string heading(std::string_view name, std::size_t count) {
  return std::string(name) + " (" + std::to_string(count) + ")\n";
}

// A line of two columns.
std::string row(const std::string& left, std::size_t width, const std::string& right) {
  std::string text = "  " + left;
  if (!right.empty()) text.append(width - std::min(width, left.size()) + 2, ' ').append(right);
  return text + '\n';
}

template <class Entries>
std::size_t widest(const Entries& entries) {
  std::size_t width = 0;
  for (const auto& entry : entries) width = std::max(width, shown(entry.name).size());
  return width;
}

std::string indented(const std::optional<Lines>& lines) {
  if (!lines) return "      " + std::string(kUnreadable) + '\n';
  std::string text;
  for (const std::string& line : *lines) text += "      " + host::terminalSafe(line) + '\n';
  return text;
}

std::string joined(const std::optional<Lines>& values) {
  if (!values) return std::string(kUnreadable);
  std::string text;
  for (const std::string& value : *values) {
    text += (text.empty() ? "" : ", ") + host::terminalSafe(value);
  }
  return text;
}

std::string wordsText(const Contents& contents) {
  if (!contents.words) return "words: " + std::string(kUnreadable) + '\n';
  std::size_t width = 0;
  bool paired = true;
  for (const AptWord& word : *contents.words) {
    width = std::max(width, host::terminalSafe(word.word).size());
    paired = paired && word.code.has_value();
  }
  std::string text = heading("words", contents.words->size());
  for (const AptWord& word : *contents.words) {
    std::string code = word.code ? std::to_string(*word.code) : "?";
    code.append(code.size() < 6 ? 6 - code.size() : 0, ' ');
    text +=
        row(host::terminalSafe(word.word), width, code + "  " + std::string(kindName(word.kind)));
  }
  if (!paired) text += "  A word has no code, or a code no word: no codes can be shown.\n";
  return text;
}

std::string syntaxesText(const Contents& contents) {
  if (!contents.syntaxes) return "syntaxes: " + std::string(kUnreadable) + '\n';
  std::string text = heading("syntaxes", contents.syntaxes->size());
  for (const std::string& syntax : *contents.syntaxes)
    text += row(host::terminalSafe(syntax), 0, "");
  return text;
}

std::string commandsText(const Contents& contents) {
  std::string text = heading("commands", contents.commands.size());
  for (const InstructionEntry& command : contents.commands) {
    text += row(shown(command.name), 0, "");
    if (command.name) text += indented(command.lines);
  }
  return text;
}

std::string sequencesText(const Contents& contents) {
  std::string text;
  std::size_t count = 0;
  for (const InstructionEntry& command : contents.commands) {
    for (std::size_t i = 0; i < command.sequences.size(); ++i) {
      text += row(shown(command.name) + ", sequence " + std::to_string(i + 1), 0, "");
      text += indented(command.sequences[i]);
    }
    count += command.sequences.size();
  }
  return heading("sequences", count) + text;
}

std::string listsText(const Contents& contents) {
  std::string text = heading("lists", contents.lists.size());
  const std::size_t width = widest(contents.lists);
  for (const ListEntry& list : contents.lists) {
    text += row(shown(list.name), width, list.name ? joined(list.values) : "");
  }
  return text;
}

std::string formatsText(const Contents& contents) {
  std::string text = heading("formats", contents.formats.size());
  const std::size_t width = widest(contents.formats);
  for (const FormatEntry& format : contents.formats) {
    text += row(shown(format.name), width, format.name ? shown(format.format) : "");
  }
  return text;
}

std::string otherParametersText(const Contents& contents) {
  if (contents.otherParameters.empty()) return "";
  std::string text = heading("parameters without list or format", contents.otherParameters.size());
  for (const std::string& name : contents.otherParameters) text += row(name, 0, "");
  return text;
}

std::string ppCommandsText(const Contents& contents) {
  const PPCommandEntries commands = contents.ppCommands.value_or(PPCommandEntries{});
  std::string text = heading("PP commands", commands.size());
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const auto& [name, sequence] = commands[i];
    text += row(std::to_string(i + 1), 0,
                (name ? host::terminalSafe(*name) : "(no name)") +
                    (sequence ? ", sequence " + std::to_string(*sequence) : ", no sequence"));
  }
  return text;
}

struct ShownSection {
  std::string_view name;
  std::string (*text)(const Contents&);
};
constexpr std::array<ShownSection, 6> kSections = {{{"words", wordsText},
                                                    {"syntaxes", syntaxesText},
                                                    {"commands", commandsText},
                                                    {"sequences", sequencesText},
                                                    {"lists", listsText},
                                                    {"formats", formatsText}}};

}  // namespace

std::string_view kindName(int kind) { return kKinds[static_cast<std::size_t>(kind)]; }

std::string contentsText(const Contents& contents, std::string_view section) {
  std::string text;
  for (const ShownSection& candidate : kSections) {
    if (section.empty() || candidate.name == section) text += candidate.text(contents);
  }
  const bool hasCommands = contents.ppCommands && !contents.ppCommands->empty();
  if (section.empty()) text += otherParametersText(contents);
  if (section == kPPCommands || (section.empty() && hasCommands)) text += ppCommandsText(contents);
  return text;
}
