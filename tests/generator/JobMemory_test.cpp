#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/stat.h>

#include <thread>

#include "tests/generator/Jobs.h"
#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

constexpr long kBytesPerMebibyte = 1L << 20;

/// Bytes of the heap that are in use: by the sanitizer's count where it keeps the heap, which also
/// holds freed memory back.
long bytesInUse() {
  void* const count = dlsym(RTLD_DEFAULT, "__sanitizer_get_current_allocated_bytes");
  if (count != nullptr) return static_cast<long>(reinterpret_cast<std::size_t (*)()>(count)());
  const auto heap = mallinfo2();
  return static_cast<long>(heap.uordblks + heap.hblkhd);
}

/// By how much the heap in use grows while a job of `count` equal element lines streams through a
/// pipe, measured from the second of them on.
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
    if (++read == 2) before = bytesInUse();
  }
  const long grown = bytesInUse() - before;
  writer.join();
  EXPECT_EQ(read, count);
  return grown;
}

TEST(JobMemory, JobOfManyLinesStreamsInConstantMemory) {
  const std::string line =
      R"({"nc":"NC_GOTO","feedrate":{"value":800,"type":"linear"},"points":[[1,2,3],[4,5,6,0,0,1]]})";
  EXPECT_LT(growth(line, 20000), kBytesPerMebibyte / 8);
}

TEST(JobMemory, JobOfManyActivitiesStreamsInConstantMemory) {
  const std::string line =
      R"({"activity":"A","kind":"sequentialGroove","motions":[{"strategy":{"dwell":"time"}}],)"
      R"("lathe":{"correctors":{"1":"P9"}},"tool":{"replay":{"9":[0,0,0]}},"assembly":{"insert":)"
      R"({"type":"MfgGrooveInsert","leftNoseRadius":0.2}},"parameters":{"D":{"real":1}}})";
  EXPECT_LT(growth(line, 20000), kBytesPerMebibyte / 8);
}

TEST(JobMemory, JobOfLongestLinesStreamsInConstantMemory) {
  std::string line = R"({"nc":"NC_GOTO","points":[[0,0,0])";
  while (line.size() < LineReader::kLongestLine - 20) line += ",[1,2,3]";
  EXPECT_LT(growth(line + "]}", 4), 2 * kBytesPerMebibyte);
}

}  // namespace
}  // namespace host::test
