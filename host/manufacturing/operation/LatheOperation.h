#pragma once

#include "Manufacturing/KEPIMfgLatheOperation.h"
#include "Manufacturing/KEPIMfgTurningEnvironment.h"
#include "host/manufacturing/ActivityValues.h"
#include "host/manufacturing/model/ModelObject.h"

namespace host {

/// The way of rotation and the correctors of a turning operation.
class LatheOperation final : public ModelExtension<LatheOperation, KEPIMfgLatheOperation> {
 public:
  explicit LatheOperation(const ActivityValues& values)
      : values_(values.lathe.value_or(LatheValues())) {}

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

}  // namespace host
