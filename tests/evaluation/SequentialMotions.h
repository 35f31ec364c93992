#pragma once

#include <string_view>

#include "tests/evaluation/Evaluations.h"

namespace ppword::test {

/// A document whose activity is a sequential operation with one motion, the second of two; the
/// first one has no parameters.
class SequentialMotions : public Evaluations {
 protected:
  SequentialMotions() : operation(newActivity({"MfgSequentialAxialOperation"})) {
    motions = &operation->add<TestMotions>().motions;
    motion = &object_->add<TestMotion>();
    motion->feedrates = feedObject_;
    motion->strategy = strategyObject_;
    motions->Append(KEPBaseUnknown_var(object()));
    motions->Append(KEPBaseUnknown_var(object_));
    setActivity(operation);
    setMotionNumber(2);
  }

  void setSpeed(TestFeedrates& parameters, std::string_view number, std::string_view type) const {
    parameters.parameters["Mfg_SpindleSpeedValue"] = host::createKnowledgeParameter(number, type);
  }

  KEPVar<TestObject> operation;
  KEPListVal<KEPBaseUnknown_var>* motions = nullptr;
  TestMotion* motion = nullptr;

 private:
  KEPVar<TestObject> object_ = object();
  KEPVar<TestObject> feedObject_ = object();
  KEPVar<TestObject> strategyObject_ = object();

 protected:
  TestFeedrates& feed = feedObject_->add<TestFeedrates>();
  TestStrategy& strategy = strategyObject_->add<TestStrategy>();
};

}  // namespace ppword::test
