#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// Raises the host's error for a list position outside the list.
[[noreturn]] KEP_PLATFORM void KEPRaisePositionOutOfList(int position, int size);

/// List of values. Positions count from 1; a position outside the list raises the host's error.
template <class T>
class KEPListVal {
 public:
  [[nodiscard]] int Size() const noexcept { return static_cast<int>(values_.size()); }

  [[nodiscard]] const T& operator[](int position) const { return values_[Index(position)]; }
  [[nodiscard]] T& operator[](int position) { return values_[Index(position)]; }

  void Append(const T& value) { values_.push_back(value); }
  void Append(T&& value) { values_.push_back(std::move(value)); }
  void Append(const KEPListVal& other) {
    const std::size_t count = other.values_.size();
    values_.reserve(values_.size() + count);
    // By position: `other` may be this very list.
    for (std::size_t i = 0; i < count; ++i) values_.push_back(other.values_[i]);
  }
  void RemoveAll() noexcept { values_.clear(); }
  /// Makes space for `count` values; changes nothing else.
  void Reserve(int count) { values_.reserve(static_cast<std::size_t>(count)); }

  /// The position of the first entry equal to `value`, 0 when there is none.
  [[nodiscard]] int Locate(const T& value) const {
    const auto found = std::find(values_.begin(), values_.end(), value);
    return found == values_.end() ? 0 : static_cast<int>(found - values_.begin()) + 1;
  }

  [[nodiscard]] auto begin() const noexcept { return values_.begin(); }
  [[nodiscard]] auto end() const noexcept { return values_.end(); }

  friend bool operator==(const KEPListVal& left, const KEPListVal& right) = default;

 private:
  [[nodiscard]] std::size_t Index(int position) const {
    if (position < 1 || position > Size()) KEPRaisePositionOutOfList(position, Size());
    return static_cast<std::size_t>(position) - 1;
  }

  std::vector<T> values_;
};

using KEPListValKEPString = KEPListVal<KEPString>;
using KEPListValKEPUnicodeString = KEPListVal<KEPUnicodeString>;
using KEPRawCollint = KEPListVal<int>;
