#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "tests/generator/Jobs.h"
#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

constexpr long kBytesPerMebibyte = 1L << 20;

/// Memory of the process that is resident, in bytes.
long residentBytes() {
  std::ifstream statm("/proc/self/statm");
  long size = 0;
  long resident = 0;
  statm >> size >> resident;
  return resident * ::sysconf(_SC_PAGESIZE);
}

/// By how much the process grows while a job of `count` equal element lines streams through a pipe,
/// measured from the second of them on.
long growth(const std::string& line, long count) {
  const Scratch scratch;
  const std::string path = scratch.path("pipe");
  if (::mkfifo(path.c_str(), 0600) != 0) std::abort();
  std::thread writer([&] {
    std::ofstream stream(path);
    stream << kHeader << '\n';
    for (long i = 0; i < count; ++i) stream << line << '\n';
    stream << "{\"end\":true}\n";
  });
  JobReader reader(std::make_unique<LineReader>(path));
  ToolPathEvent event;
  long read = 0;
  long before = 0;
  while (reader.next(event)) {
    if (++read == 2) before = residentBytes();
  }
  const long grown = residentBytes() - before;
  writer.join();
  EXPECT_EQ(read, count);
  return grown;
}

TEST(JobMemory, JobOfManyLinesStreamsInConstantMemory) {
  const std::string line =
      R"({"nc":"NC_GOTO","feedrate":{"value":800,"type":"linear"},"points":[[1,2,3],[4,5,6,0,0,1]]})";
  EXPECT_LT(growth(line, 20000), 2 * kBytesPerMebibyte);
}

TEST(JobMemory, JobOfLongestLinesStreamsInConstantMemory) {
  std::string line = R"({"nc":"NC_GOTO","points":[[0,0,0])";
  while (line.size() < LineReader::kLongestLine - 20) line += ",[1,2,3]";
  EXPECT_LT(growth(line + "]}", 4), 2 * kBytesPerMebibyte);
}

}  // namespace
}  // namespace host::test
