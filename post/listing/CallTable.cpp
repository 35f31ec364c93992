#include "post/listing/CallTable.h"

#include <algorithm>
#include <functional>

#include "host/system/TextHash.h"

namespace host {
namespace {

using enum CallEffect;

/// In the order of the names.
constexpr CallRule kRules[] = {
    {"ARC_FEED", Arc, "nnnninnnn"},
    {"CANON_ERROR", InterpreterError, "*"},
    {"CHANGE_TOOL", ChangeTool, "i"},
    {"CHANGE_TOOL_NUMBER", NoMove, "i"},
    {"CLAMP_AXIS", NoMove, "*"},
    {"CLEAR_AUX_OUTPUT_BIT", NoMove, "*"},
    {"CLEAR_MOTION_OUTPUT_BIT", NoMove, "*"},
    {"COMMENT", Text, "s"},
    {"DISABLE_ADAPTIVE_FEED", NoMove, "*"},
    {"DISABLE_FEED_HOLD", NoMove, "*"},
    {"DISABLE_FEED_OVERRIDE", NoMove, "*"},
    {"DISABLE_SPEED_OVERRIDE", NoMove, "*"},
    {"DWELL", Dwell, "n"},
    {"ENABLE_ADAPTIVE_FEED", NoMove, "*"},
    {"ENABLE_FEED_HOLD", NoMove, "*"},
    {"ENABLE_FEED_OVERRIDE", NoMove, "*"},
    {"ENABLE_SPEED_OVERRIDE", NoMove, "*"},
    {"FINISH", End, ""},
    {"FLOOD_OFF", FloodOff, ""},
    {"FLOOD_ON", FloodOn, ""},
    {"INIT_CANON", NoMove, "*"},
    {"IO_PLUGIN_CALL", NoMove, "*"},
    {"LOCK_ROTARY", NoMove, "*"},
    {"LOCK_SPINDLE_Z", NoMove, "*"},
    {"LOG", NoMove, "*"},
    {"LOGAPPEND", NoMove, "*"},
    {"LOGCLOSE", NoMove, "*"},
    {"LOGOPEN", NoMove, "*"},
    {"MESSAGE", Text, "s"},
    {"MIST_OFF", MistOff, ""},
    {"MIST_ON", MistOn, ""},
    {"NURBS_FEED", UnsupportedMove, "*"},
    {"NURB_CONTROL_POINT", NoMove, "*"},
    {"NURB_FEED", UnsupportedMove, "*"},
    {"NURB_KNOT_VECTOR", NoMove, "*"},
    {"ON_RESET", NoMove, "*"},
    {"OPTIONAL_PROGRAM_STOP", OptionalStop, ""},
    {"ORIENT_SPINDLE", NoMove, "*"},
    {"PALLET_SHUTTLE", NoMove, "*"},
    {"PLUGIN_CALL", NoMove, "*"},
    {"PROGRAM_END", ProgramEnd, ""},
    {"PROGRAM_STOP", ProgramStop, ""},
    {"RELOAD_TOOLDATA", NoMove, "*"},
    {"RIGID_TAP", UnsupportedMove, "*"},
    {"SELECT_PLANE", Plane, "w"},
    {"SELECT_TOOL", SelectTool, "i"},
    {"SET_AUX_OUTPUT_BIT", NoMove, "*"},
    {"SET_AUX_OUTPUT_VALUE", NoMove, "*"},
    {"SET_BLOCK_DELETE", NoMove, "*"},
    {"SET_CUTTER_RADIUS_COMPENSATION", NoMove, "*"},
    {"SET_FEED_MODE", FeedMode, "ii"},
    {"SET_FEED_RATE", FeedRate, "n"},
    {"SET_FEED_REFERENCE", NoMove, "*"},
    {"SET_G5X_OFFSET", FixtureOffset, "innnnnn"},
    {"SET_G92_OFFSET", ProgramOffset, "nnnnnn"},
    {"SET_MOTION_CONTROL_MODE", NoMove, "*"},
    {"SET_MOTION_OUTPUT_BIT", NoMove, "*"},
    {"SET_MOTION_OUTPUT_VALUE", NoMove, "*"},
    {"SET_NAIVECAM_TOLERANCE", NoMove, "*"},
    {"SET_OPTIONAL_PROGRAM_STOP", NoMove, "*"},
    {"SET_SPINDLE_MODE", SpindleMode, "in"},
    {"SET_SPINDLE_SPEED", SpindleSpeed, "in"},
    {"SET_TOOL_TABLE_ENTRY", NoMove, "*"},
    {"SET_TRAVERSE_RATE", NoMove, "*"},
    {"SET_XY_ROTATION", PlaneRotation, "n"},
    {"SPINDLE_RETRACT", UnsupportedMove, "*"},
    {"SPINDLE_RETRACT_TRAVERSE", UnsupportedMove, "*"},
    {"START_CHANGE", NoMove, ""},
    {"START_CUTTER_RADIUS_COMPENSATION", Compensation, "*"},
    {"START_SPEED_FEED_SYNC", SynchronisedOn, "ni"},
    {"START_SPEED_FEED_SYNCH", Dropped, "*"},
    {"START_SPINDLE_CLOCKWISE", Clockwise, "i"},
    {"START_SPINDLE_COUNTERCLOCKWISE", Counterclockwise, "i"},
    {"STOP", NoMove, "*"},
    {"STOP_CUTTER_RADIUS_COMPENSATION", NoMove, "*"},
    {"STOP_SPEED_FEED_SYNCH", SynchronisedOff, ""},
    {"STOP_SPINDLE_TURNING", SpindleOff, "i"},
    {"STRAIGHT_FEED", Feed, "nnnnnn"},
    {"STRAIGHT_PROBE", UnsupportedMove, "*"},
    {"STRAIGHT_TRAVERSE", Traverse, "nnnnnn"},
    {"TURN_PROBE_OFF", NoMove, "*"},
    {"TURN_PROBE_ON", NoMove, "*"},
    {"UNCLAMP_AXIS", NoMove, "*"},
    {"UNLOCK_ROTARY", NoMove, "*"},
    {"USE_LENGTH_UNITS", Units, "w"},
    {"USE_NO_SPINDLE_FORCE", NoMove, "*"},
    {"USE_SPINDLE_FORCE", NoMove, "*"},
    {"USE_TOOL_LENGTH_OFFSET", ToolOffset, "nnnnnnnnn"},
    {"WAIT", NoMove, "*"},
    {"WAIT_SPINDLE_ORIENT_COMPLETE", NoMove, "*"},
};

static_assert(std::ranges::is_sorted(kRules, std::less<>(), &CallRule::name));

TextMap<const CallRule*> rulesByName() {
  TextMap<const CallRule*> rules;
  for (const CallRule& rule : kRules) rules.emplace(rule.name, &rule);
  return rules;
}

}  // namespace

const CallRule* findCallRule(std::string_view name) {
  // The one call whose printed name holds the number of the spindle.
  if (name.starts_with("SPINDLE.") && name.ends_with(".WAIT_ORIENT_COMPLETE")) {
    return findCallRule("WAIT_SPINDLE_ORIENT_COMPLETE");
  }
  static const TextMap<const CallRule*> rules = rulesByName();
  const auto rule = rules.find(name);
  return rule != rules.end() ? rule->second : nullptr;
}

}  // namespace host
