#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferComment.h"
#include "KEPIMfgBufferCorrectorNumber.h"
#include "KEPIMfgBufferHelix.h"
#include "KEPIMfgBufferHoleNumber.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferRotate.h"
#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgBufferTLAxis.h"
#include "host/modeler/Document.h"

namespace {

using Numbers = std::array<double, 3>;

/// The buffers of a new document.
class MotionBuffers : public testing::Test {
 protected:
  template <class Interface>
  [[nodiscard]] KEPVar<Interface> buffer() const {
    return document_->features();
  }
  template <class Interface>
  static Numbers triple(const Interface& buffer,
                        void (Interface::*get)(double&, double&, double&) const) {
    Numbers numbers{7.0, 7.0, 7.0};
    (buffer.*get)(numbers[0], numbers[1], numbers[2]);
    return numbers;
  }
  template <class Interface, class Value>
  static Value value(const Interface& buffer, void (Interface::*get)(Value&) const) {
    Value result{};
    (buffer.*get)(result);
    return result;
  }
  template <class Value>
  static Value rotation(const KEPIMfgBufferRotate& buffer,
                        bool (KEPIMfgBufferRotate::*get)(Value&) const) {
    Value result{};
    EXPECT_TRUE((buffer.*get)(result));
    return result;
  }

 private:
  KEPVar<host::Document> document_ = host::Document::create();
};

using BufferPoint = MotionBuffers;
using BufferTLAxis = MotionBuffers;
using BufferCircle = MotionBuffers;
using BufferHelix = MotionBuffers;
using BufferComment = MotionBuffers;
using BufferCorrectorNumber = MotionBuffers;
using BufferHoleNumber = MotionBuffers;
using BufferSeqMotionNumber = MotionBuffers;
using BufferRotate = MotionBuffers;

constexpr Numbers kZero{0.0, 0.0, 0.0};

TEST_F(BufferPoint, FreshBufferGivesZeros) {
  EXPECT_EQ(triple(*buffer<KEPIMfgBufferPoint>(), &KEPIMfgBufferPoint::GetPoint), kZero);
}

TEST_F(BufferPoint, PointSetGivesThatPoint) {
  const auto point = buffer<KEPIMfgBufferPoint>();
  point->SetPoint(1.5, -2.25, 1e300);
  EXPECT_EQ(triple(*point, &KEPIMfgBufferPoint::GetPoint), (Numbers{1.5, -2.25, 1e300}));
  point->SetPoint(4.0, 5.0, 6.0);
  EXPECT_EQ(triple(*point, &KEPIMfgBufferPoint::GetPoint), (Numbers{4.0, 5.0, 6.0}));
}

TEST_F(BufferTLAxis, FreshBufferGivesZeros) {
  EXPECT_EQ(triple(*buffer<KEPIMfgBufferTLAxis>(), &KEPIMfgBufferTLAxis::GetTLAxis), kZero);
}

TEST_F(BufferTLAxis, AxisSetIsKeptAsGiven) {
  const auto axis = buffer<KEPIMfgBufferTLAxis>();
  axis->SetTLAxis(0.0, 3.0, 4.0);
  EXPECT_EQ(triple(*axis, &KEPIMfgBufferTLAxis::GetTLAxis), (Numbers{0.0, 3.0, 4.0}));
}

TEST_F(BufferCircle, FreshBufferGivesZeros) {
  const auto circle = buffer<KEPIMfgBufferCircle>();
  EXPECT_EQ(triple(*circle, &KEPIMfgBufferCircle::GetTgt), kZero);
  EXPECT_EQ(triple(*circle, &KEPIMfgBufferCircle::GetCenter), kZero);
  EXPECT_EQ(value(*circle, &KEPIMfgBufferCircle::GetRadius), 0.0);
  EXPECT_EQ(triple(*circle, &KEPIMfgBufferCircle::GetNormal), kZero);
  EXPECT_EQ(triple(*circle, &KEPIMfgBufferCircle::GetPt), kZero);
}

TEST_F(BufferCircle, EachValueSetIsKeptByItself) {
  const auto circle = buffer<KEPIMfgBufferCircle>();
  circle->SetTgt(1.0, 2.0, 3.0);
  circle->SetCenter(4.0, 5.0, 6.0);
  circle->SetRadius(7.0);
  circle->SetNormal(8.0, 9.0, 10.0);
  circle->SetPt(11.0, 12.0, 13.0);
  EXPECT_EQ(triple(*circle, &KEPIMfgBufferCircle::GetTgt), (Numbers{1.0, 2.0, 3.0}));
  EXPECT_EQ(triple(*circle, &KEPIMfgBufferCircle::GetCenter), (Numbers{4.0, 5.0, 6.0}));
  EXPECT_EQ(value(*circle, &KEPIMfgBufferCircle::GetRadius), 7.0);
  EXPECT_EQ(triple(*circle, &KEPIMfgBufferCircle::GetNormal), (Numbers{8.0, 9.0, 10.0}));
  EXPECT_EQ(triple(*circle, &KEPIMfgBufferCircle::GetPt), (Numbers{11.0, 12.0, 13.0}));
}

TEST_F(BufferHelix, FreshBufferGivesZeros) {
  const auto helix = buffer<KEPIMfgBufferHelix>();
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetInDirV), kZero);
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetCenter), kZero);
  EXPECT_EQ(value(*helix, &KEPIMfgBufferHelix::GetRadius), 0.0);
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetAxis), kZero);
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetEnd), kZero);
  EXPECT_EQ(value(*helix, &KEPIMfgBufferHelix::GetPitch), 0.0);
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetStart), kZero);
}

