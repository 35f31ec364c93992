#include "host/manufacturing/GeneratorData.h"

#include <utility>

#include "host/system/Revision.h"
#include "host/system/Session.h"

namespace host {
namespace {

class OutputSettings final : public KEPIMfgOutputSettings {
 public:
  OutputSettings(std::string_view pointFormat, std::string_view axisFormat)
      : pointFormat_(pointFormat), axisFormat_(axisFormat) {}
  [[nodiscard]] KEPUnicodeString GetPointFormat(int which) const override {
    return which == 1 ? pointFormat_ : KEPUnicodeString();
  }
  [[nodiscard]] KEPUnicodeString GetAxisFormat(int which) const override {
    return which == 1 ? axisFormat_ : KEPUnicodeString();
  }

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return interfaceClass == KEPInterfaceId<KEPIMfgOutputSettings>() ? this : nullptr;
  }
  KEPUnicodeString pointFormat_;
  KEPUnicodeString axisFormat_;
};

}  // namespace

KEPVar<GeneratorData> GeneratorData::create(std::string_view pointFormat,
                                            std::string_view axisFormat) {
  auto settings = KEPIMfgOutputSettings_var::Adopt(new OutputSettings(pointFormat, axisFormat));
  return KEPVar<GeneratorData>::Adopt(new GeneratorData(std::move(settings)));
}

void GeneratorData::setAngleFactor(double factor) noexcept {
  Revision::raise();
  angleFactor_ = factor;
}

KEPBaseUnknown* GeneratorData::Answer(const KEPMetaClass* interfaceClass) {
  return interfaceClass == KEPInterfaceId<KEPIMfgGeneratorData>() ? this : nullptr;
}

void setCurrentGeneratorData(KEPIMfgGeneratorData_var data) {
  Revision::raise();
  session().generatorData = std::move(data);
}

}  // namespace host
