#pragma once

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferComment.h"
#include "KEPIMfgBufferCorrectorNumber.h"
#include "KEPIMfgBufferFeedrate.h"
#include "KEPIMfgBufferHelix.h"
#include "KEPIMfgBufferHoleNumber.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferRotate.h"
#include "KEPIMfgBufferSpindle.h"
#include "KEPIMfgBufferTLAxis.h"
#include "KEPIMfgPPWordContainer.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// The motion buffers of a PP word container. A value that a change leaves out stays.
class MotionBuffers {
 public:
  /// Gets the buffers from the container and holds them.
  explicit MotionBuffers(const KEPIMfgPPWordContainer_var& words);

  void apply(const BufferChanges& changes);
  void apply(const Position& position) {
    const Triple& point = position.point;
    point_->SetPoint(point[0], point[1], point[2]);
    if (position.toolAxis) apply(*position.toolAxis);
  }

 private:
  void apply(const Triple& toolAxis) {
    toolAxis_->SetTLAxis(toolAxis[0], toolAxis[1], toolAxis[2]);
  }
  void apply(const CircleChange& change);
  void apply(const HelixChange& change);
  void apply(const FeedrateChange& change);
  void apply(const SpindleChange& change);
  void apply(const RotateChange& change);

  KEPIMfgBufferPoint_var point_;
  KEPIMfgBufferTLAxis_var toolAxis_;
  KEPIMfgBufferCircle_var circle_;
  KEPIMfgBufferHelix_var helix_;
  KEPIMfgBufferFeedrate_var feedrate_;
  KEPIMfgBufferSpindle_var spindle_;
  KEPIMfgBufferComment_var comment_;
  KEPIMfgBufferCorrectorNumber_var corrector_;
  KEPIMfgBufferHoleNumber_var hole_;
  KEPIMfgBufferRotate_var rotate_;
};

}  // namespace host
