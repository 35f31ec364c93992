#pragma once

#include "System/KEPComponent.h"

/// The current helical motion. Coordinates and lengths are in the unit of the output, directions
/// are stored unchanged; every value is 0 until set. The two functions of the start point come last
/// in the virtual table.
class KEP_PLATFORM KEPIMfgBufferHelix : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferHelix";

  /// The initial direction of the motion.
  virtual void SetInDirV(double i, double j, double k) = 0;
  virtual void SetCenter(double x, double y, double z) = 0;
  virtual void SetRadius(double radius) = 0;
  /// The axis of the helix.
  virtual void SetAxis(double i, double j, double k) = 0;
  virtual void SetEnd(double x, double y, double z) = 0;
  virtual void SetPitch(double pitch) = 0;

  virtual void GetInDirV(double& i, double& j, double& k) const = 0;
  virtual void GetCenter(double& x, double& y, double& z) const = 0;
  virtual void GetRadius(double& radius) const = 0;
  virtual void GetAxis(double& i, double& j, double& k) const = 0;
  virtual void GetEnd(double& x, double& y, double& z) const = 0;
  virtual void GetPitch(double& pitch) const = 0;

  virtual void SetStart(double x, double y, double z) = 0;
  virtual void GetStart(double& x, double& y, double& z) const = 0;
};

using KEPIMfgBufferHelix_var = KEPVar<KEPIMfgBufferHelix>;
