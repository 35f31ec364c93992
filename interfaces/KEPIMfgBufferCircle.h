#pragma once

#include "System/KEPComponent.h"

/// The current circular motion. Coordinates and lengths are in the unit of the output, directions
/// are stored unchanged; every value is 0 until set.
class KEP_PLATFORM KEPIMfgBufferCircle : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferCircle";

  /// The tangent at the start of the arc.
  virtual void SetTgt(double x, double y, double z) = 0;
  virtual void SetCenter(double x, double y, double z) = 0;
  virtual void SetRadius(double radius) = 0;
  /// The normal of the circle's plane.
  virtual void SetNormal(double i, double j, double k) = 0;
  /// The end of the arc.
  virtual void SetPt(double x, double y, double z) = 0;

  virtual void GetTgt(double& x, double& y, double& z) const = 0;
  virtual void GetCenter(double& x, double& y, double& z) const = 0;
  virtual void GetRadius(double& radius) const = 0;
  virtual void GetNormal(double& i, double& j, double& k) const = 0;
  virtual void GetPt(double& x, double& y, double& z) const = 0;
};

using KEPIMfgBufferCircle_var = KEPVar<KEPIMfgBufferCircle>;
