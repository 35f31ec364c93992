#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/manufacturing/ActivityValues.h"
#include "post/job/JobValue.h"

namespace host::job {

// Lists of named values: objects whose keys are names of the writer's choice, each at most once.
/// Values are texts, or objects that tell real from integer numbers.
void read(Value value, const Place& place, NamedValues& parameters);
/// Values are numbers, names are identifiers.
void read(Value value, const Place& place,
          std::vector<std::pair<std::string, double>>& designParameters);

/// Names are numbers from 1, written in digits.
using NumberedReader = std::function<void(int number, Value value, const Place& place)>;
void readByNumber(Value value, const Place& place, const NumberedReader& read);

/// The keys of the object that a number of a parameter stands in.
[[nodiscard]] std::vector<std::string_view> numberKeyNames();

}  // namespace host::job
