#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgParameterEvaluation.h"
#include "host/knowledge/KnowledgeParameter.h"
#include "host/manufacturing/GeneratorData.h"
#include "host/modeler/Container.h"
#include "tests/evaluation/TestModel.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {

inline constexpr const char* kNoValue = "no value, untouched";
/// A success that leaves the text alone.
inline constexpr const char* kUntouched = "untouched";

/// What an evaluation gives: its text, or "no value" and the text as it was before, which is
/// "untouched".
[[nodiscard]] inline std::string evaluated(const KEPISpecObject_var& parameter) {
  KEPString text = kUntouched;
  const KEPIMfgParameterEvaluation_var evaluation = parameter;
  return evaluation->Evaluate(text) ? std::string(text.View())
                                    : "no value, " + std::string(text.View());
}

/// A PP word container that offers no motion buffers but those of the list.
class BareWords {
 public:
  BareWords(host::Document& document, std::initializer_list<const KEPMetaClass*> buffers);

  KEPIContainer_var features;
  KEPIMfgPPWordContainer_var words;
};

/// A document whose activity is made of test components.
class Evaluations : public testing::Test, protected PPWordDocument {
 protected:
  Evaluations();
  ~Evaluations() override;

  /// Makes, or changes, a parameter type with a format.
  void setFormat(std::string_view name, std::string_view printFormat) const;
  /// Makes, or changes, a parameter type with a list of words.
  void setList(std::string_view name, const Texts& items) const;
  /// Moves to another PP word container, to which the operations below refer from then on.
  void moveTo(const BareWords& other);

  /// As evaluated(), and checks that every component has as many references as before.
  [[nodiscard]] std::string value(std::string_view name) const;
  /// As value(), of a type that was taken out of its container.
  [[nodiscard]] std::string valueOutside(std::string_view name) const;

  /// Makes a component the activity that the document is generating.
  void setActivity(const KEPVar<TestObject>& activity) const { words->SetObjects(activity); }
  void setMotionNumber(int number) const {
    KEPIMfgBufferSeqMotionNumber_var(words)->SetNumber(number);
  }

 private:
  [[nodiscard]] KEPISpecAttrAccess_var declared(std::string_view name, std::string_view attribute,
                                                KEPISpecAttribute::Kind kind) const;
};

/// A component with an activity.
[[nodiscard]] KEPVar<TestObject> newActivity(std::initializer_list<const char*> kinds = {});
/// A tool change in a sequence whose operation is `operation`.
[[nodiscard]] KEPVar<TestObject> toolChangeFor(const KEPVar<TestObject>& operation);

/// Feed rate parameters with one parameter of a type.
[[nodiscard]] KEPVar<TestObject> feedrates(std::string_view name, std::string_view value,
                                           std::string_view type);

}  // namespace ppword::test
