#pragma once

#include <string_view>

#include "post/generator/Summary.h"
#include "post/parameters/BufferValue.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// Follows which values a tool path has stated and which of them are 0, and counts those that no
/// machine can mean.
class GivenValues {
 public:
  explicit GivenValues(Tally& impossible) : impossible_(impossible) {}

  /// `title` names the element in the count.
  void read(const Element& element, std::string_view title);
  /// A point with the tool axis that it states, after its element was read.
  void read(const Position& position, const Element& element, std::string_view title);

  [[nodiscard]] bool holdAll(BufferValues values) const noexcept {
    return stated_.given.holdAll(values);
  }
  /// True for a feed rate, a speed, a radius or a pitch which was stated and is not 0.
  [[nodiscard]] bool cannotBeZero(BufferValues values) const noexcept {
    const bool isMeasure = !values.isEmpty() && kMeasures.holdAll(values);
    return isMeasure && !stated_.zeros.holdAll(values) && !stated_.zeroFactors.holdAll(values);
  }

 private:
  struct Stated {
    BufferValues given;
    /// Those whose last value is 0, and those whose last factor is.
    BufferValues zeros;
    BufferValues zeroFactors;
  };
  class ElementReader;

  /// Values whose text is not 0 unless they are.
  static constexpr BufferValues kMeasures = BufferValues(BufferValue::Feedrate) |
                                            BufferValue::SpindleSpeed | BufferValue::CircleRadius |
                                            BufferValue::HelixRadius | BufferValue::HelixPitch;

  Tally& impossible_;
  Stated stated_;
};

}  // namespace host
