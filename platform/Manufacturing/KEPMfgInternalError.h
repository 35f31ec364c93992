#pragma once

#include "System/KEPError.h"

/// An error of the manufacturing framework, with a number for its subject.
class KEP_PLATFORM KEPMfgInternalError : public KEPError {
 public:
  KEPMfgInternalError(std::string_view messageKey, std::string_view catalogue);
  ~KEPMfgInternalError() override;
  [[nodiscard]] std::unique_ptr<KEPError> Clone() const override;

  /// 2 for an error in a table file, 3 when a table file is not found; 0 until set.
  void SetInformationOnErrorType(int type) noexcept { type_ = type; }
  [[nodiscard]] int GetInformationOnErrorType() const noexcept { return type_; }

 private:
  int type_ = 0;
};
