#pragma once

#include "KEPIMfgBufferHelix.h"
#include "src/buffer/Triple.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferHelix.
class KEPMfgBufferHelix final : public ppword::Registered<KEPMfgBufferHelix, KEPIMfgBufferHelix> {
 public:
  void SetInDirV(double i, double j, double k) override { initialDirection_ = {i, j, k}; }
  void SetCenter(double x, double y, double z) override { center_ = {x, y, z}; }
  void SetRadius(double radius) override { radius_ = radius; }
  void SetAxis(double i, double j, double k) override { axis_ = {i, j, k}; }
  void SetEnd(double x, double y, double z) override { end_ = {x, y, z}; }
  void SetPitch(double pitch) override { pitch_ = pitch; }

  void GetInDirV(double& i, double& j, double& k) const override {
    initialDirection_.copyTo(i, j, k);
  }
  void GetCenter(double& x, double& y, double& z) const override { center_.copyTo(x, y, z); }
  void GetRadius(double& radius) const override { radius = radius_; }
  void GetAxis(double& i, double& j, double& k) const override { axis_.copyTo(i, j, k); }
  void GetEnd(double& x, double& y, double& z) const override { end_.copyTo(x, y, z); }
  void GetPitch(double& pitch) const override { pitch = pitch_; }

  void SetStart(double x, double y, double z) override { start_ = {x, y, z}; }
  void GetStart(double& x, double& y, double& z) const override { start_.copyTo(x, y, z); }

 private:
  ppword::Triple initialDirection_;
  ppword::Triple center_;
  double radius_ = 0.0;
  ppword::Triple axis_;
  ppword::Triple end_;
  double pitch_ = 0.0;
  ppword::Triple start_;
};
