#include "post/job/JobLines.h"

#include <array>

#include "post/job/JobHeader.h"
#include "post/job/JobObject.h"

namespace host::job {
namespace {

constexpr int kVersion = 1;

// Values of their own.

template <auto Member, class Target>
void intoName(Value value, const Place& place, Target& target) {
  target.*Member = readName(value, place);
}

void readVersion(Value value, const Place& place, JobHeader& /*header*/) {
  const int version = readInteger(value, place, 1);
  if (version == kVersion) return;
  place.refuse(value.raw_json_token().data(),
               "version " + std::to_string(version) + " of the format is not known; write 1");
}

void readUnits(Value value, const Place& place, JobHeader& header) {
  constexpr std::array<std::string_view, 2> kUnits{"mm", "inch"};
  header.units = static_cast<JobHeader::Units>(readWord(value, place, kUnits));
}

void readTable(Value value, const Place& place, JobHeader& header) {
  header.tableColumn = place.column(value.raw_json_token().data());
  header.table = readName(value, place);
}

template <auto kFormat, auto kColumn>
void readFormat(Value value, const Place& place, JobHeader& header) {
  header.*kColumn = place.column(value.raw_json_token().data());
  header.*kFormat = readText(value, place);
}

void readStrict(Value value, const Place& place, JobHeader& header) {
  if (value.get_bool().get(header.isStrict) == simdjson::SUCCESS) return;
  simdjson::ondemand::array keys;
  if (value.get_array().get(keys) != simdjson::SUCCESS) {
    refuseValue(value, place, "true, or an array of keys,");
  }
  std::size_t count = 0;
  for (auto item : keys) {
    const Place here(place, count++);
    Value key = unwrap(std::move(item), here);
    const long column = here.column(key.raw_json_token().data());
    header.strictKeys.push_back({readName(key, here), column});
  }
}

constexpr std::array<Key<JobHeader>, 2> kResourceKeys{{
    {"name", intoName<&JobHeader::resource>, true},
    {"table", readTable},
}};

void readResource(Value value, const Place& place, JobHeader& header) {
  readFields<JobHeader>(value, place, kResourceKeys, header);
}

void readSequence(Value value, const Place& place, Element& element) {
  element.sequence = readInteger(value, place, 1);
}

void readCommand(Value value, const Place& place, Element& element) {
  element.ppCommand = readInteger(value, place, 1);
}

template <auto Member>
void change(Value value, const Place& place, Element& element) {
  read(value, place, (element.changes.*Member).emplace());
}

struct EndMark {};

void readEndMark(Value value, const Place& place, EndMark& /*end*/) {
  bool end = false;
  if (value.get_bool().get(end) == simdjson::SUCCESS && end) return;
  refuseValue(value, place, "true");
}

// The kinds of line.

constexpr std::array<Key<JobHeader>, 10> kHeaderKeys{{
    {"job", readVersion, true},
    {"program", intoName<&JobHeader::program>, true},
    {"units", readUnits, true},
    {"resource", readResource},
    {"document", intoName<&JobHeader::document>},
    {"pointFormat", readFormat<&JobHeader::pointFormat, &JobHeader::pointFormatColumn>},
    {"axisFormat", readFormat<&JobHeader::axisFormat, &JobHeader::axisFormatColumn>},
    {"angleFactor", into<&JobHeader::angleFactor>},
    {"designParameters", into<&JobHeader::designParameters>},
    {"strict", readStrict},
}};

constexpr std::array<Key<Element>, 13> kElementKeys{{
    {"nc", intoName<&Element::instruction>},
    {"ppCommand", readCommand},
    {"sequence", readSequence},
    {"points", into<&Element::positions>},
    {"axis", change<&BufferChanges::toolAxis>},
    {"circle", change<&BufferChanges::circle>},
    {"helix", change<&BufferChanges::helix>},
    {"feedrate", change<&BufferChanges::feedrate>},
    {"spindle", change<&BufferChanges::spindle>},
    {"comment", change<&BufferChanges::comment>},
    {"corrector", change<&BufferChanges::corrector>},
    {"hole", change<&BufferChanges::hole>},
    {"rotate", change<&BufferChanges::rotate>},
}};

constexpr std::array<Key<EndMark>, 1> kEndKeys{{{"end", readEndMark, true}}};

constexpr std::array<std::pair<std::string_view, LineKind>, 5> kKindKeys{{
    {"job", LineKind::Header},
    {"activity", LineKind::Activity},
    {"nc", LineKind::Element},
    {"ppCommand", LineKind::Element},
    {"end", LineKind::End},
}};

}  // namespace

LineKind kindOf(Line& line) {
  const Place root(line);
  for (auto item : objectOf(line, root)) {
    auto field = unwrap(std::move(item), root);
    const std::string_view name = nameOf(field, root).text;
    for (const auto& [key, kind] : kKindKeys) {
      if (name != key) continue;
      line.document.rewind();
      return kind;
    }
  }
  root.refuse(beginOf(line),
              R"(one of the keys "job", "activity", "nc", "ppCommand" and "end" is expected)");
}

void readHeader(Line& line, JobHeader& header) { readLine<JobHeader>(line, kHeaderKeys, header); }

void readElement(Line& line, Element& element) {
  constexpr int kNotStated = 0;
  element.sequence = kNotStated;
  readLine<Element>(line, kElementKeys, element);
  const Place root(line);
  const bool isCommand = element.ppCommand > 0;
  if (isCommand && !element.instruction.empty()) {
    root.refuse(beginOf(line), R"(an element has "nc" or "ppCommand", not both)");
  }
  if (isCommand && element.sequence != kNotStated) {
    root.refuse(beginOf(line), R"(a PP command has a sequence of its own; leave out "sequence")");
  }
  if (element.sequence == kNotStated) element.sequence = 1;
}

void readEnd(Line& line) {
  EndMark end;
  readLine<EndMark>(line, kEndKeys, end);
}

}  // namespace host::job
