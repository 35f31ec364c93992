// One motion through container, engine and evaluations into a fresh list, against loops written by
// hand that build the same list.

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <string>

#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferTLAxis.h"
#include "KEPIMfgPPWordContainer.h"
#include "host/modeler/Document.h"

namespace {

constexpr std::size_t kPoints = 256;
using Motion = std::array<double, 6>;

/// Coordinates as a milling program has them, and unit axes.
const std::array<Motion, kPoints>& motions() {
  static const auto made = [] {
    std::array<Motion, kPoints> all{};
    unsigned state = 12345;
    const auto next = [&state] {
      return static_cast<double>((state = state * 1664525U + 1013904223U) >> 8);
    };
    for (Motion& motion : all) {
      for (std::size_t i = 0; i < 3; ++i) motion[i] = next() / 65536.0 - 128.0;
      motion[3] = 0.6;
      motion[4] = 0.0;
      motion[5] = 0.8;
    }
    return all;
  }();
  return made;
}

/// `syntax`: the user's own one, where the instruction is the one for it.
void engine(benchmark::State& state, const char* instruction, const char* syntax = nullptr) {
  const auto document = host::newDocument();
  const KEPIMfgPPWordContainer_var container = document->ppWordContainer();
  if (syntax != nullptr) container->SetUserSyntax(KEPUnicodeString(syntax));
  const KEPIMfgBufferPoint_var point = container;
  const KEPIMfgBufferTLAxis_var axis = container;
  KEPIMfgSyntaxEvaluation_var evaluation;
  const KEPUnicodeString name(instruction);
  const int first = 1;
  std::size_t at = 0;
  for (auto _ : state) {
    const Motion& motion = motions()[at++ % kPoints];
    point->SetPoint(motion[0], motion[1], motion[2]);
    axis->SetTLAxis(motion[3], motion[4], motion[5]);
    container->GetSyntaxEvaluation(evaluation, name);
    KEPListValKEPUnicodeString lines;
    if (!evaluation->InstantiateSyntax(lines, first)) state.SkipWithError("no line");
    benchmark::DoNotOptimize(lines);
  }
}

template <std::size_t kNumbers>
void printfLoop(benchmark::State& state) {
  std::size_t at = 0;
  for (auto _ : state) {
    const Motion& m = motions()[at++ % kPoints];
    char line[128];
    int length = 0;
    if constexpr (kNumbers == 3) {
      length = std::snprintf(line, sizeof line, "GOTO/%11.5f,%11.5f,%11.5f", m[0], m[1], m[2]);
    } else {
      length = std::snprintf(line, sizeof line, "GOTO/%11.5f,%11.5f,%11.5f,%9.6f,%9.6f,%9.6f", m[0],
                             m[1], m[2], m[3], m[4], m[5]);
    }
    KEPListValKEPUnicodeString lines;
    lines.Append(KEPUnicodeString(std::string_view(line, static_cast<std::size_t>(length))));
    benchmark::DoNotOptimize(lines);
  }
}

/// The same three results as the syntax that computes.
void printfComputing(benchmark::State& state) {
  std::size_t at = 0;
  for (auto _ : state) {
    const Motion& m = motions()[at++ % kPoints];
    char line[128];
    const int length = std::snprintf(line, sizeof line, "GOTO/%12.6f,%12.6f,%12.6f", m[0] + 10,
                                     m[1] * 2, m[2] - 1.5);
    KEPListValKEPUnicodeString lines;
    lines.Append(KEPUnicodeString(std::string_view(line, static_cast<std::size_t>(length))));
    benchmark::DoNotOptimize(lines);
  }
}

void appendPadded(std::string& line, double number, int precision, std::size_t width) {
  char digits[64];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, precision)
          .ptr;
  const auto length = static_cast<std::size_t>(end - digits);
  if (length < width) line.append(width - length, ' ');
  line.append(digits, length);
}

template <std::size_t kNumbers>
void toCharsLoop(benchmark::State& state) {
  std::size_t at = 0;
  for (auto _ : state) {
    const Motion& motion = motions()[at++ % kPoints];
    std::string line = "GOTO/";
    for (std::size_t i = 0; i < kNumbers; ++i) {
      if (i > 0) line += ',';
      if (i < 3) {
        appendPadded(line, motion[i], 5, 11);
      } else {
        appendPadded(line, motion[i], 6, 9);
      }
    }
    KEPListValKEPUnicodeString lines;
    lines.Append(KEPUnicodeString(std::move(line)));
    benchmark::DoNotOptimize(lines);
  }
}

BENCHMARK_CAPTURE(engine, NC_GOTO, "NC_GOTO");
BENCHMARK_CAPTURE(engine, NC_GOTO_VARIABLE_AXIS, "NC_GOTO_VARIABLE_AXIS");
BENCHMARK_CAPTURE(engine, computing, "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX",
                  "GOTO/%MFG_XPOINT+10,%MFG_YPOINT*2,%MFG_ZPOINT-1.5");
BENCHMARK(printfComputing);
BENCHMARK_TEMPLATE(printfLoop, 3);
BENCHMARK_TEMPLATE(printfLoop, 6);
BENCHMARK_TEMPLATE(toCharsLoop, 3);
BENCHMARK_TEMPLATE(toCharsLoop, 6);

}  // namespace
