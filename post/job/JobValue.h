#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/manufacturing/ActivityValues.h"
#include "post/job/JobPlace.h"
#include "post/toolpath/ToolPath.h"

namespace host::job {

using Value = simdjson::ondemand::value;

/// Raises the InputError "EXPECTED is expected, found VALUE".
[[noreturn]] void refuseValue(Value value, const Place& place, std::string_view expected);

// Each reads a value of one JSON type and refuses every other one.
[[nodiscard]] double readNumber(Value value, const Place& place);
[[nodiscard]] int readInteger(Value value, const Place& place, int least);
[[nodiscard]] bool holdsControlCharacter(std::string_view text);
/// A text without control characters.
[[nodiscard]] std::string readText(Value value, const Place& place);
/// A text that is not empty.
[[nodiscard]] std::string readName(Value value, const Place& place);
[[nodiscard]] bool readTruth(Value value, const Place& place);
[[nodiscard]] simdjson::ondemand::array readArray(Value value, const Place& place);
[[nodiscard]] simdjson::ondemand::object readObject(Value value, const Place& place);
/// The text of a number, unchanged.
[[nodiscard]] std::string readNumberText(Value value, const Place& place);
/// The index of a text in `words`.
[[nodiscard]] std::size_t readWord(Value value, const Place& place,
                                   std::span<const std::string_view> words);

// The readers that the tables of keys name, by the type that they fill.
void read(Value value, const Place& place, double& number);
void read(Value value, const Place& place, int& number);
void read(Value value, const Place& place, std::string& text);
void read(Value value, const Place& place, Triple& triple);
void read(Value value, const Place& place, Position& position);
void read(Value value, const Place& place, std::vector<Position>& positions);
void read(Value value, const Place& place, KEPMathVector& vector);

// The values of one motion buffer.
void read(Value value, const Place& place, CircleChange& change);
void read(Value value, const Place& place, HelixChange& change);
void read(Value value, const Place& place, FeedrateChange& change);
void read(Value value, const Place& place, SpindleChange& change);
void read(Value value, const Place& place, RotateChange& change);

// Lists of named values: objects whose keys are names of the writer's choice, each at most once.
/// Values are texts, or objects that distinguish real from integer numbers.
void read(Value value, const Place& place, NamedValues& parameters);
/// Values are numbers, names are identifiers.
void read(Value value, const Place& place,
          std::vector<std::pair<std::string, double>>& designParameters);
/// Names are numbers from 1, written in digits.
using NumberedReader = std::function<void(int number, Value value, const Place& place)>;
void readByNumber(Value value, const Place& place, const NumberedReader& read);

// The tool of an activity and what holds it.
void read(Value value, const Place& place, ToolValues& tool);
void read(Value value, const Place& place, ToolAssemblyValues& assembly);
/// Tool points by the numbers of the correctors that compensate them.
void readOutputPoints(Value value, const Place& place, std::map<int, std::string>& points);

// What an operation states. The strategy of an operation and that of a sequential motion have names
// of their own, and are read by their owner.
void read(Value value, const Place& place, FeedrateValues& feedsAndSpeeds);
void readStrategy(Value value, const Place& place, ActivityValues& operation);
void read(Value value, const Place& place, ToolPathValues& toolPath);
void read(Value value, const Place& place, TurningValues& turning);
void read(Value value, const Place& place, LatheValues& lathe);
void read(Value value, const Place& place, std::vector<SequentialMotionValues>& motions);

}  // namespace host::job
