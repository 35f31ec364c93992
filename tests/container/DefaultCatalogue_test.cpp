#include "src/container/DefaultCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "Manufacturing/KEPMfgNames.h"
#include "tests/container/Listing.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

constexpr const char* kCommandType =
    "MfgPPCommand\n"
    "  CommandName unset\n"
    "  SequenceNumber unset\n";

/// The listing of a container without its first member, the type of the PP commands.
std::vector<std::string> listedCatalogue(const KEPIContainer_var& container) {
  std::vector<std::string> entries = listing(container);
  EXPECT_EQ(entries.front(), kCommandType);
  entries.erase(entries.begin());
  return entries;
}

auto typesUnder(const std::vector<std::string>& entries, const std::string& base) {
  return std::count_if(entries.begin(), entries.end(), [&](const std::string& entry) {
    return entry.find(" : " + base + "\n") != std::string::npos;
  });
}

class DefaultCatalogue : public testing::Test, protected PPWordDocument {
 protected:
  [[nodiscard]] std::string entry(std::string_view name) const { return entryOf(find(name)); }
  void attribute(std::string_view type, std::string_view name, const Texts& items) const {
    const KEPISpecAttrAccess_var attributes = find(type);
    attributes->AddAttribute(name, KEPISpecAttribute::Kind::StringList);
    attributes->SetList(name, list(items));
  }
};

TEST(EmptyContainer, CatalogueIsMadeInOrder) {
  const auto document = host::Document::create();
  createDefaultCatalogue(document->features());
  EXPECT_EQ(listedCatalogue(document->features()), writtenOutCatalogue());
}

TEST(EmptyContainer, GetsThreeRootsAndAllRows) {
  const auto document = host::Document::create();
  createDefaultCatalogue(document->features());
  const auto entries = listedCatalogue(document->features());
  EXPECT_EQ(entries.size(), 155U);
  EXPECT_EQ(typesUnder(entries, "MfgPPWordRoot"), 2);
  EXPECT_EQ(typesUnder(entries, "MfgPPParameter"), 72);
  EXPECT_EQ(typesUnder(entries, "MfgPPSyntax"), 80);
}

TEST(EmptyContainer, EachTypeIsHeldByTheContainerAndTheTypesUnderIt) {
  const auto document = host::Document::create();
  const auto before = referencesOf(document);
  createDefaultCatalogue(document->features());
  std::vector<int> members(156, 1);
  members[1] = 1 + 2;   // MfgPPWordRoot
  members[2] = 1 + 72;  // MfgPPParameter
  members[3] = 1 + 80;  // MfgPPSyntax
  EXPECT_EQ(referencesOf(document), (References{before.document, before.container, members}));
}

TEST_F(DefaultCatalogue, MadeTwiceStaysTheSame) {
  createDefaultCatalogue(features);
  const auto once = listing(features);
  const auto counts = referencesOf(document);
  createDefaultCatalogue(features);
  EXPECT_EQ(listing(features), once);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(DefaultCatalogue, ExistingInstructionKeepsItsLines) {
  instruction("NC_GOTO", {"GOTO/USER"});
  createDefaultCatalogue(features);
  EXPECT_EQ(entry("NC_GOTO"), "NC_GOTO : MfgPPSyntax\n  Syntaxe: GOTO/USER\n");
}

TEST_F(DefaultCatalogue, ExistingInstructionWithoutSyntaxKeepsLackingIt) {
  make("NC_GOTO", "MfgPPSyntax");
  createDefaultCatalogue(features);
  EXPECT_EQ(entry("NC_GOTO"), "NC_GOTO : MfgPPSyntax\n");
}

TEST_F(DefaultCatalogue, InstructionsMarkedForUpdateGetTheDefaultLines) {
  for (const char* name :
       {"NC_CYCLE_LOCATION_POINT", "NC_CYLNDR1", "NC_CYLNDR2", "NC_CUTTER", "NC_CUTTER_LATHE"}) {
    instruction(name, {"OLD/1", "OLD/2", "OLD/3"});
  }
  createDefaultCatalogue(features);
  EXPECT_EQ(entry("NC_CYCLE_LOCATION_POINT"),
            "NC_CYCLE_LOCATION_POINT : MfgPPSyntax\n"
            "  Syntaxe: GOTO  /%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n");
  EXPECT_EQ(entry("NC_CUTTER"),
            "NC_CUTTER : MfgPPSyntax\n"
            "  Syntaxe: CUTTER/%MFG_CUTTER_PARAM1,%MFG_CUTTER_PARAM2,%MFG_CUTTER_PARAM3,"
            "%MFG_CUTTER_PARAM4,%MFG_CUTTER_PARAM5,$\n"
            "  Syntaxe:        %MFG_CUTTER_PARAM6,%MFG_CUTTER_PARAM7\n");
  EXPECT_EQ(entry("NC_CUTTER_LATHE"),
            "NC_CUTTER_LATHE : MfgPPSyntax\n"
            "  Syntaxe: CUTTER/2*%MFG_NOSE_RADIUS\n");
  for (const char* name : {"NC_CYLNDR1", "NC_CYLNDR2"}) {
    const std::string lines = entry(name);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 11) << lines;
    EXPECT_EQ(lines.find("OLD"), std::string::npos) << lines;
  }
}

