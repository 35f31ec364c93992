#include "host/system/ListenerScope.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "System/KEPString.h"
#include "host/system/Session.h"

namespace host {
namespace {

using Calls = std::vector<std::string>;

/// Writes down the calls that it gets, each after the name that it has.
class Notes final : public KEPMfgPPWordListener {
 public:
  Notes(std::string name, Calls& calls) : name_(std::move(name)), calls_(calls) {}

  void LineAfterPass(Pass pass, std::string_view line) override {
    note("line", {EntryOf(pass).name, line});
  }
  void ReferenceLookedUp(std::string_view name, const KEPBaseUnknown* type,
                         const KEPBaseUnknown* evaluation) override {
    note("looked up",
         {name, type == nullptr ? "no type" : "", evaluation == nullptr ? "no evaluation" : ""});
  }
  void ValueFound(const KEPMfgParameterValue& value, const KEPUnicodeString* format) override {
    note("value", {std::to_string(value.integer), format->View()});
  }
  void ReferenceReplaced(std::string_view name, Source source, std::string_view text) override {
    note("replaced", {name, std::to_string(static_cast<int>(source)), text});
  }
  void TextDropped(std::string_view name, std::string_view text) override {
    note("dropped", {name, text});
  }
  void OperationEnded(Operation outcome, std::string_view operation,
                      std::string_view result) override {
    note("operation", {std::to_string(static_cast<int>(outcome)), operation, result});
  }
  void TableEntry(Section section, int number, std::string_view name, Outcome outcome) override {
    note("entry", {std::to_string(static_cast<int>(section)), std::to_string(number), name,
                   std::to_string(static_cast<int>(outcome))});
  }
  void ValueLacking(Lack why) override { note("lacking", {std::to_string(static_cast<int>(why))}); }
  void GenerationFormatUsed(const KEPUnicodeString& format) override {
    note("format", {format.View()});
  }

 private:
  void note(std::string_view call, const std::vector<std::string_view>& arguments) {
    std::string text = name_ + ": " + std::string(call);
    for (const std::string_view argument : arguments) text.append(" ").append(argument);
    calls_.push_back(text);
  }

  std::string name_;
  Calls& calls_;
};

void dropText(std::string_view text) { session().listener->TextDropped("A", text); }

TEST(ListenerScope, InstallsTheListenerAndRemovesIt) {
  Calls calls;
  Notes notes("only", calls);
  {
    const ListenerScope scope(notes);
    dropText("X");
  }
  EXPECT_EQ(session().listener, nullptr);
  EXPECT_EQ(calls, Calls{"only: dropped A X"});
}

TEST(ListenerScope, NestedScopesAllGetTheCallsTheInnermostFirst) {
  Calls calls;
  Notes outer("outer", calls);
  Notes middle("middle", calls);
  Notes inner("inner", calls);
  const ListenerScope first(outer);
  const ListenerScope second(middle);
  const ListenerScope third(inner);
  dropText("X");
  EXPECT_EQ(calls, (Calls{"inner: dropped A X", "middle: dropped A X", "outer: dropped A X"}));
}

TEST(ListenerScope, EachEndRestoresTheListenerBefore) {
  Calls calls;
  Notes outer("outer", calls);
  Notes inner("inner", calls);
  {
    const ListenerScope first(outer);
    KEPMfgPPWordListener* const before = session().listener;
    {
      const ListenerScope second(inner);
      EXPECT_NE(session().listener, before);
    }
    EXPECT_EQ(session().listener, before);
    dropText("X");
    const ListenerScope again(inner);
    dropText("Y");
  }
  EXPECT_EQ(session().listener, nullptr);
  EXPECT_EQ(calls, (Calls{"outer: dropped A X", "inner: dropped A Y", "outer: dropped A Y"}));
}

TEST(ListenerScope, ListenerThatWasInstalledByHandGetsTheCallsToo) {
  Calls calls;
  Notes own("own", calls);
  Notes inner("inner", calls);
  session().listener = &own;
  {
    const ListenerScope scope(inner);
    dropText("X");
  }
  EXPECT_EQ(session().listener, &own);
  session().listener = nullptr;
  EXPECT_EQ(calls, (Calls{"inner: dropped A X", "own: dropped A X"}));
}

TEST(ListenerScope, LinesAreReceivedWhenAnyListenerReceivesThem) {
  struct Unlined final : KEPMfgPPWordListener {
    [[nodiscard]] bool ReceivesLines() const override { return false; }
  };
  Calls calls;
  Notes lined("lined", calls);
  Unlined outer;
  Unlined inner;
  const ListenerScope first(outer);
  EXPECT_FALSE(session().listener->ReceivesLines());
  const ListenerScope second(inner);
  EXPECT_FALSE(session().listener->ReceivesLines());
  const ListenerScope third(lined);
  EXPECT_TRUE(session().listener->ReceivesLines());
  Unlined last;
  const ListenerScope fourth(last);
  EXPECT_TRUE(session().listener->ReceivesLines());
}

TEST(ListenerScope, EveryCallIsPassedOnWithItsArguments) {
  Calls calls;
  Notes outer("outer", calls);
  KEPMfgPPWordListener silent;
  const ListenerScope first(outer);
  const ListenerScope second(silent);
  KEPMfgPPWordListener& listener = *session().listener;
  listener.LineAfterPass(KEPMfgPPWordListener::Pass::Evaluate, "GOTO/1");
  listener.ReferenceLookedUp("A", nullptr, nullptr);
  KEPMfgParameterValue value;
  value.integer = 7;
  const KEPUnicodeString format("%d");
  listener.ValueFound(value, &format);
  listener.ReferenceReplaced("A", KEPMfgPPWordListener::Source::Parameter, "7");
  listener.TextDropped("A", "$");
  listener.OperationEnded(KEPMfgPPWordListener::Operation::Kept, "1+A", "");
  listener.TableEntry(KEPMfgPPWordListener::Section::Format, 3, "F",
                      KEPMfgPPWordListener::Outcome::Replaced);
  EXPECT_FALSE(KEPMfgPPWordListener::ReportLack(KEPMfgPPWordListener::Lack::Entry));
  listener.GenerationFormatUsed(format);
  EXPECT_EQ(calls, (Calls{"outer: line evaluate GOTO/1", "outer: looked up A no type no evaluation",
                          "outer: value 7 %d", "outer: replaced A 2 7", "outer: dropped A $",
                          "outer: operation 1 1+A ", "outer: entry 3 3 F 1", "outer: lacking 1",
                          "outer: format %d"}));
}

}  // namespace
}  // namespace host
