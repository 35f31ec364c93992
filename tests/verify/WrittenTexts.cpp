#include "tests/verify/WrittenTexts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <optional>

#include "post/generator/Generator.h"
#include "post/job/JobReader.h"
#include "post/job/JobSetup.h"
#include "post/listing/ListingReader.h"
#include "post/listing/Vocabulary.h"
#include "post/toolpath/LineReader.h"
#include "tests/support/InputFile.h"
#include "tools/ppword/ReaderWords.h"
#include "verify/StatementReader.h"

namespace {

constexpr std::string_view kExamples = PPWORD_SOURCE_DIR "/examples/";

class TextLines final : public host::LineSink {
 public:
  void write(std::string_view line) override { (text += line) += '\n'; }
  std::string text;
};

/// Passes events on, and stores them.
class StoredEvents final : public host::ToolPathReader {
 public:
  StoredEvents(host::ToolPathReader& source, std::vector<host::ToolPathEvent>& events)
      : source_(source), events_(events) {}
  bool next(host::ToolPathEvent& event) override {
    const bool isThere = source_.next(event);
    if (isThere) events_.push_back(event);
    return isThere;
  }

 private:
  host::ToolPathReader& source_;
  std::vector<host::ToolPathEvent>& events_;
};

void load(host::Document& document, const std::string& table) {
  const auto words = document.ppWordContainer();
  if (KEPFailed(words->LoadPPWordTable(KEPUnicodeString(table)))) std::abort();
}

void write(const KEPVar<host::Document>& document, host::ToolPathReader& reader,
           WrittenText& written) {
  written.document = documentWords(*document);
  written.generation = currentGeneration();
  StoredEvents events(reader, written.events);
  TextLines lines;
  host::Generator generator(document, written.name, lines);
  generator.run(events);
  written.text = lines.text;
}

WrittenText writeJobFile(const std::string& path, const std::string& table) {
  WrittenText written;
  written.name = path + ' ' + table;
  const KEPVar<host::Document> document = host::newDocument();
  if (!table.empty()) load(*document, table);
  host::JobReader reader(std::make_unique<host::LineReader>(path));
  const host::JobSetup setup(reader.header(), *document);
  write(document, reader, written);
  return written;
}

WrittenText writeListing(const std::string& path, const std::string& table,
                         std::string_view rotary) {
  WrittenText written;
  written.name = path + ' ' + table;
  const KEPVar<host::Document> document = host::newDocument();
  if (!table.empty()) load(*document, table);
  host::ListingOptions options;
  options.vocabulary = host::vocabularyOf(*document, {{}, !table.empty(), false});
  std::string reason;
  if (!rotary.empty()) options.rotary = host::RotaryChain::parse(std::string(rotary), reason);
  host::ListingReader reader(std::make_unique<host::LineReader>(path), options);
  write(document, reader, written);
  return written;
}

std::string shown(std::string_view title, const verify::Comparison::Sightings& sightings) {
  std::string text;
  for (const auto& [name, seen] : sightings) {
    text += "; " + std::string(title) + ' ' + name + ' ' + std::to_string(seen.count) + " from " +
            std::to_string(seen.first.line);
  }
  return text;
}

}  // namespace

WrittenText writeText(const TextSource& source) {
  const std::string path = std::string(kExamples) + std::string(source.input);
  const std::string table =
      source.table.empty() ? "" : std::string(kExamples) + std::string(source.table);
  return path.ends_with(".canon") ? writeListing(path, table, source.rotary)
                                  : writeJobFile(path, table);
}

WrittenText writeJob(std::string_view lines, std::string_view table) {
  const InputFile job(R"({"job":1,"program":"P","units":"mm"})"
                      "\n" +
                      std::string(lines) + "\n{\"end\":true}\n");
  if (table.empty()) return writeJobFile(job.path(), "");
  const InputFile file(table);
  return writeJobFile(job.path(), file.path());
}

namespace {

enum class LineUse { Read, Taken };

std::string comparisonOf(const WrittenText& written, verify::StatementReader& reader,
                         const verify::Words& words, LineUse use) {
  verify::Comparison comparison(
      written.document, words, [&](verify::Statement& statement) { return reader.next(statement); },
      written.generation);
  if (use == LineUse::Taken) comparison.takeLinesFrom(reader);
  for (const host::ToolPathEvent& event : written.events) {
    if (!comparison.put(event)) break;
  }
  comparison.finish();
  std::string result;
  if (const auto& difference = comparison.difference()) {
    result = std::to_string(difference->text.line) + ':' + std::to_string(difference->text.column) +
             ' ' + difference->found + " | " + difference->expected + " | " +
             std::to_string(difference->input.line) + ' ' + difference->element;
  } else {
    result = "agrees, " + std::to_string(comparison.elements()) + " elements, " +
             std::to_string(comparison.verified()) + " verified, " +
             std::to_string(comparison.ownOfTable()) + " own";
  }
  return result + shown("not verified", comparison.notVerified()) +
         shown("left out", comparison.leftOut()) + shown("other point", comparison.otherPoints());
}

}  // namespace

std::string comparisonOf(const WrittenText& written, std::string_view text,
                         const verify::Words& words) {
  verify::StatementReader reader(verify::bytesOf(text), words, [](const verify::Finding&) {});
  std::string result = comparisonOf(written, reader, words, LineUse::Read);
  for (const LineUse use : {LineUse::Read, LineUse::Taken}) {
    verify::StatementReader quick(verify::bytesOf(text), words);
    EXPECT_EQ(comparisonOf(written, quick, words, use), result);
  }
  return result;
}

bool agrees(const WrittenText& written, std::string_view text) {
  return comparisonOf(written, text).starts_with("agrees");
}
