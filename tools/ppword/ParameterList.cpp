#include "tools/ppword/ParameterList.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/system/TextHash.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/lint/SyntaxLineReader.h"
#include "post/text/FoldedLines.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/StandardStreams.h"

namespace {

constexpr std::string_view kIndent = "      ";
constexpr std::string_view kDefaultFormat = "%12.6f";

class ParameterEntries {
 public:
  explicit ParameterEntries(const Contents& contents) {
    for (const host::Parameter& known : host::knownParameters()) entryOf(known.name);
    for (const FormatEntry& format : contents.formats) {
      if (format.name) entryOf(*format.name).format = format.format;
    }
    for (const ListEntry& list : contents.lists) {
      if (list.name) entryOf(*list.name).list = list.values;
    }
    for (const std::string& name : contents.otherParameters) entryOf(name);
    for (const InstructionEntry& instruction : contents.commands) addUses(instruction);
  }

  [[nodiscard]] std::vector<ParameterEntry> take() && { return std::move(entries_); }

 private:
  ParameterEntry& entryOf(std::string_view name) {
    const auto [known, isNew] = indexes_.try_emplace(std::string(name), entries_.size());
    if (isNew) {
      entries_.push_back({std::string(name), host::findParameter(name), {}, {}, {}});
    }
    return entries_[known->second];
  }

  void addUses(const InstructionEntry& instruction) {
    if (!instruction.name) return;
    if (instruction.sequences.empty()) addUses(*instruction.name, instruction.lines);
    for (const auto& lines : instruction.sequences) addUses(*instruction.name, lines);
  }

  void addUses(const std::string& instruction, const std::optional<Lines>& lines) {
    for (const std::string& line : lines.value_or(Lines{})) {
      for (const host::LineReference& reference : reader_.read(line).references) {
        if (reference.isExpression || reference.parameter.empty()) continue;
        auto& uses = entryOf(reference.parameter).instructions;
        if (uses.empty() || uses.back() != instruction) uses.push_back(instruction);
      }
    }
  }

  std::vector<ParameterEntry> entries_;
  host::TextMap<std::size_t> indexes_;
  host::SyntaxLineReader reader_;
};

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) {
    all.append(all.empty() ? "" : ", ").append(host::terminalSafe(text));
  }
  return all;
}

std::string indented(const std::string& text) {
  constexpr std::size_t kLeft = host::kScreenColumns - kIndent.size();
  std::string lines;
  for (const std::string& line : host::foldedLines(text, kLeft, kLeft)) {
    (lines += kIndent) += line + '\n';
  }
  return lines;
}

// "format %11.5f", or the words of the list.
std::string printedAs(const ParameterEntry& entry) {
  if (entry.list) return "; words: " + joined(*entry.list);
  const bool isKnown = entry.known != nullptr;
  const auto type = isKnown ? entry.known->row->type : host::ParameterType::Text;
  if (type == host::ParameterType::FixedReal) {
    return "; always in the format " + std::string(kDefaultFormat);
  }
  if (entry.format) return "; format " + host::terminalSafe(*entry.format);
  return type == host::ParameterType::Real ? "; format " + std::string(kDefaultFormat) : "";
}

std::string kindText(const ParameterEntry& entry) {
  if (entry.known == nullptr) {
    return "not known; an activity, its tool, assembly or insert can have it" + printedAs(entry);
  }
  const host::ParameterRow& row = *entry.known->row;
  std::string text(host::typeName(row.type));
  if (!row.unit.empty()) (text += ", unit: ") += row.unit;
  ((text += "; from the ") += host::sourceName(row.source)) += ", in a job ";
  return (text += row.job) + printedAs(entry);
}

std::string entryText(const ParameterEntry& entry) {
  std::string text = "  " + host::terminalSafe(entry.name) + '\n';
  if (entry.known != nullptr) text += indented(host::meaningOf(*entry.known));
  text += indented(kindText(entry));
  if (!entry.instructions.empty()) text += indented("used by " + joined(entry.instructions));
  return text;
}

Json entryJson(const ParameterEntry& entry) {
  Json json{{"name", textJson(entry.name)}};
  const host::ParameterRow* const row = entry.known == nullptr ? nullptr : entry.known->row;
  json["meaning"] = row == nullptr ? Json() : Json(host::meaningOf(*entry.known));
  json["type"] = row == nullptr ? Json() : Json(host::typeName(row->type));
  json["unit"] = row == nullptr || row->unit.empty() ? Json() : Json(row->unit);
  json["source"] = row == nullptr ? Json() : Json(host::sourceName(row->source));
  json["job"] = row == nullptr ? Json() : Json(row->job);
  json["format"] = entry.format ? textJson(*entry.format) : Json();
  json["list"] = entry.list ? textsJson(*entry.list) : Json();
  json["instructions"] = textsJson(entry.instructions);
  return json;
}

}  // namespace

std::vector<ParameterEntry> parametersOf(const Contents& contents,
                                         const std::optional<std::string>& instruction) {
  std::vector<ParameterEntry> all = ParameterEntries(contents).take();
  if (!instruction) return all;
  std::erase_if(all, [&instruction](const ParameterEntry& entry) {
    const auto& uses = entry.instructions;
    return std::find(uses.begin(), uses.end(), *instruction) == uses.end();
  });
  return all;
}

void showParameters(const std::vector<ParameterEntry>& parameters, OutputFormat format) {
  if (format == OutputFormat::ForPrograms) {
    Json array = Json::array();
    for (const ParameterEntry& entry : parameters) array.push_back(entryJson(entry));
    return writeOutput(documentText({{"parameters", std::move(array)}}));
  }
  std::string text = "parameters (" + std::to_string(parameters.size()) + ")\n";
  for (const ParameterEntry& entry : parameters) text += entryText(entry);
  writeOutput(text);
}
