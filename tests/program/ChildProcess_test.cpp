// Children that run, fail, hang, write too much and are interrupted.

#include "post/program/ChildProcess.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "host/system/EndingSignals.h"

namespace {

using Ending = host::ChildOutcome::Ending;

host::ChildCommand shell(const std::string& script) {
  host::ChildCommand command;
  command.program = "/bin/sh";
  command.arguments = {"-c", script};
  command.folder = "/";
  command.environment = {"PATH=/usr/bin:/bin", "ONLY=this"};
  command.mostFileBytes = 1U << 20U;
  command.deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  sigemptyset(&command.signals);
  sigemptyset(&command.endingSignals);
  return command;
}

TEST(ChildProcess, StatusAndErrorsAreReturned) {
  const auto outcome = host::runChild(shell("pwd >&2; echo $ONLY >&2; echo out; exit 3"));
  EXPECT_EQ(outcome.ending, Ending::Exited);
  EXPECT_EQ(outcome.code, 3);
  EXPECT_EQ(outcome.errors, "/\nthis\n");
}

TEST(ChildProcess, OnlyTheEndOfManyErrorsIsStored) {
  const auto outcome = host::runChild(shell("head -c 1000000 /dev/zero >&2; echo end >&2"));
  EXPECT_EQ(outcome.ending, Ending::Exited);
  EXPECT_LE(outcome.errors.size(), 2 * host::kMostErrorBytes);
  EXPECT_TRUE(outcome.errors.ends_with("end\n"));
}

TEST(ChildProcess, SignalIsReturned) {
  const auto outcome = host::runChild(shell("kill -SEGV $$"));
  EXPECT_EQ(outcome.ending, Ending::Killed);
  EXPECT_EQ(outcome.code, SIGSEGV);
}

TEST(ChildProcess, LimitOfFilesEndsIt) {
  const host::ScratchFolder folder;
  auto command = shell("exec head -c 2000000 /dev/zero > x");
  command.folder = folder.path();
  const auto outcome = host::runChild(command);
  EXPECT_EQ(outcome.ending, Ending::Killed);
  EXPECT_EQ(outcome.code, SIGXFSZ);
}

TEST(ChildProcess, DeadlineEndsItWithWhatItStarted) {
  auto command = shell("sleep 1000 & echo $! >&2; exec 2>&-; sleep 1000");
  command.deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
  EXPECT_EQ(host::runChild(command).ending, Ending::TimedOut);
}

TEST(ChildProcess, ChildThatLeavesAnotherOneEndsIt) {
  const auto outcome = host::runChild(shell("sleep 1000 & exit 0"));
  EXPECT_EQ(outcome.ending, Ending::Exited);
}

TEST(ChildProcess, HeldSignalEndsIt) {
  ASSERT_EXIT(
      {
        {
          const host::SignalHold hold;
          auto command = shell("kill -TERM $PPID; sleep 1000");
          command.endingSignals = hold.held();
          if (host::runChild(command).ending != Ending::Interrupted) ::_exit(1);
        }
        ::_exit(2);
      },
      testing::KilledBySignal(SIGTERM), "");
}

TEST(ChildProcess, ProgramThatIsMissingIsNotStarted) {
  auto command = shell("");
  command.program = "/absent/program";
  const auto outcome = host::runChild(command);
  EXPECT_EQ(outcome.ending, Ending::NotStarted);
  EXPECT_EQ(outcome.code, ENOENT);
  command = shell("");
  command.folder = "/absent";
  EXPECT_EQ(host::runChild(command).ending, Ending::NotStarted);
}

TEST(ChildProcess, ProgramsAreFoundInFoldersOfThePath) {
  EXPECT_EQ(host::findProgram("sh").substr(0, 1), "/");
  EXPECT_EQ(host::findProgram("absent-program"), "");
}

TEST(ScratchFolder, IsRemovedWithEverythingInIt) {
  std::filesystem::path path;
  {
    const host::ScratchFolder folder;
    path = folder.path();
    std::filesystem::create_directories(path / "a" / "b");
    EXPECT_TRUE(std::filesystem::is_directory(path));
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
