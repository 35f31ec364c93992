#pragma once

#include "System/KEPString.h"
#include "System/KEPVar.h"
#include "src/registration/Registered.h"

namespace ppword {

/// Where the format of a numeric parameter comes from: its "Format" attribute, or first the point
/// or axis format of the running generation.
enum class FormatSource { Attribute, Points, Axes };

/// Which number of a triple: x or i, y or j, z or k.
enum Component { kFirst = 0, kSecond = 1, kThird = 2 };

/// Reads one number from a motion buffer.
using BufferNumber = double (*)(const KEPBaseUnknown& buffer);

/// Prints one number of a motion buffer for the parameter type that `evaluation` extends. False,
/// with `value` untouched, when the type belongs to no PP word container, the container has no such
/// buffer, there is no format, or the format cannot print a number. An evaluation that extends no
/// feature raises the null-handle error.
[[nodiscard]] bool evaluateNumber(const KEPBaseUnknown& evaluation, const KEPMetaClass* buffer,
                                  BufferNumber read, FormatSource source, KEPString& value);

/// Prints a number with the "Format" attribute of a parameter type. False, with `value` untouched,
/// when there is no format or it cannot print the number.
[[nodiscard]] bool printWithAttribute(const KEPBaseUnknown_var& parameter, double number,
                                      KEPString& value);

/// How a getter of a buffer interface gives a component: one number, or one of three.
template <class Getter>
struct BufferGetter;

template <class Buffer>
struct BufferGetter<void (Buffer::*)(double&) const> {
  using Interface = Buffer;
  static double read(const Buffer& buffer, void (Buffer::*get)(double&) const, Component) {
    double number = 0.0;
    (buffer.*get)(number);
    return number;
  }
};

template <class Buffer>
struct BufferGetter<void (Buffer::*)(double&, double&, double&) const> {
  using Interface = Buffer;
  static double read(const Buffer& buffer, void (Buffer::*get)(double&, double&, double&) const,
                     Component component) {
    double triple[3] = {};
    (buffer.*get)(triple[kFirst], triple[kSecond], triple[kThird]);
    return triple[component];
  }
};

/// A parameter whose value is one number of a motion buffer: what differs is the getter, the
/// component and the source of the format.
template <class Self, auto kGet, Component kComponent, FormatSource kSource>
class NumericEvaluation : public Registered<Self> {
 public:
  /// As KEPIMfgParameterEvaluation::Evaluate.
  [[nodiscard]] bool Evaluate(KEPString& value) const {
    return evaluateNumber(*this, KEPInterfaceId<typename Getter::Interface>(), &read, kSource,
                          value);
  }

 private:
  using Getter = BufferGetter<decltype(kGet)>;

  static double read(const KEPBaseUnknown& buffer) {
    return Getter::read(static_cast<const typename Getter::Interface&>(buffer), kGet, kComponent);
  }
};

}  // namespace ppword
