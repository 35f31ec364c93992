#include "post/job/JobReader.h"

#include <algorithm>
#include <new>
#include <utility>

#include "host/manufacturing/Activity.h"
#include "post/job/JobLines.h"
#include "post/parameters/Parameters.h"
#include "post/text/Utf8.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

static_assert(LineReader::kPadding >= simdjson::SIMDJSON_PADDING);

/// An empty element in `event`; it reuses the memory of the positions before.
Element& emptyElement(ToolPathEvent& event) {
  Element* const old = std::get_if<Element>(&event);
  std::vector<Position> memory;
  if (old != nullptr) memory.swap(old->positions);
  Element& element = event.emplace<Element>();
  element.positions.swap(memory);
  element.positions.clear();
  return element;
}

}  // namespace

/// The lines of the file, parsed one by one.
class JobReader::Lines {
 public:
  explicit Lines(std::unique_ptr<LineReader> reader) : reader_(std::move(reader)) {}

  /// The next line that is not blank; null at the end.
  [[nodiscard]] job::Line* next() {
    do {
      if (!reader_->next(line_.text)) return nullptr;
    } while (line_.text.find_first_not_of(" \t\r") == std::string_view::npos);
    line_.file = reader_->name();
    line_.number = reader_->lineNumber();
    if (line_.number == 1 && line_.text.starts_with(kByteOrderMark)) {
      refuse("$: the job begins with a byte-order mark; write it as UTF-8 without one");
    }
    const auto error =
        parser_.iterate(line_.text, line_.text.size() + LineReader::kPadding).get(line_.document);
    if (error == simdjson::MEMALLOC) throw std::bad_alloc();
    line_.parsed = error == simdjson::SUCCESS;
    if (!line_.parsed) job::Place(line_).refuseStructure();
    return &line_;
  }

  /// Raises the InputError of the line that was read last.
  [[noreturn]] void refuse(std::string_view why) const {
    throw InputError(reader_->name(), reader_->lineNumber(), 0, why);
  }

 private:
  std::unique_ptr<LineReader> reader_;
  simdjson::ondemand::parser parser_;
  job::Line line_;
};

JobReader::JobReader(std::unique_ptr<LineReader> lines)
    : lines_(std::make_unique<Lines>(std::move(lines))) {
  job::Line* const line = lines_->next();
  if (line == nullptr) lines_->refuse("the job is empty; its first line must be the header");
  if (kindOf(*line) != job::LineKind::Header) {
    lines_->refuse("the first line of a job must be its header, with the key \"job\"");
  }
  readHeader(*line, header_);
  header_.file = line->file;
  header_.line = line->number;
}

JobReader::~JobReader() = default;

const JobHeader& JobReader::header() const noexcept { return header_; }

void JobReader::stateUnit(ActivityStart& activity) const {
  auto& parameters = activity.parameters;
  const bool isStated = std::any_of(parameters.begin(), parameters.end(),
                                    [](const auto& each) { return each.first == kUnitParameter; });
  const bool isInch = header_.units == JobHeader::Units::Inch;
  if (!isStated) parameters.emplace_back(kUnitParameter, textValue(isInch ? "INCHES" : "MM"));
}

bool JobReader::next(ToolPathEvent& event) {
  job::Line* const line = lines_->next();
  if (line == nullptr)
    lines_->refuse("the job is cut short; its last line must be {\"end\": true}");
  switch (kindOf(*line)) {
    case job::LineKind::Header:
      lines_->refuse("a job has only one header, its first line");
    case job::LineKind::Activity: {
      auto& activity = event.emplace<ActivityStart>();
      activity.line = line->number;
      readActivity(*line, activity);
      stateUnit(activity);
      return true;
    }
    case job::LineKind::Element: {
      Element& element = emptyElement(event);
      element.line = line->number;
      readElement(*line, element);
      return true;
    }
    case job::LineKind::End:
      readEnd(*line);
      if (lines_->next() != nullptr) lines_->refuse("nothing may follow the end of the job");
      return false;
  }
  return false;
}

}  // namespace host
