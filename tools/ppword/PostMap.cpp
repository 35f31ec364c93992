#include "tools/ppword/PostMap.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "post/consumer/ConsumerProfile.h"
#include "tools/ppword/PostOutput.h"

namespace {

// A file with the mark by which a change of it is noticed.
Json markedFile(const std::string& file, const std::optional<host::FileMark>& mark) {
  if (file.empty()) return nullptr;
  return {{"file", textJson(file)},
          {"bytes", mark ? Json(mark->size()) : Json(nullptr)},
          {"digest", mark ? Json(mark->digest()) : Json(nullptr)}};
}

// A profile that the program has needs no mark.
std::optional<host::FileMark> profileMark(const std::string& profile) {
  return host::isShipped(profile) ? std::nullopt : host::markOfFile(profile);
}

Json markedInput(const std::string& file, bool isGiven) {
  Json marked = markedFile(file, host::markOfFile(file));
  if (!marked.is_null()) marked["given"] = isGiven;
  return marked;
}

Json readingJson(const std::map<std::string, std::string>& reading) {
  Json json = Json::object();
  for (const auto& [name, text] : reading) json[name] = textJson(text);
  return json;
}

}  // namespace

Json originJson(const std::optional<host::TableBytes::Place>& place, const ToolPathInput& input) {
  if (!place) return input.documentFile().empty() ? "catalogue" : "document";
  return {
      {"table", textJson(input.table().path)}, {"line", place->line}, {"column", place->column}};
}

PostMap::PostMap(const PostOptions& options, const ToolPathInput& input,
                 host::TableOrigins& origins, host::LineSink& text)
    : options_(options),
      input_(input),
      origins_(origins),
      text_(text),
      file_(options.map, protectionOf(options.force)) {}

void PostMap::elementBegins(const host::WrittenElement& written) {
  const std::string file(written.element.file);
  element_ = {{"file", textJson(file.empty() ? options_.job : file)},
              {"line", written.element.line},
              {"point", written.point},
              {"number", ++elements_}};
  instruction_ = written.instruction;
  sequence_ = written.sequence;
  linesOfElement_ = 0;
}

void PostMap::write(std::string_view line) {
  mark_.add(line);
  mark_.add("\n");
  ++linesOfElement_;
  for (auto count = std::count(line.begin(), line.end(), '\n') + 1; count > 0; --count) addRecord();
  text_.write(line);
}

void PostMap::addRecord() {
  const auto place = origins_.placeOf(instruction_, sequence_, linesOfElement_);
  const Json record{
      {"line", ++lines_},      {"element", element_},       {"instruction", textJson(instruction_)},
      {"sequence", sequence_}, {"syntax", linesOfElement_}, {"origin", originJson(place, input_)}};
  records_.write(record.dump());
}

Json PostMap::header() const {
  const PostTable& table = input_.table();
  return {{"map", kMapVersion},
          {"text", markedFile(options_.output, mark_)},
          {"lines", lines_},
          {"input", markedFile(options_.job, host::markOfFile(options_.job))},
          {"table", markedInput(table.path, table.given)},
          {"document", markedInput(input_.documentFile(), !options_.document.empty())},
          {"profile", markedFile(options_.profile, profileMark(options_.profile))},
          {"reading", readingJson(options_.reading)}};
}

void PostMap::finish() {
  file_.write(header().dump());
  records_.release(file_);
  file_.finish();
}
