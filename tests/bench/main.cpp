// Runs the benchmarks and holds their ratios against the targets; exit status 1 when one is missed.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "host/system/Module.h"
#include "tests/bench/PostJob.h"

namespace {

struct Ratio {
  const char* name;
  const char* part;
  const char* whole;
  /// 0: reported only.
  double atMost;
};

constexpr Ratio kRatios[] = {
    {"NC_GOTO to snprintf by hand", "engine/NC_GOTO", "printfLoop<3>", 0.6},
    {"NC_GOTO to to_chars by hand", "engine/NC_GOTO", "toCharsLoop<3>", 0},
    {"NC_GOTO_VARIABLE_AXIS to snprintf by hand", "engine/NC_GOTO_VARIABLE_AXIS", "printfLoop<6>",
     0.6},
    {"NC_GOTO_VARIABLE_AXIS to to_chars by hand", "engine/NC_GOTO_VARIABLE_AXIS", "toCharsLoop<6>",
     0},
    {"three sums and products to snprintf by hand", "engine/computing", "printfComputing", 0},
    {"three sums and products to NC_GOTO", "engine/computing", "engine/NC_GOTO", 0},
    {"post of a million points to an fprintf loop", "postMillionPoints", "fprintfMillionPoints", 0},
    {"post that reads its text back to --no-verify", "postReadBack", "postUnread", 1.5},
    {"opening 10,000 PP commands to 1,000", "openDocument/10000", "openDocument/1000", 12},
    {"opening 10,000 PP commands to reading the rows", "openDocument/10000", "readRows/10000", 0},
    {"saving 10,000 PP commands to 1,000", "saveDocument/10000", "saveDocument/1000", 0},
    {"table of 3,000 commands to one of 300", "loadTable/3000", "loadTable/300", 12},
    {"list of 3,000 commands to one of 300", "listTable/3000", "listTable/300", 12},
    {"list of 30,000 commands to one of 3,000", "listTable/30000", "listTable/3000", 14},
    {"code of a word among 5,000 to one among 50", "codeOfWord/5000", "codeOfWord/50", 4},
    {"word of a code among 5,000 to one among 50", "wordOfCode/5000", "wordOfCode/50", 4},
};

/// Prints as usual and keeps the median of each benchmark.
class MedianReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name == "median")
        medians[run.run_name.function_name + arguments(run)] = timeOf(run);
      if (run.error_occurred) failed = true;
    }
    ConsoleReporter::ReportRuns(runs);
  }

  std::map<std::string, double> medians;
  bool failed = false;

 private:
  // Of a benchmark with a time of its own that is its real time.
  static double timeOf(const Run& run) {
    const bool isOwn = run.run_name.time_type == "manual_time";
    return isOwn ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
  }
  static std::string arguments(const Run& run) {
    return run.run_name.args.empty() ? "" : "/" + run.run_name.args;
  }
};

bool report(const Ratio& ratio, const std::map<std::string, double>& medians) {
  const auto part = medians.find(ratio.part);
  const auto whole = medians.find(ratio.whole);
  if (part == medians.end() || whole == medians.end()) {
    std::printf("%-46s not measured\n", ratio.name);
    return ratio.atMost == 0;
  }
  const double value = part->second / whole->second;
  const bool isMet = ratio.atMost == 0 || value <= ratio.atMost;
  std::printf("%-46s %6.3f", ratio.name, value);
  if (ratio.atMost > 0) std::printf("  (at most %.2f%s)", ratio.atMost, isMet ? "" : ": MISSED");
  std::printf("\n");
  return isMet;
}

bool reportPeakMemory(double peak) {
  constexpr double kMostMebibytes = 32;
  const bool isMet = peak >= 0 && peak <= kMostMebibytes;
  std::printf("%-46s %6.1f  (at most %.0f%s)\n", "MiB held by post of a million points", peak,
              kMostMebibytes, isMet ? "" : ": MISSED");
  return isMet;
}

}  // namespace

int main(int argc, char** argv) {
  host::loadModule();
  std::vector<char*> arguments(argv, argv + argc);
  // Runs in mixed order: what else the machine does falls on both sides of a ratio.
  std::string defaults[] = {"--benchmark_repetitions=9", "--benchmark_min_time=0.1",
                            "--benchmark_enable_random_interleaving=true"};
  for (std::string& option : defaults) {
    arguments.insert(arguments.begin() + 1, option.data());
  }
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  // First: a child's peak counts what its parent held when it was started.
  const double peak = peakMemoryOfPost();
  MedianReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::printf("\nRatios of medians\n");
  bool allMet = !reporter.failed;
  for (const Ratio& ratio : kRatios) allMet = report(ratio, reporter.medians) && allMet;
  allMet = reportPeakMemory(peak) && allMet;
  return allMet ? 0 : 1;
}
