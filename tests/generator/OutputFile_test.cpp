#include "post/output/OutputFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <functional>

#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

const std::string kLongLine(200000, 'x');

/// The error that ends an output of the given lines; "none" for an output that was finished.
std::string errorOf(const std::string& path, const std::vector<std::string>& lines) {
  try {
    OutputFile output(path);
    for (const std::string& line : lines) output.write(line);
    output.finish();
  } catch (const OutputError& error) {
    return error.what();
  }
  return "none";
}

/// Runs `work` while the standard output is another descriptor.
void withStandardOutput(int descriptor, const std::function<void()>& work) {
  std::fflush(stdout);
  const int saved = ::dup(STDOUT_FILENO);
  ::dup2(descriptor, STDOUT_FILENO);
  work();
  ::dup2(saved, STDOUT_FILENO);
  ::close(saved);
}

mode_t modeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 0777;
}

class IgnoredSignal {
 public:
  explicit IgnoredSignal(int number) : number_(number), handler_(std::signal(number, SIG_IGN)) {}
  IgnoredSignal(const IgnoredSignal&) = delete;
  IgnoredSignal& operator=(const IgnoredSignal&) = delete;
  ~IgnoredSignal() { std::signal(number_, handler_); }

 private:
  int number_;
  void (*handler_)(int);
};

TEST(OutputFile, LinesAreWrittenUnchangedEachWithALineFeed) {
  const Scratch scratch;
  const std::string bytes("a\0\xFF\r", 4);
  EXPECT_EQ(errorOf(scratch.path("out"), {"GOTO/1,2,3", "", bytes, kLongLine, "FINI"}), "none");
  EXPECT_EQ(scratch.text("out"), "GOTO/1,2,3\n\n" + bytes + '\n' + kLongLine + "\nFINI\n");
  EXPECT_EQ(scratch.size(), 1U);
}

TEST(OutputFile, WithoutLinesIsEmpty) {
  const Scratch scratch;
  EXPECT_EQ(errorOf(scratch.path("out"), {}), "none");
  EXPECT_EQ(scratch.text("out"), "");
  EXPECT_EQ(scratch.size(), 1U);
}

TEST(OutputFile, AppearsOnlyWhenFinished) {
  const Scratch scratch;
  OutputFile output(scratch.path("out"));
  output.write(kLongLine);
  output.write("FINI");
  EXPECT_FALSE(std::filesystem::exists(scratch.path("out")));
  output.finish();
  EXPECT_EQ(scratch.text("out"), kLongLine + "\nFINI\n");
}

TEST(OutputFile, AbandonedLeavesWhatWasThere) {
  const Scratch scratch;
  { OutputFile output(scratch.path("new")); }
  EXPECT_EQ(scratch.size(), 0U);
  const std::string path = scratch.file("old", "as it was\n");
  {
    OutputFile output(path);
    output.write(kLongLine);
  }
  EXPECT_EQ(scratch.text("old"), "as it was\n");
  EXPECT_EQ(scratch.size(), 1U);
}

TEST(OutputFile, FinishedReplacesWhatWasThere) {
  const Scratch scratch;
  const std::string path = scratch.file("old", "as it was, and longer\n");
  EXPECT_EQ(errorOf(path, {"FINI"}), "none");
  EXPECT_EQ(scratch.text("old"), "FINI\n");
}

TEST(OutputFile, NewFileHonoursTheMask) {
  const Scratch scratch;
  const mode_t before = ::umask(027);
  EXPECT_EQ(errorOf(scratch.path("out"), {"FINI"}), "none");
  ::umask(before);
  EXPECT_EQ(modeOf(scratch.path("out")), 0640U);
}

TEST(OutputFile, ReplacedFileKeepsItsPermissions) {
  const Scratch scratch;
  const std::string path = scratch.file("old", "");
  ASSERT_EQ(::chmod(path.c_str(), 0604), 0);
  EXPECT_EQ(errorOf(path, {"FINI"}), "none");
  EXPECT_EQ(modeOf(path), 0604U);
}

TEST(OutputFile, LinkStaysAndItsFileIsReplaced) {
  const Scratch scratch;
  const std::string path = scratch.file("file", "as it was\n");
  std::filesystem::create_symlink(path, scratch.path("link"));
  EXPECT_EQ(errorOf(scratch.path("link"), {"FINI"}), "none");
  EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("link")));
  EXPECT_EQ(scratch.text("file"), "FINI\n");
  EXPECT_EQ(scratch.size(), 2U);
}

TEST(OutputFile, LinkToAFileThatIsNewStays) {
  const Scratch scratch;
  std::filesystem::create_symlink("inner", scratch.path("link"));
  std::filesystem::create_symlink(scratch.path("file"), scratch.path("inner"));
  EXPECT_EQ(errorOf(scratch.path("link"), {"FINI"}), "none");
  EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("link")));
  EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("inner")));
  EXPECT_EQ(scratch.text("file"), "FINI\n");
  EXPECT_EQ(scratch.size(), 3U);
}

