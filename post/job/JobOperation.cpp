#include <array>

#include "Manufacturing/KEPMfgNames.h"
#include "host/manufacturing/Activity.h"
#include "post/job/JobTypedValue.h"
#include "post/job/JobValue.h"

namespace host::job {
namespace {

using Words = std::array<std::string_view, 2>;

/// Reads a word, and stores the text with the same index as an attribute.
template <std::size_t kCount>
void readAttribute(Value value, const Place& place,
                   const std::array<std::string_view, kCount>& words,
                   const std::array<std::string_view, kCount>& texts, std::string_view name,
                   NamedValues& attributes) {
  attributes.emplace_back(name, textValue(texts[readWord(value, place, words)]));
}

template <const TypeNames& kNames, auto kMember>
void readTypedValue(Value value, const Place& place, FeedrateValues& feedsAndSpeeds) {
  readFields<TypedValue>(value, place, kTypedValueKeys<kNames>,
                         (feedsAndSpeeds.*kMember).emplace());
}

void readSpindleSpeed(Value value, const Place& place, FeedrateValues& feedsAndSpeeds) {
  constexpr Words kWords{"local", "operation"};
  constexpr Words kTexts{"MfgSpindleSpeedLocal", "MfgSpindleSpeedOperation"};
  readAttribute(value, place, kWords, kTexts, "MfgSpindleSpeedType", feedsAndSpeeds.attributes);
}

void readSpindleWay(Value value, const Place& place, FeedrateValues& feedsAndSpeeds) {
  constexpr Words kWords{"clw", "cclw"};
  constexpr Words kTexts{"MfgSpindleCLW", "MfgSpindleCCLW"};
  readAttribute(value, place, kWords, kTexts, "MfgSpindleWayOfRotation", feedsAndSpeeds.attributes);
}

constexpr std::array<Key<FeedrateValues>, 2> kFeedrateKeys{{
    {"machining", readTypedValue<kFeedrateTypes, &FeedrateValues::machining>},
    {"spindle", readTypedValue<kSpindleTypes, &FeedrateValues::spindle>},
}};
constexpr auto kMotionFeedrateKeys = joined(kFeedrateKeys, std::array<Key<FeedrateValues>, 2>{{
                                                               {"spindleSpeed", readSpindleSpeed},
                                                               {"spindleWay", readSpindleWay},
                                                           }});

constexpr std::array<std::string_view, 3> kDwellWords{"revolution", "time", "none"};
constexpr std::array<std::string_view, 3> kDwellModes{MfgDwellRound, MfgDwellTime, "MfgDwellNone"};
constexpr std::array<std::string_view, 3> kMotionDwellModes{
    "MfgSpindleDwellByRevolution", "MfgSpindleDwellByTimeUnit", "MfgSpindleDwellNone"};

void readDwell(Value value, const Place& place, StrategyValues& strategy) {
  readAttribute(value, place, kDwellWords, kDwellModes, MfgDwellMode, strategy);
}
void readMotionDwell(Value value, const Place& place, StrategyValues& strategy) {
  readAttribute(value, place, kDwellWords, kMotionDwellModes, "MfgSpindleDwellMode", strategy);
}

constexpr std::array<Key<StrategyValues>, 1> kStrategyKeys{{{"dwell", readDwell}}};
constexpr std::array<Key<StrategyValues>, 1> kMotionStrategyKeys{{{"dwell", readMotionDwell}}};

void readMotionFeedrates(Value value, const Place& place, SequentialMotionValues& motion) {
  readFields<FeedrateValues>(value, place, kMotionFeedrateKeys, motion.feedsAndSpeeds.emplace());
}
void readMotionStrategy(Value value, const Place& place, SequentialMotionValues& motion) {
  readFields<StrategyValues>(value, place, kMotionStrategyKeys, motion.strategy.emplace());
}

constexpr std::array<Key<SequentialMotionValues>, 2> kMotionKeys{{
    {"feedsAndSpeeds", readMotionFeedrates},
    {"strategy", readMotionStrategy},
}};

constexpr std::array<Key<ToolPathValues>, 1> kToolPathKeys{{
    {"type", into<&ToolPathValues::type>},
}};

constexpr std::array<Key<TurningValues>, 3> kTurningKeys{{
    {"origin", into<&TurningValues::origin>, true},
    {"spindleAxis", into<&TurningValues::spindleAxis>, true},
    {"radialAxis", into<&TurningValues::radialAxis>, true},
}};

void readCorrectors(Value value, const Place& place, LatheValues& lathe) {
  readOutputPoints(value, place, lathe.correctors);
}
void readDefaultCorrector(Value value, const Place& place, LatheValues& lathe) {
  lathe.defaultCorrector = readInteger(value, place, 1);
}

constexpr std::array<Key<LatheValues>, 3> kLatheKeys{{
    {"way", into<&LatheValues::way>},
    {"correctors", readCorrectors},
    {"defaultCorrector", readDefaultCorrector},
}};

}  // namespace

void read(Value value, const Place& place, FeedrateValues& feedsAndSpeeds) {
  readFields<FeedrateValues>(value, place, kFeedrateKeys, feedsAndSpeeds);
}

void readStrategy(Value value, const Place& place, ActivityValues& operation) {
  readFields<StrategyValues>(value, place, kStrategyKeys, operation.strategy.emplace());
}

void read(Value value, const Place& place, ToolPathValues& toolPath) {
  readFields<ToolPathValues>(value, place, kToolPathKeys, toolPath);
}

void read(Value value, const Place& place, TurningValues& turning) {
  readFields<TurningValues>(value, place, kTurningKeys, turning);
}

void read(Value value, const Place& place, LatheValues& lathe) {
  const char* const at = value.raw_json_token().data();
  readFields<LatheValues>(value, place, kLatheKeys, lathe);
  if (!lathe.defaultCorrector || lathe.correctors.contains(*lathe.defaultCorrector)) return;
  place.refuse(at, "the default corrector " + std::to_string(*lathe.defaultCorrector) +
                       " is none of the correctors");
}

void read(Value value, const Place& place, std::vector<SequentialMotionValues>& motions) {
  for (auto item : readArray(value, place)) {
    const Place here(place, motions.size());
    readFields<SequentialMotionValues>(unwrap(std::move(item), here), here, kMotionKeys,
                                       motions.emplace_back());
  }
}

}  // namespace host::job
