#pragma once

#include <vector>

#include "host/manufacturing/ActivityValues.h"
#include "post/job/JobBuffers.h"

namespace host::job {

// What an operation states. The strategy of an operation and that of a sequential motion have names
// of their own, and are read by their owner.
void read(Value value, const Place& place, FeedrateValues& feedsAndSpeeds);
void readStrategy(Value value, const Place& place, ActivityValues& operation);
void read(Value value, const Place& place, ToolPathValues& toolPath);
void read(Value value, const Place& place, TurningValues& turning);
void read(Value value, const Place& place, LatheValues& lathe);
void read(Value value, const Place& place, std::vector<SequentialMotionValues>& motions);

[[nodiscard]] KeyNames operationKeyNames();

}  // namespace host::job
