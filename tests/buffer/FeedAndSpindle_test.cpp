#include <gtest/gtest.h>

#include "KEPIMfgBufferFeedrate.h"
#include "KEPIMfgBufferSpindle.h"
#include "host/knowledge/KnowledgeParameter.h"
#include "host/modeler/Document.h"

namespace {

using host::createKnowledgeParameter;

class BufferFeedrate : public testing::Test {
 protected:
  [[nodiscard]] double value() const {
    double result = 7.0;
    feed_->GetValue(result);
    return result;
  }
  [[nodiscard]] double factor() const {
    double result = 7.0;
    feed_->GetFactor(result);
    return result;
  }

  KEPVar<host::Document> document_ = host::Document::create();
  KEPIMfgBufferFeedrate_var feed_{document_->features()};
};

class BufferSpindle : public testing::Test {
 protected:
  [[nodiscard]] double value() const {
    double result = 7.0;
    spindle_->GetValue(result);
    return result;
  }
  [[nodiscard]] int way() const {
    int result = 7;
    spindle_->GetWay(result);
    return result;
  }

  KEPVar<host::Document> document_ = host::Document::create();
  KEPIMfgBufferSpindle_var spindle_{document_->features()};
};

TEST_F(BufferFeedrate, FreshBufferHasFactorOneAndNothingElse) {
  EXPECT_FALSE(feed_->HasFeedParameter());
  EXPECT_EQ(value(), 0.0);
  EXPECT_EQ(factor(), 1.0);
  KEPUnicodeString type("before");
  feed_->GetFeedType(type);
  EXPECT_EQ(type.View(), "");
}

TEST_F(BufferFeedrate, ValueIsTheParametersNumberTimesTheFactor) {
  feed_->SetFeedParameter(createKnowledgeParameter("1000", "LINEARFEEDRATE"));
  EXPECT_TRUE(feed_->HasFeedParameter());
  EXPECT_EQ(value(), 1000.0);
  feed_->SetFactor(0.5);
  EXPECT_EQ(factor(), 0.5);
  EXPECT_EQ(value(), 500.0);
}

TEST_F(BufferFeedrate, ValueTextIsReadAsFarAsItIsANumber) {
  feed_->SetFactor(2.0);
  feed_->SetFeedParameter(createKnowledgeParameter(" 0.3mm_turn", "ANGULARFEEDRATE"));
  EXPECT_EQ(value(), 0.6);
  feed_->SetFeedParameter(createKnowledgeParameter("1.5e2", ""));
  EXPECT_EQ(value(), 300.0);
}

TEST_F(BufferFeedrate, ValueTextWithoutANumberGivesZero) {
  feed_->SetFactor(2.0);
  for (const char* text : {"", "fast", "nan", "inf", "1e400"}) {
    feed_->SetFeedParameter(createKnowledgeParameter(text, "LINEARFEEDRATE"));
    EXPECT_EQ(value(), 0.0) << text;
  }
}

TEST_F(BufferFeedrate, NoParameterGivesZeroWhateverTheFactor) {
  feed_->SetFactor(250.0);
  EXPECT_EQ(value(), 0.0);
}

TEST_F(BufferFeedrate, FeedTypeSetIsKept) {
  feed_->SetFeedType("MFG_FEED_MACHINING");
  KEPUnicodeString type;
  feed_->GetFeedType(type);
  EXPECT_EQ(type.View(), "MFG_FEED_MACHINING");
}

TEST_F(BufferFeedrate, TestsWithoutParameterFailWithFalseFlag) {
  bool linear = true;
  bool angular = true;
  EXPECT_FALSE(feed_->IsLinear(linear));
  EXPECT_FALSE(feed_->IsAngular(angular));
  EXPECT_FALSE(linear);
  EXPECT_FALSE(angular);
}

TEST_F(BufferFeedrate, TestsWithoutTypeFailWithFalseFlag) {
  feed_->SetFeedParameter(createKnowledgeParameter("10", ""));
  bool linear = true;
  bool angular = true;
  EXPECT_FALSE(feed_->IsLinear(linear));
  EXPECT_FALSE(feed_->IsAngular(angular));
  EXPECT_FALSE(linear);
  EXPECT_FALSE(angular);
}

TEST_F(BufferFeedrate, TestsAnswerByTheNameOfTheType) {
  struct Case {
    const char* type;
    bool linear;
    bool angular;
  };
  for (const auto& [type, isLinear, isAngular] :
       {Case{"LINEARFEEDRATE", true, false}, Case{"ANGULARFEEDRATE", false, true},
        Case{"linearfeedrate", false, false}, Case{"LINEARFEEDRATE ", false, false},
        Case{"LINEARSPINDLESPEED", false, false}}) {
    feed_->SetFeedParameter(createKnowledgeParameter("10", type));
    bool linear = !isLinear;
    bool angular = !isAngular;
    EXPECT_TRUE(feed_->IsLinear(linear)) << type;
    EXPECT_TRUE(feed_->IsAngular(angular)) << type;
    EXPECT_EQ(linear, isLinear) << type;
    EXPECT_EQ(angular, isAngular) << type;
  }
}

TEST_F(BufferFeedrate, ResetTakesTheParameterOnly) {
  feed_->SetFeedParameter(createKnowledgeParameter("10", "LINEARFEEDRATE"));
  feed_->SetFactor(3.0);
  feed_->SetFeedType("RAPID");
  feed_->ResetFeedParameter();
  EXPECT_FALSE(feed_->HasFeedParameter());
  EXPECT_EQ(value(), 0.0);
  EXPECT_EQ(factor(), 3.0);
  KEPUnicodeString type;
  feed_->GetFeedType(type);
  EXPECT_EQ(type.View(), "RAPID");
}

TEST_F(BufferFeedrate, HandleThatIsNoParameterBecomesNull) {
  feed_->SetFeedParameter(createKnowledgeParameter("10", "LINEARFEEDRATE"));
  feed_->SetFeedParameter(document_);
  EXPECT_FALSE(feed_->HasFeedParameter());
  feed_->SetFeedParameter(createKnowledgeParameter("10", "LINEARFEEDRATE"));
  feed_->SetFeedParameter(nullptr);
  EXPECT_FALSE(feed_->HasFeedParameter());
}

TEST_F(BufferFeedrate, ParameterIsHeldUntilItIsReplaced) {
  const KEPICkeParm_var parameter = createKnowledgeParameter("10", "LINEARFEEDRATE");
  EXPECT_EQ(parameter->GetReferenceCount(), 1);
  feed_->SetFeedParameter(parameter);
  EXPECT_EQ(parameter->GetReferenceCount(), 2);
  bool flag = false;
  static_cast<void>(value());
  feed_->IsLinear(flag);
  feed_->IsAngular(flag);
  EXPECT_EQ(parameter->GetReferenceCount(), 2);
  EXPECT_EQ(parameter->GetType()->GetReferenceCount(), 2);
  feed_->SetFeedParameter(parameter);
  EXPECT_EQ(parameter->GetReferenceCount(), 2);
  feed_->ResetFeedParameter();
  EXPECT_EQ(parameter->GetReferenceCount(), 1);
}

TEST_F(BufferFeedrate, ParameterIsReleasedWithTheDocument) {
  const KEPICkeParm_var parameter = createKnowledgeParameter("10", "");
  feed_->SetFeedParameter(parameter);
  feed_ = nullptr;
  document_ = nullptr;
  EXPECT_EQ(parameter->GetReferenceCount(), 1);
}

TEST_F(BufferSpindle, FreshBufferHasWayOne) {
  EXPECT_EQ(value(), 0.0);
  EXPECT_EQ(way(), 1);
}

TEST_F(BufferSpindle, FactorOfAFreshBufferIsOne) {
  spindle_->SetSpindleParameter(createKnowledgeParameter("800", "ANGULARSPINDLESPEED"));
  EXPECT_EQ(value(), 800.0);
}

TEST_F(BufferSpindle, ValueIsTheParametersNumberTimesTheFactor) {
  spindle_->SetSpindleParameter(createKnowledgeParameter("1200.5turn_mn", "ANGULARSPINDLESPEED"));
  spindle_->SetFactor(2.0);
  EXPECT_EQ(value(), 2401.0);
}

TEST_F(BufferSpindle, NoParameterGivesZeroWhateverTheFactor) {
  spindle_->SetFactor(12.0);
  EXPECT_EQ(value(), 0.0);
}

TEST_F(BufferSpindle, TestsAnswerByTheNameOfTheType) {
  struct Case {
    const char* type;
    bool angular;
    bool linear;
  };
  for (const auto& [type, isAngular, isLinear] :
       {Case{"ANGULARSPINDLESPEED", true, false}, Case{"LINEARSPINDLESPEED", false, true},
        Case{"ANGULARFEEDRATE", false, false}}) {
    spindle_->SetSpindleParameter(createKnowledgeParameter("10", type));
    bool angular = !isAngular;
    bool linear = !isLinear;
    EXPECT_TRUE(spindle_->IsAngular(angular)) << type;
    EXPECT_TRUE(spindle_->IsLinear(linear)) << type;
    EXPECT_EQ(angular, isAngular) << type;
    EXPECT_EQ(linear, isLinear) << type;
  }
}

TEST_F(BufferSpindle, TestsWithoutParameterOrTypeFailWithFalseFlag) {
  for (const KEPICkeParm_var& parameter : {KEPICkeParm_var(), createKnowledgeParameter("10", "")}) {
    spindle_->SetSpindleParameter(parameter);
    bool angular = true;
    bool linear = true;
    EXPECT_FALSE(spindle_->IsAngular(angular));
    EXPECT_FALSE(spindle_->IsLinear(linear));
    EXPECT_FALSE(angular);
    EXPECT_FALSE(linear);
  }
}

TEST_F(BufferSpindle, HandleThatIsNoParameterBecomesNull) {
  spindle_->SetSpindleParameter(createKnowledgeParameter("10", ""));
  spindle_->SetSpindleParameter(document_);
  EXPECT_EQ(value(), 0.0);
}

TEST_F(BufferSpindle, WaySetIsKept) {
  spindle_->SetWay(-3);
  EXPECT_EQ(way(), -3);
}

}  // namespace
