#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "post/generator/Generator.h"
#include "post/job/JobSetup.h"
#include "post/toolpath/LineReader.h"
#include "tests/generator/Jobs.h"

namespace host::test {

using Lines = std::vector<std::string>;

/// Keeps the lines that it is given.
class KeptLines final : public LineSink {
 public:
  void write(std::string_view line) override { lines.emplace_back(line); }
  Lines lines;
};

/// What a job gives with the default catalogue, up to the first error.
struct Posting {
  Lines lines;
  Summary summary;
  std::string error;
};

/// Posts a job of these lines into a document.
inline Posting post(const KEPVar<Document>& document, std::string_view job) {
  const InputFile file(job);
  KeptLines sink;
  Posting posting;
  try {
    JobReader reader(std::make_unique<LineReader>(file.path()));
    const JobSetup setup(reader.header(), *document);
    Generator generator(document, "job", sink);
    try {
      generator.run(reader);
    } catch (const InputError& error) {
      posting.error = error.what();
    }
    posting.summary = generator.summary();
  } catch (const InputError& error) {
    posting.error = error.what();
  }
  posting.lines = sink.lines;
  return posting;
}

inline Posting post(std::string_view lines) { return post(newDocument(), jobOf(lines)); }

}  // namespace host::test
