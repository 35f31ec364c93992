#pragma once

#include "KEPIMfgBufferRotate.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferRotate.
class KEPMfgBufferRotate final
    : public ppword::Registered<KEPMfgBufferRotate, KEPIMfgBufferRotate> {
 public:
  bool SetAngle(double angle) override {
    angle_ = angle;
    return true;
  }
  bool GetAngle(double& angle) const override {
    angle = angle_;
    return true;
  }

  bool SetFirstText(const KEPUnicodeString& text) override {
    firstText_ = text;
    return true;
  }
  bool GetFirstText(KEPUnicodeString& text) const override {
    text = firstText_;
    return true;
  }

  bool SetSecondText(const KEPUnicodeString& text) override {
    secondText_ = text;
    return true;
  }
  bool GetSecondText(KEPUnicodeString& text) const override {
    text = secondText_;
    return true;
  }

  bool SetAxisSystem(const KEPMathAxis& axis) override {
    axisSystem_ = axis;
    return true;
  }
  bool GetAxisSystem(KEPMathAxis& axis) const override {
    axis = axisSystem_;
    return true;
  }

  bool SetThirdText(const KEPUnicodeString& text) override {
    thirdText_ = text;
    return true;
  }
  bool GetThirdText(KEPUnicodeString& text) const override {
    text = thirdText_;
    return true;
  }

 private:
  double angle_ = 0.0;
  KEPUnicodeString firstText_;
  KEPUnicodeString secondText_;
  KEPUnicodeString thirdText_;
  KEPMathAxis axisSystem_;
};