TEST_F(BufferHelix, EachValueSetIsKeptByItself) {
  const auto helix = buffer<KEPIMfgBufferHelix>();
  helix->SetInDirV(1.0, 2.0, 3.0);
  helix->SetCenter(4.0, 5.0, 6.0);
  helix->SetRadius(7.0);
  helix->SetAxis(8.0, 9.0, 10.0);
  helix->SetEnd(11.0, 12.0, 13.0);
  helix->SetPitch(14.0);
  helix->SetStart(15.0, 16.0, 17.0);
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetInDirV), (Numbers{1.0, 2.0, 3.0}));
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetCenter), (Numbers{4.0, 5.0, 6.0}));
  EXPECT_EQ(value(*helix, &KEPIMfgBufferHelix::GetRadius), 7.0);
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetAxis), (Numbers{8.0, 9.0, 10.0}));
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetEnd), (Numbers{11.0, 12.0, 13.0}));
  EXPECT_EQ(value(*helix, &KEPIMfgBufferHelix::GetPitch), 14.0);
  EXPECT_EQ(triple(*helix, &KEPIMfgBufferHelix::GetStart), (Numbers{15.0, 16.0, 17.0}));
}

TEST_F(BufferComment, FreshBufferGivesEmptyText) {
  KEPString comment("before");
  buffer<KEPIMfgBufferComment>()->GetComment(comment);
  EXPECT_EQ(comment.View(), "");
}

TEST_F(BufferComment, CommentSetKeepsItsBytes) {
  const auto comment = buffer<KEPIMfgBufferComment>();
  comment->SetComment(KEPString("\xE9t\xE9 $"));
  EXPECT_EQ(value(*comment, &KEPIMfgBufferComment::GetComment).View(), "\xE9t\xE9 $");
}

TEST_F(BufferCorrectorNumber, FreshBufferGivesZeroTwice) {
  const auto corrector = buffer<KEPIMfgBufferCorrectorNumber>();
  int number = 9;
  int previous = 9;
  corrector->GetNumber(number);
  corrector->GetPreviousNumber(previous);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(previous, 0);
}

TEST_F(BufferCorrectorNumber, NewNumberMakesTheCurrentOneThePrevious) {
  const auto corrector = buffer<KEPIMfgBufferCorrectorNumber>();
  corrector->SetNumber(5);
  EXPECT_EQ(value(*corrector, &KEPIMfgBufferCorrectorNumber::GetPreviousNumber), 0);
  corrector->SetNumber(7);
  EXPECT_EQ(value(*corrector, &KEPIMfgBufferCorrectorNumber::GetNumber), 7);
  EXPECT_EQ(value(*corrector, &KEPIMfgBufferCorrectorNumber::GetPreviousNumber), 5);
  corrector->SetNumber(7);
  EXPECT_EQ(value(*corrector, &KEPIMfgBufferCorrectorNumber::GetPreviousNumber), 7);
}

