#include <gtest/gtest.h>
#include <simdjson.h>

#include <set>
#include <string>
#include <string_view>

#include "tests/generator/Jobs.h"

namespace host::test {
namespace {

using Names = std::set<std::string, std::less<>>;

/// An object of the schema, and a line that has an unknown key in such an object.
struct SchemaObject {
  std::string_view name;
  std::string_view line;
};

constexpr SchemaObject kObjects[] = {
    {"header", R"({"job":1,"0000000000":0})"},
    {"resource", R"({"job":1,"resource":{"0000000000":0}})"},
    {"element", R"({"nc":"A","0000000000":0})"},
    {"circle", R"({"nc":"A","circle":{"0000000000":0}})"},
    {"helix", R"({"nc":"A","helix":{"0000000000":0}})"},
    {"feedrate", R"({"nc":"A","feedrate":{"0000000000":0}})"},
    {"spindle", R"({"nc":"A","spindle":{"0000000000":0}})"},
    {"rotate", R"({"nc":"A","rotate":{"0000000000":0}})"},
    {"axisSystem", R"({"nc":"A","rotate":{"axisSystem":{"0000000000":0}}})"},
    {"activity", R"({"activity":"A","0000000000":0})"},
    {"operation", R"({"activity":"A","operation":{"0000000000":0}})"},
    {"parameter", R"({"activity":"A","parameters":{"P":{"0000000000":0}}})"},
    {"tool", R"({"activity":"A","tool":{"0000000000":0}})"},
    {"assembly", R"({"activity":"A","assembly":{"0000000000":0}})"},
    {"insert", R"({"activity":"A","assembly":{"insert":{"0000000000":0}}})"},
    {"feedsAndSpeeds", R"({"activity":"A","feedsAndSpeeds":{"0000000000":0}})"},
    {"feedrateValue", R"({"activity":"A","feedsAndSpeeds":{"machining":{"0000000000":0}}})"},
    {"feedrateValue", R"({"activity":"A","feedsAndSpeeds":{"spindle":{"0000000000":0}}})"},
    {"strategy", R"({"activity":"A","strategy":{"0000000000":0}})"},
    {"toolPath", R"({"activity":"A","toolPath":{"0000000000":0}})"},
    {"turning", R"({"activity":"A","turning":{"0000000000":0}})"},
    {"lathe", R"({"activity":"A","lathe":{"0000000000":0}})"},
    {"motion", R"({"activity":"A","motions":[{"0000000000":0}]})"},
    {"motionFeedsAndSpeeds", R"({"activity":"A","motions":[{"feedsAndSpeeds":{"0000000000":0}}]})"},
    {"strategy", R"({"activity":"A","motions":[{"strategy":{"0000000000":0}}]})"},
    {"end", R"({"end":true,"0000000000":0})"},
};

/// The keys that the refusal of a line names as known.
Names keysNamedFor(std::string_view line) {
  constexpr std::string_view kOpening = "unknown key \"0000000000\"; the keys here are ";
  const bool isHeader = line.starts_with(R"({"job")");
  const std::string error = readJob(isHeader ? std::string(line) : jobOf(line)).error;
  const std::size_t opening = error.find(kOpening);
  if (opening == std::string::npos) return {error};
  Names keys;
  std::string_view list = std::string_view(error).substr(opening + kOpening.size());
  for (std::size_t end = list.find(", "); end != std::string_view::npos; end = list.find(", ")) {
    keys.emplace(list.substr(0, end));
    list.remove_prefix(end + 2);
  }
  keys.emplace(list);
  return keys;
}

class JobSchema : public testing::Test {
 protected:
  simdjson::dom::parser parser_;
  simdjson::dom::object definitions_{
      parser_.load(PPWORD_SOURCE_DIR "/docs/job.schema.json")["$defs"].get_object().value()};
};

TEST_F(JobSchema, HasTheKeysThatAreRead) {
  for (const auto& [object, line] : kObjects) {
    simdjson::dom::object properties;
    ASSERT_EQ(definitions_[object]["properties"].get(properties), simdjson::SUCCESS) << object;
    Names described;
    for (const auto& property : properties) described.emplace(property.key);
    EXPECT_EQ(described, keysNamedFor(line)) << object;
  }
}

TEST_F(JobSchema, HasNoOtherObjects) {
  Names compared;
  for (const SchemaObject& object : kObjects) compared.emplace(object.name);
  Names described;
  for (const auto& [name, definition] : definitions_) {
    simdjson::dom::object properties;
    const bool isClosed = definition["additionalProperties"].is_bool();
    const bool hasKeys = definition["properties"].get(properties) == simdjson::SUCCESS;
    if (hasKeys && isClosed) described.emplace(name);
  }
  EXPECT_EQ(described, compared);
}

TEST_F(JobSchema, AllowsNoOtherKeys) {
  for (const SchemaObject& object : kObjects) {
    bool others = true;
    ASSERT_EQ(definitions_[object.name]["additionalProperties"].get(others), simdjson::SUCCESS)
        << object.name;
    EXPECT_FALSE(others) << object.name;
  }
}

}  // namespace
}  // namespace host::test
