#pragma once

#include "host/manufacturing/ActivityValues.h"
#include "post/job/JobBuffers.h"

namespace host::job {

// The tool of an activity and what holds it.
void read(Value value, const Place& place, ToolValues& tool);
void read(Value value, const Place& place, ToolAssemblyValues& assembly);

/// Tool points by the numbers of the correctors that compensate them.
void readOutputPoints(Value value, const Place& place, std::map<int, std::string>& points);
void read(Value value, const Place& place, KEPMathVector& vector);

[[nodiscard]] KeyNames toolKeyNames();

}  // namespace host::job
