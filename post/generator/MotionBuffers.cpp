#include "post/generator/MotionBuffers.h"

#include "host/knowledge/KnowledgeParameter.h"

namespace host {
namespace {

template <class Buffer>
void set(Buffer& buffer, void (Buffer::*setter)(double, double, double),
         const std::optional<Triple>& triple) {
  if (triple) (buffer.*setter)((*triple)[0], (*triple)[1], (*triple)[2]);
}

template <class Buffer, class Result, class Argument, class Value>
void set(Buffer& buffer, Result (Buffer::*setter)(Argument), const std::optional<Value>& value) {
  if (value) static_cast<void>((buffer.*setter)(*value));
}

std::optional<KEPICkeParm_var> knowledgeParameter(const std::optional<TypedValue>& value) {
  if (!value) return std::nullopt;
  return createKnowledgeParameter(value->text, value->type);
}

}  // namespace

MotionBuffers::MotionBuffers(const KEPIMfgPPWordContainer_var& words)
    : point_(words),
      toolAxis_(words),
      circle_(words),
      helix_(words),
      feedrate_(words),
      spindle_(words),
      comment_(words),
      corrector_(words),
      hole_(words),
      rotate_(words) {}

void MotionBuffers::apply(const BufferChanges& changes) {
  if (changes.toolAxis) apply(*changes.toolAxis);
  if (changes.circle) apply(*changes.circle);
  if (changes.helix) apply(*changes.helix);
  if (changes.feedrate) apply(*changes.feedrate);
  if (changes.spindle) apply(*changes.spindle);
  set(*comment_, &KEPIMfgBufferComment::SetComment, changes.comment);
  set(*corrector_, &KEPIMfgBufferCorrectorNumber::SetNumber, changes.corrector);
  set(*hole_, &KEPIMfgBufferHoleNumber::SetNumber, changes.hole);
  if (changes.rotate) apply(*changes.rotate);
}

void MotionBuffers::apply(const CircleChange& change) {
  set(*circle_, &KEPIMfgBufferCircle::SetTgt, change.tangent);
  set(*circle_, &KEPIMfgBufferCircle::SetCenter, change.center);
  set(*circle_, &KEPIMfgBufferCircle::SetRadius, change.radius);
  set(*circle_, &KEPIMfgBufferCircle::SetNormal, change.normal);
  set(*circle_, &KEPIMfgBufferCircle::SetPt, change.point);
}

void MotionBuffers::apply(const HelixChange& change) {
  set(*helix_, &KEPIMfgBufferHelix::SetInDirV, change.inDirV);
  set(*helix_, &KEPIMfgBufferHelix::SetCenter, change.center);
  set(*helix_, &KEPIMfgBufferHelix::SetRadius, change.radius);
  set(*helix_, &KEPIMfgBufferHelix::SetAxis, change.axis);
  set(*helix_, &KEPIMfgBufferHelix::SetStart, change.start);
  set(*helix_, &KEPIMfgBufferHelix::SetEnd, change.end);
  set(*helix_, &KEPIMfgBufferHelix::SetPitch, change.pitch);
}

void MotionBuffers::apply(const FeedrateChange& change) {
  set(*feedrate_, &KEPIMfgBufferFeedrate::SetFeedParameter, knowledgeParameter(change.value));
  set(*feedrate_, &KEPIMfgBufferFeedrate::SetFactor, change.factor);
  set(*feedrate_, &KEPIMfgBufferFeedrate::SetFeedType, change.feedType);
}

void MotionBuffers::apply(const SpindleChange& change) {
  set(*spindle_, &KEPIMfgBufferSpindle::SetSpindleParameter, knowledgeParameter(change.value));
  set(*spindle_, &KEPIMfgBufferSpindle::SetFactor, change.factor);
  set(*spindle_, &KEPIMfgBufferSpindle::SetWay, change.way);
}

void MotionBuffers::apply(const RotateChange& change) {
  set(*rotate_, &KEPIMfgBufferRotate::SetAngle, change.angle);
  set(*rotate_, &KEPIMfgBufferRotate::SetFirstText, change.firstText);
  set(*rotate_, &KEPIMfgBufferRotate::SetSecondText, change.secondText);
  set(*rotate_, &KEPIMfgBufferRotate::SetThirdText, change.thirdText);
  set(*rotate_, &KEPIMfgBufferRotate::SetAxisSystem, change.axisSystem);
}

}  // namespace host
