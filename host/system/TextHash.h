#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace host {

/// Lets a hash map keyed by std::string be asked with a std::string_view.
struct TextHash {
  using is_transparent = void;
  [[nodiscard]] std::size_t operator()(std::string_view text) const noexcept {
    return std::hash<std::string_view>{}(text);
  }
};

template <class Value>
using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

}  // namespace host
