// Which values a tool path has stated, which parameters print others, and which values no machine
// can mean.

#include "post/generator/GivenValues.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "KEPIMfgParameterEvaluation.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "host/modeler/Document.h"
#include "post/generator/Generator.h"
#include "post/parameters/Parameters.h"
#include "tests/generator/Jobs.h"

namespace host::test {
namespace {

class NoLines final : public LineSink {
 public:
  void write(std::string_view /*line*/) override {}
};

Summary summaryOf(std::string_view lines) {
  const JobReading reading = readJob(jobOf(lines));
  EXPECT_EQ(reading.error, "");
  NoLines lost;
  Generator generator(newDocument(), "job", lost);
  for (const ToolPathEvent& event : reading.events) {
    std::visit([&](const auto& piece) { generator.put(piece); }, event);
  }
  return generator.summary();
}

/// "NAME COUNT@LINE" for each entry.
std::string shown(const Tally& tally) {
  std::string text;
  for (const Tally::Entry& entry : tally.entries()) {
    text += (text.empty() ? "" : ", ") + entry.name + ' ' + std::to_string(entry.count) + '@' +
            std::to_string(entry.firstLine);
  }
  return text;
}

std::string neverGiven(std::string_view lines) { return shown(summaryOf(lines).neverGiven); }
std::string impossible(std::string_view lines) { return shown(summaryOf(lines).impossible); }

/// The default catalogue prints feed rates, speeds and radii with four decimals or more.
std::string roundedToZero(std::string_view lines) { return shown(summaryOf(lines).roundedToZero); }

TEST(GivenValues, MeasureThatIsNotZeroIsNotPrintedAsZero) {
  EXPECT_EQ(roundedToZero(R"({"nc":"NC_FEEDRATE","feedrate":{"value":0.00001,"type":"linear"}}
{"nc":"NC_FEEDRATE","feedrate":{"value":0.01,"type":"linear"}}
{"nc":"NC_FEEDRATE","feedrate":{"value":0.00002,"type":"linear"}})"),
            "MFG_FEED_VALUE 2@2");
  EXPECT_EQ(roundedToZero(R"({"nc":"NC_SPINDLE","spindle":{"value":1e-9,"type":"angular"}})"),
            "MFG_SPNDL_SPEED 1@2");
}

TEST(GivenValues, ZeroThatIsStatedIsPrintedAsZero) {
  EXPECT_EQ(roundedToZero(R"({"nc":"NC_FEEDRATE","feedrate":{"value":0,"type":"linear"}}
{"nc":"NC_FEEDRATE","feedrate":{"value":5,"factor":0,"type":"linear"}}
{"nc":"NC_FEEDRATE"}
{"nc":"NC_SPINDLE"}
{"nc":"NC_GOTO","points":[[0,1e-9,0]]})"),
            "");
}

TEST(GivenValues, PointIsStatedFromTheFirstOneOn) {
  EXPECT_EQ(neverGiven(R"({"nc":"NC_GOTO"})"), "MFG_XPOINT 1@2, MFG_YPOINT 1@2, MFG_ZPOINT 1@2");
  EXPECT_EQ(neverGiven(R"({"nc":"NC_RAPID"}
{"nc":"NC_GOTO"}
{"nc":"NC_GOTO","points":[[1,2,3]]}
{"nc":"NC_GOTO"})"),
            "MFG_XPOINT 1@3, MFG_YPOINT 1@3, MFG_ZPOINT 1@3");
}

TEST(GivenValues, AxisIsStatedByAnElementOrAPoint) {
  const std::string axes = "MFG_XAXIS 1@2, MFG_YAXIS 1@2, MFG_ZAXIS 1@2";
  EXPECT_EQ(neverGiven(R"({"nc":"NC_GOTO_VARIABLE_AXIS","points":[[1,2,3],[1,2,3,0,0,1]]})"), axes);
  EXPECT_EQ(neverGiven(R"({"nc":"NC_GOTO_VARIABLE_AXIS","axis":[0,0,1],"points":[[1,2,3]]})"), "");
  EXPECT_EQ(neverGiven(R"({"nc":"NC_TOOLAXIS_CHANGE"})"), axes);
}

TEST(GivenValues, FeedRateAndSpeedAreStatedByTheirValues) {
  EXPECT_EQ(neverGiven(R"({"nc":"NC_FEEDRATE","feedrate":{"factor":2}})"), "MFG_FEED_VALUE 1@2");
  EXPECT_EQ(neverGiven(R"({"nc":"NC_FEEDRATE","feedrate":{"value":5,"type":"linear"}})"), "");
  EXPECT_EQ(neverGiven(R"({"nc":"NC_SPINDLE_LATHE"})"), "MFG_SPNDL_SPEED 1@2");
}

TEST(GivenValues, CircleAndHelixAreStatedPieceByPiece) {
  const std::string start = R"({"nc":"NC_CIRCLE1","circle":{"tangent":[0,1,0],"center":[0,0,0])";
  EXPECT_EQ(neverGiven(start + R"(,"radius":10}})"),
            "MFG_CIRCLE_X_PT 1@2, MFG_CIRCLE_Y_PT 1@2, MFG_CIRCLE_Z_PT 1@2");
  EXPECT_EQ(neverGiven(start + R"(,"radius":10,"point":[1,0,0]}})"), "");
}

TEST(GivenValues, ValuesThatNoMachineCanMeanAreCounted) {
  const auto go = [](const std::string& changes) {
    return impossible(R"({"nc":"NC_RAPID",)" + changes + "}");
  };
  EXPECT_EQ(go(R"("axis":[0,0,1])"), "");
  EXPECT_EQ(go(R"("axis":[0,0,1.0001])"), "");
  EXPECT_EQ(go(R"("axis":[0,0,1.00011])"), "axis 1@2");
  EXPECT_EQ(go(R"("axis":[0,0,0.9998])"), "axis 1@2");
  EXPECT_EQ(go(R"("axis":[0,0,0])"), "axis 1@2");
  EXPECT_EQ(go(R"("points":[[1,2,3,0,0,2],[1,2,3],[1,2,3,0,0,2]])"), "axis 2@2");
  EXPECT_EQ(go(R"("points":[[1,2,999999999999999]])"), "");
  EXPECT_EQ(go(R"("points":[[1,2,-1e15]])"), "points 1@2");
  EXPECT_EQ(go(R"("feedrate":{"value":-1,"type":"linear"})"), "feedrate 1@2");
  EXPECT_EQ(go(R"("feedrate":{"value":0,"type":"linear"})"), "");
  EXPECT_EQ(go(R"("spindle":{"value":-0.5,"type":"angular"})"), "spindle 1@2");
  EXPECT_EQ(go(R"("spindle":{"value":1e15,"type":"angular"})"), "spindle 1@2");
  EXPECT_EQ(go(R"("circle":{"radius":0})"), "circle.radius 1@2");
  EXPECT_EQ(go(R"("circle":{"radius":0.1})"), "");
  EXPECT_EQ(go(R"("helix":{"radius":0})"), "helix.radius 1@2");
  EXPECT_EQ(go(R"("helix":{"end":[0,2e15,0],"pitch":-3e15})"), "helix.end 1@2, helix.pitch 1@2");
}

/// Every value of the buffers that has to be stated, once as `scale` makes it.
std::vector<std::pair<BufferValue, BufferChanges>> changesOfEach(double scale) {
  using enum BufferValue;
  const Triple triple{1.5 * scale, 2.5 * scale, 4.5 * scale};
  std::vector<std::pair<BufferValue, BufferChanges>> all;
  const auto circle = [&](BufferValue which) -> CircleChange& {
    return all.emplace_back(which, BufferChanges()).second.circle.emplace();
  };
  const auto helix = [&](BufferValue which) -> HelixChange& {
    return all.emplace_back(which, BufferChanges()).second.helix.emplace();
  };
  all.emplace_back(ToolAxis, BufferChanges()).second.toolAxis = triple;
  circle(CircleTangent).tangent = triple;
  circle(CircleCenter).center = triple;
  circle(CircleRadius).radius = 7.5 * scale;
  circle(CircleNormal).normal = triple;
  circle(CirclePoint).point = triple;
  helix(HelixInDirV).inDirV = triple;
  helix(HelixCenter).center = triple;
  helix(HelixRadius).radius = 8.5 * scale;
  helix(HelixAxis).axis = Triple{0.5 * scale, 0.25 * scale * scale, 2.0 + scale};
  helix(HelixStart).start = Triple{9.5 * scale, 8.0 * scale, 1.0};
  helix(HelixEnd).end = Triple{-20.0 * scale, 3.0 * scale, -31.0 * scale};
  helix(HelixPitch).pitch = 2.25 * scale;
  const std::string number = std::to_string(100.0 * scale);
  all.emplace_back(Feedrate, BufferChanges()).second.feedrate.emplace().value = {number,
                                                                                 "LINEARFEEDRATE"};
  all.emplace_back(SpindleSpeed, BufferChanges()).second.spindle.emplace().value = {
      number, "ANGULARFEEDRATE"};
  return all;
}

/// What each parameter of the catalogue with an evaluation prints.
std::vector<std::pair<std::string, std::string>> textsOf(const Document& document) {
  std::vector<std::pair<std::string, std::string>> texts;
  for (const KEPISpecObject_var type :
       document.features()->ListMembersHere(KEPInterfaceId<KEPISpecObject>())) {
    const KEPIMfgParameterEvaluation_var evaluation = type;
    if (!evaluation) continue;
    KEPString text;
    static_cast<void>(evaluation->Evaluate(text));
    texts.emplace_back(type->GetName(), text.View());
  }
  return texts;
}

TEST(GivenValues, ParametersReadWhatTheModuleReads) {
  const auto document = newDocument();
  MotionBuffers buffers(document->ppWordContainer());
  buffers.apply(Position{{1, 2, 3}, {}});
  for (const auto& [which, changes] : changesOfEach(1.0)) buffers.apply(changes);
  const auto before = textsOf(*document);
  EXPECT_GT(before.size(), 50U);
  auto changed = changesOfEach(3.0);
  changed.emplace_back(BufferValue::Point, BufferChanges());
  for (const auto& [which, changes] : changed) {
    for (const auto& [other, original] : changesOfEach(1.0)) buffers.apply(original);
    buffers.apply(changes);
    const bool isPoint = which == BufferValue::Point;
    buffers.apply(Position{isPoint ? Triple{7, 8, 9} : Triple{1, 2, 3}, {}});
    const auto after = textsOf(*document);
    for (std::size_t i = 0; i < before.size(); ++i) {
      const auto& [name, text] = before[i];
      const Parameter* const known = findParameter(name);
      ASSERT_NE(known, nullptr) << name;
      EXPECT_EQ(known->row->values.holdAll(which), text != after[i].second)
          << name << ' ' << static_cast<unsigned>(which) << ' ' << text << ' ' << after[i].second;
    }
  }
}

}  // namespace
}  // namespace host::test
