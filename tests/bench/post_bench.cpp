// A job of a million points from its file to written text, against a loop written by hand that
// prints the same points.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

#include "post/generator/Generator.h"
#include "post/job/JobReader.h"
#include "post/output/OutputFile.h"
#include "post/toolpath/LineReader.h"
#include "tests/bench/PostJob.h"

PostJob::PostJob()
    : path_(std::filesystem::temp_directory_path() /
            ("ppword_bench." + std::to_string(getpid()) + ".job.jsonl")) {
  std::ofstream file(path_);
  file << R"({"job":1,"program":"BENCH","units":"mm"})" << '\n';
  for (int i = 0; i < kPoints; ++i) {
    const bool isFirst = i % kPointsOfALine == 0;
    file << (isFirst ? R"({"nc":"NC_GOTO","points":[[)" : ",[");
    file << x(i) << ',' << y(i) << ',' << z(i) << ']';
    if (i % kPointsOfALine == kPointsOfALine - 1) file << "]}\n";
  }
  file << R"({"end":true})" << '\n';
}

PostJob::~PostJob() { std::filesystem::remove(path_); }

double peakMemoryOfPost() {
  const PostJob job;
  const std::string path = job.path().string();
  const char* const arguments[] = {PPWORD_PROGRAM, "post",      path.c_str(),
                                   "-o",           "/dev/null", nullptr};
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int refused = posix_spawn(&child, PPWORD_PROGRAM, &quiet, nullptr,
                                  const_cast<char* const*>(arguments), environ);
  posix_spawn_file_actions_destroy(&quiet);
  if (refused != 0) return -1;
  int status = 0;
  rusage usage{};
  const bool isDone = wait4(child, &status, 0, &usage) == child && status == 0;
  return isDone ? static_cast<double>(usage.ru_maxrss) / 1024.0 : -1;
}

namespace {

void postMillionPoints(benchmark::State& state) {
  const PostJob job;
  for (auto _ : state) {
    host::JobReader reader(std::make_unique<host::LineReader>(job.path().string()));
    host::OutputFile output("/dev/null");
    host::Generator generator(host::newDocument(), "bench", output);
    generator.run(reader);
    output.finish();
    if (generator.summary().lines != PostJob::kPoints) state.SkipWithError("lines are missing");
  }
}

void fprintfMillionPoints(benchmark::State& state) {
  for (auto _ : state) {
    std::FILE* const file = std::fopen("/dev/null", "w");
    for (int i = 0; i < PostJob::kPoints; ++i) {
      std::fprintf(file, "GOTO/%11.5f,%11.5f,%11.5f\n", PostJob::x(i), PostJob::y(i),
                   PostJob::z(i));
    }
    std::fclose(file);
  }
}

BENCHMARK(postMillionPoints)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(fprintfMillionPoints)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
