#pragma once

#include "Manufacturing/KEPIMfgTool.h"
#include "host/manufacturing/ActivityValues.h"
#include "host/manufacturing/model/LookUp.h"
#include "host/manufacturing/model/ModelObject.h"

namespace host {

/// The correctors of a tool.
class ToolCompensation final : public ModelExtension<ToolCompensation, KEPIMfgToolCompensation> {
 public:
  using Points = std::map<int, std::string>;
  explicit ToolCompensation(const Points& points) : points_(points) {}

  HRESULT GetOutputPoint(int corrector, KEPUnicodeString& outputPoint) const override {
    return lookUp(points_, corrector, outputPoint);
  }

 private:
  const Points& points_;
};

/// Where the points of a tool lie, for whatever activity works with it.
class ToolReplay final : public ModelExtension<ToolReplay, KEPIMfgToolCompensationValueReplay> {
 public:
  using Positions = std::map<int, KEPMathVector>;
  explicit ToolReplay(const Positions& positions) : positions_(positions) {}

  HRESULT GetPosition(const KEPIMfgActivity_var& /*activity*/, int point,
                      KEPMathVector& position) const override {
    return lookUp(positions_, point, position);
  }

 private:
  const Positions& positions_;
};

}  // namespace host
