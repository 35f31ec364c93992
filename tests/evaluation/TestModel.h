#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Knowledge/KEPICkeParm.h"
#include "Manufacturing/KEPIMfgActivity.h"
#include "Manufacturing/KEPIMfgInsert.h"
#include "Manufacturing/KEPIMfgLatheOperation.h"
#include "Manufacturing/KEPIMfgResource.h"
#include "Manufacturing/KEPIMfgSequentialMotions.h"
#include "Manufacturing/KEPIMfgTool.h"
#include "Manufacturing/KEPIMfgToolAssembly.h"
#include "Manufacturing/KEPIMfgToolChange.h"
#include "Manufacturing/KEPIMfgToolPath.h"
#include "Manufacturing/KEPIMfgTurningEnvironment.h"
#include "System/KEPError.h"

// A manufacturing model for tests: components that answer the interfaces they are given, and an
// object for each interface that answers what its members say.

namespace ppword::test {

/// A component of some late types that offers the objects added to it.
class TestObject final : public KEPBaseUnknown {
 public:
  explicit TestObject(std::initializer_list<const char*> kinds) {
    for (const char* kind : kinds) kinds_.insert(kind);
    alive().insert(this);
  }
  ~TestObject() override { alive().erase(this); }

  /// The object of that class, made when first asked for.
  template <class Extension>
  Extension& add() {
    auto& extension = offered_[KEPInterfaceId<Extension>()];
    if (extension == nullptr) {
      extension = std::make_unique<Extension>();
      extension->BindTo(*this);
    }
    return static_cast<Extension&>(*extension);
  }

  /// The references on all components that live.
  [[nodiscard]] static int references() {
    int count = 0;
    for (const TestObject* object : alive()) count += object->GetReferenceCount();
    return count;
  }

 private:
  static std::set<const TestObject*>& alive() {
    static std::set<const TestObject*> objects;
    return objects;
  }

  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    const auto found = offered_.find(interfaceClass);
    return found == offered_.end() ? nullptr : found->second.get();
  }
  [[nodiscard]] bool HasType(std::string_view lateType) const override {
    return kinds_.contains(std::string(lateType));
  }

  std::set<std::string> kinds_;
  std::map<const KEPMetaClass*, std::unique_ptr<KEPBaseUnknown>> offered_;
};

[[nodiscard]] inline KEPVar<TestObject> object(std::initializer_list<const char*> kinds = {}) {
  return KEPVar<TestObject>::Adopt(new TestObject(kinds));
}

/// Values by name, and the names that were asked for.
template <class Interface>
class TestValues : public Interface {
 public:
  [[nodiscard]] int GetValue(std::string_view name, KEPMfgParameterValue& value) const override {
    asked.emplace_back(name);
    const auto found = values.find(std::string(name));
    if (found == values.end()) return 1;
    value = found->second;
    return 0;
  }
  TestValues& text(std::string_view name, const char* value) {
    values[std::string(name)] = {KEPMfgParameterValue::kText, 0, 0.0, value};
    return *this;
  }
  TestValues& real(std::string_view name, double value) {
    values[std::string(name)] = {KEPMfgParameterValue::kReal, 0, value, {}};
    return *this;
  }
  TestValues& integer(std::string_view name, int value) {
    values[std::string(name)] = {KEPMfgParameterValue::kInteger, value, 0.0, {}};
    return *this;
  }

  std::map<std::string, KEPMfgParameterValue> values;
  mutable std::vector<std::string> asked;
};

class TestActivity final : public KEPIMfgActivity {
 public:
  [[nodiscard]] KEPUnicodeString GetName() const override { return "Test.1"; }
  HRESULT GetToolAndAssembly(KEPBaseUnknown_var& itsTool,
                             KEPBaseUnknown_var& itsAssembly) const override {
    itsTool = tool;
    itsAssembly = assembly;
    return tool || assembly ? S_OK : E_FAIL;
  }
  KEPBaseUnknown_var tool;
  KEPBaseUnknown_var assembly;
};

class TestSequence final : public KEPIMfgSequence {
 public:
  HRESULT GetActivityOfToolChange(const KEPIMfgActivity_var& toolChange,
                                  const KEPMetaClass* interfaceClass,
                                  KEPIMfgActivity_var& activity) const override {
    askedFor = toolChange.Get();
    activity = interfaceClass == KEPInterfaceId<KEPIMfgMachiningOperation>() ? operation : nullptr;
    return status;
  }
  KEPIMfgActivity_var operation;
  HRESULT status = S_OK;
  mutable const KEPBaseUnknown* askedFor = nullptr;
};

class TestToolChange final : public KEPIMfgToolChange {
 public:
  [[nodiscard]] KEPIMfgSequence_var GetSequence() const override { return sequence; }
  KEPIMfgSequence_var sequence;
};

class TestLatheOperation final : public KEPIMfgLatheOperation {
 public:
  HRESULT GetWayOfRotation(int& code) const override {
    if (KEPSucceeded(wayStatus)) code = way;
    return wayStatus;
  }
  HRESULT GetDefaultCorrector(int& number, KEPUnicodeString& point) const override {
    if (defaultPoint.IsEmpty()) return E_FAIL;
    number = 1;
    point = defaultPoint;
    return S_OK;
  }
  HRESULT GetCorrector(int number, KEPUnicodeString& point) const override {
    const auto found = points.find(number);
    if (found == points.end()) return E_FAIL;
    point = found->second;
    return S_OK;
  }
  int way = 1;
  HRESULT wayStatus = S_OK;
  KEPUnicodeString defaultPoint;
  std::map<int, KEPUnicodeString> points;
};

