#pragma once

#include <cstdint>
#include <string_view>

#include "post/generator/Summary.h"
#include "post/toolpath/ToolPath.h"

namespace host {

/// The values of the motion buffers that a tool path has to state before they mean anything. Others
/// have a value from the start: the factors and the way of the spindle, numbers and texts.
enum class BufferValue : std::uint32_t {
  Point = 1U << 0U,
  ToolAxis = 1U << 1U,
  CircleTangent = 1U << 2U,
  CircleCenter = 1U << 3U,
  CircleRadius = 1U << 4U,
  CircleNormal = 1U << 5U,
  CirclePoint = 1U << 6U,
  HelixInDirV = 1U << 7U,
  HelixCenter = 1U << 8U,
  HelixRadius = 1U << 9U,
  HelixAxis = 1U << 10U,
  HelixStart = 1U << 11U,
  HelixEnd = 1U << 12U,
  HelixPitch = 1U << 13U,
  Feedrate = 1U << 14U,
  SpindleSpeed = 1U << 15U
};

/// Several of them.
class BufferValues {
 public:
  constexpr BufferValues() = default;
  constexpr BufferValues(BufferValue value) : bits_(static_cast<std::uint32_t>(value)) {}

  [[nodiscard]] constexpr bool holdAll(BufferValues others) const noexcept {
    return (others.bits_ & ~bits_) == 0;
  }
  constexpr void add(BufferValues others) noexcept { bits_ |= others.bits_; }
  friend constexpr BufferValues operator|(BufferValues left, BufferValues right) noexcept {
    left.add(right);
    return left;
  }

 private:
  std::uint32_t bits_ = 0;
};

/// The values from which the evaluation of a parameter computes what it prints; none for a
/// parameter that prints something else.
[[nodiscard]] BufferValues valuesReadBy(std::string_view parameter);

/// Follows which values a tool path has stated, and counts those that no machine can mean.
class GivenValues {
 public:
  explicit GivenValues(Tally& impossible) : impossible_(impossible) {}

  /// `title` names the element in the count.
  void read(const Element& element, std::string_view title);
  /// A point with the tool axis that it states, after its element was read.
  void read(const Position& position, const Element& element, std::string_view title);

  [[nodiscard]] bool holdAll(BufferValues values) const noexcept { return given_.holdAll(values); }

 private:
  Tally& impossible_;
  BufferValues given_;
};

}  // namespace host
