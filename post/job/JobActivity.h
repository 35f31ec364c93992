#pragma once

#include "post/job/JobBuffers.h"
#include "post/toolpath/ToolPath.h"

namespace host::job {

/// Fills an activity from the object at `at` of its line.
void readActivity(simdjson::ondemand::object object, const char* at, const Place& place,
                  ActivityStart& activity);

[[nodiscard]] KeyNames activityKeyNames();

}  // namespace host::job
