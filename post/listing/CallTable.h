#pragma once

#include <string_view>

namespace host {

/// What the reader of listings does with a call.
enum class CallEffect {
  Traverse,         ///< A straight move at traverse rate.
  Feed,             ///< A straight move at feed rate.
  Arc,              ///< A move along an arc, or a helix, at feed rate.
  Plane,            ///< The plane of later arcs.
  Units,            ///< The unit of later lengths.
  FixtureOffset,    ///< Moves or turns the coordinate system of positions.
  ProgramOffset,    ///< As above.
  PlaneRotation,    ///< As above.
  ToolOffset,       ///< Which point of the tool the positions are of.
  FeedRate,         ///< Sets the feed rate.
  FeedMode,         ///< Whether feed rates are per minute or per revolution.
  SynchronisedOn,   ///< Later moves follow the turning of the spindle.
  SynchronisedOff,  ///< Ends that.
  SpindleSpeed,     ///< Sets the speed of the spindle.
  SpindleMode,      ///< Spindle or surface speeds, and their limit.
  Clockwise,        ///< Starts the spindle.
  Counterclockwise,
  SpindleOff,
  SelectTool,  ///< Names the tool of the next change.
  ChangeTool,
  Dwell,
  Text,  ///< A comment or a message.
  FloodOn,
  FloodOff,
  MistOn,
  MistOff,
  ProgramStop,
  OptionalStop,
  ProgramEnd,       ///< The program ends.
  End,              ///< The program was read to its end.
  NoMove,           ///< No motion, and no effect on positions.
  Dropped,          ///< No motion; its information is dropped.
  UnsupportedMove,  ///< A move for which the output has no statement.
  Compensation,     ///< Later positions are not those of the tool.
  InterpreterError  ///< The interpreter stopped at an error.
};

/// A call that listings can hold.
struct CallRule {
  std::string_view name;
  CallEffect effect;
  /// The arguments that it takes, as for readArguments; "*" if they are ignored.
  std::string_view shape;
};

/// The rule of a call; null for a call that is not in the table.
[[nodiscard]] const CallRule* findCallRule(std::string_view name);

}  // namespace host
