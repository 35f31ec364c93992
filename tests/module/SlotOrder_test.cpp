#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <vector>

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferComment.h"
#include "KEPIMfgBufferCorrectorNumber.h"
#include "KEPIMfgBufferFeedrate.h"
#include "KEPIMfgBufferHelix.h"
#include "KEPIMfgBufferHoleNumber.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferRotate.h"
#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgBufferSpindle.h"
#include "KEPIMfgBufferTLAxis.h"
#include "KEPIMfgPPCommand.h"
#include "KEPIMfgPPWordContainer.h"
#include "KEPIMfgPPWordFactory.h"
#include "KEPIMfgPPWordTable.h"
#include "KEPIMfgParameterEvaluation.h"
#include "KEPIMfgSyntaxEvaluation.h"

namespace {

/// A pointer to a virtual member function as the Itanium C++ ABI lays it out: the offset of the
/// slot in the table of virtual functions, plus one.
struct MemberPointer {
  std::ptrdiff_t slotOffsetPlusOne;
  std::ptrdiff_t adjustment;
};

template <class Function>
int slot(Function function) {
  const auto pointer = std::bit_cast<MemberPointer>(function);
  return static_cast<int>((pointer.slotOffsetPlusOne - 1) /
                          static_cast<std::ptrdiff_t>(sizeof(void*)));
}

/// The slots of operations, from the one that follows those of KEPBaseUnknown (which has two for
/// its destructor and one for each other virtual function).
template <class... Functions>
std::vector<int> slots(Functions... functions) {
  constexpr int kSlotsOfBaseUnknown = 5;
  return {slot(functions) - kSlotsOfBaseUnknown...};
}

TEST(SlotOrder, PointBuffer) {
  using Buffer = KEPIMfgBufferPoint;
  EXPECT_EQ(slots(&Buffer::SetPoint, &Buffer::GetPoint), (std::vector{0, 1}));
}

TEST(SlotOrder, TLAxisBuffer) {
  using Buffer = KEPIMfgBufferTLAxis;
  EXPECT_EQ(slots(&Buffer::SetTLAxis, &Buffer::GetTLAxis), (std::vector{0, 1}));
}

TEST(SlotOrder, CircleBufferSetsBeforeItGets) {
  using Buffer = KEPIMfgBufferCircle;
  EXPECT_EQ(slots(&Buffer::SetTgt, &Buffer::SetCenter, &Buffer::SetRadius, &Buffer::SetNormal,
                  &Buffer::SetPt, &Buffer::GetTgt, &Buffer::GetCenter, &Buffer::GetRadius,
                  &Buffer::GetNormal, &Buffer::GetPt),
            (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(SlotOrder, HelixBufferEndsWithTheStart) {
  using Buffer = KEPIMfgBufferHelix;
  EXPECT_EQ(slots(&Buffer::SetInDirV, &Buffer::SetCenter, &Buffer::SetRadius, &Buffer::SetAxis,
                  &Buffer::SetEnd, &Buffer::SetPitch, &Buffer::GetInDirV, &Buffer::GetCenter,
                  &Buffer::GetRadius, &Buffer::GetAxis, &Buffer::GetEnd, &Buffer::GetPitch,
                  &Buffer::SetStart, &Buffer::GetStart),
            (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
}

TEST(SlotOrder, FeedrateBuffer) {
  using Buffer = KEPIMfgBufferFeedrate;
  EXPECT_EQ(slots(&Buffer::SetFeedParameter, &Buffer::GetValue, &Buffer::SetFactor,
                  &Buffer::GetFactor, &Buffer::SetFeedType, &Buffer::GetFeedType, &Buffer::IsLinear,
                  &Buffer::IsAngular, &Buffer::HasFeedParameter, &Buffer::ResetFeedParameter),
            (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(SlotOrder, SpindleBufferTestsAngularFirst) {
  using Buffer = KEPIMfgBufferSpindle;
  EXPECT_EQ(slots(&Buffer::SetSpindleParameter, &Buffer::GetValue, &Buffer::SetFactor,
                  &Buffer::IsAngular, &Buffer::IsLinear, &Buffer::SetWay, &Buffer::GetWay),
            (std::vector{0, 1, 2, 3, 4, 5, 6}));
}

TEST(SlotOrder, CommentBuffer) {
  using Buffer = KEPIMfgBufferComment;
  EXPECT_EQ(slots(&Buffer::SetComment, &Buffer::GetComment), (std::vector{0, 1}));
}

TEST(SlotOrder, NumberBuffers) {
  using Corrector = KEPIMfgBufferCorrectorNumber;
  EXPECT_EQ(slots(&Corrector::SetNumber, &Corrector::GetNumber, &Corrector::SetPreviousNumber,
                  &Corrector::GetPreviousNumber),
            (std::vector{0, 1, 2, 3}));
  using Hole = KEPIMfgBufferHoleNumber;
  EXPECT_EQ(slots(&Hole::SetNumber, &Hole::GetNumber), (std::vector{0, 1}));
  using Motion = KEPIMfgBufferSeqMotionNumber;
  EXPECT_EQ(slots(&Motion::SetNumber, &Motion::GetNumber), (std::vector{0, 1}));
}

TEST(SlotOrder, RotateBufferEndsWithTheThirdText) {
  using Buffer = KEPIMfgBufferRotate;
  EXPECT_EQ(
      slots(&Buffer::SetAngle, &Buffer::GetAngle, &Buffer::SetFirstText, &Buffer::GetFirstText,
            &Buffer::SetSecondText, &Buffer::GetSecondText, &Buffer::SetAxisSystem,
            &Buffer::GetAxisSystem, &Buffer::SetThirdText, &Buffer::GetThirdText),
      (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(SlotOrder, PPWordContainer) {
  using Words = KEPIMfgPPWordContainer;
  EXPECT_EQ(slots(&Words::FindPPWord, &Words::GetPPWord, &Words::Refresh, &Words::Initialize,
                  &Words::SetObjects, &Words::GetFirstObject, &Words::GetPPCommand,
                  &Words::GetSyntaxEvaluation, &Words::LoadPPWordTable, &Words::SetUserSyntax,
                  &Words::SetSecondObject, &Words::GetSecondObject, &Words::ResetToDefault),
            (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST(SlotOrder, PPWordFactoryAndTable) {
  EXPECT_EQ(slots(&KEPIMfgPPWordFactory::CreatePPCommand), (std::vector{0}));
  using Table = KEPIMfgPPWordTable;
  EXPECT_EQ(slots(&Table::GetNumberOfNCInstruction, &Table::GetNameOfNCInstruction,
                  &Table::GetNumberOfSequenceForNCInstruction,
                  &Table::GetSyntaxOfSequenceForNCInstruction, &Table::GetIndexOfNCInstruction),
            (std::vector{0, 1, 2, 3, 4}));
}

TEST(SlotOrder, PPCommand) {
  using Command = KEPIMfgPPCommand;
  EXPECT_EQ(slots(&Command::SetCommandName, &Command::GetCommandName, &Command::GetObjects,
                  &Command::Evaluate, &Command::SetSequenceNumber, &Command::GetSequenceNumber),
            (std::vector{0, 1, 2, 3, 4, 5}));
}

TEST(SlotOrder, Evaluations) {
  EXPECT_EQ(slots(&KEPIMfgParameterEvaluation::Evaluate), (std::vector{0}));
  using Syntax = KEPIMfgSyntaxEvaluation;
  EXPECT_EQ(slots(&Syntax::InstantiateSyntax, &Syntax::GetAuxNumber, &Syntax::SetAuxNumber,
                  &Syntax::GetSeqMotionNumber, &Syntax::SetSeqMotionNumber),
            (std::vector{0, 1, 2, 3, 4}));
}

}  // namespace