TEST_F(BufferCorrectorNumber, PreviousNumberSetLeavesTheCurrentOne) {
  const auto corrector = buffer<KEPIMfgBufferCorrectorNumber>();
  corrector->SetNumber(5);
  corrector->SetPreviousNumber(3);
  EXPECT_EQ(value(*corrector, &KEPIMfgBufferCorrectorNumber::GetNumber), 5);
  EXPECT_EQ(value(*corrector, &KEPIMfgBufferCorrectorNumber::GetPreviousNumber), 3);
}

TEST_F(BufferHoleNumber, FreshBufferGivesMinusOne) {
  EXPECT_EQ(value(*buffer<KEPIMfgBufferHoleNumber>(), &KEPIMfgBufferHoleNumber::GetNumber), -1);
}

TEST_F(BufferHoleNumber, NumberSetIsKept) {
  const auto hole = buffer<KEPIMfgBufferHoleNumber>();
  hole->SetNumber(12);
  EXPECT_EQ(value(*hole, &KEPIMfgBufferHoleNumber::GetNumber), 12);
}

TEST_F(BufferSeqMotionNumber, FreshBufferGivesMinusOne) {
  EXPECT_EQ(
      value(*buffer<KEPIMfgBufferSeqMotionNumber>(), &KEPIMfgBufferSeqMotionNumber::GetNumber), -1);
}

TEST_F(BufferSeqMotionNumber, NumberSetIsKept) {
  const auto motion = buffer<KEPIMfgBufferSeqMotionNumber>();
  motion->SetNumber(std::numeric_limits<int>::min());
  EXPECT_EQ(value(*motion, &KEPIMfgBufferSeqMotionNumber::GetNumber), -2147483647 - 1);
}

TEST_F(BufferRotate, FreshBufferGivesZeroEmptyTextsAndUnitAxes) {
  const auto rotate = buffer<KEPIMfgBufferRotate>();
  EXPECT_EQ(rotation(*rotate, &KEPIMfgBufferRotate::GetAngle), 0.0);
  KEPUnicodeString text("before");
  EXPECT_TRUE(rotate->GetFirstText(text));
  EXPECT_EQ(text.View(), "");
  text = "before";
  EXPECT_TRUE(rotate->GetSecondText(text));
  EXPECT_EQ(text.View(), "");
  text = "before";
  EXPECT_TRUE(rotate->GetThirdText(text));
  EXPECT_EQ(text.View(), "");
  KEPMathAxis axis{{9, 9, 9}, {9, 9, 9}, {9, 9, 9}, {9, 9, 9}};
  EXPECT_TRUE(rotate->GetAxisSystem(axis));
  EXPECT_EQ(axis, (KEPMathAxis{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
}

TEST_F(BufferRotate, EachValueSetIsKeptByItself) {
  const auto rotate = buffer<KEPIMfgBufferRotate>();
  EXPECT_TRUE(rotate->SetAngle(45.5));
  EXPECT_TRUE(rotate->SetFirstText("first"));
  EXPECT_TRUE(rotate->SetSecondText("second"));
  EXPECT_TRUE(rotate->SetAxisSystem({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}}));
  EXPECT_TRUE(rotate->SetThirdText("third \xC2\xB0"));
  EXPECT_EQ(rotation(*rotate, &KEPIMfgBufferRotate::GetAngle), 45.5);
  EXPECT_EQ(rotation(*rotate, &KEPIMfgBufferRotate::GetFirstText).View(), "first");
  EXPECT_EQ(rotation(*rotate, &KEPIMfgBufferRotate::GetSecondText).View(), "second");
  EXPECT_EQ(rotation(*rotate, &KEPIMfgBufferRotate::GetAxisSystem),
            (KEPMathAxis{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}}));
  EXPECT_EQ(rotation(*rotate, &KEPIMfgBufferRotate::GetThirdText).View(), "third \xC2\xB0");
}

}  // namespace
