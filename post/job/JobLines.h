#pragma once

#include "post/job/JobPlace.h"
#include "post/toolpath/ToolPath.h"

namespace host {
struct JobHeader;
}  // namespace host

namespace host::job {

/// The kinds of line of a job.
enum class LineKind { Header, Activity, Element, End };

/// The kind of a line, by its key "job", "activity", "nc", "ppCommand" or "end" at any position in
/// it. The line stays unread.
[[nodiscard]] LineKind kindOf(Line& line);

// Each fills its target from the line, and refuses text after the line's object.
void readHeader(Line& line, JobHeader& header);
void readActivity(Line& line, ActivityStart& activity);
void readElement(Line& line, Element& element);
void readEnd(Line& line);

}  // namespace host::job
