#include "tools/ppword/view/ViewRecorder.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

#include "inspect/diagnostics/Diagnostic.h"
#include "post/toolpath/LineReader.h"
#include "tools/ppword/PostMap.h"

namespace {

using host::Triple;

// How many parts of a unit of length are told apart, and of a direction or of an angle.
constexpr double kLengthParts = 1e5;
constexpr double kDirectionParts = 1e6;
// The longest name of a tool that is shown.
constexpr std::size_t kLongestName = 100;

void addTriple(std::array<Column, 3>& columns, const Triple& values, double parts) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    columns[i].addStep(std::llround(values[i] * parts));
  }
}

Json triplesJson(const std::array<Column, 3>& columns) {
  return Json::array({columns[0].text(), columns[1].text(), columns[2].text()});
}

Json changesJson(const Changes& changes) {
  return Json::array({changes.elements.text(), changes.values.text()});
}

const KEPMfgParameterValue* find(const host::NamedValues& values, std::string_view name) {
  const auto found = std::ranges::find(values, name, &host::NamedValues::value_type::first);
  return found == values.end() ? nullptr : &found->second;
}

// What the tool of an activity is called; empty for an activity that names none.
std::string toolOf(const host::NamedValues& values) {
  const auto* const number = find(values, "MFG_TOOL_NUMBER");
  const auto* const name = find(values, "MFG_TOOL_NAME");
  const std::string text = number == nullptr ? "" : "T" + host::plainText(*number);
  const std::string rest = name == nullptr ? "" : host::plainText(*name);
  // Names often begin with the number.
  if (text.empty() || rest.empty() || rest.starts_with(text)) return rest.empty() ? text : rest;
  return (text + ' ') += rest;
}

std::string toolOf(const host::ActivityStart& activity) {
  std::string own = toolOf(activity.parameters);
  if (!own.empty() || !activity.tool) return own;
  return toolOf(activity.tool->parameters);
}

// A feed rate in words; empty when none is stated.
std::string feedText(const host::FeedrateChange& feed) {
  if (!feed.value) return "";
  const std::string& type = feed.value->type;
  std::string text = feed.value->text;
  if (type == "ANGULARFEEDRATE") text += " per revolution";
  if (type == "LINEARFEEDRATE") text += " per minute";
  const bool isFull = !feed.factor || *feed.factor == 1;
  return isFull ? text : text + ", times " + host::plainText(host::realValue(*feed.factor));
}

// What explain says of a line; empty for one that is too long to be stored.
std::string passesOf(host::ExplainedLine& explained, const std::string& written) {
  if (explained.passes.empty() || written.size() > PassForms::kLongest) return "";
  host::addNotes(explained);
  host::addOutput(explained, written);
  return host::explanationText({true, {explained}});
}

}  // namespace

ViewRecorder::ViewRecorder(const ToolPathInput& input, host::ToolPathReader& events,
                           host::TableOrigins& origins)
    : input_(input), events_(events), origins_(origins) {
  files_.of("");
  tools_.of("");
  feeds_.of("");
}

void ViewRecorder::follow(const host::Summary& summary, host::PassRecorder& passes) {
  passes_ = &passes;
  findings_.emplace(summary, input_.listing());
}

bool ViewRecorder::next(host::ToolPathEvent& event) {
  if (!events_.next(event)) return false;
  if (const auto* const activity = std::get_if<host::ActivityStart>(&event)) addTool(*activity);
  return true;
}

void ViewRecorder::addTool(const host::ActivityStart& activity) {
  const std::string tool = toolOf(activity);
  if (!tool.empty()) tool_ = host::terminalSafe(tool.substr(0, kLongestName));
}

void ViewRecorder::elementBegins(const host::WrittenElement& written) {
  endElement();
  findings_->noteBefore(elements_);
  requireSmall(written.element);
  isOpen_ = true;
  instruction_ = instructions_.of({std::string(written.instruction), written.sequence});
  addPlace(written);
  if (written.element.changes.feedrate) addFeed(*written.element.changes.feedrate);
  toolChanges_.set(elements_, tools_.of(tool_));
  feedChanges_.set(elements_, feed_);
  addMotion(motions_.next(written.element, written.point, written.instruction));
}

void ViewRecorder::requireSmall(const host::Element& element) const {
  const bool isSmall = elements_ < kMostElements && lines_ < kMostElements;
  if (isSmall && text_.size() + sourceBytes_ < kMostBytes) return;
  const std::string file = element.file.empty() ? input_.name() : std::string(element.file);
  throw host::InputError(file, element.line, 0,
                         "a page shows at most " + std::to_string(kMostElements) +
                             " elements and lines, and 32 MiB of text; this tool path has more");
}

void ViewRecorder::addPlace(const host::WrittenElement& written) {
  inputLines_.addStep(written.element.line);
  fileChanges_.set(elements_, files_.of(host::terminalSafe(written.element.file)));
  const bool isOne = written.element.positions.size() < 2;
  pointChanges_.set(elements_, isOne ? 0 : written.point);
}

