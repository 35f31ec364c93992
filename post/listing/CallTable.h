#pragma once

#include <string_view>

namespace host {

/// What the reader of listings does with a call.
enum class CallEffect {
  Traverse,         ///< A straight move at traverse rate.
  Feed,             ///< A straight move at feed rate.
  Arc,              ///< A move along an arc, or a helix, at feed rate.
  Plane,            ///< The plane of the arcs after it.
  Units,            ///< Names the unit of the lengths after it.
  FixtureOffset,    ///< Moves or turns the system that positions are given in.
  ProgramOffset,    ///< As above.
  PlaneRotation,    ///< As above.
  ToolOffset,       ///< Which point of the tool the positions are of.
  FeedRate,         ///< Sets the feed rate.
  FeedMode,         ///< Whether feed rates are per minute or per revolution.
  SynchronisedOn,   ///< Moves after it follow the turning of the spindle.
  SynchronisedOff,  ///< They no longer do.
  SpindleSpeed,     ///< Sets the speed of the spindle.
  SpindleMode,      ///< Whether speeds are of the spindle or of the surface, and the limit then.
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
  NoMove,           ///< Moves nothing and changes no position.
  Lost,             ///< Moves nothing, and the text lacks what it says.
  LostMove,         ///< Moves the tool in a way that the text has no line for.
  Compensation,     ///< Positions after it are no longer those of the tool.
  InterpreterError  ///< The interpreter gave up.
};

/// A call that listings can hold.
struct CallRule {
  std::string_view name;
  CallEffect effect;
  /// The arguments that it takes, as for readArguments; "*" where they are not looked at.
  std::string_view shape;
};

/// The rule of a call; null for a call that the table does not have.
[[nodiscard]] const CallRule* findCallRule(std::string_view name);

}  // namespace host
