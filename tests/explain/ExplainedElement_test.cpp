#include "inspect/explain/ExplainedElement.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "post/toolpath/ToolPath.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

std::string shown(const char* text) {
  const auto place = host::readElementPlace(text);
  if (!place) return "none";
  return place->file + '|' + std::to_string(place->line) + '|' + std::to_string(place->point);
}

TEST(ElementPlace, LineAndPointAreTheLastNumbers) {
  EXPECT_EQ(shown("job:7"), "job|7|1");
  EXPECT_EQ(shown("job:7:2"), "job|7|2");
  EXPECT_EQ(shown("a:b/job.x:7:2"), "a:b/job.x|7|2");
  EXPECT_EQ(shown("job:3:7:2"), "job:3|7|2");
  EXPECT_EQ(shown("-:1"), "-|1|1");
}

TEST(ElementPlace, OtherTextsAreNone) {
  for (const char* const text :
       {"", ":", "job", "job:", "job:x", "job:0", "job:-1", "job:+1", "job: 1", "job:1 ", "job:1.5",
        ":7", ":7:2", "job:0:", "job:9223372036854775808"}) {
    EXPECT_EQ(shown(text), "none") << text;
  }
}

/// Elements NC_X at lines 2, 3, 3 and so on, each with `points` points.
class Path final : public host::ToolPathReader {
 public:
  Path(std::vector<long> lines, std::size_t points) : lines_(std::move(lines)), points_(points) {}

  [[nodiscard]] bool next(host::ToolPathEvent& event) override {
    if (read_ == lines_.size()) return false;
    host::Element element;
    element.instruction = "NC_X";
    element.line = lines_[read_++];
    for (std::size_t i = 0; i < points_; ++i) element.positions.push_back({{double(i), 0, 0}, {}});
    event = element;
    return true;
  }
  [[nodiscard]] std::size_t read() const { return read_; }

 private:
  std::vector<long> lines_;
  std::size_t points_;
  std::size_t read_ = 0;
};

class ExplainedElement : public testing::Test, protected PPWordDocument {
 protected:
  ExplainedElement() {
    instruction("NC_X", {"X/%MFG_XPOINT"});
    format("MFG_XPOINT", "%11.5f");
  }
};

TEST_F(ExplainedElement, ElementsOfTheLineAreFoundAndNoMoreAreRead) {
  Path path({2, 3, 3, 5, 6}, 2);
  const auto found = host::explainLine(document, "path", path, 3, 2);
  ASSERT_EQ(found.elements.size(), 2U);
  EXPECT_EQ(found.elements[0].line, 3);
  EXPECT_EQ(found.elements[0].point, 2);
  EXPECT_EQ(found.elements[0].points, 2);
  EXPECT_EQ(found.elements[0].instruction, "NC_X");
  EXPECT_EQ(found.elements[0].explanation.lines.at(0).output, "X/    1.00000");
  EXPECT_EQ(found.mostPoints, 2);
  EXPECT_EQ(path.read(), 4U);
}

TEST_F(ExplainedElement, LineWithoutElementsHasNeighbours) {
  Path path({2, 3, 5, 6}, 0);
  const auto found = host::explainLine(document, "path", path, 4, 1);
  EXPECT_TRUE(found.elements.empty());
  EXPECT_FALSE(found.mostPoints.has_value());
  EXPECT_EQ(found.before, 3);
  EXPECT_EQ(found.after, 5);
}

TEST_F(ExplainedElement, NumberCountsPoints) {
  Path path({2, 3}, 3);
  const auto found = host::explainElement(document, "path", path, 5);
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->line, 3);
  EXPECT_EQ(found->point, 2);
  Path again({2, 3}, 3);
  EXPECT_FALSE(host::explainElement(document, "path", again, 7).has_value());
}

}  // namespace
}  // namespace ppword::test
