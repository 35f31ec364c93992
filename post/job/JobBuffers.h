#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "post/job/JobValue.h"

namespace host::job {

/// The keys that each kind of object may hold, by the object's name.
using KeyNames = std::map<std::string_view, std::vector<std::string_view>>;

// The values of one motion buffer.
void read(Value value, const Place& place, CircleChange& change);
void read(Value value, const Place& place, HelixChange& change);
void read(Value value, const Place& place, FeedrateChange& change);
void read(Value value, const Place& place, SpindleChange& change);
void read(Value value, const Place& place, RotateChange& change);

[[nodiscard]] KeyNames bufferKeyNames();

}  // namespace host::job
