// A job of a million points from its file to written text, against a loop written by hand that
// prints the same points.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
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

namespace {

/// What a process of its own took that posts a job into a file, which is removed; nothing when it
/// fails. `option`: null for none.
std::optional<rusage> usageOfPost(const PostJob& job, const char* option) {
  const std::string path = job.path().string();
  const std::string text = path + ".apt";
  const char* const arguments[] = {PPWORD_PROGRAM, "post", path.c_str(), "-o",
                                   text.c_str(),   option, nullptr};
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int refused = posix_spawn(&child, PPWORD_PROGRAM, &quiet, nullptr,
                                  const_cast<char* const*>(arguments), environ);
  posix_spawn_file_actions_destroy(&quiet);
  if (refused != 0) return std::nullopt;
  int status = 0;
  rusage usage{};
  const bool isDone = wait4(child, &status, 0, &usage) == child && status == 0;
  std::filesystem::remove(text);
  return isDone ? std::optional(usage) : std::nullopt;
}

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// With the processor time of the child.
void postInAProcess(benchmark::State& state, const char* option) {
  const PostJob job;
  for (auto _ : state) {
    const auto usage = usageOfPost(job, option);
    if (!usage) return state.SkipWithError("the text is not written");
    state.SetIterationTime(secondsOf(usage->ru_utime) + secondsOf(usage->ru_stime));
  }
}

void postReadBack(benchmark::State& state) { postInAProcess(state, nullptr); }
void postUnread(benchmark::State& state) { postInAProcess(state, "--no-verify"); }

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
BENCHMARK(postReadBack)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(postUnread)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(fprintfMillionPoints)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

double peakMemoryOfPost() {
  const auto usage = usageOfPost(PostJob(), nullptr);
  return usage ? static_cast<double>(usage->ru_maxrss) / 1024.0 : -1;
}
