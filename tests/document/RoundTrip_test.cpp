#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "KEPIMfgPPWordFactory.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "host/document/DocumentFile.h"
#include "host/modeler/Container.h"
#include "tests/container/Listing.h"
#include "tests/document/StoredContent.h"
#include "tests/generator/Scratch.h"
#include "tests/support/PPWordDocument.h"

namespace host::test {
namespace {

using Kind = KEPISpecAttribute::Kind;
using ppword::test::listing;
using ppword::test::PPWordDocument;
using ppword::test::Texts;

class RoundTrip : public testing::Test, protected PPWordDocument {
 protected:
  /// The document as it comes back from a file.
  [[nodiscard]] KEPVar<Document> reopened() const {
    const Scratch folder;
    saveDocument(*document, folder.path("part.ppdoc"));
    return openDocument(folder.path("part.ppdoc"));
  }
  void expectTheSame() const { expectSame(*reopened()); }
  /// The same content in what came back, and in a copy.
  void expectSame(const Document& other) const {
    EXPECT_EQ(contentOf(other), contentOf(*document));
    EXPECT_EQ(contentOf(*copyOf(*document)), contentOf(*document));
  }

  [[nodiscard]] KEPVar<Feature> feature(std::string_view name) const { return find(name); }
};

TEST(NewDocument, HoldsTheDefaultCatalogueWhenItIsOpenedAgain) {
  const Scratch folder;
  const auto document = newDocument();
  saveDocument(*document, folder.path("new"));
  const auto opened = openDocument(folder.path("new"));
  Texts expected = ppword::test::writtenOutCatalogue();
  expected.insert(expected.begin(), "MfgPPCommand\n  CommandName unset\n  SequenceNumber unset\n");
  EXPECT_EQ(listing(opened->features()), expected);
  EXPECT_EQ(ppword::test::referencesOf(opened), ppword::test::referencesOf(document));
  EXPECT_FALSE(opened->NeedsUpgrade());
  EXPECT_EQ(folder.size(), 1U);
}

TEST(NewDocument, WithALoadedTableIsTheSameWhenItIsOpenedAgain) {
  const Scratch folder;
  const auto document = newDocument();
  ASSERT_EQ(
      document->ppWordContainer()->LoadPPWordTable(PPWORD_SOURCE_DIR "/examples/mill.pptable"),
      S_OK);
  saveDocument(*document, folder.path("mill"));
  const auto opened = openDocument(folder.path("mill"));
  EXPECT_EQ(listing(opened->features()), listing(document->features()));
  EXPECT_EQ(contentOf(*opened), contentOf(*document));
  const auto type = KEPISpecObject_var::Adopt(opened->features()->FindStartUp("NC_TOOL_CHANGE"));
  EXPECT_EQ(ppword::test::entryOf(type), ppword::test::entryOf(KEPISpecObject_var::Adopt(
                                             document->features()->FindStartUp("NC_TOOL_CHANGE"))));
}

TEST(NewDocument, PPCommandsAreEvaluatedWhenItIsOpenedAgain) {
  const Scratch folder;
  const auto document = newDocument();
  addCommand(*document, "NC_SPINDLE_LOCK", 1);
  addCommand(*document, "NC_START_MACRO", 1);
  saveDocument(*document, folder.path("commands"));
  const auto opened = openDocument(folder.path("commands"));
  const auto members = opened->features()->ListMembersHere(KEPInterfaceId<KEPIMfgPPCommand>());
  ASSERT_EQ(members.size(), 3U);  // The type comes first.
  KEPListValKEPUnicodeString lines;
  EXPECT_TRUE(KEPIMfgPPCommand_var(members[2])->Evaluate(lines));
  EXPECT_TRUE(KEPIMfgPPCommand_var(members[1])->Evaluate(lines));
  EXPECT_EQ(ppword::test::texts(lines),
            (Texts{"PARTNO PART TO BE MACHINED", "COOLNT/ON", "CUTCOM/OFF", "SPINDL/LOCK"}));
}

TEST_F(RoundTrip, OrderOfMakingIsKept) {
  instruction("NC_Z", {"Z/1"});
  const auto first = KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_Z"), "Same"));
  instruction("NC_A", {"A/1"});
  const auto second = KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_A"), "Same"));
  const auto third = KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_Z"), ""));
  KEPILifeCycleObject_var(find("MfgPPParameter"))->remove();
  const std::string command =
      "type MfgPPCommand\n  CommandName kind 0 declared\n  SequenceNumber kind 1 declared";
  EXPECT_EQ(contentOf(*reopened()),
            (Texts{"container MfgPPWordCont", command, "type MfgPPWordRoot",
                   "type MfgPPSyntax\n  of MfgPPWordRoot",
                   "type NC_Z\n  Syntaxe kind 2 declared = 0 «Z/1»\n  of MfgPPSyntax",
                   "instance Same\n  of NC_Z",
                   "type NC_A\n  Syntaxe kind 2 declared = 0 «A/1»\n  of MfgPPSyntax",
                   "instance Same\n  of NC_A", "instance \n  of NC_Z"}));
  expectTheSame();
}

TEST_F(RoundTrip, AnyBytesAreKept) {
  const Texts bytes{"",
                    " ",
                    "\t$",
                    "\xE9\xFF\x80",
                    "\xC3\xA9",
                    std::string("a\0b\0", 4),
                    "'\"; DROP TABLE text; --",
                    std::string(100'000, 'x')};
  instruction("NC_\xE9\x01", bytes);
  const auto opened = reopened();
  const auto type = KEPISpecObject_var::Adopt(opened->features()->FindStartUp("NC_\xE9\x01"));
  ASSERT_TRUE(type);
  EXPECT_EQ(ppword::test::texts(type->GetAttribute(1).GetTexts()), bytes);
}

TEST_F(RoundTrip, ValuesAndTheirAbsenceAreKept) {
  const KEPISpecAttrAccess_var type = instruction("NC_ONE", {});
  for (const char* name : {"Empty", "Unset", "Text"}) type->AddAttribute(name, Kind::String);
  for (const char* name : {"Least", "Zero", "None"}) type->AddAttribute(name, Kind::Integer);
  type->AddAttribute("List", Kind::StringList);
  type->SetString("Empty", "");
  type->SetString("Text", "%11.5f");
  type->SetInteger("Least", std::numeric_limits<int>::min());
  type->SetInteger("Zero", 0);
  EXPECT_EQ(contentOf(*reopened()).back(),
            "type NC_ONE\n  Syntaxe kind 2 declared = 0\n  Empty kind 0 declared = 0 «»\n"
            "  Unset kind 0 declared\n  Text kind 0 declared = 0 «%11.5f»\n"
            "  Least kind 1 declared = -2147483648\n  Zero kind 1 declared = 0\n"
            "  None kind 1 declared\n  List kind 2 declared\n  of MfgPPSyntax");
}

TEST_F(RoundTrip, OwnValuesOfInstancesStayTheirs) {
  instruction("NC_ONE", {"TYPE/1"});
  const auto own = KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_ONE"), "Own"));
  const auto other = KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_ONE"), "Other"));
  KEPISpecAttrAccess_var(own)->SetString("Syntaxe", "OWN/1");
  const auto opened = reopened();
  expectSame(*opened);
  KEPISpecAttrAccess_var(KEPISpecObject_var::Adopt(opened->features()->FindStartUp("NC_ONE")))
      ->SetString("Syntaxe", "NEW/1");
  const auto entries = listing(opened->features());
  EXPECT_EQ(entries[entries.size() - 2], "Own : NC_ONE\n  Syntaxe: OWN/1\n");
  EXPECT_EQ(entries.back(), "Other : NC_ONE\n  Syntaxe: NEW/1\n");
}

TEST_F(RoundTrip, AttributeThatABaseTypeDeclaredLaterIsKeptTwice) {
  make("NC_BASE", "MfgPPSyntax");
  make("NC_DERIVED", "NC_BASE");
  KEPISpecAttrAccess_var(find("NC_DERIVED"))->AddAttribute("Twice", Kind::String);
  KEPISpecAttrAccess_var(find("NC_BASE"))->AddAttribute("Twice", Kind::Integer);
  ASSERT_EQ(find("NC_DERIVED")->GetNumberOfAttributes(), 2);
  expectTheSame();
}

TEST_F(RoundTrip, BookkeepingAttributesKeepTheirPlaces) {
  const auto attributes = declared("NC_ONE", {"$OSM_Xts", "Syntaxe", "$OSM_LocalXts"});
  attributes->SetList("Syntaxe", ppword::test::list({"ONE/1"}));
  expectTheSame();
}

TEST_F(RoundTrip, PublishedFeaturesStayPublished) {
  make("NC_ONE", "MfgPPSyntax");
  feature("NC_ONE")->publish();
  EXPECT_EQ(contentOf(*reopened()).back(), "type NC_ONE published\n  of MfgPPSyntax");
}

TEST_F(RoundTrip, DesignParametersAreKept) {
  const std::vector<std::pair<const char*, double>> values = {
      {"a", -0.0},
      {"b", 0.1},
      {"\xE9", 1e300},
      {"c", std::numeric_limits<double>::denorm_min()},
      {"d", std::numeric_limits<double>::infinity()},
      {"e", std::numeric_limits<double>::quiet_NaN()}};
  for (const auto& [name, value] : values) document->setDesignParameter(name, value);
  const auto opened = reopened();
  ASSERT_EQ(opened->designParameters().size(), values.size());
  for (const auto& [name, value] : values) {
    const double found = opened->designParameters().find(std::string_view(name))->second;
    EXPECT_EQ(std::signbit(found), std::signbit(value)) << name;
    EXPECT_TRUE(found == value || (std::isnan(found) && std::isnan(value))) << name;
  }
}

TEST_F(RoundTrip, FurtherContainersAreKept) {
  Container& further = document->addContainer("OtherCont");
  instruction("NC_ONE", {"ONE/1"});
  const auto other = KEPISpecObject_var::Adopt(further.CreateStartUp("Other", find("NC_ONE")));
  const auto late = KEPISpecObject_var::Adopt(further.CreateStartUp("NC_ONE", nullptr));
  const auto back = KEPISpecObject_var::Adopt(features->CreateStartUp("NC_BACK", late));
  make("NC_TWO", "MfgPPSyntax");
  document->addContainer("MfgPPWordCont");
  const auto opened = reopened();
  expectSame(*opened);
  const auto found = KEPISpecObject_var::Adopt(opened->containers()[1]->FindStartUp("Other"));
  ASSERT_TRUE(found);
  EXPECT_EQ(ppword::test::entryOf(found), "Other : NC_ONE\n  Syntaxe: ONE/1\n");
}

TEST_F(RoundTrip, RemovedTypesLiveOnInThoseThatDeriveFromThem) {
  instruction("NC_OLD", {"OLD/1"});
  make("NC_MIDDLE", "NC_OLD");
  const auto instance = KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_MIDDLE"), "I"));
  for (const char* name : {"NC_OLD", "NC_MIDDLE"}) KEPILifeCycleObject_var(find(name))->remove();
  instruction("NC_OLD", {"NEW/1"});
  const auto opened = reopened();
  expectSame(*opened);
  const auto entries = listing(opened->features());
  EXPECT_EQ(entries[entries.size() - 2], "I : NC_MIDDLE\n  Syntaxe: OLD/1\n");
  EXPECT_EQ(entries.back(), "NC_OLD : MfgPPSyntax\n  Syntaxe: NEW/1\n");
}

TEST_F(RoundTrip, TypesUpToTheLimitAreStoredAndNoDeeper) {
  std::string base = "MfgPPSyntax";  // One type stands above it.
  for (int i = 2; i <= 64; ++i) {
    const std::string name = "NC_" + std::to_string(i);
    make(name, base);
    base = name;
  }
  expectTheSame();
  make("NC_TOO_DEEP", base);
  const Scratch folder;
  try {
    saveDocument(*document, folder.path("deep"));
    ADD_FAILURE() << "saved";
  } catch (const DocumentError& error) {
    EXPECT_EQ(error.kind(), DocumentError::Kind::NotWritten);
    EXPECT_EQ(error.reason(), "cannot be written: a type in it has more than 64 types above it");
  }
  EXPECT_EQ(folder.size(), 0U);
}

TEST_F(RoundTrip, ContainersUpToTheLimitAreStoredInAnyOrderAndNoMore) {
  // Each container but the last begins with a type that derives from the last one of the next.
  while (document->containers().size() < 1000) document->addContainer("OtherCont");
  KEPISpecObject_var last;
  for (auto home = document->containers().rbegin(); home != document->containers().rend(); ++home) {
    const auto first = KEPISpecObject_var::Adopt((*home)->CreateStartUp("First", last));
    last = KEPISpecObject_var::Adopt((*home)->CreateStartUp("Last", nullptr));
  }
  expectTheSame();
  document->addContainer("OtherCont");
  const Scratch folder;
  try {
    saveDocument(*document, folder.path("many"));
    ADD_FAILURE() << "saved";
  } catch (const DocumentError& error) {
    EXPECT_EQ(error.reason(), "cannot be written: it has more than 1000 containers");
  }
  EXPECT_EQ(folder.size(), 0U);
}

TEST_F(RoundTrip, TextBeyondTheLimitIsRefused) {
  instruction("NC_LONG", {std::string((16 << 20) + 1, 'x')});
  const Scratch folder;
  try {
    saveDocument(*document, folder.path("long"));
    ADD_FAILURE() << "saved";
  } catch (const DocumentError& error) {
    EXPECT_EQ(error.reason(), "cannot be written: a text in it is longer than 16 MiB");
  }
  EXPECT_EQ(folder.size(), 0U);
}

TEST_F(RoundTrip, CopyLivesOnWithoutItsOriginal) {
  instruction("NC_ONE", {"ONE/1"});
  document->setDesignParameter("a", 1.5);
  const KEPVar<Document> copy = copyOf(*document);
  KEPISpecAttrAccess_var(find("NC_ONE"))->SetString("Syntaxe", "CHANGED");
  document = nullptr;
  const auto type = KEPISpecObject_var::Adopt(copy->features()->FindStartUp("NC_ONE"));
  EXPECT_EQ(ppword::test::entryOf(type), "NC_ONE : MfgPPSyntax\n  Syntaxe: ONE/1\n");
  EXPECT_EQ(copy->designParameters().at("a"), 1.5);
  EXPECT_EQ(copy->storedStamp(), 0);
}

TEST(NewDocument, CopyAnswersAsItsOriginal) {
  const auto document = newDocument();
  ASSERT_EQ(
      document->ppWordContainer()->LoadPPWordTable(PPWORD_SOURCE_DIR "/examples/mill.pptable"),
      S_OK);
  addCommand(*document, "NC_START_MACRO", 1);
  const KEPVar<Document> copy = copyOf(*document);
  EXPECT_EQ(contentOf(*copy), contentOf(*document));
  EXPECT_EQ(ppword::test::referencesOf(copy), ppword::test::referencesOf(document));
  KEPListValKEPUnicodeString lines;
  const auto commands = ppCommands(*copy);
  ASSERT_EQ(commands.size(), 1U);
  EXPECT_TRUE(commands[0]->Evaluate(lines));
  EXPECT_EQ(ppword::test::texts(lines), (Texts{"PARTNO MILLED PART", "UNITS/", "MACHIN/MILL,1"}));
}

}  // namespace
}  // namespace host::test
