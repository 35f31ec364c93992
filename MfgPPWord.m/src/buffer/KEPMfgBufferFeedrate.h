#pragma once

#include "KEPIMfgBufferFeedrate.h"
#include "src/buffer/KnowledgeValue.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferFeedrate.
class KEPMfgBufferFeedrate final
    : public ppword::Registered<KEPMfgBufferFeedrate, KEPIMfgBufferFeedrate> {
 public:
  void SetFeedParameter(const KEPBaseUnknown_var& parameter) override {
    feed_.setParameter(parameter);
  }
  void GetValue(double& value) const override { feed_.getValue(value); }

  void SetFactor(const double& factor) override { feed_.setFactor(factor); }
  void GetFactor(double& factor) const override { factor = feed_.factor(); }

  void SetFeedType(const KEPUnicodeString& type) override { feedType_ = type; }
  void GetFeedType(KEPUnicodeString& type) const override { type = feedType_; }

  bool IsLinear(bool& linear) const override { return feed_.isOfType("LINEARFEEDRATE", linear); }
  bool IsAngular(bool& angular) const override {
    return feed_.isOfType("ANGULARFEEDRATE", angular);
  }

  [[nodiscard]] bool HasFeedParameter() const override { return feed_.hasParameter(); }
  void ResetFeedParameter() override { feed_.resetParameter(); }

 private:
  ppword::KnowledgeValue feed_;
  KEPUnicodeString feedType_;
};
