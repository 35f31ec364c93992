#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <thread>

#include "host/document/DocumentFile.h"
#include "tests/document/FaultyVfs.h"
#include "tests/document/StoredContent.h"
#include "tests/generator/Scratch.h"
#include "tests/support/Mutator.h"

namespace host::test {
namespace {

using Fault = FaultyVfs::Fault;
using Content = std::vector<std::string>;

/// A document of several pages, so that a change of it takes many operations.
class Crash : public testing::Test {
 protected:
  Crash() {
    saveDocument(*document, path);
    const auto changed = openDocument(path);
    change(*changed);
    newContent = contentOf(*changed);
  }

  static void change(const Document& document) {
    addCommand(document, "NC_GOTO", 1);
    document.ppWordContainer()->SetUserSyntax("USER/1");
  }
  static void changeFile(const std::string& path) {
    DocumentChange change_(path);
    change(*change_.document());
    change_.save();
  }
  void restore() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path(""))) {
      std::filesystem::remove(entry.path());
    }
    document->setStoredStamp(0);
    saveDocument(*document, path);
  }
  /// True when the file holds the new content, false when it holds the old one.
  [[nodiscard]] bool isNew() const {
    const Content content = contentOf(*openDocument(path));
    if (content == newContent) return true;
    EXPECT_EQ(content, oldContent);
    return false;
  }

  const Scratch folder;
  const std::string path = folder.path("part.ppdoc");
  const KEPVar<Document> document = newDocument();
  const Content oldContent = contentOf(*document);
  Content newContent;
};

TEST_F(Crash, KillAtEveryOperationOfAChangeLeavesTheOldOrTheNewState) {
  int kills = 0;
  int olds = 0;
  bool isKilled = true;
  while (isKilled) {
    isKilled = isKilledIn([&] {
      const FaultyVfs vfs(Fault::Kill, kills + 1);
      changeFile(path);
    });
    if (!isKilled) break;
    ++kills;
    if (isNew()) {
      restore();
    } else {
      ++olds;
    }
  }
  EXPECT_TRUE(isNew());
  EXPECT_GT(kills, 40);
  EXPECT_GT(olds, 40);
  EXPECT_GT(kills, olds);
}

TEST_F(Crash, KillAtEveryOperationOfANewDocumentLeavesNoneOrAWholeOne) {
  const std::string fresh = folder.path("fresh.ppdoc");
  int kills = 0;
  for (;; ++kills) {
    const bool isKilled = isKilledIn([&] {
      const FaultyVfs vfs(Fault::Kill, kills + 1);
      document->setStoredStamp(0);
      saveDocument(*document, fresh);
    });
    if (!isKilled) break;
    ASSERT_FALSE(std::filesystem::exists(fresh));
  }
  EXPECT_GT(kills, 10);
  EXPECT_EQ(contentOf(*openDocument(fresh)), oldContent);
}

TEST_F(Crash, KillWhileAKilledChangeIsUndoneLeavesTheOldState) {
  int last = 0;
  // The last operation but one of a change: the file is written, its journal is there.
  while (isKilledIn([&] {
    const FaultyVfs vfs(Fault::Kill, last + 1);
    changeFile(path);
  })) {
    ++last;
    if (isNew()) restore();
  }
  restore();
  ASSERT_TRUE(isKilledIn([&] {
    const FaultyVfs vfs(Fault::Kill, last - 2);
    changeFile(path);
  }));
  ASSERT_TRUE(std::filesystem::exists(path + "-journal"));
  int kills = 0;
  while (isKilledIn([&] {
    const FaultyVfs vfs(Fault::Kill, kills + 1);
    static_cast<void>(openDocument(path));
  })) {
    ++kills;
  }
  EXPECT_GT(kills, 3);
  EXPECT_FALSE(isNew());
}

TEST_F(Crash, FullDiskAtEveryOperationIsToldAndLeavesTheOldState) {
  int faults = 0;
  for (bool struck = true; struck; ++faults) {
    std::string reason = "none";
    {
      const FaultyVfs vfs(Fault::DiskFull, faults + 1);
      try {
        changeFile(path);
      } catch (const DocumentError& error) {
        EXPECT_EQ(error.kind(), DocumentError::Kind::NotWritten);
        reason = error.reason();
      }
      struck = FaultyVfs::struck();
    }
    if (reason == "none") {
      EXPECT_TRUE(isNew()) << faults;
      restore();
    } else {
      EXPECT_EQ(reason, "cannot be written: No space left on device") << faults;
      EXPECT_FALSE(isNew()) << faults;
    }
  }
  EXPECT_GT(faults, 40);
}

TEST_F(Crash, FullDiskAtEveryOperationOfANewDocumentLeavesNothing) {
  const std::string fresh = folder.path("fresh.ppdoc");
  int faults = 0;
  for (bool stored = false; !stored; ++faults) {
    const FaultyVfs vfs(Fault::DiskFull, faults + 1);
    document->setStoredStamp(0);
    try {
      saveDocument(*document, fresh);
      stored = true;
    } catch (const DocumentError& error) {
      EXPECT_EQ(error.reason(), "cannot be written: No space left on device");
      EXPECT_EQ(folder.size(), 1U) << faults;
    }
  }
  EXPECT_GT(faults, 10);
  EXPECT_EQ(contentOf(*openDocument(fresh)), oldContent);
}

TEST_F(Crash, FileThatMayNotGrowIsToldAndLeavesTheOldState) {
  for (const rlim_t most : {0U, 1000U, 4096U, 20000U, 40000U}) {
    EXPECT_FALSE(isKilledIn([&] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{most, most};
      setrlimit(RLIMIT_FSIZE, &limit);
      try {
        changeFile(path);
      } catch (const DocumentError& error) {
        if (error.reason() == "cannot be written: File too large") _exit(0);
      }
      _exit(2);
    }));
    EXPECT_FALSE(isNew()) << most;
  }
}

TEST_F(Crash, KillAtAnyTimeLeavesTheOldOrTheNewState) {
  const unsigned seed = chosenSeed();
  RecordProperty("seed", std::to_string(seed));
  std::mt19937 random(seed);
  for (int kills = 0; kills < 150; ++kills) {
    const pid_t child = fork();
    if (child == 0) {
      for (;;) {
        try {
          DocumentChange change(path);
          addCommand(*change.document(), "NC_GOTO", 1);
          change.save();
        } catch (...) {
          _exit(1);
        }
      }
    }
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 12'000));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "seed " << seed;
    // Only whole commands were added.
    const Content content = contentOf(*openDocument(path));
    ASSERT_GE(content.size(), oldContent.size());
    for (std::size_t i = 0; i < content.size(); ++i) {
      ASSERT_EQ(content[i], i < oldContent.size()
                                ? oldContent[i]
                                : "instance \n  CommandName kind 0 = 0 «NC_GOTO»\n  "
                                  "SequenceNumber kind 1 = 1\n  of MfgPPCommand");
    }
  }
}

}  // namespace
}  // namespace host::test
