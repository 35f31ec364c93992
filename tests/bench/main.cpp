// usage: ppword_bench [OPTION-OF-GOOGLE-BENCHMARK]...   measures times
//        valgrind --tool=callgrind --instr-atstart=no ppword_bench --count
//                                       counts instructions: a dump for each work, with its name
//        ppword_bench --peak COMMAND [ARGUMENT]...
//                                       prints the most memory that the command held, in KiB
// bench.py runs all three and compares the results.

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <valgrind/callgrind.h>

#include <cstdio>
#include <string_view>

#include "host/system/Module.h"
#include "tests/bench/Works.h"

namespace {

Works allWorks() {
  Works all;
  for (const Works& some :
       {engineWorks(), handWorks(), tableWorks(), documentWorks(), postWorks()}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

/// The calls before those that are counted fill what is cached.
void count(const Work& work) {
  const auto call = work.prepare();
  for (int i = 0; i < work.calls; ++i) call();
  CALLGRIND_START_INSTRUMENTATION;
  for (int i = 0; i < work.calls; ++i) call();
  CALLGRIND_STOP_INSTRUMENTATION;
  const std::string name = work.name + '=' + std::to_string(work.calls);
  CALLGRIND_DUMP_STATS_AT(name.c_str());
}

void measureTime(benchmark::State& state, const Work& work) {
  const auto call = work.prepare();
  for (auto _ : state) call();
}

/// A process counts what the one that started it held, so that one must be small.
int printPeak(char** command) {
  pid_t child = 0;
  int status = 0;
  rusage usage{};
  if (posix_spawn(&child, command[0], nullptr, nullptr, command, environ) != 0) return 1;
  if (wait4(child, &status, 0, &usage) != child || status != 0) return 1;
  std::printf("%ld\n", usage.ru_maxrss);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view mode = argc > 1 ? argv[1] : "";
  if (mode == "--peak" && argc > 2) return printPeak(argv + 2);
  host::loadModule();
  const Works works = allWorks();
  if (mode == "--count") {
    for (const Work& work : works) count(work);
    return 0;
  }
  for (const Work& work : works) {
    benchmark::RegisterBenchmark(work.name.c_str(), measureTime, work)
        ->Unit(benchmark::kMicrosecond);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
