#include "src/container/TableLoad.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "Manufacturing/KEPMfgInternalError.h"
#include "tests/container/TableLoading.h"

namespace ppword::test {
namespace {

constexpr const char* kNotOpened =
    "the PP word table cannot be opened; check its path and permissions";

/// Loads what cannot be opened into a bare container, which must stay as it was.
void expectNotOpened(const std::string& path) {
  const auto document = host::Document::create();
  const auto before = listing(document->features());
  const auto counts = referencesOf(document);
  KEPError::KEPCleanLastError();
  const LoadReport report;
  EXPECT_EQ(document->ppWordContainer()->LoadPPWordTable(KEPUnicodeString(std::string_view(path))),
            E_FAIL)
      << path;
  const auto* const error = dynamic_cast<const KEPMfgInternalError*>(KEPError::KEPGetLastError());
  ASSERT_NE(error, nullptr) << path;
  EXPECT_EQ(error->GetMessageKey(), KEPString("ERR_5009"));
  EXPECT_EQ(error->GetCatalogue(), KEPString("ManufacturingError"));
  EXPECT_EQ(error->GetInformationOnErrorType(), 2);
  EXPECT_TRUE(error->GetNLSParameters().empty());
  EXPECT_EQ(error->GetNLSMessage(), KEPUnicodeString(kNotOpened));
  EXPECT_EQ(listing(document->features()), before) << path;
  EXPECT_EQ(referencesOf(document), counts) << path;
  EXPECT_EQ(report.entries(), Texts{});
}

TEST(TableThatCannotBeOpened, AbsentFileRaisesTheErrorAndChangesNothing) {
  const TableFile file("");
  file.remove();
  expectNotOpened(std::string(file.path().View()));
}

TEST(TableThatCannotBeOpened, EmptyPathRaisesTheError) { expectNotOpened(""); }

TEST(TableThatCannotBeOpened, DirectoryRaisesTheError) {
  expectNotOpened(std::filesystem::temp_directory_path().string());
}

TEST(TableThatCannotBeOpened, DeviceWithoutEndRaisesTheError) { expectNotOpened("/dev/zero"); }

TEST(TableThatFailsItsCheck, LeavesTheRootTypesOnly) {
  const auto document = host::Document::create();
  const TableFile file(
      "*START_FORMAT MFG_XPOINT\n"
      "%11.5f\n"
      "*END\n"
      "*COMMENT\n");
  KEPError::KEPCleanLastError();
  EXPECT_EQ(document->ppWordContainer()->LoadPPWordTable(KEPUnicodeString(file.path().View())),
            E_FAIL);
  ASSERT_NE(KEPError::KEPGetLastError(), nullptr);
  EXPECT_EQ(
      KEPError::KEPGetLastError()->GetNLSMessage(),
      KEPUnicodeString(
          "line 4: a line that begins with \"*\" must be a *START_..., *END or *INSERT line"));
  const auto entries = listing(document->features());
  EXPECT_EQ(Texts(entries.begin() + 1, entries.end()),
            (Texts{"MfgPPWordRoot\n", "MfgPPSyntax : MfgPPWordRoot\n",
                   "MfgPPParameter : MfgPPWordRoot\n"}));
}

TEST_F(TableLoad, FailedCheckKeepsTheRootsAndReferences) {
  instruction("NC_GOTO", {"OLD/1"});
  const auto before = listing(features);
  const auto counts = referencesOf(document);
  EXPECT_EQ(load("*START_NC_COMMAND NC_GOTO\nNEW/1\n"), E_FAIL);
  EXPECT_EQ(listing(features), before);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, EmptyTableChangesNothing) {
  const auto before = listing(features);
  const auto counts = referencesOf(document);
  EXPECT_EQ(reportOf(""), Texts{});
  EXPECT_EQ(listing(features), before);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(TableLoad, SuccessLeavesTheLastErrorAndTheFilesAlone) {
  KEPError::KEPCleanLastError();
  const int files = openFiles();
  EXPECT_EQ(load("*START_FORMAT MFG_A\n%f\n*END\n"), S_OK);
  EXPECT_EQ(KEPError::KEPGetLastError(), nullptr);
  EXPECT_EQ(openFiles(), files);
}

TEST(LoadedDefaultCatalogue, KeepsWhatTheTableDoesNotMention) {
  const auto document = host::newDocument();
  std::vector<std::string> expected = listing(document->features());
  const auto replace = [&](std::string_view from, const char* to) {
    for (std::string& entry : expected) {
      if (entry == from) entry = to;
    }
  };
  replace("NC_RAPID : MfgPPSyntax\n  Syntaxe: RAPID\n",
          "NC_RAPID : MfgPPSyntax\n  Syntaxe: RAPID/FAST\n");
  replace("MFG_XAXIS : MfgPPParameter\n  Format: %9.6f\n",
          "MFG_XAXIS : MfgPPParameter\n  Format: %8.5f\n");
  expected.emplace_back("NC_OWN : MfgPPSyntax\n  Syntaxe: OWN/1\n");
  expected.emplace_back("MFG_OWN : MfgPPParameter\n  MultiListValue: A\n");

  const TableFile file(
      "*START_FORMAT MFG_XAXIS\n%8.5f\n*END\n"
      "*START_LIST MFG_OWN\nA\n*END\n"
      "*START_NC_INSTRUCTION NC_OWN\nOWN/1\n*END\n"
      "*START_NC_INSTRUCTION NC_RAPID\nRAPID/FAST\n*END\n");
  EXPECT_EQ(document->ppWordContainer()->LoadPPWordTable(KEPUnicodeString(file.path().View())),
            S_OK);
  EXPECT_EQ(listing(document->features()), expected);
}

TEST(LoadedDefaultCatalogue, IsBroughtUpToDateInTheMarkedInstructionsOnly) {
  const auto document = host::newDocument();
  const TableFile file(
      "*START_NC_INSTRUCTION NC_RAPID\nRAPID/FAST\n*END\n"
      "*START_NC_INSTRUCTION NC_CUTTER_LATHE\nCUTTER/OWN\n*END\n"
      "*START_FORMAT MFG_XAXIS\n%8.5f\n*END\n");
  const KEPIMfgPPWordContainer_var words = document->ppWordContainer();
  const auto entry = [&](const char* name) {
    return entryOf(KEPISpecObject_var::Adopt(words->FindPPWord(name)));
  };
  EXPECT_EQ(words->LoadPPWordTable(KEPUnicodeString(file.path().View())), S_OK);
  EXPECT_EQ(entry("NC_CUTTER_LATHE"), "NC_CUTTER_LATHE : MfgPPSyntax\n  Syntaxe: CUTTER/OWN\n");
  EXPECT_EQ(words->Initialize(false), S_OK);
  EXPECT_EQ(entry("NC_CUTTER_LATHE"),
            "NC_CUTTER_LATHE : MfgPPSyntax\n  Syntaxe: CUTTER/2*%MFG_NOSE_RADIUS\n");
  EXPECT_EQ(entry("NC_RAPID"), "NC_RAPID : MfgPPSyntax\n  Syntaxe: RAPID/FAST\n");
  EXPECT_EQ(entry("MFG_XAXIS"), "MFG_XAXIS : MfgPPParameter\n  Format: %8.5f\n");
}

}  // namespace
}  // namespace ppword::test
