#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "host/system/ListenerScope.h"
#include "inspect/diagnostics/Diagnostic.h"
#include "inspect/diagnostics/InputDiagnostic.h"
#include "inspect/explain/ExplainedElement.h"
#include "inspect/explain/TableOrigins.h"
#include "post/consumer/ConsumerLines.h"
#include "post/consumer/ConsumerProfile.h"
#include "post/output/FileMark.h"
#include "post/toolpath/LineReader.h"
#include "tools/ppword/Explaining.h"
#include "tools/ppword/PostMap.h"
#include "tools/ppword/Reading.h"
#include "tools/ppword/StandardStreams.h"
#include "tools/ppword/ToolPathInput.h"

// A map may have been written or changed by anyone: nothing in it is used before it was compared
// with the files that it names.

namespace {

const std::string kAgain = "; write text and map again with 'ppword post --map'";

// A file that a map names, and whether the user named it then.
struct MarkedFile {
  std::string file;
  bool given = false;
};

// The header of a map.
struct MappedText {
  std::string text;
  long lines = 0;
  ToolPathOptions options;
  MarkedFile table;
  /// Of a text that was written with a profile.
  std::optional<host::Consumer> consumer;
};

// The record of a line.
struct MappedLine {
  long element = 0;
  std::string instruction;
  long sequence = 0;
  long syntax = 0;
  Json origin;
};

[[noreturn]] void refuseMap(const std::string& map, long line, const std::string& why) {
  throw host::InputError(map, line, 0, why);
}

// A whole number. Raises what a text in its place raises.
long numberOf(const Json& json) { return json.get_ref<const Json::number_integer_t&>(); }

// The name of a file that is as it was when the map was written; raises the error of another one.
std::string unchanged(const Json& marked, const std::string& what) {
  std::string file = jsonText(marked.at("file"));
  const auto mark = host::markOfFile(file);
  if (!mark) {
    refuseMap(file, 0,
              "the " + what +
                  " of the map cannot be read; its name is looked for from the current folder");
  }
  if (marked.at("bytes") == mark->size() && marked.at("digest") == mark->digest()) return file;
  refuseMap(file, 0, "the " + what + " has changed since the map was written" + kAgain);
}

MarkedFile unchangedInput(const Json& marked, const std::string& what) {
  if (marked.is_null()) return {};
  return {unchanged(marked, what), marked.at("given").get<bool>()};
}

// What was named with options.
void readOptions(const Json& header, const std::string& map, MappedText& text) {
  ToolPathOptions& options = text.options;
  if (text.table.given) options.table = text.table.file;
  const MarkedFile document = unchangedInput(header.at("document"), "document");
  if (document.given) options.document = document.file;
  for (const auto& [name, value] : header.at("reading").items()) {
    const std::string reason = setReading(name, jsonText(value), options);
    if (!reason.empty()) refuseMap(map, 1, (("--" + name) += ": ") += reason);
  }
}

// The profile of the text; nothing without one.
std::optional<host::Consumer> consumerOf(const Json& header) {
  const auto profile = header.find("profile");
  if (profile == header.end() || profile->is_null()) return std::nullopt;
  const std::string name = jsonText(profile->at("file"));
  return host::readProfile(host::isShipped(name) ? name : unchanged(*profile, "profile")).consumer;
}

MappedText readHeader(const Json& header, const std::string& map) {
  if (header.at("map") != kMapVersion) {
    refuseMap(map, 1,
              "the layout of the map is not " + std::to_string(kMapVersion) +
                  ", which this program reads");
  }
  MappedText text{unchanged(header.at("text"), "text"),
                  numberOf(header.at("lines")),
                  {},
                  {},
                  consumerOf(header)};
  text.options.job = unchanged(header.at("input"), "tool path");
  text.table = unchangedInput(header.at("table"), "table");
  readOptions(header, map, text);
  return text;
}

// The next line of the map, read with `read`. Raises the error of a line that is none.
template <class Read>
auto readRecord(host::LineReader& lines, const std::string& map, Read read) {
  std::string_view line;
  const bool isThere = lines.next(line);
  const long number = lines.lineNumber();
  try {
    if (isThere) return read(Json::parse(line));
  } catch (const nlohmann::json::exception&) {
    refuseMap(map, number, "this is not a line of a map that 'ppword post --map' wrote");
  }
  refuseMap(map, number, "the map is cut short");
}

MappedLine readLine(const Json& record, long line, const std::string& map) {
  if (record.at("line") != line) refuseMap(map, line + 1, "the lines of the map are out of order");
  return {numberOf(record.at("element").at("number")), jsonText(record.at("instruction")),
          numberOf(record.at("sequence")), numberOf(record.at("syntax")), record.at("origin")};
}

// The record of a line of the text; the header was read.
MappedLine readLineOf(host::LineReader& lines, long line, const std::string& map) {
  for (std::string_view skipped; lines.lineNumber() < line && lines.next(skipped);) continue;
  return readRecord(lines, map, [&](const Json& json) { return readLine(json, line, map); });
}

// Everything that is shown.
struct Answer {
  long line;
  std::string file;
  std::string text;
  std::string input;
  host::ExplainedElement element;
  host::ExplainedLine explained;
  Json origin;
};

std::string lineOfFile(const std::string& file, long number) {
  host::LineReader lines(file);
  std::string_view line;
  for (long i = 0; i < number; ++i) {
    if (!lines.next(line)) return "";
  }
  return std::string(line);
}

[[noreturn]] void refuseOtherwise(const std::string& map, long line) {
  refuseMap(map, line + 1, "the line is produced in another way now" + kAgain);
}

// Opens the tool path of a map again, with the table that it had.
void open(ToolPathInput& input, host::TableOrigins& origins, const MappedText& mapped,
          const std::string& map, long line) {
  const host::ListenerScope scope(origins);
  input.open();
  const std::string& table = input.table().path;
  if (table != mapped.table.file) refuseOtherwise(map, line);
  if (!table.empty()) origins.read(table);
}

// True when the element is the one of the record, and has its line.
bool fits(const std::optional<host::ExplainedElement>& element, const MappedLine& record) {
  return element && element->instruction == record.instruction &&
         element->sequence == record.sequence && record.syntax >= 1 &&
         static_cast<std::size_t>(record.syntax) <= element->explanation.lines.size();
}

// Takes what a line of a text becomes.
class Written final : public host::LineSink {
 public:
  void write(std::string_view line) override { text = line; }
  std::string text;
};

// The lines that a line of an element becomes for a consumer, without what depends on the lines
// before it.
std::string asConsumed(host::Consumer consumer, const std::string& line,
                       const ToolPathInput& input) {
  consumer.sequenceStep = 0;
  consumer.endsWithReturn = false;
  Written written;
  host::ConsumerLines(consumer, input.textWords(), written).write(line);
  return written.text;
}

// A line of a text without its end and its number.
std::string withoutNumber(std::string line, const host::Consumer& consumer) {
  if (consumer.endsWithReturn && line.ends_with('\r')) line.pop_back();
  if (consumer.sequenceStep == 0 || line.size() <= host::kSequenceDigits) return line;
  line.resize(line.size() - host::kSequenceDigits);
  return line.substr(0, line.find_last_not_of(' ') + 1);
}

// True when the text has the line that its element produces. A line feed in it makes it several.
bool fits(const Answer& answer, const std::optional<host::Consumer>& consumer,
          const ToolPathInput& input) {
  std::string output = answer.explained.output.value_or("");
  std::string text = answer.text;
  if (consumer) {
    output = asConsumed(*consumer, output, input);
    text = withoutNumber(std::move(text), *consumer);
    // Blanks before a number are not of the line.
    if (consumer->sequenceStep > 0) return ('\n' + output).find('\n' + text) != std::string::npos;
  }
  return ('\n' + output + '\n').find('\n' + text + '\n') != std::string::npos;
}

// Explains the element of a line again, and compares with what the map and the text say.
Answer answerOf(const MappedText& mapped, const MappedLine& record, long line,
                const std::string& map) {
  ToolPathInput input(mapped.options);
  host::TableOrigins origins;
  open(input, origins, mapped, map, line);
  auto element =
      host::explainElement(input.document(), input.name(), input.events(), record.element);
  if (!fits(element, record)) refuseOtherwise(map, line);
  const auto& explained = element->explanation.lines[static_cast<std::size_t>(record.syntax) - 1];
  const auto place = origins.placeOf(record.instruction, element->sequence, record.syntax);
  const std::string& file = element->file.empty() ? mapped.options.job : element->file;
  Answer answer{line,     mapped.text, lineOfFile(mapped.text, line), file,
                *element, explained,   originJson(place, input)};
  if (!fits(answer, mapped.consumer, input) || answer.origin != record.origin)
    refuseOtherwise(map, line);
  return answer;
}

// The same. Options that do not suit the tool path are a mistake of the map, not of the user.
Answer checkedAnswer(const MappedText& mapped, const MappedLine& record, long line,
                     const std::string& map) {
  try {
    return answerOf(mapped, record, line, map);
  } catch (const UsageError&) {
    refuseMap(map, 1, "the options of the map do not suit its tool path");
  }
}

// A note about `width` bytes of a line of a file, from a column on.
std::string noteText(const std::string& file, long line, long column, std::size_t width,
                     const std::string& message) {
  const std::string text = lineOfFile(file, line);
  const auto after = text.size() - std::min(text.size(), static_cast<std::size_t>(column) - 1);
  const auto marked = static_cast<long>(std::clamp<std::size_t>(after, 1, width));
  return host::diagnosticText({host::Severity::Note, file, line, column, marked, "", message,
                               host::excerptOf(text, column)});
}

std::string originText(const Answer& answer) {
  const std::string instruction = host::terminalSafe(answer.element.instruction);
  if (answer.origin.is_string()) {
    return "the line of " + instruction +
           (answer.origin == "catalogue" ? " is that of the built-in catalogue\n"
                                         : " is that of the document\n");
  }
  return noteText(jsonText(answer.origin.at("table")), answer.origin.at("line").get<long>(),
                  answer.origin.at("column").get<long>(),
                  std::max<std::size_t>(answer.explained.passes.front().line.size(), 1),
                  "from this line of the table");
}

std::string shownText(const Answer& answer) {
  constexpr std::size_t kWhole = std::string::npos;
  const host::ExplainedElement& element = answer.element;
  return noteText(answer.file, answer.line, 1, kWhole, "written by " + elementTitle(element)) +
         originText(answer) +
         noteText(answer.input, element.line, 1, kWhole, "with the values of this element") +
         host::explanationText({true, {answer.explained}});
}

Json shownJson(const Answer& answer) {
  const host::ExplainedElement& element = answer.element;
  return {{"file", textJson(answer.file)},
          {"line", answer.line},
          {"text", textJson(answer.text)},
          {"element",
           {{"file", textJson(answer.input)}, {"line", element.line}, {"point", element.point}}},
          {"instruction", textJson(element.instruction)},
          {"sequence", element.sequence},
          {"origin", answer.origin},
          {"lines", Json::array({lineJson(answer.explained)})}};
}

}  // namespace

ExitStatus explainMapped(const std::string& map, long line, OutputFormat format) {
  host::LineReader lines(map);
  const auto header = [&map](const Json& json) { return readHeader(json, map); };
  const MappedText mapped = readRecord(lines, map, header);
  if (line > mapped.lines) {
    refuseMap(mapped.text, line, "the text has " + std::to_string(mapped.lines) + " lines");
  }
  const MappedLine record = readLineOf(lines, line, map);
  const Answer answer = checkedAnswer(mapped, record, line, map);
  writeOutput(format == OutputFormat::ForPrograms ? documentText(shownJson(answer))
                                                  : shownText(answer));
  return ExitStatus::Done;
}
