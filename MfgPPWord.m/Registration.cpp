// Registers every class of the module with the host when the module is loaded.

#include <memory>
#include <string_view>
#include <type_traits>

#include "MfgPPWordExport.h"
#include "src/buffer/KEPMfgBufferCircle.h"
#include "src/buffer/KEPMfgBufferComment.h"
#include "src/buffer/KEPMfgBufferCorrectorNumber.h"
#include "src/buffer/KEPMfgBufferFeedrate.h"
#include "src/buffer/KEPMfgBufferHelix.h"
#include "src/buffer/KEPMfgBufferHoleNumber.h"
#include "src/buffer/KEPMfgBufferPoint.h"
#include "src/buffer/KEPMfgBufferRotate.h"
#include "src/buffer/KEPMfgBufferSeqMotionNumber.h"
#include "src/buffer/KEPMfgBufferSpindle.h"
#include "src/buffer/KEPMfgBufferTLAxis.h"
#include "src/container/KEPMfgPPCommand.h"
#include "src/container/KEPMfgPPWordContainerTie.h"
#include "src/container/KEPMfgPPWordFactory.h"
#include "src/container/KEPMfgPPWordTable.h"
#include "src/evaluation/LineEvaluation.h"
#include "src/evaluation/ParameterEvaluations.h"
#include "src/syntax/KEPMfgSyntaxEvaluation.h"

namespace {

KEPBaseUnknown& checked(KEPBaseUnknown* extended) {
  if (extended == nullptr) KEPRaiseNullHandle();
  return *extended;
}

/// Serves KEPIMfgParameterEvaluation: owns an evaluation and forwards the operation to it.
template <class Evaluation>
class ParameterEvaluationTie final : public ppword::LineEvaluation {
 public:
  /// Both this object and the one it owns become extensions of `extended`.
  explicit ParameterEvaluationTie(KEPBaseUnknown& extended) {
    BindTo(extended);
    evaluation_.BindTo(extended);
  }

  [[nodiscard]] const KEPMetaClass* GetMetaObject() const override {
    return evaluation_.GetMetaObject();
  }
  [[nodiscard]] bool Evaluate(KEPString& value) override { return evaluation_.Evaluate(value); }
  [[nodiscard]] bool appendText(ppword::LineWriter& out) override {
    return evaluation_.appendText(out);
  }

 private:
  Evaluation evaluation_;
};

/// The tie object that serves a class which does not derive from its interface.
template <class Class>
struct TieOf {
  using Type = ParameterEvaluationTie<Class>;
};
template <>
struct TieOf<KEPMfgPPWordContainer> {
  using Type = KEPMfgPPWordContainerTie;
};

/// The ways of creating the extension object of a class: the class itself, which derives from the
/// interface, or a tie around it. Each tells the meta-object that the class derives from.
struct BOA {
  template <class Interface, class Class>
  static KEPBaseUnknown* create(KEPBaseUnknown* extended) {
    static_assert(std::is_base_of_v<Interface, Class>);
    KEPBaseUnknown& implementation = checked(extended);
    auto* const object = new Class;
    object->BindTo(implementation);
    return object;
  }
  template <class Interface>
  static const KEPMetaClass* base() {
    return KEPInterfaceId<Interface>();
  }
};

struct TIE {
  template <class Interface, class Class>
  static KEPBaseUnknown* create(KEPBaseUnknown* extended) {
    using Tie = typename TieOf<Class>::Type;
    static_assert(std::is_base_of_v<Interface, Tie>);
    return new Tie(checked(extended));
  }
  template <class Interface>
  static const KEPMetaClass* base() {
    return KEPInterfaceId<KEPBaseUnknown>();
  }
};

}  // namespace

#define PPWORD_REGISTRATION(Way, Interface, Class, Type, LateType, SecondLateType) \
  extern "C" MFGPPWORD_EXPORT KEPBaseUnknown* Create##Way##Interface##Class(       \
      KEPBaseUnknown* extended);                                                   \
  KEPBaseUnknown* Create##Way##Interface##Class(KEPBaseUnknown* extended) {        \
    return Way::create<Interface, Class>(extended);                                \
  }
#include "Registrations.def"

namespace {

struct Record {
  std::string_view className;
  KEPMetaClass::TypeOfClass type;
  std::string_view lateType;
  std::string_view secondLateType;
  const KEPMetaClass* (*base)();
  const KEPMetaClass* (*interfaceClass)();
  KEPCreator creator;
  KEPMetaClass*& slot;
};

#define PPWORD_REGISTRATION(Way, Interface, Class, Type, LateType, SecondLateType) \
  Record{#Class,                                                                   \
         KEPMetaClass::TypeOfClass::Type,                                          \
         LateType,                                                                 \
         SecondLateType,                                                           \
         &Way::base<Interface>,                                                    \
         &KEPInterfaceId<Interface>,                                               \
         &Create##Way##Interface##Class,                                           \
         ppword::metaObjectSlot<Class>},
constexpr Record kRecords[] = {
#include "Registrations.def"
};

/// Meta-objects live as long as the process: the slot only refers to it.
KEPMetaClass* newMetaObject(const Record& record) {
  auto meta = std::make_unique<KEPMetaClass>(record.className, record.type, record.base(),
                                             record.lateType, "Manufacturing");
  if (!record.secondLateType.empty()) meta->Extend(record.secondLateType);
  return meta.release();
}

bool registerClasses() {
  for (const Record& record : kRecords) {
    if (record.slot == nullptr) record.slot = newMetaObject(record);
    KEPFillDictionary(record.slot, record.interfaceClass(), record.creator, nullptr, 1);
  }
  return true;
}

[[maybe_unused]] const bool kRegistered = registerClasses();

}  // namespace
