#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <numeric>
#include <random>

#include "host/document/DocumentFile.h"
#include "host/document/DocumentFormat.h"
#include "tests/document/StoredContent.h"
#include "tests/generator/Scratch.h"
#include "tests/support/Mutator.h"
#include "tests/support/PPWordDocument.h"

namespace host::test {
namespace {

constexpr const char* kDamaged = "the document is damaged";
constexpr const char* kNoDocument = "this file is not a document";
constexpr const char* kOtherTables = "this file is not a document: it has other tables";
constexpr const char* kChecksum =
    "the document is damaged: its content does not match its checksum";

class RefusedFile : public testing::Test, protected ppword::test::PPWordDocument {
 protected:
  RefusedFile() {
    instruction("NC_ONE", {"ONE/1", "ONE/2"});
    const KEPISpecAttrAccess_var command =
        KEPISpecObject_var::Adopt(features->CreateInstance(find("MfgPPCommand"), ""));
    command->SetString("CommandName", "NC_ONE");
    command->SetInteger("SequenceNumber", 1);
    document->setDesignParameter("depth", 2.5);
    saveDocument(*document, path);
  }

  const Scratch folder;
  const std::string path = folder.path("part.ppdoc");
};

TEST_F(RefusedFile, ThatIsNotThere) {
  EXPECT_EQ(openingOf(folder.path("none")), "cannot be opened: No such file or directory");
  EXPECT_EQ(openingOf(""), "cannot be opened: No such file or directory");
  EXPECT_EQ(openingOf(path + "/x"), "cannot be opened: Not a directory");
}

TEST_F(RefusedFile, ThatIsNoRegularFile) {
  const std::string reason = "not a regular file, so not a document";
  for (const char* place : {"/dev/null", "/dev/full", "/", "."}) {
    EXPECT_EQ(openingOf(place), reason) << place;
  }
}

TEST_F(RefusedFile, ThatIsNoDatabase) {
  EXPECT_EQ(openingOf(folder.file("empty", "")), kNoDocument);
  EXPECT_EQ(openingOf(folder.file("short", "SQLite")), kNoDocument);
  EXPECT_EQ(openingOf(folder.file("text", std::string(5000, 'x'))), kNoDocument);
}

TEST_F(RefusedFile, ThatIsAnotherDatabase) {
  const std::string other = folder.path("other");
  tamper(other, "CREATE TABLE a(b)");
  EXPECT_EQ(openingOf(other), kNoDocument);
  tamper(path, "PRAGMA application_id=1");
  EXPECT_EQ(openingOf(path), kNoDocument);
}

TEST_F(RefusedFile, ThatHasAWriteAheadLogAndMakesNone) {
  tamper(path, "PRAGMA journal_mode=WAL");
  EXPECT_EQ(openingOf(path),
            "this file is not a document: it is a database with a write-ahead log");
  EXPECT_EQ(folder.size(), 1U);
}

TEST_F(RefusedFile, ThatHasAWriteAheadLogKeepsIt) {
  const std::string copy = folder.path("copy");
  sqlite3* writer = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &writer), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(writer, "PRAGMA journal_mode=WAL;UPDATE document SET stamp=7", nullptr,
                         nullptr, nullptr),
            SQLITE_OK);
  std::filesystem::copy_file(path, copy);
  std::filesystem::copy_file(path + "-wal", copy + "-wal");
  sqlite3_close(writer);
  const std::string bytes = Scratch::textOf(copy);
  const std::string log = Scratch::textOf(copy + "-wal");
  EXPECT_EQ(openingOf(copy),
            "this file is not a document: it is a database with a write-ahead log");
  EXPECT_EQ(Scratch::textOf(copy), bytes);
  EXPECT_EQ(Scratch::textOf(copy + "-wal"), log);
}

TEST_F(RefusedFile, WhoseJournalNamesAFurtherFileDeletesNothing) {
  using namespace std::string_literals;
  const std::string further = folder.file("further", "dear");
  const auto size = static_cast<char>(further.size());
  ASSERT_LT(further.size(), 128U);
  const auto sum = static_cast<unsigned>(std::accumulate(further.begin(), further.end(), 0));
  const std::string mark = "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7";
  // No pages to undo; sectors of 512 bytes and pages of 4096.
  std::string journal = mark + "\0\0\0\0\0\0\0\0"s;
  journal += Scratch::textOf(path).substr(28, 4) + "\0\0\2\0\0\0\x10\0"s;
  journal.resize(512);
  journal += "\0\4\0\1"s + further + "\0\0\0"s + size + "\0\0"s;
  journal += {static_cast<char>(sum >> 8U), static_cast<char>(sum & 0xFFU)};
  static_cast<void>(folder.file("part.ppdoc-journal", journal + mark));
  EXPECT_EQ(openingOf(path),
            "the journal beside it, " + path + "-journal, is not that of a document; remove it");
  EXPECT_THROW(const DocumentChange change(path), DocumentError);
  EXPECT_EQ(Scratch::textOf(further), "dear");
}