TEST_F(DefaultCatalogue, UpdateDeclaresAMissingSyntax) {
  make("NC_CUTTER_LATHE", "MfgPPSyntax");
  createDefaultCatalogue(features);
  EXPECT_EQ(entry("NC_CUTTER_LATHE"),
            "NC_CUTTER_LATHE : MfgPPSyntax\n"
            "  Syntaxe: CUTTER/2*%MFG_NOSE_RADIUS\n");
}

TEST_F(DefaultCatalogue, UpdateKeepsFurtherSequences) {
  instruction("NC_CUTTER_LATHE", {"OLD/1"});
  attribute("NC_CUTTER_LATHE", "Syntaxe2", {"SECOND/2"});
  createDefaultCatalogue(features);
  EXPECT_EQ(entry("NC_CUTTER_LATHE"),
            "NC_CUTTER_LATHE : MfgPPSyntax\n"
            "  Syntaxe: CUTTER/2*%MFG_NOSE_RADIUS\n"
            "  Syntaxe2: SECOND/2\n");
}

TEST_F(DefaultCatalogue, ExistingParameterWithoutFormatKeepsLackingIt) {
  make("MFG_XPOINT", "MfgPPParameter");
  createDefaultCatalogue(features);
  EXPECT_EQ(entry("MFG_XPOINT"), "MFG_XPOINT : MfgPPParameter\n");
}

TEST_F(DefaultCatalogue, ExistingParametersKeepTheirValues) {
  format("MFG_XPOINT", "%8.3f");
  make("MFG_FEED_UNIT", "MfgPPParameter");
  attribute("MFG_FEED_UNIT", "MultiListValue", {"INPM"});
  createDefaultCatalogue(features);
  EXPECT_EQ(entry("MFG_XPOINT"), "MFG_XPOINT : MfgPPParameter\n  Format: %8.3f\n");
  EXPECT_EQ(entry("MFG_FEED_UNIT"), "MFG_FEED_UNIT : MfgPPParameter\n  MultiListValue: INPM\n");
}

TEST_F(DefaultCatalogue, ExistingRootsAreKept) {
  const KEPISpecObject_var root = find("MfgPPWordRoot");
  const KEPISpecObject_var syntax = find("MfgPPSyntax");
  const KEPISpecObject_var parameter = find("MfgPPParameter");
  createDefaultCatalogue(features);
  EXPECT_EQ(find("MfgPPWordRoot").Get(), root.Get());
  EXPECT_EQ(find("MfgPPSyntax").Get(), syntax.Get());
  EXPECT_EQ(find("MfgPPParameter").Get(), parameter.Get());
  EXPECT_EQ(find("NC_GOTO")->GetBaseType().Get(), syntax.Get());
}

