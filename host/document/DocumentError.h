#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "System/KEPPlatform.h"

namespace host {

/// A document file that is refused, or that could not be written: what it holds is as it was. Or
/// one that was written, but it is not certain that a power failure leaves it so.
class KEP_PLATFORM DocumentError : public std::runtime_error {
 public:
  enum class Kind { Refused, NotWritten, NotCertain };

  /// what() is "FILE: error: REASON".
  DocumentError(Kind kind, std::string_view file, std::string_view reason);
  ~DocumentError() override;

  [[nodiscard]] Kind kind() const noexcept { return kind_; }
  [[nodiscard]] const std::string& file() const noexcept { return file_; }
  [[nodiscard]] const std::string& reason() const noexcept { return reason_; }

 private:
  Kind kind_;
  std::string file_;
  std::string reason_;
};

}  // namespace host
