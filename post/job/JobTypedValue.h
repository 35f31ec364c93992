#pragma once

#include <array>
#include <string_view>

#include "host/knowledge/KnowledgeParameter.h"
#include "post/job/JobObject.h"

namespace host::job {

/// The names of the linear and of the angular type of a value.
using TypeNames = std::array<std::string_view, 2>;

inline constexpr TypeNames kValueTypes{"linear", "angular"};
inline constexpr TypeNames kFeedrateTypes{"LINEARFEEDRATE", "ANGULARFEEDRATE"};
inline constexpr TypeNames kSpindleTypes{"LINEARSPINDLESPEED", "ANGULARSPINDLESPEED"};

inline void readValueText(Value value, const Place& place, TypedValue& typed) {
  typed.text = readNumberText(value, place);
}

template <const TypeNames& kNames>
void readValueType(Value value, const Place& place, TypedValue& typed) {
  typed.type = kNames[readWord(value, place, kValueTypes)];
}

/// The keys of a feed rate or a spindle speed of an operation or a motion.
template <const TypeNames& kNames>
inline constexpr std::array<Key<TypedValue>, 2> kTypedValueKeys{{
    {"value", readValueText, true},
    {"type", readValueType<kNames>},
}};

}  // namespace host::job
