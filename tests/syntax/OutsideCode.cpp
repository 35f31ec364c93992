#include "tests/syntax/OutsideCode.h"

#include <deque>

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgBufferTLAxis.h"
#include "KEPIMfgPPWordContainer.h"
#include "System/KEPError.h"
#include "host/system/Dictionary.h"

namespace ppword::test::changing {
namespace {

class HookEvaluation final : public KEPIMfgParameterEvaluation {
 public:
  ~HookEvaluation() override {
    try {
      fromOutside();
    } catch (const KEPError&) {
      // Whoever ends a feature does not see the errors of its extensions.
    }
  }
  [[nodiscard]] bool Evaluate(KEPString& value) override {
    fromOutside();
    value = "h";
    return true;
  }
};

class HookCircle final : public KEPIMfgBufferCircle {
 public:
  void SetTgt(double, double, double) override {}
  void GetTgt(double& x, double& y, double& z) const override { x = y = z = 1.0; }
  void SetCenter(double, double, double) override {}
  void GetCenter(double& x, double& y, double& z) const override { x = y = z = 2.0; }
  void SetNormal(double, double, double) override {}
  void GetNormal(double& x, double& y, double& z) const override { x = y = z = 3.0; }
  void SetPt(double, double, double) override {}
  void GetPt(double& x, double& y, double& z) const override { x = y = z = 4.0; }
  void SetRadius(double) override {}
  void GetRadius(double& radius) const override {
    fromOutside();
    radius = 5.0;
  }
};

template <class Class>
KEPBaseUnknown* create(KEPBaseUnknown* extended) {
  auto* const made = new Class;
  made->BindTo(*extended);
  return made;
}

}  // namespace

const KEPMetaClass& extensionOf(const std::string& lateType) {
  static auto& classes = *new std::deque<KEPMetaClass>;
  return classes.emplace_back(lateType + "Class", KEPMetaClass::TypeOfClass::DataExtension, nullptr,
                              lateType, "Test");
}

void enter(const KEPMetaClass& meta, const KEPMetaClass* offered, KEPCreator creator) {
  KEPFillDictionary(&meta, offered, creator, nullptr, 1);
}

KEPBaseUnknown* createHook(KEPBaseUnknown* extended) { return create<HookEvaluation>(extended); }

void registerOutsideCode() {
  static const bool isDone = [] {
    const KEPMetaClass& words = extensionOf(kLateType);
    enter(words, KEPInterfaceId<KEPIMfgBufferCircle>(), &create<HookCircle>);
    for (const KEPMetaClass* offered :
         {KEPInterfaceId<KEPIMfgPPWordContainer>(), KEPInterfaceId<KEPIMfgBufferPoint>(),
          KEPInterfaceId<KEPIMfgBufferTLAxis>(), KEPInterfaceId<KEPIMfgBufferSeqMotionNumber>()}) {
      enter(words, offered, host::findCreator("MfgPPWordCont", offered));
    }
    enter(extensionOf(kHook), KEPInterfaceId<KEPIMfgParameterEvaluation>(), &createHook);
    return true;
  }();
  static_cast<void>(isDone);
}

}  // namespace ppword::test::changing
