#include "host/manufacturing/operation/LatheOperation.h"

#include "host/manufacturing/model/LookUp.h"

namespace host {

HRESULT LatheOperation::GetWayOfRotation(int& code) const {
  if (!values_.way) return E_FAIL;
  code = *values_.way;
  return S_OK;
}

HRESULT LatheOperation::GetDefaultCorrector(int& number, KEPUnicodeString& outputPoint) const {
  if (!values_.defaultCorrector) return E_FAIL;
  if (KEPFailed(GetCorrector(*values_.defaultCorrector, outputPoint))) return E_FAIL;
  number = *values_.defaultCorrector;
  return S_OK;
}

HRESULT LatheOperation::GetCorrector(int number, KEPUnicodeString& outputPoint) const {
  return lookUp(values_.correctors, number, outputPoint);
}

HRESULT TurningEnvironment::GetAxisSystem(KEPMathVector& origin, KEPMathVector& thirdDirection,
                                          KEPMathVector& firstDirection) const {
  origin = values_.origin;
  thirdDirection = values_.spindleAxis;
  firstDirection = values_.radialAxis;
  return S_OK;
}

}  // namespace host
