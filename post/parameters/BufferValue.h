#pragma once

#include <cstdint>

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
  [[nodiscard]] constexpr bool isEmpty() const noexcept { return bits_ == 0; }
  constexpr void remove(BufferValues others) noexcept { bits_ &= ~others.bits_; }
  constexpr void add(BufferValues others) noexcept { bits_ |= others.bits_; }
  friend constexpr BufferValues operator|(BufferValues left, BufferValues right) noexcept {
    left.add(right);
    return left;
  }
  friend constexpr bool operator==(BufferValues, BufferValues) noexcept = default;

 private:
  std::uint32_t bits_ = 0;
};

}  // namespace host
