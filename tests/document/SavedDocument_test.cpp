#include <fcntl.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "KEPIMfgPPWordFactory.h"
#include "host/document/DocumentFile.h"
#include "tests/document/StoredContent.h"
#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

using ErrorKind = DocumentError::Kind;

constexpr const char* kChanged =
    "cannot be written: it holds another document, or was changed since this one was opened";

/// How a change of a document fails; "done" when it does not.
std::string failureOf(const std::function<void()>& work, ErrorKind kind = ErrorKind::NotWritten) {
  try {
    work();
  } catch (const DocumentError& error) {
    EXPECT_EQ(error.kind(), kind);
    return error.reason();
  }
  return "done";
}

/// A file that holds a document with one PP command.
class SavedDocument : public testing::Test {
 protected:
  SavedDocument() {
    addCommand(*document, "NC_GOTO", 1);
    saveDocument(*document, path);
  }

  [[nodiscard]] std::vector<std::string> stored() const { return contentOf(*openDocument(path)); }

  const Scratch folder;
  const std::string path = folder.path("part.ppdoc");
  KEPVar<Document> document = newDocument();
};

TEST_F(SavedDocument, IsSavedAgain) {
  addCommand(*document, "NC_RAPID", 1);
  saveDocument(*document, path);
  EXPECT_EQ(stored(), contentOf(*document));
  const auto opened = openDocument(path);
  addCommand(*opened, "NC_FROM", 1);
  saveDocument(*opened, path);
  saveDocument(*opened, path);
  EXPECT_EQ(stored(), contentOf(*opened));
  EXPECT_EQ(folder.size(), 1U);
}

TEST_F(SavedDocument, ChangeOfAnotherIsNotReplaced) {
  const auto first = openDocument(path);
  const auto second = openDocument(path);
  addCommand(*first, "NC_RAPID", 1);
  addCommand(*second, "NC_FROM", 1);
  saveDocument(*first, path);
  EXPECT_EQ(failureOf([&] { saveDocument(*second, path); }), kChanged);
  EXPECT_EQ(failureOf([&] { saveDocument(*document, path); }), kChanged);
  EXPECT_EQ(stored(), contentOf(*first));
}

TEST_F(SavedDocument, AnotherDocumentIsNotReplaced) {
  const auto other = newDocument();
  EXPECT_EQ(failureOf([&] { saveDocument(*other, path); }), "cannot be written: File exists");
  saveDocument(*other, folder.path("other.ppdoc"));
  EXPECT_EQ(failureOf([&] { saveDocument(*other, path); }), kChanged);
  EXPECT_EQ(stored(), contentOf(*document));
}

TEST_F(SavedDocument, IsSavedUnderAnotherNameToo) {
  const std::string copy = folder.path("copy.ppdoc");
  saveDocument(*document, copy);
  addCommand(*document, "NC_RAPID", 1);
  saveDocument(*document, copy);
  EXPECT_EQ(contentOf(*openDocument(copy)), contentOf(*document));
  EXPECT_EQ(failureOf([&] { saveDocument(*document, path); }), kChanged);
}

TEST_F(SavedDocument, FileThatIsNoDocumentIsNotReplaced) {
  const std::string text = folder.file("text", "PARTNO");
  EXPECT_EQ(failureOf([&] { saveDocument(*document, text); }, ErrorKind::Refused),
            "this file is not a document");
  EXPECT_EQ(folder.text("text"), "PARTNO");
}

TEST_F(SavedDocument, PlaceThatIsNotThereIsNotWritten) {
  EXPECT_EQ(failureOf([&] { saveDocument(*document, folder.path("no/part")); }),
            "cannot be written: No such file or directory");
  EXPECT_EQ(failureOf([&] { saveDocument(*document, path + "/part"); }),
            "cannot be written: Not a directory");
  EXPECT_EQ(failureOf([&] { saveDocument(*document, ""); }),
            "cannot be written: No such file or directory");
}

TEST_F(SavedDocument, JournalOfALostDocumentIsNotTakenForItsOwn) {
  const std::string lost = folder.path("new");
  ASSERT_EQ(folder.file("new-journal", "bytes"), lost + "-journal");
  EXPECT_EQ(failureOf([&] { saveDocument(*document, lost); }),
            "cannot be written: the journal of a lost document, " + lost + "-journal, lies there");
  EXPECT_FALSE(std::filesystem::exists(lost));
  EXPECT_EQ(folder.text("new-journal"), "bytes");
}

