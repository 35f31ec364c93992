#pragma once

#include <cstdint>

// Visibility of what the application offers to the modules it loads: every platform function and
// class has this one mark.
#define KEP_PLATFORM __attribute__((visibility("default")))

/// Status of an operation: zero or positive is success, negative is failure.
using HRESULT = std::int32_t;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
inline constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFU);

[[nodiscard]] constexpr bool KEPSucceeded(HRESULT status) { return status >= 0; }
[[nodiscard]] constexpr bool KEPFailed(HRESULT status) { return status < 0; }
