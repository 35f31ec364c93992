// The lines that the engine writes, by loops written by hand: what it is compared with.

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <string>

#include "System/KEPList.h"
#include "tests/bench/Motions.h"
#include "tests/bench/Works.h"

namespace {

using List = KEPListValKEPUnicodeString;

template <typename... Numbers>
void append(List& lines, const char* format, Numbers... numbers) {
  char line[256];
  const int length = std::snprintf(line, sizeof line, format, numbers...);
  lines.Append(KEPUnicodeString(std::string_view(line, static_cast<std::size_t>(length))));
}

void writePoint(List& lines, const Motion& m) {
  append(lines, "GOTO/%11.5f,%11.5f,%11.5f", m[0], m[1], m[2]);
}

void writePointAndAxis(List& lines, const Motion& m) {
  append(lines, "GOTO/%11.5f,%11.5f,%11.5f,%9.6f,%9.6f,%9.6f", m[0], m[1], m[2], m[3], m[4], m[5]);
}

void writeCircle(List& lines, const Motion& m) {
  lines.Append(KEPUnicodeString("AUTOPS"));
  append(lines, "INDIRV/%11.5f,%11.5f,%11.5f", m[3], m[4], m[5]);
  append(lines, "TLON,GOFWD/(CIRCLE/%11.5f,%11.5f,%11.5f,$", m[2], m[0], m[1]);
  append(lines, "%11.5f),ON,(LINE/%11.5f,%11.5f,%11.5f,$", m[0] + 200, m[2], m[0], m[1]);
  append(lines, "%11.5f,%11.5f,%11.5f)", m[0], m[1], m[2]);
}

void writeHelix(List& lines, const Motion& m) {
  append(lines, "HELICAL/%11.5f,%11.5f,%11.5f,$", m[2], m[0], m[1]);
  append(lines, "%11.5f,%11.5f,%11.5f,$", m[3], m[4], m[5]);
  append(lines, "%11.5f,%11.5f,%11.5f,$", m[3], m[4], m[5]);
  append(lines, "%11.5f,%11.5f,$", 2.5, m[0] + 200);
  append(lines, "%11.5f,%11.5f,%11.5f", m[0], m[1], m[2]);
}

void writeThreeLines(List& lines, const Motion& m) {
  append(lines, "FROM/%11.5f,%11.5f,%11.5f", m[0], m[1], m[2]);
  append(lines, "TLAXIS/%9.6f,%9.6f,%9.6f", m[3], m[4], m[5]);
  append(lines, "CLEARP/XYPLAN,%11.5f", m[2]);
}

void writeSums(List& lines, const Motion& m) {
  append(lines, "GOTO/%12.6f,%12.6f,%12.6f", m[0] + 10, m[1] * 2, m[2] - 1.5);
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
void writeChars(List& lines, const Motion& motion) {
  std::string line = "GOTO/";
  for (std::size_t i = 0; i < kNumbers; ++i) {
    if (i > 0) line += ',';
    appendPadded(line, motion[i], i < 3 ? 5 : 6, i < 3 ? 11 : 9);
  }
  lines.Append(KEPUnicodeString(std::move(line)));
}

template <void (*kWrite)(List&, const Motion&)>
Work loop(const char* name) {
  return {name, 4 * static_cast<int>(kPoints), [] {
            return [at = std::size_t{0}]() mutable {
              List lines;
              kWrite(lines, motions()[at++ % kPoints]);
              benchmark::DoNotOptimize(lines);
            };
          }};
}

}  // namespace

Works handWorks() {
  return {
      loop<writePoint>("snprintf/NC_GOTO"),
      loop<writePointAndAxis>("snprintf/NC_GOTO_VARIABLE_AXIS"),
      loop<writeCircle>("snprintf/NC_CIRCLE1"),
      loop<writeHelix>("snprintf/NC_HELICAL_INTERPOLATION"),
      loop<writeThreeLines>("snprintf/three lines"),
      loop<writeSums>("snprintf/three sums"),
      loop<writeChars<3>>("to_chars/NC_GOTO"),
      loop<writeChars<6>>("to_chars/NC_GOTO_VARIABLE_AXIS"),
  };
}
