#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Mathematics/KEPMathAxis.h"
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
/// A number as it is written.
[[nodiscard]] std::string readNumberText(Value value, const Place& place);
/// The place of a text among `words`.
[[nodiscard]] std::size_t readWord(Value value, const Place& place,
                                   std::span<const std::string_view> words);

// The readers that the key tables name, by the type that they fill.
void read(Value value, const Place& place, double& number);
void read(Value value, const Place& place, int& number);
void read(Value value, const Place& place, std::string& text);
void read(Value value, const Place& place, Triple& triple);
void read(Value value, const Place& place, Position& position);
void read(Value value, const Place& place, std::vector<Position>& positions);

}  // namespace host::job
