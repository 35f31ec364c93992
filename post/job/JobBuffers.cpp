#include <array>

#include "Manufacturing/KEPMfgNames.h"
#include "post/job/JobTypedValue.h"
#include "post/job/JobValue.h"

namespace host::job {
namespace {

constexpr std::array<std::string_view, 7> kFeedWords{
    "machining", "approach", "retract", "finishing", "plunge", "chamfering", "value"};
constexpr std::array<std::string_view, 7> kFeedTypes{TPMachiningFeedrate,
                                                     TPApproachFeedrate,
                                                     TPRetractFeedrate,
                                                     TPFinishingFeedrate,
                                                     TPPlungeFeedrate,
                                                     TPChamferingFeedrate,
                                                     ""};

template <class Change>
TypedValue& valueOf(Change& change) {
  return change.value ? *change.value : change.value.emplace();
}

template <class Change>
void readChangedText(Value value, const Place& place, Change& change) {
  readValueText(value, place, valueOf(change));
}

template <const TypeNames& kNames, class Change>
void readChangedType(Value value, const Place& place, Change& change) {
  readValueType<kNames>(value, place, valueOf(change));
}

void readFeedType(Value value, const Place& place, FeedrateChange& change) {
  change.feedType = kFeedTypes[readWord(value, place, kFeedWords)];
}

template <class Change>
void requireValue(Value value, const Place& place, const Change& change) {
  if (!change.value || !change.value->text.empty()) return;
  place.refuse(value.raw_json_token().data(), "a \"type\" needs its \"value\"");
}

constexpr std::array<Key<CircleChange>, 5> kCircleKeys{{
    {"tangent", into<&CircleChange::tangent>},
    {"center", into<&CircleChange::center>},
    {"radius", into<&CircleChange::radius>},
    {"normal", into<&CircleChange::normal>},
    {"point", into<&CircleChange::point>},
}};

constexpr std::array<Key<HelixChange>, 7> kHelixKeys{{
    {"indirv", into<&HelixChange::inDirV>},
    {"center", into<&HelixChange::center>},
    {"radius", into<&HelixChange::radius>},
    {"axis", into<&HelixChange::axis>},
    {"start", into<&HelixChange::start>},
    {"end", into<&HelixChange::end>},
    {"pitch", into<&HelixChange::pitch>},
}};

constexpr std::array<Key<FeedrateChange>, 4> kFeedrateChangeKeys{{
    {"value", readChangedText<FeedrateChange>},
    {"type", readChangedType<kFeedrateTypes, FeedrateChange>},
    {"factor", into<&FeedrateChange::factor>},
    {"feedType", readFeedType},
}};

constexpr std::array<Key<SpindleChange>, 4> kSpindleKeys{{
    {"value", readChangedText<SpindleChange>},
    {"type", readChangedType<kSpindleTypes, SpindleChange>},
    {"factor", into<&SpindleChange::factor>},
    {"way", into<&SpindleChange::way>},
}};

constexpr std::array<Key<KEPMathAxis>, 4> kAxisSystemKeys{{
    {"origin", into<&KEPMathAxis::origin>, true},
    {"x", into<&KEPMathAxis::xDirection>, true},
    {"y", into<&KEPMathAxis::yDirection>, true},
    {"z", into<&KEPMathAxis::zDirection>, true},
}};

void readAxisSystem(Value value, const Place& place, RotateChange& change) {
  readFields<KEPMathAxis>(value, place, kAxisSystemKeys, change.axisSystem.emplace());
}

constexpr std::array<Key<RotateChange>, 5> kRotateKeys{{
    {"angle", into<&RotateChange::angle>},
    {"text1", into<&RotateChange::firstText>},
    {"text2", into<&RotateChange::secondText>},
    {"text3", into<&RotateChange::thirdText>},
    {"axisSystem", readAxisSystem},
}};

}  // namespace

void read(Value value, const Place& place, CircleChange& change) {
  readFields<CircleChange>(value, place, kCircleKeys, change);
}

void read(Value value, const Place& place, HelixChange& change) {
  readFields<HelixChange>(value, place, kHelixKeys, change);
}

void read(Value value, const Place& place, FeedrateChange& change) {
  readFields<FeedrateChange>(value, place, kFeedrateChangeKeys, change);
  requireValue(value, place, change);
}

void read(Value value, const Place& place, SpindleChange& change) {
  readFields<SpindleChange>(value, place, kSpindleKeys, change);
  requireValue(value, place, change);
}

void read(Value value, const Place& place, RotateChange& change) {
  readFields<RotateChange>(value, place, kRotateKeys, change);
}

}  // namespace host::job