TEST(OutputFile, LinkThatLeadsNowhereGivesTheReasonAndStays) {
  const Scratch scratch;
  const std::string ring = scratch.path("ring");
  std::filesystem::create_symlink("ring", ring);
  EXPECT_EQ(errorOf(ring, {"FINI"}),
            ring + ": error: cannot be written: Too many levels of symbolic links");
  const std::string link = scratch.path("link");
  std::filesystem::create_symlink("absent/file", link);
  EXPECT_EQ(errorOf(link, {"FINI"}),
            link + ": error: cannot be written: No such file or directory");
  EXPECT_TRUE(std::filesystem::is_symlink(ring));
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(scratch.size(), 2U);
}

TEST(OutputFile, NameThatIsTakenBesideIsLeftAlone) {
  const Scratch scratch;
  OutputFile first(scratch.path("out"));
  first.write("FIRST");
  EXPECT_EQ(errorOf(scratch.path("out"), {"FINI"}), "none");
  EXPECT_EQ(scratch.text("out"), "FINI\n");
  EXPECT_EQ(scratch.size(), 2U);
  first.finish();
  EXPECT_EQ(scratch.text("out"), "FIRST\n");
  EXPECT_EQ(scratch.size(), 1U);
}

TEST(OutputFile, UnusablePlaceGivesTheReason) {
  const Scratch scratch;
  EXPECT_EQ(errorOf(scratch.path(""), {}),
            scratch.path("") + ": error: cannot be written: Is a directory");
  EXPECT_EQ(errorOf(scratch.path("absent/out"), {}),
            scratch.path("absent/out") + ": error: cannot be written: No such file or directory");
  const std::string file = scratch.file("file", "as it was\n");
  EXPECT_EQ(errorOf(file + "/out", {}), file + "/out: error: cannot be written: Not a directory");
  EXPECT_EQ(scratch.size(), 1U);
}

TEST(OutputFile, FullDeviceGivesTheReason) {
  constexpr std::string_view kError =
      "/dev/full: error: cannot be written: No space left on device";
  EXPECT_EQ(errorOf("/dev/full", {"FINI"}), kError);
  EXPECT_EQ(errorOf("/dev/full", {kLongLine, "FINI"}), kError);
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
  EXPECT_EQ(errorOf("/dev/null", {"FINI"}), "none");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(OutputFile, ErrorTellsFileAndReason) {
  try {
    OutputFile output("/dev/full");
    output.write("FINI");
    output.finish();
    FAIL() << "nothing was raised";
  } catch (const OutputError& error) {
    EXPECT_EQ(error.file(), "/dev/full");
    EXPECT_EQ(error.reason(), "No space left on device");
  }
}

/// Writes more than the process may, over a file of one line, and ends the process.
[[noreturn]] void writeOverTheLimit(const Scratch& scratch) {
  std::signal(SIGXFSZ, SIG_IGN);
  const std::string path = scratch.file("out", "as it was\n");
  constexpr rlimit kLimit{100000, 100000};
  if (::setrlimit(RLIMIT_FSIZE, &kLimit) != 0) std::_Exit(1);
  const std::string error = errorOf(path, {kLongLine, "FINI"}).substr(path.size());
  const bool left = scratch.text("out") == "as it was\n" && scratch.size() == 1;
  std::fputs(error.c_str(), stderr);
  std::_Exit(left ? 0 : 2);
}

TEST(OutputFile, FileOverTheLimitLeavesWhatWasThere) {
  const Scratch scratch;
  EXPECT_EXIT(writeOverTheLimit(scratch), testing::ExitedWithCode(0),
              "^: error: cannot be written: File too large$");
}

TEST(OutputFile, ClosedPipeGivesTheReason) {
  const IgnoredSignal ignored(SIGPIPE);
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  const std::string path = "/dev/fd/" + std::to_string(ends[1]);
  OutputFile output(path);
  ::close(ends[0]);
  ::close(ends[1]);
  output.write("FINI");
  try {
    output.finish();
    FAIL() << "nothing was raised";
  } catch (const OutputError& error) {
    EXPECT_EQ(error.what(), path + ": error: cannot be written: Broken pipe");
  }
}

TEST(OutputFile, DashIsTheStandardOutput) {
  const Scratch scratch;
  const int file = ::open(scratch.path("out").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  withStandardOutput(file, [] { EXPECT_EQ(errorOf("-", {"GOTO/1,2,3", "FINI"}), "none"); });
  ::close(file);
  EXPECT_EQ(scratch.text("out"), "GOTO/1,2,3\nFINI\n");
  EXPECT_GE(::fcntl(STDOUT_FILENO, F_GETFD), 0);
}

TEST(OutputFile, UnwritableStandardOutputGivesTheReason) {
  const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
  std::string error;
  withStandardOutput(full, [&error] { error = errorOf("-", {"FINI"}); });
  ::close(full);
  EXPECT_EQ(error, "standard output: error: cannot be written: No space left on device");

  const IgnoredSignal ignored(SIGPIPE);
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  ::close(ends[0]);
  withStandardOutput(ends[1], [&error] { error = errorOf("-", {kLongLine}); });
  ::close(ends[1]);
  EXPECT_EQ(error, "standard output: error: cannot be written: Broken pipe");
}

}  // namespace
}  // namespace host::test