TEST_F(RefusedFile, ThatHasAnotherEncoding) {
  const std::string other = folder.path("other");
  std::string making = "PRAGMA encoding='UTF-16le';";
  for (const std::string_view statement : format::kSchema) making.append(statement).append(";");
  tamper(other, making + "PRAGMA application_id=0x50505744;PRAGMA user_version=2");
  EXPECT_EQ(openingOf(other), "this file is not a document: its encoding is not UTF-8");
}

TEST_F(RefusedFile, ThatHasMoreContainersThanTheLimit) {
  tamper(path,
         "WITH RECURSIVE more(id) AS (VALUES(2) UNION ALL SELECT id+1 FROM more WHERE id<1001)"
         "INSERT INTO container SELECT id,'Other' FROM more");
  EXPECT_EQ(openingOf(path), "holds more than 1000 containers");
}

TEST_F(RefusedFile, ThatHasOtherTables) {
  const char* const changes[] = {
      "CREATE TABLE more(a)",
      "CREATE VIEW more AS SELECT 1",
      "CREATE TRIGGER more AFTER INSERT ON text BEGIN DELETE FROM feature; END",
      "CREATE INDEX more ON feature(name)",
      "CREATE VIRTUAL TABLE more USING fts5(a)",
      "DROP TABLE design_parameter",
      "ALTER TABLE container ADD COLUMN more TEXT",
      "ALTER TABLE text RENAME TO texts",
  };
  for (const char* change : changes) {
    std::filesystem::copy_file(path, folder.path("copy"));
    tamper(folder.path("copy"), change);
    EXPECT_EQ(openingOf(folder.path("copy")), kOtherTables) << change;
    std::filesystem::remove(folder.path("copy"));
  }
}

TEST_F(RefusedFile, ThatIsNewer) {
  tamper(path, "PRAGMA user_version=3");
  EXPECT_EQ(openingOf(path),
            "the document is of version 3; this program reads no newer version than 2");
}

TEST_F(RefusedFile, ThatHasNoVersion) {
  tamper(path, "PRAGMA user_version=0");
  EXPECT_EQ(openingOf(path), kDamaged);
  tamper(path, "PRAGMA user_version=-1");
  EXPECT_EQ(openingOf(path), kDamaged);
}

TEST_F(RefusedFile, ThatIsTooLarge) {
  std::filesystem::resize_file(path, (256 << 20) + 1);
  EXPECT_EQ(openingOf(path), "is larger than 256 MiB, so no document");
}

