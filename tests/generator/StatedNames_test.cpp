// Parameters of activities whose names are perhaps misspelt.

#include "post/generator/StatedNames.h"

#include <gtest/gtest.h>

namespace host::test {
namespace {

ActivityStart activityWith(const std::string& parameter, long line = 2) {
  ActivityStart activity;
  activity.name = "Drilling.1";
  activity.line = line;
  activity.parameters.emplace_back(parameter, KEPMfgParameterValue());
  return activity;
}

/// "NAME COUNT@LINE ACTIVITY" for each entry.
std::string reported(StatedNames& names) {
  Tally misspelt;
  names.report(misspelt);
  std::string text;
  for (const Tally::Entry& entry : misspelt.entries()) {
    text += (text.empty() ? "" : "; ") + entry.name + ' ' + std::to_string(entry.count) + '@' +
            std::to_string(entry.firstLine) + ' ' + entry.firstInstruction;
  }
  return text;
}

std::string reportedFor(const std::string& parameter) {
  StatedNames names;
  names.read(activityWith(parameter));
  return reported(names);
}

TEST(StatedNames, NameOneMistakeAwayIsReported) {
  EXPECT_EQ(reportedFor("MFG_TOTAL_DEPHT"),
            "MFG_TOTAL_DEPHT, perhaps MFG_TOTAL_DEPTH 1@2 Drilling.1");
  EXPECT_EQ(reportedFor("MFG_CLEARTIP"), "MFG_CLEARTIP, perhaps MFG_CLEAR_TIP 1@2 Drilling.1");
  EXPECT_EQ(reportedFor("mfg_tool_name"), "mfg_tool_name, perhaps MFG_TOOL_NAME 1@2 Drilling.1");
}

TEST(StatedNames, KnownAndOwnNamesAreNot) {
  EXPECT_EQ(reportedFor("MFG_TOTAL_DEPTH"), "");
  EXPECT_EQ(reportedFor("MFG_WAY_OF_ROT"), "");
  EXPECT_EQ(reportedFor("MFG_COOLANT"), "");
  // Different on purpose.
  EXPECT_EQ(reportedFor("MFG_TOOL_NUMBER2"), "");
  EXPECT_EQ(reportedFor("MFG_CUTTER_PARAM8"), "");
}

TEST(StatedNames, NameThatAReferenceAsksForIsNot) {
  StatedNames names;
  names.read(activityWith("MFG_TOTAL_DEPHT"));
  names.use("MFG_TOTAL_DEPHT");
  EXPECT_EQ(reported(names), "");
  // It is never reported again.
  names.read(activityWith("MFG_TOTAL_DEPHT"));
  EXPECT_EQ(reported(names), "");
}

TEST(StatedNames, CountsAndOrderAreThoseOfTheLines) {
  StatedNames names;
  names.read(activityWith("MFG_TOOL_NAM", 5));
  names.read(activityWith("MFG_CLEAR_TIPP", 6));
  names.read(activityWith("MFG_TOOL_NAM", 7));
  EXPECT_EQ(reported(names),
            "MFG_TOOL_NAM, perhaps MFG_TOOL_NAME 2@5 Drilling.1; "
            "MFG_CLEAR_TIPP, perhaps MFG_CLEAR_TIP 1@6 Drilling.1");
  EXPECT_EQ(reported(names), "");
}

TEST(StatedNames, WhatAnActivityLeadsToIsReadToo) {
  const NamedValues named{{"MFG_NOSE_RADIU", KEPMfgParameterValue()}};
  ActivityStart activity;
  activity.line = 3;
  activity.tool.emplace().parameters = {{"MFG_WAY_OF_ROTT", KEPMfgParameterValue()}};
  activity.assembly.emplace().parameters = {{"MFG_TLSET_X", KEPMfgParameterValue()}};
  activity.assembly->insert.emplace().parameters = named;
  ActivityValues operation;
  operation.parameters = {{"MFG_FED_MACH", KEPMfgParameterValue()}};
  activity.operation = std::make_shared<const ActivityValues>(operation);
  // Names that a user added are taken as they are.
  activity.customParameters = {{"MFG_TOOL_NAM", KEPMfgParameterValue()}};
  StatedNames names;
  names.read(activity);
  EXPECT_EQ(reported(names),
            "MFG_FED_MACH, perhaps MFG_FEED_MACH 1@3 ; "
            "MFG_NOSE_RADIU, perhaps MFG_NOSE_RADIUS 1@3 ; "
            "MFG_TLSET_X, perhaps MFG_TL_SET_X 1@3 ; "
            "MFG_WAY_OF_ROTT, perhaps MFG_WAY_OF_ROT 1@3 ");
}

TEST(StatedNames, OnlySoManyNamesAreFollowed) {
  StatedNames names;
  for (int i = 0; i < 10000; ++i) {
    names.read(activityWith("MY_OWN_" + std::to_string(i)));
  }
  names.read(activityWith("MFG_TOTAL_DEPHT"));
  EXPECT_EQ(reported(names), "");
}

}  // namespace
}  // namespace host::test
