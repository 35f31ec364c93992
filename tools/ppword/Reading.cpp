#include "tools/ppword/Reading.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <vector>

namespace {

constexpr double kSmallestChord = 1e-6;
constexpr double kLargestChord = 1000.0;
constexpr long kLongestTimeout = 86400;
constexpr std::string_view kNoName = "a file name is expected, not an empty text";

// "'x' is not a, b or c".
std::string noneOf(std::string_view text, std::string_view words) {
  return (("'" + std::string(text)) += "' is not ") += words;
}

void takeUnits(std::string_view text, ToolPathOptions& options, std::string& reason) {
  options.units = host::outputUnit(text);
  if (!options.units) reason = "'" + std::string(text) + "' is neither mm nor inch";
}

void takeRotary(std::string_view text, ToolPathOptions& options, std::string& reason) {
  options.rotary = host::RotaryChain::parse(text, reason);
}

void takeChord(std::string_view text, ToolPathOptions& options, std::string& reason) {
  double length = 0.0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, length);
  const bool isLength =
      error == std::errc() && rest == end && length >= kSmallestChord && length <= kLargestChord;
  if (isLength) {
    options.chord = length;
  } else {
    reason = noneOf(text, "a length from 0.000001 to 1000 in millimetres");
  }
}

void takeHelices(std::string_view text, ToolPathOptions& options, std::string& reason) {
  options.helicesAsChords = text == "chords";
  if (text != "chords" && text != "helix") {
    reason = "'" + std::string(text) + "' is neither helix nor chords";
  }
}

void takeOrigins(std::string_view text, ToolPathOptions& options, std::string& reason) {
  options.convertsOrigins = text == "convert";
  if (text != "convert" && text != "lines") {
    reason = "'" + std::string(text) + "' is neither lines nor convert";
  }
}

void takeComments(std::string_view text, ToolPathOptions& options, std::string& reason) {
  using enum host::ListedTexts;
  if (text == "all") {
    options.comments = All;
  } else if (text == "program") {
    options.comments = Program;
  } else if (text == "none") {
    options.comments = None;
  } else {
    reason = noneOf(text, "all, program or none");
  }
}

void takeTools(std::string_view text, ToolPathOptions& options, std::string& reason) {
  options.tools = text;
  if (text.empty()) reason = kNoName;
}

void takeMachine(std::string_view text, ToolPathOptions& options, std::string& reason) {
  options.machine = text;
  if (text.empty()) reason = kNoName;
}

void takeMachineUnits(std::string_view text, ToolPathOptions& options, std::string& reason) {
  const auto unit = host::outputUnit(text);
  if (unit) options.machineUnits = *unit;
  if (!unit) reason = "'" + std::string(text) + "' is neither mm nor inch";
}

void takeUnknownTools(std::string_view /*text*/, ToolPathOptions& options,
                      std::string& /*reason*/) {
  options.unknownTools = true;
}

void takeTimeout(std::string_view text, ToolPathOptions& options, std::string& reason) {
  long seconds = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, seconds);
  const bool isTime =
      error == std::errc() && rest == end && seconds >= 1 && seconds <= kLongestTimeout;
  if (isTime) {
    options.timeout = std::chrono::seconds(seconds);
  } else {
    reason = noneOf(text, "a whole number of seconds from 1 to 86400");
  }
}

constexpr auto kBoth = ReadingScope::ListingsAndPrograms;
constexpr auto kPrograms = ReadingScope::Programs;

constexpr ReadingOption kOptions[] = {
    {kBoth, "units", "mm|inch", "Unit of the text", takeUnits},
    {kBoth, "rotary", "AXES", "What the rotary words turn", takeRotary},
    {kBoth, "chord", "LENGTH", "How far a chord may be from its arc, in mm: 0.01", takeChord},
    {kBoth, "helices", "helix|chords", "How arcs that rise are written: helix", takeHelices},
    {kBoth, "origins", "lines|convert", "Changes of the coordinate system: lines", takeOrigins},
    {kBoth, "comments", "all|program|none", "Which comments are written: program", takeComments},
    {kBoth, "tools", "FILE", "Tool table with names, diameters and lengths", takeTools},
    {kBoth, "machine-units", "mm|inch", "Unit of --tools and --machine: mm", takeMachineUnits},
    {kPrograms, "machine", "FILE", "Machine parameters: offsets, G28, G30", takeMachine},
    {kPrograms, "unknown-tools", "", "Take tools that are in no table", takeUnknownTools},
    {kPrograms, "timeout", "SECONDS", "How long rs274 may run: 60", takeTimeout},
};

}  // namespace

std::span<const ReadingOption> readingOptions() { return kOptions; }

std::string setReading(std::string_view name, std::string_view text, ToolPathOptions& options) {
  const auto* const option =
      std::find_if(std::begin(kOptions), std::end(kOptions),
                   [name](const ReadingOption& each) { return each.name == name; });
  if (option == std::end(kOptions)) return "there is no option '" + std::string(name) + "'";
  std::string reason;
  option->take(text, options, reason);
  if (reason.empty()) options.reading.insert_or_assign(std::string(name), std::string(text));
  return reason;
}

std::string readingNames(ReadingScope scope) {
  std::vector<std::string_view> names;
  for (const ReadingOption& option : kOptions) {
    if (option.scope == scope) names.push_back(option.name);
  }
  std::string text;
  for (const std::string_view& name : names) {
    if (&name != &names.front()) text += &name == &names.back() ? " and " : ", ";
    (text += "--") += name;
  }
  return text;
}

bool names(const ToolPathOptions& options, ReadingScope scope) {
  return std::any_of(std::begin(kOptions), std::end(kOptions), [&](const ReadingOption& option) {
    return option.scope == scope && options.reading.contains(std::string(option.name));
  });
}
