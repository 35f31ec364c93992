#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "Mathematics/KEPMathVector.h"

namespace host {

// What the objects of the manufacturing model are made from. What is absent is unknown to the
// object. Lengths are in the unit of the output.

/// Typed values by name.
using NamedValues = std::vector<std::pair<std::string, KEPMfgParameterValue>>;

/// A feed rate or a spindle speed: value text and type name (such as "LINEARFEEDRATE").
struct TypedValue {
  std::string text;
  std::string type;
};

/// The feed rate and the spindle speed of an operation or of a sequential motion.
struct FeedrateValues {
  std::optional<TypedValue> machining, spindle;
  /// Of a motion: MfgSpindleSpeedType, MfgSpindleWayOfRotation.
  NamedValues attributes;
};

/// Of an operation: MfgDwellMode. Of a sequential motion: MfgSpindleDwellMode.
using StrategyValues = NamedValues;

struct SequentialMotionValues {
  std::optional<FeedrateValues> feedsAndSpeeds;
  std::optional<StrategyValues> strategy;
};

struct ToolPathValues {
  /// 1 for a fixed tool axis, another code for one that varies.
  std::optional<int> type;
};

struct LatheValues {
  /// Code of the way of rotation: -1 for the reverse of the usual one.
  std::optional<int> way;
  /// The tool points ("P1" to "P9") that the correctors (from 1) compensate.
  std::map<int, std::string> correctors;
  /// One of these correctors.
  std::optional<int> defaultCorrector;
};

/// The axis system that a turning operation is programmed in.
struct TurningValues {
  KEPMathVector origin, spindleAxis, radialAxis;
};

struct ToolValues {
  /// Under the names that NC output knows them by, such as MFG_WAY_OF_ROT.
  NamedValues parameters;
  /// The tool points that the correctors (from 1) compensate.
  std::optional<std::map<int, std::string>> compensation;
  /// Positions of the tool points (from 1).
  std::optional<std::map<int, KEPMathVector>> replay;
};

struct InsertValues {
  /// MfgGrooveInsert or KEPEMfgGrooveInsert for a groove insert.
  std::string type;
  NamedValues parameters;
  /// MfgNoseRadius, MfgLeftNoseRadius, MfgRightNoseRadius.
  NamedValues dimensions;
};

struct ToolAssemblyValues {
  /// True for the assembly of a turning tool.
  bool isLathe = false;
  /// Under the names that NC output knows them by, such as MFG_TL_SET_X.
  NamedValues parameters;
  /// MfgInvertedAssembly.
  NamedValues attributes;
  std::optional<InsertValues> insert;
  /// Number of a corrector. In the assembly of a turning tool also of the tool point that the
  /// setting values refer to; they refer to point 9 in any other one.
  std::optional<int> reference;
  /// Radii of the cutting edge at the tool points.
  std::optional<std::map<std::string, double, std::less<>>> radii;
};

enum class ActivityKind { Plain, ToolChange, Machining, Lathe, SequentialAxial, SequentialGroove };

struct ActivityValues {
  std::string name;
  ActivityKind kind = ActivityKind::Plain;
  /// The activity's own parameters, and those that a user added, which are asked first.
  NamedValues parameters, customParameters;
  std::optional<ToolValues> tool;
  std::optional<ToolAssemblyValues> assembly;

  // Of a tool change: the operation that it is made for, if any.
  std::shared_ptr<const ActivityValues> operation;

  // Of operations.
  std::optional<FeedrateValues> feedsAndSpeeds;
  std::optional<StrategyValues> strategy;
  std::optional<ToolPathValues> toolPath;
  std::optional<TurningValues> turning;
  /// A lathe or sequential groove operation is a turning operation without these values too.
  std::optional<LatheValues> lathe;
  // Of sequential operations.
  std::optional<std::vector<SequentialMotionValues>> motions;
};

}  // namespace host
