#include "tests/listing/Listings.h"

#include <charconv>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <variant>

#include "post/toolpath/LineReader.h"
#include "tests/support/InputFile.h"

namespace {

std::string shortest(double number) {
  char text[64];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

std::string sixDecimals(double number) {
  char text[64];
  std::string printed(
      text, std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 6).ptr);
  return printed == "-0.000000" ? "0.000000" : printed;
}

/// A point or a direction with at most six decimals.
std::string rounded(std::string_view name, const host::Triple& triple) {
  std::string text(name);
  for (const double number : triple) {
    std::string printed = sixDecimals(number);
    printed.erase(printed.find_last_not_of('0') + 1);
    if (printed.ends_with('.')) printed.pop_back();
    text += ' ' + printed;
  }
  return text;
}

std::string shown(const host::CircleChange& circle) {
  return rounded(" along", *circle.tangent) + rounded(" center", *circle.center) + " radius " +
         shortest(*circle.radius) + rounded(" normal", *circle.normal) +
         rounded(" to", *circle.point);
}

std::string shown(const host::HelixChange& helix) {
  return rounded(" along", *helix.inDirV) + rounded(" center", *helix.center) + " radius " +
         shortest(*helix.radius) + rounded(" axis", *helix.axis) + rounded(" from", *helix.start) +
         rounded(" to", *helix.end) + " pitch " + shortest(*helix.pitch);
}

std::string shown(const host::BufferChanges& changes) {
  std::string text;
  if (changes.circle) text += shown(*changes.circle);
  if (changes.helix) text += shown(*changes.helix);
  if (const auto& feedrate = changes.feedrate) {
    text += ' ' + feedrate->value->text + ' ' + feedrate->value->type;
  }
  if (const auto& spindle = changes.spindle) {
    text += ' ' + spindle->value->text + ' ' + spindle->value->type + " way " +
            std::to_string(*spindle->way);
  }
  if (changes.comment) text += " <" + *changes.comment + '>';
  return text;
}

std::string shown(const host::Element& element) {
  std::string text = element.instruction;
  if (element.sequence != 1) text += " sequence " + std::to_string(element.sequence);
  text += shown(element.changes);
  const bool isCurved = element.changes.circle || element.changes.helix;
  for (const host::Position& position : element.positions) {
    if (isCurved) {
      text += rounded(" at", position.point);
      continue;
    }
    for (const double number : position.point) text += ' ' + shortest(number);
    if (!position.toolAxis) continue;
    text += " axis";
    for (const double number : *position.toolAxis) text += ' ' + sixDecimals(number);
  }
  return text + '\n';
}

/// The parameters of an activity but for the unit; an activity without any shows nothing.
std::string shown(const host::ActivityStart& start) {
  std::string text;
  for (const auto& [name, value] : start.parameters) {
    if (name == "MFG_UNIT") continue;
    const bool isReal = value.kind == KEPMfgParameterValue::kReal;
    text += ' ' + name + '=' + (isReal ? shortest(value.real) : std::to_string(value.integer));
  }
  return text.empty() ? "" : "activity" + text + '\n';
}

std::string_view nameOf(host::CallFate fate) {
  switch (fate) {
    case host::CallFate::Move:
      return "move";
    case host::CallFate::Chords:
      return "chords";
    case host::CallFate::Written:
      return "line";
    case host::CallFate::Other:
      return "other";
    case host::CallFate::Dropped:
      return "says more";
    case host::CallFate::UnsupportedMove:
      return "lost";
    case host::CallFate::Unknown:
      return "unknown";
  }
  return "?";
}

}  // namespace

std::string numbered(std::string_view calls) {
  std::istringstream lines{std::string(calls)};
  std::string listing;
  int number = 0;
  for (std::string call; std::getline(lines, call);) {
    std::string running = std::to_string(++number);
    running.insert(0, running.size() < 5 ? 5 - running.size() : 0, ' ');
    listing.append(running).append(" N..... ").append(call).append("\n");
  }
  return listing;
}

std::string program(std::string_view calls) {
  return numbered("USE_LENGTH_UNITS(CANON_UNITS_MM)\n" + std::string(calls) + "FINISH()\n");
}

std::string readListing(std::string_view listing, const host::ListingOptions& options) {
  const InputFile file(listing);
  std::string text;
  try {
    host::ListingReader reader(std::make_unique<host::LineReader>(file.path()), options);
    for (host::ToolPathEvent event; reader.next(event);)
      text += std::visit([](const auto& piece) { return shown(piece); }, event);
  } catch (const host::InputError& error) {
    text += std::to_string(error.line()) + ':' + std::to_string(error.column()) + ": " +
            error.message() + '\n';
  }
  return text;
}

std::string countCalls(std::string_view listing, const host::ListingOptions& options) {
  const InputFile file(listing);
  host::ListingReader reader(std::make_unique<host::LineReader>(file.path()), options);
  for (host::ToolPathEvent event; reader.next(event);) {
  }
  std::string text;
  for (const host::CallCount& call : reader.calls().all()) {
    text += std::string(nameOf(call.fate)) + ' ' + call.name + ' ' + std::to_string(call.count) +
            " from " + std::to_string(call.firstLine) + '\n';
  }
  return text;
}

host::ListingOptions rotary(std::string_view text) {
  std::string reason;
  host::ListingOptions options;
  options.rotary = host::RotaryChain::parse(text, reason);
  if (!options.rotary) std::abort();
  return options;
}
