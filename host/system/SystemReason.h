#pragma once

#include <cstring>
#include <string>

namespace host {

/// The operating system's text for an error number, the same under every locale.
[[nodiscard]] inline std::string systemReason(int error) {
  const char* const text = ::strerrordesc_np(error);
  return text != nullptr ? text : "system error " + std::to_string(error);
}

}  // namespace host
