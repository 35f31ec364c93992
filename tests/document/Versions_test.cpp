#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>

#include "host/document/DocumentFile.h"
#include "tests/document/StoredContent.h"
#include "tests/generator/Scratch.h"
#include "tests/support/PPWordDocument.h"

namespace host::test {
namespace {

const std::string kCommandType =
    "type MfgPPCommand\n  CommandName kind 0 declared\n  SequenceNumber kind 1 declared";
const std::string kSyntaxOfNcOne =
    "\n  Syntaxe kind 2 declared = 0 «ONE/1» «ONE/2»\n  of MfgPPSyntax";
const std::string kCommand =
    "instance \n  CommandName kind 0 = 0 «NC_ONE»\n  SequenceNumber kind 1 = 1\n"
    "  of MfgPPCommand";

/// Files of each version, written out as SQL.
class Versions : public testing::Test {
 protected:
  [[nodiscard]] std::string fileOf(int version) const {
    const std::string name = "version" + std::to_string(version);
    const std::string sql = Scratch::textOf(PPWORD_SOURCE_DIR "/tests/document/" + name + ".sql");
    tamper(folder.path(name), "BEGIN;" + sql + "COMMIT");
    return folder.path(name);
  }

  const Scratch folder;
};

TEST_F(Versions, PresentVersionIsRead) {
  const auto document = openDocument(fileOf(2));
  EXPECT_FALSE(document->NeedsUpgrade());
  EXPECT_EQ(document->storedStamp(), 4711);
  EXPECT_EQ(contentOf(*document),
            (std::vector<std::string>{"container MfgPPWordCont", kCommandType, "type MfgPPWordRoot",
                                      "type MfgPPSyntax\n  of MfgPPWordRoot",
                                      "type NC_ONE published" + kSyntaxOfNcOne, kCommand,
                                      "depth = 2.500000"}));
}

TEST_F(Versions, FirstVersionIsReadAndNeedsAnUpgrade) {
  const auto document = openDocument(fileOf(1));
  EXPECT_TRUE(document->NeedsUpgrade());
  EXPECT_EQ(contentOf(*document),
            (std::vector<std::string>{"container MfgPPWordCont", kCommandType, "type MfgPPWordRoot",
                                      "type MfgPPSyntax\n  of MfgPPWordRoot",
                                      "type NC_ONE" + kSyntaxOfNcOne, kCommand}));
}

TEST_F(Versions, OlderVersionIsNotSavedBeforeItsUpgrade) {
  const std::string path = fileOf(1);
  const auto document = openDocument(path);
  DocumentChange change(path);
  for (const auto& save : {std::function<void()>([&] { saveDocument(*document, path); }),
                           std::function<void()>([&] { change.save(); })}) {
    try {
      save();
      ADD_FAILURE() << "saved";
    } catch (const DocumentError& error) {
      EXPECT_EQ(error.kind(), DocumentError::Kind::Refused);
      EXPECT_EQ(error.reason(), "the document is of an older version; upgrade it first");
    }
  }
}

TEST_F(Versions, UpgradePublishesTheMembersAndMakesTheCatalogue) {
  const std::string path = fileOf(1);
  DocumentChange change(path);
  upgradeDocument(*change.document());
  EXPECT_FALSE(change.document()->NeedsUpgrade());
  change.save();
  const auto document = openDocument(path);
  EXPECT_FALSE(document->NeedsUpgrade());
  const auto content = contentOf(*document);
  // The container, the five members, and of the catalogue all but its two roots that are there.
  ASSERT_EQ(content.size(), 1U + 5U + 153U);
  EXPECT_EQ(content[4], "type NC_ONE published" + kSyntaxOfNcOne);
  EXPECT_EQ(content[5],
            "instance  published\n  CommandName kind 0 = 0 «NC_ONE»\n"
            "  SequenceNumber kind 1 = 1\n  of MfgPPCommand");
  EXPECT_EQ(content[6], "type MfgPPParameter\n  of MfgPPWordRoot");
}

TEST_F(Versions, UpgradeOfThePresentVersionChangesNothing) {
  const auto document = openDocument(fileOf(2));
  const auto before = contentOf(*document);
  upgradeDocument(*document);
  EXPECT_EQ(contentOf(*document), before);
}

TEST_F(Versions, WrittenFilesAreOfThePresentVersion) {
  const std::string path = folder.path("new");
  const auto document = newDocument();
  saveDocument(*document, path);
  sqlite3* connection = nullptr;
  sqlite3_stmt* query = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &connection), SQLITE_OK);
  ASSERT_EQ(sqlite3_prepare_v2(connection,
                               "SELECT application_id,user_version,journal_mode FROM "
                               "pragma_application_id,pragma_user_version,pragma_journal_mode",
                               -1, &query, nullptr),
            SQLITE_OK);
  ASSERT_EQ(sqlite3_step(query), SQLITE_ROW);
  EXPECT_EQ(sqlite3_column_int(query, 0), 0x50505744);
  EXPECT_EQ(sqlite3_column_int(query, 1), 2);
  EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(query, 2)), "delete");
  sqlite3_finalize(query);
  sqlite3_close(connection);
}

}  // namespace
}  // namespace host::test
