#pragma once

#include "KEPIMfgBufferTLAxis.h"
#include "src/buffer/Triple.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferTLAxis.
class KEPMfgBufferTLAxis final
    : public ppword::Registered<KEPMfgBufferTLAxis, KEPIMfgBufferTLAxis> {
 public:
  void SetTLAxis(double i, double j, double k) override { axis_ = {i, j, k}; }
  void GetTLAxis(double& i, double& j, double& k) const override { axis_.copyTo(i, j, k); }

 private:
  ppword::Triple axis_;
};
