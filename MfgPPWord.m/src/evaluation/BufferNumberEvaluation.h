#pragma once

#include "System/KEPString.h"
#include "src/evaluation/KnownNumber.h"
#include "src/registration/Registered.h"

namespace ppword {

/// Which of the numbers that a getter sets: x or i, y or j, z or k, or the only one.
enum class Component { X, Y, Z, Only };

/// How a getter of a buffer interface returns a component: one number, or one of three.
template <class Getter>
struct BufferGetter;

template <class Buffer>
struct BufferGetter<void (Buffer::*)(double&) const> {
  using Interface = Buffer;
  template <auto kGet, Component kComponent>
  static double read(const Buffer& buffer) {
    static_assert(kComponent == Component::Only);
    double number = 0.0;
    (buffer.*kGet)(number);
    return number;
  }
};

template <class Buffer>
struct BufferGetter<void (Buffer::*)(double&, double&, double&) const> {
  using Interface = Buffer;
  template <auto kGet, Component kComponent>
  static double read(const Buffer& buffer) {
    static_assert(kComponent != Component::Only);
    double triple[3] = {};
    (buffer.*kGet)(triple[0], triple[1], triple[2]);
    return triple[static_cast<int>(kComponent)];
  }
};

/// A parameter whose value is one number of a motion buffer: what differs is the getter, the
/// component and the source of the format.
template <class Self, auto kGet, Component kComponent, FormatSource kSource>
class BufferNumberEvaluation : public Registered<Self> {
 public:
  /// As KEPIMfgParameterEvaluation::Evaluate.
  [[nodiscard]] bool Evaluate(KEPString& value) { return known_.print(wanted(), value); }
  /// As LineParameter::appendText.
  [[nodiscard]] bool appendText(LineWriter& out) {
    return known_.isKnown(kSource) ? known_.appendKnown<&read>(out) : known_.append(wanted(), out);
  }

 private:
  using Getter = BufferGetter<decltype(kGet)>;

  static double read(const KEPBaseUnknown& buffer) {
    return Getter::template read<kGet, kComponent>(
        static_cast<const typename Getter::Interface&>(buffer));
  }

  [[nodiscard]] KnownNumber::Wanted wanted() const {
    return {*this, KEPInterfaceId<typename Getter::Interface>(), &read, kSource};
  }

  KnownNumber known_;
};

}  // namespace ppword
