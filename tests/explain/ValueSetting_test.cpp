#include "inspect/explain/ValueSetting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferTLAxis.h"
#include "KEPIMfgParameterEvaluation.h"
#include "ObjectSpecsModeler/KEPIContainer.h"

namespace host {
namespace {

/// A setting as it was read: name, kind, value.
std::string shown(const char* text) {
  ValueSetting setting;
  std::string reason;
  if (!readSetting(text, setting, reason)) return reason;
  const auto& value = setting.value;
  std::string result = setting.name + (setting.isDesign ? " design " : " ");
  if (value.kind == KEPMfgParameterValue::kInteger) return result + std::to_string(value.integer);
  if (value.kind == KEPMfgParameterValue::kText)
    return result + '"' + value.text.ConvertToChar() + '"';
  return result + (value.real == 0.5 ? "one half" : value.real == -2e3 ? "minus 2000" : "other");
}

TEST(ValueSetting, TextGivesNameKindAndValue) {
  EXPECT_EQ(shown("A=0.5"), "A one half");
  EXPECT_EQ(shown("A=-2e3"), "A minus 2000");
  EXPECT_EQ(shown("I:int=-7"), "I -7");
  EXPECT_EQ(shown("W:text=RPM"), "W \"RPM\"");
  EXPECT_EQ(shown("W:text="), "W \"\"");
  EXPECT_EQ(shown("W:text=A=B:int=1"), "W \"A=B:int=1\"");
  EXPECT_EQ(shown("D:design=.5"), "D design one half");
  EXPECT_EQ(shown("TWO WORDS=0.5"), "TWO WORDS one half");
}

TEST(ValueSetting, MistakesAreTold) {
  EXPECT_EQ(shown("A"), "'A' is not NAME=VALUE");
  EXPECT_EQ(shown(""), "'' is not NAME=VALUE");
  EXPECT_EQ(shown("=5"), "'=5' is not NAME=VALUE");
  EXPECT_EQ(shown(":int=5"), "':int=5' is not NAME=VALUE");
  EXPECT_EQ(shown("A:real=5"),
            "'real' of 'A:real=5' is not a kind; the kinds are text, int and design");
  EXPECT_EQ(shown("A:=5"), "'' of 'A:=5' is not a kind; the kinds are text, int and design");
  EXPECT_EQ(shown("A=RPM"), "'RPM' is not a number; a text is given as A:text=RPM");
  EXPECT_EQ(shown("A=5mm"), "'5mm' is not a number; a text is given as A:text=5mm");
  EXPECT_EQ(shown("A=inf"), "'inf' is not a number; a text is given as A:text=inf");
  EXPECT_EQ(shown("A=nan"), "'nan' is not a number; a text is given as A:text=nan");
  EXPECT_EQ(shown("A=1e999"), "'1e999' is not a number; a text is given as A:text=1e999");
  EXPECT_EQ(shown("A="), "'' is not a number; a text is given as A:text=");
  EXPECT_EQ(shown("A:int=1.5"), "'1.5' is not an integer; a text is given as A:text=1.5");
  EXPECT_EQ(shown("A:int=3000000000"),
            "'3000000000' is not an integer; a text is given as A:text=3000000000");
}

TEST(ValueSetting, CoordinateSetsItsBufferAndNoOther) {
  const auto document = newDocument();
  const auto activity = Activity::create("A");
  const KEPIMfgBufferPoint_var point = document->ppWordContainer();
  const KEPIMfgBufferTLAxis_var axis = document->ppWordContainer();
  point->SetPoint(1, 2, 3);
  axis->SetTLAxis(4, 5, 6);
  applySetting({"MFG_YPOINT", realValue(20), false}, *document, *activity);
  applySetting({"MFG_ZAXIS", realValue(60), false}, *document, *activity);
  applySetting({"MFG_XPOINT", textValue("no number"), false}, *document, *activity);
  double x = 0;
  double y = 0;
  double z = 0;
  point->GetPoint(x, y, z);
  EXPECT_EQ((std::vector<double>{x, y, z}), (std::vector<double>{1, 20, 3}));
  axis->GetTLAxis(x, y, z);
  EXPECT_EQ((std::vector<double>{x, y, z}), (std::vector<double>{4, 5, 60}));
}

/// What a parameter prints after a value was set for it.
std::string printed(std::string_view name, const KEPMfgParameterValue& value) {
  const auto document = newDocument();
  const auto activity = Activity::create("A");
  applySetting({std::string(name), value, false}, *document, *activity);
  const auto type = KEPISpecObject_var::Adopt(document->features()->FindStartUp(name));
  const KEPIMfgParameterEvaluation_var evaluation = type;
  KEPString text;
  EXPECT_TRUE(evaluation->Evaluate(text)) << name;
  const std::string_view shown = text.View();
  return std::string(shown.substr(std::min(shown.find_first_not_of(' '), shown.size())));
}

TEST(ValueSetting, EveryParameterOfABufferIsPrintedAsItIsSet) {
  for (const char letter : {'X', 'Y', 'Z'}) {
    const std::string component(1, letter);
    for (const std::string& name :
         {"MFG_" + component + "POINT", "MFG_CIRCLE_" + component + "_TGT",
          "MFG_CIRCLE_" + component + "_CENTER", "MFG_CIRCLE_" + component + "_NORMAL",
          "MFG_CIRCLE_" + component + "_PT", "MFG_HELICAL_" + component + "_CENTER",
          "MFG_HELICAL_" + component + "_END"}) {
      EXPECT_EQ(printed(name, realValue(-12.5)), "-12.50000") << name;
    }
  }
  for (const char letter : {'I', 'J', 'K'}) {
    const std::string component(1, letter);
    EXPECT_EQ(printed("MFG_HELICAL_" + component + "_AXIS", realValue(0.5)), "0.50000");
    EXPECT_EQ(printed("MFG_HELICAL_INDIRV_" + component, realValue(0.5)), "0.50000");
  }
  for (const char* const name : {"MFG_CIRCLE_RADIUS", "MFG_HELICAL_RADIUS", "MFG_HELICAL_PITCH"}) {
    EXPECT_EQ(printed(name, integerValue(7)), "7.00000") << name;
  }
  EXPECT_EQ(printed("MFG_FEED_VALUE", realValue(812.5)), "812.5000");
  EXPECT_EQ(printed("MFG_SPNDL_SPEED", realValue(1e5)), "100000.0000");
  EXPECT_EQ(printed("MFG_OUTPUT_COMMENT", textValue("A comment")), "A comment");
}

TEST(ValueSetting, OtherNamesSetParameters) {
  const auto document = newDocument();
  const auto activity = Activity::create("A");
  applySetting({"W", textValue("RPM"), false}, *document, *activity);
  applySetting({"D", realValue(0.5), true}, *document, *activity);
  EXPECT_TRUE(activity->parameters().holds("W"));
  EXPECT_FALSE(activity->parameters().holds("D"));
  ASSERT_TRUE(document->designParameters().contains("D"));
}

}  // namespace
}  // namespace host
