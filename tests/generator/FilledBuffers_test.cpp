#include <gtest/gtest.h>

#include "tests/generator/Generation.h"

namespace host::test {
namespace {

// Elements that fill the motion buffers of a document.
class FilledBuffers : public testing::Test {
 protected:
  void put(std::string_view line) { generator_.put(elementOf(line)); }

  template <class Buffer>
  [[nodiscard]] KEPVar<Buffer> buffer() const {
    return document_->ppWordContainer();
  }

  template <class Buffer>
  [[nodiscard]] Triple triple(void (Buffer::*getter)(double&, double&, double&) const) const {
    Triple values{};
    (*buffer<Buffer>().*getter)(values[0], values[1], values[2]);
    return values;
  }

  template <class Buffer, class Value>
  [[nodiscard]] Value value(void (Buffer::*getter)(Value&) const) const {
    Value result{};
    (*buffer<Buffer>().*getter)(result);
    return result;
  }

 private:
  KEPVar<Document> document_ = newDocument();
  KeptLines sink_;
  Generator generator_{document_, "job", sink_};
};

TEST_F(FilledBuffers, PointAndToolAxisHoldTheLastPosition) {
  put(R"({"nc":"NC_RAPID","axis":[1,0,0],"points":[[1,2,3],[4,5,6,0,1,0],[7,8,9]]})");
  EXPECT_EQ(triple(&KEPIMfgBufferPoint::GetPoint), (Triple{7, 8, 9}));
  EXPECT_EQ(triple(&KEPIMfgBufferTLAxis::GetTLAxis), (Triple{0, 1, 0}));
}

TEST_F(FilledBuffers, CircleHoldsItsValues) {
  put(R"({"nc":"NC_RAPID","circle":{"tangent":[1,2,3],"center":[4,5,6],"radius":7,)"
      R"("normal":[8,9,10],"point":[11,12,13]}})");
  put(R"({"nc":"NC_RAPID","circle":{"center":[40,50,60]}})");
  EXPECT_EQ(triple(&KEPIMfgBufferCircle::GetTgt), (Triple{1, 2, 3}));
  EXPECT_EQ(triple(&KEPIMfgBufferCircle::GetCenter), (Triple{40, 50, 60}));
  EXPECT_EQ(value(&KEPIMfgBufferCircle::GetRadius), 7.0);
  EXPECT_EQ(triple(&KEPIMfgBufferCircle::GetNormal), (Triple{8, 9, 10}));
  EXPECT_EQ(triple(&KEPIMfgBufferCircle::GetPt), (Triple{11, 12, 13}));
}

TEST_F(FilledBuffers, HelixHoldsItsValues) {
  put(R"({"nc":"NC_RAPID","helix":{"indirv":[1,2,3],"center":[4,5,6],"radius":7,"axis":[8,9,10],)"
      R"("start":[11,12,13],"end":[14,15,16],"pitch":17}})");
  put(R"({"nc":"NC_RAPID","helix":{"pitch":1.5}})");
  EXPECT_EQ(triple(&KEPIMfgBufferHelix::GetInDirV), (Triple{1, 2, 3}));
  EXPECT_EQ(triple(&KEPIMfgBufferHelix::GetCenter), (Triple{4, 5, 6}));
  EXPECT_EQ(value(&KEPIMfgBufferHelix::GetRadius), 7.0);
  EXPECT_EQ(triple(&KEPIMfgBufferHelix::GetAxis), (Triple{8, 9, 10}));
  EXPECT_EQ(triple(&KEPIMfgBufferHelix::GetStart), (Triple{11, 12, 13}));
  EXPECT_EQ(triple(&KEPIMfgBufferHelix::GetEnd), (Triple{14, 15, 16}));
  EXPECT_EQ(value(&KEPIMfgBufferHelix::GetPitch), 1.5);
}

TEST_F(FilledBuffers, FeedrateHoldsAKnowledgeParameter) {
  put(R"({"nc":"NC_RAPID","feedrate":{"value":800.5,"type":"angular","factor":0.5,)"
      R"("feedType":"approach"}})");
  EXPECT_EQ(value(&KEPIMfgBufferFeedrate::GetValue), 400.25);
  EXPECT_EQ(value(&KEPIMfgBufferFeedrate::GetFactor), 0.5);
  EXPECT_EQ(value(&KEPIMfgBufferFeedrate::GetFeedType), KEPUnicodeString("TPApproachFeedrate"));
  bool angular = false;
  EXPECT_TRUE(buffer<KEPIMfgBufferFeedrate>()->IsAngular(angular));
  EXPECT_TRUE(angular);
  put(R"({"nc":"NC_RAPID","feedrate":{"value":100}})");
  EXPECT_EQ(value(&KEPIMfgBufferFeedrate::GetValue), 50.0);
  EXPECT_FALSE(buffer<KEPIMfgBufferFeedrate>()->IsAngular(angular));
}

TEST_F(FilledBuffers, SpindleHoldsAKnowledgeParameter) {
  put(R"({"nc":"NC_RAPID","spindle":{"value":1200,"type":"linear","factor":2,"way":2}})");
  EXPECT_EQ(value(&KEPIMfgBufferSpindle::GetValue), 2400.0);
  EXPECT_EQ(value(&KEPIMfgBufferSpindle::GetWay), 2);
  bool linear = false;
  EXPECT_TRUE(buffer<KEPIMfgBufferSpindle>()->IsLinear(linear));
  EXPECT_TRUE(linear);
}

TEST_F(FilledBuffers, CommentAndNumbersHoldTheirValues) {
  put(R"({"nc":"NC_RAPID","comment":"FACE \"1\"","corrector":5,"hole":3})");
  put(R"({"nc":"NC_RAPID","corrector":7})");
  EXPECT_EQ(value(&KEPIMfgBufferComment::GetComment), KEPString("FACE \"1\""));
  EXPECT_EQ(value(&KEPIMfgBufferCorrectorNumber::GetNumber), 7);
  EXPECT_EQ(value(&KEPIMfgBufferCorrectorNumber::GetPreviousNumber), 5);
  EXPECT_EQ(value(&KEPIMfgBufferHoleNumber::GetNumber), 3);
}

TEST_F(FilledBuffers, RotateHoldsItsValues) {
  put(R"({"nc":"NC_RAPID","rotate":{"angle":90.5,"text1":"A","text2":"CLW","text3":"INCR",)"
      R"("axisSystem":{"origin":[1,2,3],"x":[0,1,0],"y":[-1,0,0],"z":[0,0,1]}}})");
  const KEPIMfgBufferRotate_var rotate = buffer<KEPIMfgBufferRotate>();
  double angle = 0.0;
  KEPUnicodeString first;
  KEPUnicodeString second;
  KEPUnicodeString third;
  KEPMathAxis axis;
  rotate->GetAngle(angle);
  rotate->GetFirstText(first);
  rotate->GetSecondText(second);
  rotate->GetThirdText(third);
  rotate->GetAxisSystem(axis);
  EXPECT_EQ(angle, 90.5);
  EXPECT_EQ(first, KEPUnicodeString("A"));
  EXPECT_EQ(second, KEPUnicodeString("CLW"));
  EXPECT_EQ(third, KEPUnicodeString("INCR"));
  const KEPMathAxis expected{{1, 2, 3}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}};
  EXPECT_EQ(axis, expected);
}

}  // namespace
}  // namespace host::test
