// A job with a thousand points a line from its file to written text, against a program written by
// hand that reads the same file with strtod and prints it with fprintf.

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

#include "post/generator/Generator.h"
#include "post/job/JobReader.h"
#include "post/output/OutputFile.h"
#include "post/toolpath/LineReader.h"
#include "tests/bench/ScratchFile.h"
#include "tests/bench/Works.h"

namespace {

constexpr int kPointsOfALine = 1'000;

void appendNumber(std::string& text, double number) {
  char digits[32];
  text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void appendPoint(std::string& text, int number) {
  appendNumber(text += '[', number % 1000 * 0.25 - 125.0);
  const int row = number / 1000;
  appendNumber(text += ',', row * 0.125);
  appendNumber(text += ',', number % 64 * 0.0625 - 2.0);
  text += ']';
}

std::string jobOf(int points) {
  std::string text = "{\"job\":1,\"program\":\"BENCH\",\"units\":\"mm\"}\n";
  for (int i = 0; i < points; ++i) {
    text += i % kPointsOfALine == 0 ? R"({"nc":"NC_GOTO","points":[)" : ",";
    appendPoint(text, i);
    if (i % kPointsOfALine == kPointsOfALine - 1) text += "]}\n";
  }
  return text + "{\"end\":true}\n";
}

void post(const std::string& path, int points) {
  host::JobReader reader(std::make_unique<host::LineReader>(path));
  host::OutputFile output("/dev/null");
  host::Generator generator(host::newDocument(), "bench", output);
  generator.run(reader);
  output.finish();
  if (generator.summary().lines != points) {
    throw std::runtime_error("lines are missing");
  }
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// The points between the brackets of a line; returns how many there were.
int printPoints(const char* text, std::FILE* output) {
  int points = 0;
  for (const char* at = std::strstr(text, "[["); at != nullptr; at = std::strchr(at, '[')) {
    while (*at == '[') ++at;
    char* next = nullptr;
    const double x = std::strtod(at, &next);
    const double y = std::strtod(next + 1, &next);
    const double z = std::strtod(next + 1, &next);
    std::fprintf(output, "GOTO/%11.5f,%11.5f,%11.5f\n", x, y, z);
    at = next;
    ++points;
  }
  return points;
}

void printByHand(const std::string& path, int points) {
  const File input(std::fopen(path.c_str(), "r"), std::fclose);
  const File output(std::fopen("/dev/null", "w"), std::fclose);
  char* line = nullptr;
  std::size_t size = 0;
  while (getline(&line, &size, input.get()) > 0) points -= printPoints(line, output.get());
  std::free(line);
  if (points != 0) throw std::runtime_error("points are missing");
}

Work work(const char* name, void (*run)(const std::string&, int), int points) {
  return {name + std::to_string(points), 1, [run, points] {
            const auto job = std::make_shared<ScratchFile>(jobOf(points));
            return [run, points, job] { run(job->path(), points); };
          }};
}

}  // namespace

Works postWorks() {
  return {work("post/", post, 10'000), work("post/", post, 30'000),
          work("strtod/", printByHand, 10'000), work("strtod/", printByHand, 30'000)};
}
