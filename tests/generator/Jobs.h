#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "post/job/JobReader.h"
#include "post/toolpath/LineReader.h"
#include "tests/support/InputFile.h"

namespace host::test {

inline constexpr std::string_view kHeader = R"({"job":1,"program":"PLATE","units":"mm"})";

/// What a job reads as: its header and events, and the error that ended it (without the file).
struct JobReading {
  JobHeader header;
  std::vector<ToolPathEvent> events;
  std::string error;
};

inline std::string withoutFile(const InputError& error) {
  return std::string(error.what()).substr(error.file().size());
}

inline JobReading readJob(std::string_view text) {
  const InputFile file(text);
  JobReading reading;
  try {
    JobReader reader(std::make_unique<LineReader>(file.path()));
    reading.header = reader.header();
    ToolPathEvent event;
    while (reader.next(event)) reading.events.push_back(event);
  } catch (const InputError& error) {
    reading.error = withoutFile(error);
  }
  return reading;
}

/// A job of the header above, the given lines and its end.
inline std::string jobOf(std::string_view lines) {
  return std::string(kHeader).append("\n").append(lines).append("\n{\"end\":true}\n");
}

/// The one element of a job of one line.
inline Element elementOf(std::string_view line) {
  const JobReading reading = readJob(jobOf(line));
  if (reading.events.size() != 1) throw std::runtime_error("no single event" + reading.error);
  return std::get<Element>(reading.events.front());
}

}  // namespace host::test
