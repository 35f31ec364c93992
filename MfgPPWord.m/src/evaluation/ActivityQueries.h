#pragma once

#include <optional>
#include <string_view>

#include "Manufacturing/KEPIMfgActivity.h"
#include "Manufacturing/KEPIMfgSequentialMotions.h"

namespace ppword {

/// The tool of an activity and the assembly that holds it; either may be null.
struct Tooling {
  KEPBaseUnknown_var tool;
  KEPBaseUnknown_var assembly;
};
[[nodiscard]] Tooling toolingOf(const KEPIMfgActivity_var& activity);

/// The operation that a tool change is made for; the activity itself (null allowed) when it is not
/// a tool change or its sequence knows no operation.
[[nodiscard]] KEPIMfgActivity_var operationOf(const KEPIMfgActivity_var& activity);

/// True for a sequential axial or groove operation; false for a null activity.
[[nodiscard]] bool isSequential(const KEPIMfgActivity_var& activity);

/// The parameters of a motion (numbers count from 1) of a sequential operation; null when there is
/// no such motion or it has none.
[[nodiscard]] KEPIMfgSeqMotionParameters_var motionParameters(const KEPIMfgActivity_var& activity,
                                                              int number);

/// The spindle of one sequential motion.
struct MotionSpindle {
  KEPIMfgFeedrateParameters_var parameters;
  /// The motion has a spindle speed of its own.
  bool isLocal;
};

/// Nothing when the motion or its speed type cannot be found.
[[nodiscard]] std::optional<MotionSpindle> motionSpindle(const KEPIMfgActivity_var& activity,
                                                         int number);

/// The text of a parameter; nothing when `values` has no such parameter or it is not a text.
[[nodiscard]] std::optional<KEPUnicodeString> textOf(const KEPMfgNamedValues& values,
                                                     std::string_view name);

/// The number of a parameter; nothing when `values` has no such parameter or it is not a number.
[[nodiscard]] std::optional<double> lengthOf(const KEPMfgNamedValues& values,
                                             std::string_view name);

/// The number that the value text of a feed rate or speed begins with; nothing when `parameters`
/// (null allowed) has no knowledge parameter of that name or its text begins with no number.
[[nodiscard]] std::optional<double> numberOf(const KEPIMfgFeedrateParameters_var& parameters,
                                             std::string_view name);

/// 1 or 2 when the type of a feed rate or speed has the first or the second name; 0 otherwise.
[[nodiscard]] int kindOf(const KEPIMfgFeedrateParameters_var& parameters, std::string_view name,
                         std::string_view firstType, std::string_view secondType);

}  // namespace ppword
