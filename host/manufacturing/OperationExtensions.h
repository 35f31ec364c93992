#pragma once

#include <optional>
#include <vector>

#include "Knowledge/KEPICkeParm.h"
#include "Manufacturing/KEPIMfgLatheOperation.h"
#include "Manufacturing/KEPIMfgSequentialMotions.h"
#include "Manufacturing/KEPIMfgToolPath.h"
#include "Manufacturing/KEPIMfgTurningEnvironment.h"
#include "host/manufacturing/ParameterTable.h"

// What operations offer beside their tool.

namespace host {

/// The feed rate and the spindle speed of an operation or of a sequential motion.
class FeedrateParameters final : public NamedTable<FeedrateParameters, KEPIMfgFeedrateParameters> {
 public:
  explicit FeedrateParameters(const FeedrateValues& values);

  [[nodiscard]] KEPBaseUnknown_var GetParameter(std::string_view name) const override;

 private:
  KEPICkeParm_var machining_;
  KEPICkeParm_var spindle_;
};

/// The way of rotation and the correctors of a turning operation, or of another one that states
/// them.
class LatheOperation final : public ModelExtension<LatheOperation, KEPIMfgLatheOperation> {
 public:
  explicit LatheOperation(const ActivityValues& values)
      : LatheOperation(values.lathe.value_or(LatheValues())) {}
  explicit LatheOperation(const LatheValues& values) : values_(values) {}

  HRESULT GetWayOfRotation(int& code) const override;
  HRESULT GetDefaultCorrector(int& number, KEPUnicodeString& outputPoint) const override;
  HRESULT GetCorrector(int number, KEPUnicodeString& outputPoint) const override;

 private:
  LatheValues values_;
};

/// The axis system that an operation is programmed in.
class TurningEnvironment final
    : public ModelExtension<TurningEnvironment, KEPIMfgTurningEnvironment> {
 public:
  explicit TurningEnvironment(const TurningValues& values) : values_(values) {}

  HRESULT GetAxisSystem(KEPMathVector& origin, KEPMathVector& thirdDirection,
                        KEPMathVector& firstDirection) const override;

 private:
  const TurningValues& values_;
};

/// The motions of a sequential operation.
class SequentialMotions final : public ModelExtension<SequentialMotions, KEPIMfgSequentialMotions> {
 public:
  explicit SequentialMotions(const std::vector<SequentialMotionValues>& motions) {
    for (const SequentialMotionValues& motion : motions) {
      motions_.Append(createModelObject(model::kSequentialMotion, motion));
    }
  }

  [[nodiscard]] KEPListVal<KEPBaseUnknown_var> GetMotions() const override { return motions_; }

 private:
  KEPListVal<KEPBaseUnknown_var> motions_;
};

/// What one motion offers: the motion's own extensions.
class SequentialMotionParameters final
    : public ModelExtension<SequentialMotionParameters, KEPIMfgSeqMotionParameters> {
 public:
  explicit SequentialMotionParameters(const SequentialMotionValues& /*motion*/) {}

  [[nodiscard]] KEPIMfgFeedrateParameters_var GetFeedrateParameters() const override {
    return KEPIMfgFeedrateParameters_var::Of(this);
  }
  [[nodiscard]] KEPIMfgStrategyParameters_var GetStrategyParameters() const override {
    return KEPIMfgStrategyParameters_var::Of(this);
  }
};

/// A tool path that knows its type, or does not.
class Traject final : public ModelExtension<Traject, KEPIMfgTraject> {
 public:
  explicit Traject(const ToolPathValues& values) : type_(values.type) {}

  HRESULT GetType(bool& known, int& type) const override {
    known = type_.has_value();
    type = type_.value_or(type);
    return S_OK;
  }

 private:
  std::optional<int> type_;
};

/// The tool path of an operation that has one.
class ToolPathManagement final
    : public ModelExtension<ToolPathManagement, KEPIMfgToolPathManagement> {
 public:
  explicit ToolPathManagement(const ActivityValues& values) {
    if (values.toolPath) path_ = createModelObject(model::kToolPath, *values.toolPath);
  }

  HRESULT GetToolPath(KEPIMfgTraject_var& path) const override {
    path = path_;
    return path ? S_OK : E_FAIL;
  }

 private:
  KEPBaseUnknown_var path_;
};

}  // namespace host
