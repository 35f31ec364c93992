#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "host/job/JobValue.h"

namespace host::job {

// Lists of named values: objects whose keys are names of the writer's choice, each at most once.
/// Values are texts, or objects that tell real from integer numbers.
void read(Value value, const Place& place,
          std::vector<std::pair<std::string, KEPMfgParameterValue>>& parameters);
/// Values are numbers, names are identifiers.
void read(Value value, const Place& place,
          std::vector<std::pair<std::string, double>>& designParameters);

/// The keys of the object that a number of a parameter stands in.
[[nodiscard]] std::vector<std::string_view> numberKeyNames();

}  // namespace host::job
