#include <gtest/gtest.h>
#include <simdjson.h>

#include <set>

#include "post/job/JobLines.h"
#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

using Names = std::set<std::string_view>;

class JobSchema : public testing::Test {
 protected:
  simdjson::dom::parser parser_;
  simdjson::dom::object definitions_{
      parser_.load(PPWORD_SOURCE_DIR "/docs/job.schema.json")["$defs"].get_object().value()};
};

TEST_F(JobSchema, HasTheKeysThatAreRead) {
  const job::KeyNames read = job::keyNames();
  EXPECT_EQ(read.size(), 24U);
  for (const auto& [object, keys] : read) {
    simdjson::dom::object properties;
    ASSERT_EQ(definitions_[object]["properties"].get(properties), simdjson::SUCCESS) << object;
    Names described;
    for (const auto& property : properties) described.insert(property.key);
    EXPECT_EQ(described, Names(keys.begin(), keys.end())) << object;
  }
}

TEST_F(JobSchema, AllowsNoOtherKeys) {
  for (const auto& [object, keys] : job::keyNames()) {
    bool others = true;
    ASSERT_EQ(definitions_[object]["additionalProperties"].get(others), simdjson::SUCCESS)
        << object;
    EXPECT_FALSE(others) << object;
  }
}

}  // namespace
}  // namespace host::test
