#include <algorithm>
#include <array>

#include "post/job/JobLines.h"
#include "post/job/JobObject.h"

namespace host::job {
namespace {

// The words of the kinds; those of operations in the order of ActivityKind, from Machining on.
constexpr std::array<std::string_view, 4> kOperationKinds{"machining", "lathe", "sequentialAxial",
                                                          "sequentialGroove"};
constexpr std::array<std::string_view, 5> kKinds{"toolChange", "machining", "lathe",
                                                 "sequentialAxial", "sequentialGroove"};

void readKind(Value value, const Place& place, ActivityStart& activity) {
  constexpr auto kFirst = static_cast<std::size_t>(ActivityKind::ToolChange);
  activity.kind = static_cast<ActivityKind>(kFirst + readWord(value, place, kKinds));
}
void readOperationKind(Value value, const Place& place, ActivityValues& operation) {
  constexpr auto kFirst = static_cast<std::size_t>(ActivityKind::Machining);
  operation.kind = static_cast<ActivityKind>(kFirst + readWord(value, place, kOperationKinds));
}

template <class Target>
void intoName(Value value, const Place& place, Target& target) {
  target.name = readName(value, place);
}

template <class Target>
void intoStrategy(Value value, const Place& place, Target& target) {
  readStrategy(value, place, target);
}

/// What an activity and the operation of a tool change can state.
template <class Target>
constexpr std::array<Key<Target>, 10> kSharedKeys{{
    {"parameters", into<&ActivityValues::parameters>},
    {"customParameters", into<&ActivityValues::customParameters>},
    {"tool", into<&ActivityValues::tool>},
    {"assembly", into<&ActivityValues::assembly>},
    {"feedsAndSpeeds", into<&ActivityValues::feedsAndSpeeds>},
    {"strategy", intoStrategy},
    {"toolPath", into<&ActivityValues::toolPath>},
    {"turning", into<&ActivityValues::turning>},
    {"lathe", into<&ActivityValues::lathe>},
    {"motions", into<&ActivityValues::motions>},
}};

constexpr auto kOperationKeys = joined(std::array<Key<ActivityValues>, 2>{{
                                           {"name", intoName, true},
                                           {"kind", readOperationKind, true},
                                       }},
                                       kSharedKeys<ActivityValues>);

/// A key that activities of some kinds only can have.
struct KindRule {
  std::string_view key;
  bool (*isStated)(const ActivityValues&);
  bool (*belongsTo)(ActivityKind);
  std::string_view kinds;
};

bool isOperation(ActivityKind kind) { return kind >= ActivityKind::Machining; }
bool isSequential(ActivityKind kind) { return kind >= ActivityKind::SequentialAxial; }
bool isToolChange(ActivityKind kind) { return kind == ActivityKind::ToolChange; }

template <auto kMember>
bool states(const ActivityValues& activity) {
  return static_cast<bool>(activity.*kMember);
}

constexpr std::string_view kAnyOperation =
    R"("machining" or "lathe" or "sequentialAxial" or "sequentialGroove")";

constexpr KindRule kKindRules[] = {
    {"operation", states<&ActivityValues::operation>, isToolChange, R"("toolChange")"},
    {"feedsAndSpeeds", states<&ActivityValues::feedsAndSpeeds>, isOperation, kAnyOperation},
    {"strategy", states<&ActivityValues::strategy>, isOperation, kAnyOperation},
    {"toolPath", states<&ActivityValues::toolPath>, isOperation, kAnyOperation},
    {"turning", states<&ActivityValues::turning>, isOperation, kAnyOperation},
    {"lathe", states<&ActivityValues::lathe>, isOperation, kAnyOperation},
    {"motions", states<&ActivityValues::motions>, isSequential,
     R"("sequentialAxial" or "sequentialGroove")"},
};

void requireKinds(const ActivityValues& activity, const char* at, const Place& place) {
  for (const KindRule& rule : kKindRules) {
    if (!rule.isStated(activity) || rule.belongsTo(activity.kind)) continue;
    place.refuse(
        at,
        std::string("the key \"").append(rule.key).append("\" needs the kind ").append(rule.kinds));
  }
}

void readOperation(Value value, const Place& place, ActivityStart& activity) {
  const char* const at = value.raw_json_token().data();
  ActivityValues operation;
  readFields<ActivityValues>(value, place, kOperationKeys, operation);
  requireKinds(operation, at, place);
  activity.operation = std::make_shared<const ActivityValues>(std::move(operation));
}

void readIsVirtual(Value value, const Place& place, ActivityStart& activity) {
  activity.isVirtual = readTruth(value, place);
}

constexpr auto kActivityKeys = joined(std::array<Key<ActivityStart>, 4>{{
                                          {"activity", intoName, true},
                                          {"kind", readKind},
                                          {"virtual", readIsVirtual},
                                          {"operation", readOperation},
                                      }},
                                      kSharedKeys<ActivityStart>);

}  // namespace

void readActivity(Line& line, ActivityStart& activity) {
  const Place root(line);
  const char* const at = beginOf(line);
  readFields<ActivityStart>(objectOf(line, root), at, root, kActivityKeys, activity);
  requireKinds(activity, at, root);
  requireEnd(line, root);
}

}  // namespace host::job
