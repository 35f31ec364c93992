#pragma once

#include "KEPIMfgBufferCircle.h"
#include "src/buffer/Triple.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferCircle.
class KEPMfgBufferCircle final
    : public ppword::Registered<KEPMfgBufferCircle, KEPIMfgBufferCircle> {
 public:
  void SetTgt(double x, double y, double z) override { tangent_ = {x, y, z}; }
  void SetCenter(double x, double y, double z) override { center_ = {x, y, z}; }
  void SetRadius(double radius) override { radius_ = radius; }
  void SetNormal(double i, double j, double k) override { normal_ = {i, j, k}; }
  void SetPt(double x, double y, double z) override { end_ = {x, y, z}; }

  void GetTgt(double& x, double& y, double& z) const override { tangent_.copyTo(x, y, z); }
  void GetCenter(double& x, double& y, double& z) const override { center_.copyTo(x, y, z); }
  void GetRadius(double& radius) const override { radius = radius_; }
  void GetNormal(double& i, double& j, double& k) const override { normal_.copyTo(i, j, k); }
  void GetPt(double& x, double& y, double& z) const override { end_.copyTo(x, y, z); }

 private:
  ppword::Triple tangent_;
  ppword::Triple center_;
  double radius_ = 0.0;
  ppword::Triple normal_;
  ppword::Triple end_;
};