TEST_F(RefusedFile, WhoseContentWasChanged) {
  const std::pair<const char*, const char*> changes[] = {
      {"UPDATE text SET text='ONE/3' WHERE text='ONE/2'", kChecksum},
      {"UPDATE feature SET name='NC_TWO' WHERE name='NC_ONE'", kChecksum},
      {"UPDATE attribute SET number=2 WHERE number=1", kChecksum},
      {"UPDATE design_parameter SET value='2.6'", kChecksum},
      {"UPDATE document SET digest=digest+1", kChecksum},
      {"UPDATE container SET late_type='Other'", kDamaged},
      {"DELETE FROM container", kDamaged},
      {"DELETE FROM document", kDamaged},
      {"INSERT INTO document VALUES(1,2)", kDamaged},
      {"UPDATE container SET id=2", kDamaged},
      {"UPDATE feature SET id=99 WHERE id=2", kDamaged},
      {"UPDATE feature SET base=5 WHERE id=5", kDamaged},
      {"UPDATE feature SET base=6 WHERE id=5", kDamaged},
      {"UPDATE feature SET base=0 WHERE id=5", kDamaged},
      {"UPDATE feature SET container=2 WHERE id=5", kDamaged},
      {"UPDATE feature SET container=0 WHERE id=5", kDamaged},
      {"UPDATE feature SET kind=3 WHERE id=5", kDamaged},
      {"UPDATE feature SET kind=0 WHERE id=5", kDamaged},
      {"UPDATE feature SET kind=2,base=NULL WHERE id=5", kDamaged},
      {"UPDATE feature SET name='' WHERE id=5", kDamaged},
      {"UPDATE feature SET name='MfgPPSyntax' WHERE id=5", kDamaged},
      {"UPDATE feature SET published=2 WHERE id=5", kDamaged},
      {"UPDATE attribute SET feature=99 WHERE feature=5", kDamaged},
      {"UPDATE attribute SET feature=0 WHERE feature=5", kDamaged},
      {"UPDATE attribute SET position=2 WHERE feature=5", kDamaged},
      {"UPDATE attribute SET name='CommandName'", kDamaged},
      {"UPDATE attribute SET kind=4", kDamaged},
      {"UPDATE attribute SET kind=1 WHERE feature=5", kDamaged},
      {"UPDATE attribute SET kind=2 WHERE feature=5", kDamaged},
      {"UPDATE attribute SET has_value=0 WHERE feature=5", kDamaged},
      {"UPDATE attribute SET has_value=2", kDamaged},
      {"UPDATE attribute SET declared=2", kDamaged},
      {"UPDATE attribute SET number=NULL WHERE number=1", kDamaged},
      {"UPDATE attribute SET number=2147483648 WHERE number=1", kDamaged},
      {"UPDATE attribute SET number=1 WHERE feature=5", kDamaged},
      {"UPDATE text SET position=position+1 WHERE feature=5 AND position=2", kDamaged},
      {"UPDATE text SET attribute=2 WHERE feature=5", kDamaged},
      {"UPDATE text SET feature=4 WHERE feature=5", kDamaged},
      {"INSERT INTO text VALUES(99,1,1,'x')", kDamaged},
      {"DELETE FROM text WHERE text='NC_ONE'", kDamaged},
      {"UPDATE design_parameter SET value='deep'", kDamaged},
      {"UPDATE design_parameter SET value='1x'", kDamaged},
      {"UPDATE design_parameter SET value=''", kDamaged},
  };
  for (const auto& [change, reason] : changes) {
    std::filesystem::copy_file(path, folder.path("copy"));
    tamper(folder.path("copy"), change);
    EXPECT_EQ(openingOf(folder.path("copy")), reason) << change;
    std::filesystem::remove(folder.path("copy"));
  }
}

TEST_F(RefusedFile, WhoseTypesNestTooDeep) {
  std::string deeper = "BEGIN;";
  for (int id = 7; id <= 70; ++id) {
    deeper += "INSERT INTO feature VALUES(" + std::to_string(id) + ",1,1,'T" + std::to_string(id) +
              "'," + std::to_string(id - 1) + ",0);";
  }
  tamper(path, deeper + "COMMIT");
  EXPECT_EQ(openingOf(path), kDamaged);
}

TEST_F(RefusedFile, IsNotChangedEither) {
  tamper(path, "UPDATE text SET text='ONE/3' WHERE text='ONE/2'");
  const std::string bytes = Scratch::textOf(path);
  EXPECT_THROW(const DocumentChange change(path), DocumentError);
  EXPECT_EQ(Scratch::textOf(path), bytes);
}

TEST_F(RefusedFile, ThatIsCutHoldsTheDocumentOrIsRefused) {
  const std::string bytes = Scratch::textOf(path);
  const auto content = contentOf(*document);
  for (std::size_t size = 1; size < bytes.size(); size += 509) {
    const std::string reason = openingOf(folder.file("cut", bytes.substr(0, size)));
    EXPECT_TRUE(reason.starts_with(kDamaged) || reason == kNoDocument) << size << ": " << reason;
  }
}

TEST_F(RefusedFile, WithAFlippedBitHoldsTheDocumentOrIsRefused) {
  const unsigned seed = chosenSeed();
  RecordProperty("seed", std::to_string(seed));
  std::mt19937 random(seed);
  const std::string bytes = Scratch::textOf(path);
  const auto content = contentOf(*document);
  for (std::size_t at = 0; at < bytes.size(); at += at < 200 ? 1 : 1 + random() % 60) {
    std::string flipped = bytes;
    flipped[at] = static_cast<char>(flipped[at] ^ (1 << random() % 8));
    const std::string copy = folder.file("flipped", flipped);
    try {
      EXPECT_EQ(contentOf(*openDocument(copy)), content) << "byte " << at << ", seed " << seed;
    } catch (const DocumentError& error) {
      EXPECT_EQ(error.kind(), DocumentError::Kind::Refused);
    }
  }
}

}  // namespace
}  // namespace host::test