TEST_F(SavedDocument, PermissionsFollowTheMask) {
  const mode_t mask = ::umask(027);
  saveDocument(*document, folder.path("masked"));
  ::umask(mask);
  struct stat status {};
  ASSERT_EQ(::stat(folder.path("masked").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640U);
}

sqlite3* lastOpened = nullptr;
int noteOpened(sqlite3* connection, char** /*message*/, const sqlite3_api_routines* /*routines*/) {
  lastOpened = connection;
  return SQLITE_OK;
}

TEST_F(SavedDocument, ConnectionTrustsNothing) {
  const auto note = reinterpret_cast<void (*)()>(&noteOpened);
  ASSERT_EQ(sqlite3_auto_extension(note), SQLITE_OK);
  const DocumentChange change(path);
  sqlite3_cancel_auto_extension(note);
  ASSERT_NE(lastOpened, nullptr);
  const std::pair<int, int> switches[] = {{SQLITE_DBCONFIG_DEFENSIVE, 1},
                                          {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                          {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
                                          {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                          {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                                          {SQLITE_DBCONFIG_DQS_DML, 0}};
  for (const auto& [what, expected] : switches) {
    int value = 7;
    ASSERT_EQ(sqlite3_db_config(lastOpened, what, -1, &value), SQLITE_OK);
    EXPECT_EQ(value, expected) << what;
  }
  EXPECT_EQ(sqlite3_limit(lastOpened, SQLITE_LIMIT_LENGTH, -1), 16 << 20);
  EXPECT_EQ(sqlite3_limit(lastOpened, SQLITE_LIMIT_ATTACHED, -1), 0);
  const std::pair<const char*, int> pragmas[] = {
      {"PRAGMA synchronous", 3}, {"PRAGMA cell_size_check", 1}, {"PRAGMA mmap_size", 0}};
  for (const auto& [text, expected] : pragmas) {
    sqlite3_stmt* query = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(lastOpened, text, -1, &query, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_step(query), SQLITE_ROW) << text;
    EXPECT_EQ(sqlite3_column_int(query, 0), expected) << text;
    sqlite3_finalize(query);
  }
}

TEST_F(SavedDocument, SymbolicLinkLeadsToIt) {
  const std::string link = folder.path("link");
  std::filesystem::create_symlink(path, link);
  const auto opened = openDocument(link);
  addCommand(*opened, "NC_RAPID", 1);
  saveDocument(*opened, link);
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(stored(), contentOf(*opened));
}

TEST_F(SavedDocument, ChangeIsStoredWhenItIsSaved) {
  {
    DocumentChange change(path);
    addCommand(*change.document(), "NC_RAPID", 1);
    EXPECT_EQ(stored(), contentOf(*document));
    change.save();
    EXPECT_EQ(stored(), contentOf(*change.document()));
  }
  EXPECT_EQ(stored().size(), contentOf(*document).size() + 1);
}

TEST_F(SavedDocument, ChangeThatIsNotSavedLeavesNothing) {
  {
    const DocumentChange change(path);
    addCommand(*change.document(), "NC_RAPID", 1);
  }
  EXPECT_EQ(stored(), contentOf(*document));
  EXPECT_EQ(folder.size(), 1U);
}

TEST_F(SavedDocument, SecondChangeAtATimeIsRefused) {
  const DocumentChange change(path);
  const std::string busy = "cannot be written: another process holds it; try again later";
  EXPECT_EQ(failureOf([&] { const DocumentChange second(path); }), busy);
}

TEST_F(SavedDocument, LockOfAnotherProcessIsTold) {
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(openingOf(path), "cannot be read: another process holds it; try again later");
  sqlite3_close(other);
  EXPECT_EQ(openingOf(path), "opens");
}

TEST_F(SavedDocument, ReaderOfAnotherProcessHoldsTheSavingUpOnly) {
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN; SELECT count(*) FROM feature", nullptr, nullptr, nullptr),
            SQLITE_OK);
  const auto before = stored();
  addCommand(*document, "NC_RAPID", 1);
  EXPECT_EQ(failureOf([&] { saveDocument(*document, path); }),
            "cannot be written: another process holds it; try again later");
  sqlite3_close(other);
  EXPECT_EQ(stored(), before);
  saveDocument(*document, path);
  EXPECT_EQ(stored(), contentOf(*document));
}

TEST_F(SavedDocument, FileThatWasMovedMeanwhileIsNotWritten) {
  DocumentChange change(path);
  addCommand(*change.document(), "NC_RAPID", 1);
  std::filesystem::rename(path, folder.path("moved"));
  EXPECT_EQ(failureOf([&] { change.save(); }),
            "cannot be written: it was moved or removed meanwhile");
  EXPECT_EQ(contentOf(*openDocument(folder.path("moved"))), contentOf(*document));
}

TEST_F(SavedDocument, OpenDocumentDoesNotHoldItsFile) {
  const auto opened = openDocument(path);
  std::filesystem::remove(path);
  KEPIMfgPPCommand_var command;
  EXPECT_EQ(opened->ppWordContainer()->ResetToDefault(), S_OK);
  EXPECT_EQ(folder.size(), 0U);
}

TEST_F(SavedDocument, ShrinksAndGrows) {
  for (int i = 0; i < 500; ++i) addCommand(*document, "NC_GOTO", i);
  saveDocument(*document, path);
  const auto large = std::filesystem::file_size(path);
  EXPECT_EQ(stored(), contentOf(*document));
  for (int i = 0; i < 3; ++i) saveDocument(*document, path);
  EXPECT_LE(std::filesystem::file_size(path), 2 * large);
}

}  // namespace
}  // namespace host::test
