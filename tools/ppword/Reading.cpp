#include "tools/ppword/Reading.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace {

constexpr double kSmallestChord = 1e-6;
constexpr double kLargestChord = 1000.0;

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

constexpr ReadingOption kOptions[] = {
    {"units", "mm|inch", "Unit of the text", takeUnits},
    {"rotary", "AXES", "What the rotary words turn", takeRotary},
    {"chord", "LENGTH", "How far a chord may be from its arc, in mm: 0.01", takeChord},
    {"helices", "helix|chords", "How arcs that rise are written: helix", takeHelices},
    {"comments", "all|program|none", "Which comments are written: program", takeComments},
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

std::string readingNames() {
  std::string text;
  for (const ReadingOption& option : kOptions) {
    if (&option != std::begin(kOptions)) {
      text += &option == std::prev(std::end(kOptions)) ? " and " : ", ";
    }
    (text += "--") += option.name;
  }
  return text;
}