TEST_F(DefaultCatalogue, SecondNamesStandBesideTheFirst) {
  createDefaultCatalogue(features);
  EXPECT_EQ(entry("MFG_FED_UNIT"),
            "MFG_FED_UNIT : MfgPPParameter\n  MultiListValue: MMPM\n  MultiListValue: MMPR\n");
  EXPECT_EQ(entry("MFG_SPINDL_UNIT"),
            "MFG_SPINDL_UNIT : MfgPPParameter\n  MultiListValue: RPM\n  MultiListValue: SMM\n");
  EXPECT_EQ(entry("MFG_SPINDL_WAY"),
            "MFG_SPINDL_WAY : MfgPPParameter\n  MultiListValue: CLW\n  MultiListValue: CCLW\n");
}

TEST_F(DefaultCatalogue, OddRowsAreExact) {
  createDefaultCatalogue(features);
  EXPECT_EQ(entry("MFG_CIRCLE_X_PT"), "MFG_CIRCLE_X_PT : MfgPPParameter\n  Format: %10.5f\n");
  EXPECT_EQ(entry("MFG_CIRCLE_Y_PT"), "MFG_CIRCLE_Y_PT : MfgPPParameter\n  Format: %13.5f\n");
  EXPECT_EQ(entry("MFG_DELAY_UNIT"),
            "MFG_DELAY_UNIT : MfgPPParameter\n"
            "  MultiListValue: REV\n"
            "  MultiListValue: ________\n");
  EXPECT_EQ(entry("NC_CYCLE_LOCATION_POINT_V1"),
            "NC_CYCLE_LOCATION_POINT_V1 : MfgPPSyntax\n"
            "  Syntaxe: GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n");
  EXPECT_EQ(entry("NC_MULTAX_ON"), "NC_MULTAX_ON : MfgPPSyntax\n  Syntaxe: MULTAX\n");
  EXPECT_EQ(entry("NC_CUTCOM_NORMDS_ON"),
            "NC_CUTCOM_NORMDS_ON : MfgPPSyntax\n"
            "  Syntaxe: CUTCOM/SAME, NORMDS\n"
            "  Syntaxe: CUTCOM/NORMDS\n");
  EXPECT_EQ(entry("NC_HEAD_CHANGE"),
            "NC_HEAD_CHANGE : MfgPPSyntax\n  Syntaxe: NC_HEAD_CHANGE/%MFG_HEAD_NAME\n");
}

TEST_F(DefaultCatalogue, SynchronisationIsNamedByTheHost) {
  createDefaultCatalogue(features);
  EXPECT_EQ(PPCommandSynchro, "PPCommandSynchro");
  EXPECT_EQ(entry(PPCommandSynchro),
            "PPCommandSynchro : MfgPPSyntax\n"
            "  Syntaxe: SYNC/%MFG_SYNCHRONISATION_NUMBER,%MFG_CHANNEL1,%MFG_CHANNEL2,"
            "%MFG_MASTER_CHANNEL\n");
}

TEST(DefaultCatalogueRows, UpdateModesAreExact) {
  std::map<std::string, int> modes;
  for (const CatalogueRow& row : kDefaultCatalogue) {
    if (row.updateMode != kNew) modes[std::string(row.name)] = row.updateMode;
  }
  const std::map<std::string, int> expected = {{"NC_CYCLE_LOCATION_POINT", 1},
                                               {"NC_CUTTER", 1},
                                               {"NC_CUTTER_LATHE", 1},
                                               {"NC_CYLNDR1", 1},
                                               {"NC_CYLNDR2", 2}};
  EXPECT_EQ(modes, expected);
}

TEST(NewDocument, HoldsTheCatalogueAndOneReference) {
  const auto document = host::newDocument();
  EXPECT_EQ(listedCatalogue(document->features()), writtenOutCatalogue());
  EXPECT_EQ(document->GetReferenceCount(), 1);
  EXPECT_FALSE(document->NeedsUpgrade());
}

}  // namespace
}  // namespace ppword::test
