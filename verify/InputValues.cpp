#include "verify/InputValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace verify {
namespace {

constexpr std::string_view kMotionMark = "#SEQMOTION#";
constexpr double kSmallestPitch = 1e-6;
constexpr std::size_t kLongestText = 79;
/// The word that prints nothing, and the parameter in whose list it does.
constexpr std::string_view kNoWord = "________";
constexpr std::string_view kDwellUnit = "MFG_DELAY_UNIT";
constexpr int kReverseWay = -1;
constexpr int kSwapped = 2;

double numberOf(const std::string& text) {
  double number = 0.0;
  const std::size_t sign = text.starts_with('+') ? 1 : 0;
  std::from_chars(text.data() + sign, text.data() + text.size(), number);
  return number;
}

template <class To, class From>
void set(To& to, const std::optional<From>& from) {
  if (from) to = *from;
}

template <class Change>
void setRate(InputValues::Rate& rate, const Change& change) {
  if (change.value) {
    rate.value = numberOf(change.value->text);
    rate.type = change.value->type;
  }
  set(rate.factor, change.factor);
}

/// The motion of a sequential operation that an instruction is for; 0 for none.
int motionNumberOf(std::string_view instruction) {
  int number = 0;
  const std::size_t mark = instruction.find(kMotionMark);
  if (mark == std::string_view::npos) return number;
  const std::string_view digits = instruction.substr(mark + kMotionMark.size());
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

Value numberValue(double number) { return {Value::Kind::Number, number}; }
Value textValue(std::string_view text) { return {Value::Kind::Text, 0.0, text}; }

double dot(const host::Triple& a, const host::Triple& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double heightOf(const InputValues::Helix& helix) {
  const double length = std::sqrt(dot(helix.axis, helix.axis));
  if (length == 0.0) return 0.0;
  const host::Triple way{helix.end[0] - helix.start[0], helix.end[1] - helix.start[1],
                         helix.end[2] - helix.start[2]};
  return std::abs(dot(way, helix.axis)) / length;
}

Value turnsOf(const InputValues& values, double factor) {
  const double pitch = values.helix().pitch;
  if (pitch < kSmallestPitch) return {};
  return numberValue(heightOf(values.helix()) / pitch * factor);
}

const KEPMfgParameterValue* find(const host::NamedValues& values, std::string_view name) {
  const auto found = std::ranges::find(values, name, &host::NamedValues::value_type::first);
  return found == values.end() ? nullptr : &found->second;
}

/// A text among named values; empty where there is none.
std::string_view textOf(const host::NamedValues& values, std::string_view name) {
  const KEPMfgParameterValue* const value = find(values, name);
  const bool isText = value != nullptr && value->kind == KEPMfgParameterValue::kText;
  return isText ? value->text.View() : std::string_view();
}

/// The first 79 bytes of a text, without the part of a character that is cut.
std::string_view printedPart(std::string_view text) {
  if (text.size() <= kLongestText) return text;
  std::size_t end = kLongestText;
  const auto isInside = [&](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  while (end > 0 && isInside(end)) --end;
  return text.substr(0, end);
}

Value printed(const KEPMfgParameterValue& value) {
  if (value.kind == KEPMfgParameterValue::kInteger) return numberValue(value.integer);
  if (value.kind == KEPMfgParameterValue::kReal) return numberValue(value.real);
  return textValue(printedPart(value.text.View()));
}

/// 1 for one type, 2 for the other, 0 for none of them.
int entryOf(std::string_view type, std::string_view first, std::string_view second) {
  if (type == first) return 1;
  return type == second ? 2 : 0;
}

int entryOf(const std::optional<host::TypedValue>& value, std::string_view first,
            std::string_view second) {
  return value ? entryOf(value->type, first, second) : 0;
}

struct FeedTypeWord {
  std::string_view type;
  std::string_view word;
};
constexpr FeedTypeWord kFeedTypes[] = {
    {"TPMachiningFeedrate", "MACHINING"},   {"TPApproachFeedrate", "APPROACH"},
    {"TPRetractFeedrate", "RETRACT"},       {"TPFinishingFeedrate", "FINISHING"},
    {"TPChamferingFeedrate", "CHAMFERING"}, {"TPPlungeFeedrate", ""},
};

// --- The parameters that have an evaluation ------------------------------------------------------

/// Parameters of three components: what is before and after the letter of the component.
struct TripleRow {
  std::string_view before;
  std::string_view letters;
  std::string_view after;
  const host::Triple& (*of)(const InputValues& values);
};

using Values = const InputValues&;

constexpr TripleRow kTriples[] = {
    {"MFG_", "XYZ", "POINT", [](Values v) -> const host::Triple& { return v.point(); }},
    {"MFG_", "XYZ", "AXIS", [](Values v) -> const host::Triple& { return v.toolAxis(); }},
    {"MFG_CIRCLE_", "XYZ", "_CENTER",
     [](Values v) -> const host::Triple& { return v.circle().center; }},
    {"MFG_CIRCLE_", "XYZ", "_NORMAL",
     [](Values v) -> const host::Triple& { return v.circle().normal; }},
    {"MFG_CIRCLE_", "XYZ", "_PT", [](Values v) -> const host::Triple& { return v.circle().point; }},
    {"MFG_CIRCLE_", "XYZ", "_TGT",
     [](Values v) -> const host::Triple& { return v.circle().tangent; }},
    {"MFG_HELICAL_", "XYZ", "_CENTER",
     [](Values v) -> const host::Triple& { return v.helix().center; }},
    {"MFG_HELICAL_", "XYZ", "_END", [](Values v) -> const host::Triple& { return v.helix().end; }},
    {"MFG_HELICAL_", "IJK", "_AXIS",
     [](Values v) -> const host::Triple& { return v.helix().axis; }},
    {"MFG_HELICAL_INDIRV_", "IJK", "",
     [](Values v) -> const host::Triple& { return v.helix().direction; }},
};

struct ValueRow {
  std::string_view name;
  Value (*of)(Values values);
};

constexpr double kDegreesOfATurn = 360.0;
constexpr double kRadiansOfADegree = 0.017453292519943295;

Value percentage(Values values) {
  const double percent = values.feed().factor * 100.0;
  return numberValue(percent > 0.0 && percent < 1.0 ? 1.0 : std::trunc(percent));
}

constexpr ValueRow kValues[] = {
    {"MFG_CIRCLE_RADIUS", [](Values v) { return numberValue(v.circle().radius); }},
    {"MFG_HELICAL_RADIUS", [](Values v) { return numberValue(v.helix().radius); }},
    {"MFG_HELICAL_PITCH", [](Values v) { return numberValue(v.helix().pitch); }},
    {"MFG_HELICAL_HEIGHT", [](Values v) { return numberValue(heightOf(v.helix())); }},
    {"MFG_HELICAL_ROUND", [](Values v) { return turnsOf(v, 1.0); }},
    {"MFG_HELICAL_ANGLE",
     [](Values v) { return turnsOf(v, kDegreesOfATurn * kRadiansOfADegree * v.angleFactor()); }},
    {"MFG_FEED_VALUE", [](Values v) { return numberValue(v.feed().value * v.feed().factor); }},
    {"MFG_FEED_RATIO", percentage},
    {"MFG_FEED_TYPE", [](Values v) { return v.feedType(); }},
    {"MFG_SPNDL_SPEED", [](Values v) { return v.speed(); }},
    {"MFG_OUTPUT_COMMENT", [](Values v) { return textValue(v.comment()); }},
    // The compensation of a tool is computed from its points: not followed here.
    {"MFG_CMP_NOSE_RADIUS", [](Values) { return Value{Value::Kind::Unknown}; }},
    {"MFG_CMP_TL_SET_X", [](Values) { return Value{Value::Kind::Unknown}; }},
    {"MFG_CMP_TL_SET_Y", [](Values) { return Value{Value::Kind::Unknown}; }},
    {"MFG_CMP_TL_SET_Z", [](Values) { return Value{Value::Kind::Unknown}; }},
};

struct WordRowOfList {
  std::string_view name;
  int (InputValues::*entry)() const;
  /// How many words the list must have.
  std::size_t least = 1;
};

constexpr WordRowOfList kListWords[] = {
    {"MFG_FEED_UNIT", &InputValues::feedUnit},   {"MFG_FED_UNIT", &InputValues::feedUnit},
    {"MFG_SPNDL_UNIT", &InputValues::speedUnit}, {"MFG_SPINDL_UNIT", &InputValues::speedUnit},
    {"MFG_SPNDL_WAY", &InputValues::way, 2},     {"MFG_SPINDL_WAY", &InputValues::way, 2},
    {kDwellUnit, &InputValues::delayUnit},       {"MFG_TOOLPATH_TYPE", &InputValues::toolPathType},
};

/// The component of a triple that a parameter names; without a triple for none.
ValueSource componentOf(std::string_view name) {
  for (const TripleRow& row : kTriples) {
    if (name.size() != row.before.size() + 1 + row.after.size()) continue;
    if (!name.starts_with(row.before) || !name.ends_with(row.after)) continue;
    const std::size_t component = row.letters.find(name[row.before.size()]);
    if (component != std::string_view::npos) return {row.of, component};
  }
  return {};
}

}  // namespace

ValueSource sourceOf(std::string_view parameter) {
  ValueSource source = componentOf(parameter);
  if (source.triple != nullptr) return source;
  const auto* const value = std::ranges::find(kValues, parameter, &ValueRow::name);
  if (value != std::end(kValues)) source.value = value->of;
  const auto* const word = std::ranges::find(kListWords, parameter, &WordRowOfList::name);
  if (word == std::end(kListWords)) return source;
  source.entry = word->entry;
  source.least = word->least;
  return source;
}

void InputValues::begin(const host::Element& element) {
  motionNumber_ = motionNumberOf(element.instruction);
  const host::BufferChanges& changes = element.changes;
  set(toolAxis_, changes.toolAxis);
  set(comment_, changes.comment);
  if (changes.circle) apply(*changes.circle);
  if (changes.helix) apply(*changes.helix);
  if (changes.feedrate) apply(*changes.feedrate);
  if (changes.spindle) apply(*changes.spindle);
}

void InputValues::apply(const host::FeedrateChange& change) {
  setRate(feed_, change);
  set(feedType_, change.feedType);
}

void InputValues::apply(const host::SpindleChange& change) {
  setRate(spindle_, change);
  set(way_, change.way);
}

void InputValues::apply(const host::CircleChange& change) {
  set(circle_.tangent, change.tangent);
  set(circle_.center, change.center);
  set(circle_.normal, change.normal);
  set(circle_.point, change.point);
  set(circle_.radius, change.radius);
}

void InputValues::apply(const host::HelixChange& change) {
  set(helix_.direction, change.inDirV);
  set(helix_.center, change.center);
  set(helix_.axis, change.axis);
  set(helix_.start, change.start);
  set(helix_.end, change.end);
  set(helix_.radius, change.radius);
  set(helix_.pitch, change.pitch);
}

void InputValues::apply(const host::Position& position) {
  point_ = position.point;
  set(toolAxis_, position.toolAxis);
}

// The activity with its kind, tool and assembly, which are not seen through a virtual one.
const host::ActivityValues* InputValues::knownActivity() const {
  return activity_ && !activity_->isVirtual ? &*activity_ : nullptr;
}

const host::ActivityValues* InputValues::operation() const {
  const host::ActivityValues* const activity = knownActivity();
  return activity != nullptr && activity->operation ? activity->operation.get() : activity;
}

bool InputValues::isSequential() const {
  const host::ActivityValues* const activity = knownActivity();
  return activity != nullptr && (activity->kind == host::ActivityKind::SequentialAxial ||
                                 activity->kind == host::ActivityKind::SequentialGroove);
}

// The motion of a sequential operation that the element names.
const host::SequentialMotionValues* InputValues::motion() const {
  const host::ActivityValues* const activity = knownActivity();
  if (activity == nullptr || !activity->motions || motionNumber_ < 1) return nullptr;
  const auto number = static_cast<std::size_t>(motionNumber_);
  return number > activity->motions->size() ? nullptr : &(*activity->motions)[number - 1];
}

// What that motion states of its spindle; null where it does not state whose speed it has.
const host::FeedrateValues* InputValues::motionSpindle() const {
  const host::SequentialMotionValues* const found = motion();
  if (found == nullptr || !found->feedsAndSpeeds) return nullptr;
  const host::FeedrateValues& spindle = *found->feedsAndSpeeds;
  return find(spindle.attributes, "MfgSpindleSpeedType") == nullptr ? nullptr : &spindle;
}

bool InputValues::isLocal() const {
  const host::FeedrateValues* const spindle = motionSpindle();
  return spindle != nullptr &&
         textOf(spindle->attributes, "MfgSpindleSpeedType") == "MfgSpindleSpeedLocal";
}

Value InputValues::feedType() const {
  const auto* const found = std::ranges::find(kFeedTypes, feedType_, &FeedTypeWord::type);
  if (found == std::end(kFeedTypes)) return textValue("VALUE");
  return found->word.empty() ? Value{} : textValue(found->word);
}

Value InputValues::speed() const {
  const Value buffered = numberValue(spindle_.value * spindle_.factor);
  if (!isSequential()) return buffered;
  const host::FeedrateValues* const spindle = motionSpindle();
  if (spindle == nullptr) return {};
  const auto& own = isLocal() ? spindle->spindle
                              : (activity_->feedsAndSpeeds ? activity_->feedsAndSpeeds->spindle
                                                           : std::optional<host::TypedValue>());
  return own ? numberValue(numberOf(own->text)) : buffered;
}

int InputValues::feedUnit() const {
  constexpr std::string_view kLinear = "LINEARFEEDRATE";
  constexpr std::string_view kAngular = "ANGULARFEEDRATE";
  const int buffered = entryOf(feed_.type, kLinear, kAngular);
  const host::ActivityValues* const of = operation();
  if (buffered != 0 || of == nullptr || !of->feedsAndSpeeds) return buffered;
  return entryOf(of->feedsAndSpeeds->machining, kLinear, kAngular);
}

int InputValues::speedUnit() const {
  constexpr std::string_view kAngular = "ANGULARSPINDLESPEED";
  constexpr std::string_view kLinear = "LINEARSPINDLESPEED";
  const host::FeedrateValues* const motion = isSequential() ? motionSpindle() : nullptr;
  if (isSequential() && motion == nullptr) return 0;
  const int own = motion != nullptr && isLocal() ? entryOf(motion->spindle, kAngular, kLinear) : 0;
  if (own != 0) return own;
  const int buffered = entryOf(spindle_.type, kAngular, kLinear);
  const host::ActivityValues* const of = operation();
  if (buffered != 0 || of == nullptr || !of->feedsAndSpeeds) return buffered;
  return entryOf(of->feedsAndSpeeds->spindle, kAngular, kLinear);
}

// The hand of the tool, swapped for the other way of the spindle.
int InputValues::handOfTool() const {
  const host::ActivityValues* const activity = knownActivity();
  if (activity == nullptr || !activity->tool) return 0;
  const auto hand = textOf(activity->tool->parameters, "MFG_WAY_OF_ROT");
  const int entry = entryOf(hand, "MfgRightHand", "MfgLeftHand");
  return way_ == kSwapped && entry != 0 ? 3 - entry : entry;
}

int InputValues::way() const {
  if (!activity_) return 1;
  const host::ActivityValues* const of = operation();
  if (of != nullptr && of->lathe && of->lathe->way) {
    return *of->lathe->way == kReverseWay ? 2 : 1;
  }
  if (isSequential() && motionNumber_ > 0) {
    const host::FeedrateValues* const spindle = motionSpindle();
    if (spindle == nullptr) return 0;
    const auto own = textOf(spindle->attributes, "MfgSpindleWayOfRotation");
    if (isLocal() && !own.empty()) return own == "MfgSpindleCLW" ? 1 : 2;
  }
  return handOfTool();
}

int InputValues::delayUnit() const {
  if (isSequential()) {
    const host::SequentialMotionValues* const found = motion();
    if (found == nullptr || !found->strategy) return 0;
    return entryOf(textOf(*found->strategy, "MfgSpindleDwellMode"), "MfgSpindleDwellByRevolution",
                   "MfgSpindleDwellByTimeUnit");
  }
  const host::ActivityValues* const activity = knownActivity();
  if (activity == nullptr || !activity->strategy) return 0;
  return entryOf(textOf(*activity->strategy, "MfgDwellMode"), "MfgDwellRound", "MfgDwellTime");
}

int InputValues::toolPathType() const {
  const host::ActivityValues* const activity = knownActivity();
  if (activity == nullptr || !activity->toolPath || !activity->toolPath->type) return 0;
  return *activity->toolPath->type == 1 ? 1 : 2;
}

// An entry of the list of a parameter, from 1.
Value InputValues::wordOf(std::string_view parameter, int entry, std::size_t least) const {
  const auto list = words_.lists.find(parameter);
  if (entry < 1 || list == words_.lists.end()) return {};
  if (std::max(static_cast<std::size_t>(entry), least) > list->second.size()) return {};
  const std::string& word = list->second[static_cast<std::size_t>(entry) - 1];
  const bool isNone = word == kNoWord && parameter == kDwellUnit;
  return isNone ? textValue("") : textValue(word);
}

// A parameter of the activity, its tool, the assembly or the insert.
Value InputValues::lookedUp(std::string_view parameter) const {
  if (!activity_) return {};
  const host::ActivityStart& activity = *activity_;
  const auto* const insert = activity.assembly && activity.assembly->insert
                                 ? &activity.assembly->insert->parameters
                                 : nullptr;
  for (const host::NamedValues* const place :
       {&activity.customParameters, &activity.parameters,
        activity.tool ? &activity.tool->parameters : nullptr,
        activity.assembly ? &activity.assembly->parameters : nullptr, insert}) {
    const KEPMfgParameterValue* const found = place == nullptr ? nullptr : find(*place, parameter);
    if (found != nullptr) return printed(*found);
  }
  return {};
}

Value InputValues::valueOf(const ValueSource& source, std::string_view parameter) const {
  if (source.value != nullptr) return source.value(*this);
  if (source.entry == nullptr) return lookedUp(parameter);
  return wordOf(parameter, (this->*source.entry)(), source.least);
}

}  // namespace verify
