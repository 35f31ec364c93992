#include <nlohmann/json.hpp>

#include "tools/ppword/Contents.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/StandardStreams.h"

namespace {

Json optionalJson(const std::optional<std::string>& text) {
  return text ? textJson(*text) : Json(nullptr);
}

Json linesJson(const std::optional<Lines>& lines) {
  return lines ? textsJson(*lines) : Json(nullptr);
}

Json wordsJson(const Contents& contents) {
  if (!contents.words) return nullptr;
  Json array = Json::array();
  for (const AptWord& word : *contents.words) {
    array.push_back({{"word", textJson(word.word)},
                     {"kind", word.kind},
                     {"code", word.code ? Json(*word.code) : Json(nullptr)}});
  }
  return array;
}

Json commandsJson(const Contents& contents) {
  Json array = Json::array();
  for (const InstructionEntry& command : contents.commands) {
    array.push_back({{"name", optionalJson(command.name)}, {"lines", linesJson(command.lines)}});
  }
  return array;
}

Json sequencesJson(const Contents& contents) {
  Json array = Json::array();
  for (const InstructionEntry& command : contents.commands) {
    for (std::size_t i = 0; i < command.sequences.size(); ++i) {
      array.push_back({{"name", optionalJson(command.name)},
                       {"sequence", i + 1},
                       {"lines", linesJson(command.sequences[i])}});
    }
  }
  return array;
}

Json listsJson(const Contents& contents) {
  Json array = Json::array();
  for (const ListEntry& list : contents.lists) {
    array.push_back({{"name", optionalJson(list.name)}, {"values", linesJson(list.values)}});
  }
  return array;
}

Json formatsJson(const Contents& contents) {
  Json array = Json::array();
  for (const FormatEntry& format : contents.formats) {
    array.push_back({{"name", optionalJson(format.name)}, {"format", optionalJson(format.format)}});
  }
  return array;
}

Json ppCommandsJson(const Contents& contents) {
  Json array = Json::array();
  for (const PPCommandEntry& command : contents.ppCommands.value_or(PPCommandEntries{})) {
    array.push_back({{"position", array.size() + 1},
                     {"name", optionalJson(command.name)},
                     {"sequence", command.sequence ? Json(*command.sequence) : Json(nullptr)}});
  }
  return array;
}

Json contentsJson(const Contents& contents, std::string_view section) {
  const auto wanted = [section](std::string_view name) {
    return section.empty() || section == name;
  };
  Json json = Json::object();
  if (wanted("words")) json["words"] = wordsJson(contents);
  if (wanted("syntaxes")) json["syntaxes"] = linesJson(contents.syntaxes);
  if (wanted("commands")) json["commands"] = commandsJson(contents);
  if (wanted("sequences")) json["sequences"] = sequencesJson(contents);
  if (wanted("lists")) json["lists"] = listsJson(contents);
  if (wanted("formats")) json["formats"] = formatsJson(contents);
  if (section.empty() && !contents.otherParameters.empty()) {
    json["otherParameters"] = linesJson(contents.otherParameters);
  }
  const bool hasCommands = contents.ppCommands && !contents.ppCommands->empty();
  if (section == kPPCommands || (section.empty() && hasCommands)) {
    json["ppCommands"] = ppCommandsJson(contents);
  }
  return json;
}

}  // namespace

void showContents(const Contents& contents, std::string_view section, OutputFormat format) {
  writeOutput(format == OutputFormat::ForPrograms ? documentText(contentsJson(contents, section))
                                                  : contentsText(contents, section));
}
