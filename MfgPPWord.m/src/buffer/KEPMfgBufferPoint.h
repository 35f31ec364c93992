#pragma once

#include "KEPIMfgBufferPoint.h"
#include "src/buffer/Triple.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferPoint.
class KEPMfgBufferPoint final : public ppword::Registered<KEPMfgBufferPoint, KEPIMfgBufferPoint> {
 public:
  void SetPoint(double x, double y, double z) override { point_ = {x, y, z}; }
  void GetPoint(double& x, double& y, double& z) const override { point_.copyTo(x, y, z); }

 private:
  ppword::Triple point_;
};