class TestFeedrates final : public TestValues<KEPIMfgFeedrateParameters> {
 public:
  [[nodiscard]] KEPBaseUnknown_var GetParameter(std::string_view name) const override {
    const auto found = parameters.find(std::string(name));
    return found == parameters.end() ? nullptr : found->second;
  }
  std::map<std::string, KEPBaseUnknown_var> parameters;
};

using TestStrategy = TestValues<KEPIMfgStrategyParameters>;
using TestDimensions = TestValues<KEPIMfgGeomParameters>;
using TestTool = TestValues<KEPIMfgTool>;
using TestInsert = TestValues<KEPIMfgInsert>;

class TestMotions final : public KEPIMfgSequentialMotions {
 public:
  [[nodiscard]] KEPListVal<KEPBaseUnknown_var> GetMotions() const override { return motions; }
  KEPListVal<KEPBaseUnknown_var> motions;
};

class TestMotion final : public KEPIMfgSeqMotionParameters {
 public:
  [[nodiscard]] KEPIMfgFeedrateParameters_var GetFeedrateParameters() const override {
    return feedrates;
  }
  [[nodiscard]] KEPIMfgStrategyParameters_var GetStrategyParameters() const override {
    return strategy;
  }
  KEPIMfgFeedrateParameters_var feedrates;
  KEPIMfgStrategyParameters_var strategy;
};

class TestToolPath final : public KEPIMfgTraject {
 public:
  HRESULT GetType(bool& isKnown, int& code) const override {
    isKnown = known;
    code = type;
    return status;
  }
  bool known = true;
  int type = 1;
  HRESULT status = S_OK;
};

class TestToolPathManagement final : public KEPIMfgToolPathManagement {
 public:
  HRESULT GetToolPath(KEPIMfgTraject_var& itsPath) const override {
    itsPath = path;
    return status;
  }
  KEPIMfgTraject_var path;
  HRESULT status = S_OK;
};

class TestToolCompensation final : public KEPIMfgToolCompensation {
 public:
  HRESULT GetOutputPoint(int corrector, KEPUnicodeString& point) const override {
    asked.push_back(corrector);
    const auto found = points.find(corrector);
    if (found == points.end()) return E_FAIL;
    point = found->second;
    return S_OK;
  }
  std::map<int, KEPUnicodeString> points;
  mutable std::vector<int> asked;
};

class TestReplay final : public KEPIMfgToolCompensationValueReplay {
 public:
  HRESULT GetPosition(const KEPIMfgActivity_var& activity, int point,
                      KEPMathVector& position) const override {
    askedFor = activity.Get();
    const auto found = positions.find(point);
    if (found == positions.end()) return E_FAIL;
    position = found->second;
    return S_OK;
  }
  std::map<int, KEPMathVector> positions;
  mutable const KEPBaseUnknown* askedFor = nullptr;
};

class TestAssembly final : public TestValues<KEPIMfgToolAssembly> {
 public:
  [[nodiscard]] KEPBaseUnknown_var GetInsert() const override { return insert; }
  KEPBaseUnknown_var insert;
};

class TestLatheAssembly final : public KEPIMfgLatheToolAssembly {};

class TestReference final : public KEPIMfgLatheRefCompensation {
 public:
  HRESULT GetNumber(int& itsNumber) const override {
    if (KEPSucceeded(status)) itsNumber = number;
    return status;
  }
  int number = 0;
  HRESULT status = S_OK;
};

class TestInsertUtilities final : public KEPIMfgLatheToolInsertUtilities {
 public:
  HRESULT GetRadius(const KEPIMfgActivity_var& activity, const KEPUnicodeString& point,
                    double& radius) const override {
    askedFor = activity.Get();
    const auto found = radii.find(std::string(point.View()));
    if (found == radii.end()) return E_FAIL;
    radius = found->second;
    return S_OK;
  }
  std::map<std::string, double> radii;
  mutable const KEPBaseUnknown* askedFor = nullptr;
};

class TestResource final : public KEPIMfgResource {
 public:
  [[nodiscard]] KEPUnicodeString GetResourceType() const override { return type; }
  [[nodiscard]] HRESULT GetValue(std::string_view /*name*/,
                                 KEPUnicodeString& /*value*/) const override {
    return E_FAIL;
  }
  KEPUnicodeString type;
};

class TestTurningEnvironment final : public KEPIMfgTurningEnvironment {
 public:
  HRESULT GetAxisSystem(KEPMathVector& origin, KEPMathVector& third,
                        KEPMathVector& first) const override {
    presetThird = third;
    presetFirst = first;
    if (KEPFailed(status)) return status;
    origin = {7, 7, 7};
    third = itsThird;
    first = itsFirst;
    return status;
  }
  KEPMathVector itsThird{0, 0, 1};
  KEPMathVector itsFirst{1, 0, 0};
  HRESULT status = S_OK;
  mutable KEPMathVector presetThird;
  mutable KEPMathVector presetFirst;
};

}  // namespace ppword::test
