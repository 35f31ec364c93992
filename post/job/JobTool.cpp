#include <array>

#include "Manufacturing/KEPMfgNames.h"
#include "host/manufacturing/Activity.h"
#include "post/job/JobObject.h"
#include "post/job/JobValue.h"

namespace host::job {
namespace {

void readCompensation(Value value, const Place& place, ToolValues& tool) {
  readOutputPoints(value, place, tool.compensation.emplace());
}

void readReplay(Value value, const Place& place, ToolValues& tool) {
  auto& positions = tool.replay.emplace();
  readByNumber(value, place, [&](int number, Value position, const Place& here) {
    read(position, here, positions[number]);
  });
}

constexpr std::array<Key<ToolValues>, 3> kToolKeys{{
    {"parameters", into<&ToolValues::parameters>},
    {"compensation", readCompensation},
    {"replay", readReplay},
}};

template <const std::string_view& kName>
void readDimension(Value value, const Place& place, InsertValues& insert) {
  insert.dimensions.emplace_back(kName, realValue(readNumber(value, place)));
}

void readInsertType(Value value, const Place& place, InsertValues& insert) {
  insert.type = readName(value, place);
}

constexpr std::array<Key<InsertValues>, 5> kInsertKeys{{
    {"type", readInsertType, true},
    {"noseRadius", readDimension<MfgNoseRadius>},
    {"leftNoseRadius", readDimension<MfgLeftNoseRadius>},
    {"rightNoseRadius", readDimension<MfgRightNoseRadius>},
    {"parameters", into<&InsertValues::parameters>},
}};

void readAssemblyKind(Value value, const Place& place, ToolAssemblyValues& assembly) {
  constexpr std::array<std::string_view, 2> kAssemblyKinds{"mill", "lathe"};
  assembly.isLathe = readWord(value, place, kAssemblyKinds) == 1;
}

void readInverted(Value value, const Place& place, ToolAssemblyValues& assembly) {
  const int inverted = readTruth(value, place) ? 1 : 0;
  assembly.attributes.emplace_back(MfgInvertedAssembly, integerValue(inverted));
}

void readInsert(Value value, const Place& place, ToolAssemblyValues& assembly) {
  const char* const at = value.raw_json_token().data();
  InsertValues& insert = assembly.insert.emplace();
  readFields<InsertValues>(value, place, kInsertKeys, insert);
  const bool isGroove = insert.type == MfgGrooveInsert || insert.type == KEPEMfgGrooveInsert;
  for (const auto& [name, radius] : insert.dimensions) {
    if ((name != MfgNoseRadius) == isGroove) continue;
    place.refuse(at, isGroove ? R"(a groove insert has "leftNoseRadius" and "rightNoseRadius")"
                              : R"(an insert of this type has "noseRadius")");
  }
}

void readReference(Value value, const Place& place, ToolAssemblyValues& assembly) {
  assembly.reference = readInteger(value, place, 1);
}

void readRadii(Value value, const Place& place, ToolAssemblyValues& assembly) {
  auto& radii = assembly.radii.emplace();
  readNamed(value, place, [&](const FieldName& name, Value radius, const Place& here) {
    if (name.text.empty()) here.refuse(name.at, "a tool point needs a name");
    radii.emplace(name.text, readNumber(radius, here));
  });
}

constexpr std::array<Key<ToolAssemblyValues>, 6> kAssemblyKeys{{
    {"kind", readAssemblyKind},
    {"parameters", into<&ToolAssemblyValues::parameters>},
    {"inverted", readInverted},
    {"insert", readInsert},
    {"reference", readReference},
    {"radii", readRadii},
}};

}  // namespace

void read(Value value, const Place& place, ToolValues& tool) {
  readFields<ToolValues>(value, place, kToolKeys, tool);
}

void read(Value value, const Place& place, ToolAssemblyValues& assembly) {
  readFields<ToolAssemblyValues>(value, place, kAssemblyKeys, assembly);
}

void readOutputPoints(Value value, const Place& place, std::map<int, std::string>& points) {
  readByNumber(value, place, [&](int number, Value point, const Place& here) {
    points[number] = readName(point, here);
  });
}

void read(Value value, const Place& place, KEPMathVector& vector) {
  Triple triple;
  read(value, place, triple);
  vector = {triple[0], triple[1], triple[2]};
}

}  // namespace host::job