void ViewRecorder::addFeed(const host::FeedrateChange& change) {
  if (change.value) feedrate_.value = change.value;
  if (change.factor) feedrate_.factor = change.factor;
  feed_ = feeds_.of(host::terminalSafe(feedText(feedrate_)));
}

void ViewRecorder::addMotion(const Motion& motion) {
  kind_ = motion.kind;
  if (kind_ == MotionKind::None) return;
  addTriple(points_, motion.point, kLengthParts);
  if (motion.arc) addTriple(centers_, motion.arc->center, kLengthParts);
  if (motion.arc) addTriple(turns_, motion.arc->turn, kDirectionParts);
  addToolAxis();
}

void ViewRecorder::addToolAxis() {
  const auto& axis = motions_.toolAxis();
  const bool isShown =
      axis && std::ranges::all_of(*axis, [](double part) { return std::abs(part) <= 2; });
  if (!isShown || lastAxis_ == axis) return;
  lastAxis_ = axis;
  axisElements_.addStep(elements_);
  addTriple(axes_, *axis, kDirectionParts);
}

void ViewRecorder::write(std::string_view line) { written_.emplace_back(line); }

void ViewRecorder::endElement() {
  if (!isOpen_) return;
  const long before = lines_;
  auto explained = passes_->takeLines();
  explained.resize(written_.size());
  for (std::size_t i = 0; i < written_.size(); ++i) addLine(static_cast<long>(i), explained[i]);
  ofShape_.add(shapes_.of({instruction_, kind_, lines_ - before}));
  written_.clear();
  isOpen_ = false;
  ++elements_;
}

void ViewRecorder::addLine(long index, host::ExplainedLine& explained) {
  const std::string& written = written_[static_cast<std::size_t>(index)];
  const long source = sourceOf(index, explained);
  const std::string passes = passesOf(explained, written);
  // A value with line feeds makes several lines of the text.
  for (std::size_t at = 0, end = 0; at <= written.size(); at = end + 1) {
    end = std::min(written.find('\n', at), written.size());
    const std::string line = host::terminalSafe(written.substr(at, end - at));
    forms_.add(source, line, passes);
    (text_ += line) += '\n';
    ++lines_;
  }
}

long ViewRecorder::sourceOf(long index, const host::ExplainedLine& explained) {
  const long source = sources_.of({instruction_, index});
  if (static_cast<std::size_t>(source) == sourceLines_.size()) {
    sourceLines_.push_back(explained.passes.empty() ? "" : explained.passes.front().line);
    sourceBytes_ += sourceLines_.back().size();
  }
  return source;
}

void ViewRecorder::finish() {
  endElement();
  findings_->noteBefore(elements_);
}

Json ViewRecorder::sourcesJson() const {
  Json json = Json::array();
  for (const auto& [instruction, index] : sources_.all) {
    const auto& [name, sequence] = instructions_.all[static_cast<std::size_t>(instruction)];
    const auto place = origins_.placeOf(name, sequence, index + 1);
    json.push_back({{"instruction", instruction},
                    {"line", host::terminalSafe(sourceLines_[json.size()])},
                    {"origin", originJson(place, input_)}});
  }
  return json;
}

Json ViewRecorder::shapesJson() const {
  Json json = Json::array();
  for (const auto& [instruction, kind, lines] : shapes_.all) {
    json.push_back(Json::array({instruction, static_cast<int>(kind), lines}));
  }
  return json;
}

Json ViewRecorder::instructionsJson() const {
  Json json = Json::array();
  for (const auto& [name, sequence] : instructions_.all) {
    json.push_back(Json::array({host::terminalSafe(name), sequence}));
  }
  return json;
}

Json ViewRecorder::json(const PostReport& report) {
  const auto unit = input_.listing() == nullptr ? std::nullopt : input_.listing()->unit();
  return {{"input", host::terminalSafe(input_.name())},
          {"table", host::terminalSafe(input_.table().path)},
          {"document", host::terminalSafe(input_.documentFile())},
          {"unit", unit ? Json(host::pluralOf(*unit)) : Json(nullptr)},
          {"text", text_},
          {"instructions", instructionsJson()},
          {"sources", sourcesJson()},
          {"passes", forms_.json()},
          {"shapes", shapesJson()},
          {"ofShape", ofShape_.text()},
          {"inputLines", inputLines_.text()},
          {"files", files_.all},
          {"ofFile", changesJson(fileChanges_)},
          {"ofPoint", changesJson(pointChanges_)},
          {"lengthParts", kLengthParts},
          {"directionParts", kDirectionParts},
          {"points", triplesJson(points_)},
          {"centers", triplesJson(centers_)},
          {"turns", triplesJson(turns_)},
          {"axisElements", axisElements_.text()},
          {"axes", triplesJson(axes_)},
          {"tools", tools_.all},
          {"ofTool", changesJson(toolChanges_)},
          {"feeds", feeds_.all},
          {"ofFeed", changesJson(feedChanges_)},
          {"findings", findings_->json(report)}};
}
