#pragma once

#include "KEPIMfgBufferSpindle.h"
#include "src/buffer/KnowledgeValue.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferSpindle.
class KEPMfgBufferSpindle final
    : public ppword::Registered<KEPMfgBufferSpindle, KEPIMfgBufferSpindle> {
 public:
  void SetSpindleParameter(const KEPBaseUnknown_var& parameter) override {
    speed_.setParameter(parameter);
  }
  void GetValue(double& value) const override { speed_.getValue(value); }
  void SetFactor(const double& factor) override { speed_.setFactor(factor); }

  bool IsAngular(bool& angular) const override {
    return speed_.isOfType("ANGULARSPINDLESPEED", angular);
  }
  bool IsLinear(bool& linear) const override {
    return speed_.isOfType("LINEARSPINDLESPEED", linear);
  }

  void SetWay(int way) override { way_ = way; }
  void GetWay(int& way) const override { way = way_; }

 private:
  ppword::KnowledgeValue speed_;
  int way_ = 1;
};
