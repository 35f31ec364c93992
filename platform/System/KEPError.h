#pragma once

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// An error of the host: a message key of a message catalogue and the parameters of the message.
/// Errors of this family are the only exceptions that pass between host and modules.
class KEP_PLATFORM KEPError : public std::exception {
 public:
  KEPError(std::string_view messageKey, std::string_view catalogue);
  KEPError(const KEPError&) = default;
  KEPError(KEPError&&) = default;
  KEPError& operator=(const KEPError&) = default;
  KEPError& operator=(KEPError&&) = default;
  ~KEPError() override;

  [[nodiscard]] const KEPString& GetMessageKey() const noexcept { return key_; }
  [[nodiscard]] const KEPString& GetCatalogue() const noexcept { return catalogue_; }

  /// Replaces the parameters of the message by `count` texts.
  void SetNLSParameters(int count, const KEPUnicodeString* parameters);
  [[nodiscard]] const std::vector<KEPUnicodeString>& GetNLSParameters() const noexcept {
    return parameters_;
  }

  /// The message text of the catalogue with the parameters filled in; the key itself when the
  /// catalogue does not have it.
  [[nodiscard]] KEPUnicodeString GetNLSMessage() const;
  [[nodiscard]] const char* what() const noexcept override { return key_.CastToCharPtr(); }

  /// A copy with the class of the error.
  [[nodiscard]] virtual std::unique_ptr<KEPError> Clone() const;

  /// Sets the last error of the session, which then owns `error`, and returns the status for the
  /// failing function to return: E_FAIL.
  static HRESULT GetReturn(std::unique_ptr<KEPError> error);

  /// The last error; null when there is none. Valid until the next error is recorded or cleared.
  [[nodiscard]] static const KEPError* KEPGetLastError();
  static void KEPCleanLastError();

 private:
  KEPString key_;
  KEPString catalogue_;
  std::vector<KEPUnicodeString> parameters_;
};

/// Raised when a null handle is used: a programming error of the caller.
class KEP_PLATFORM KEPErrorNullHandle : public KEPError {
 public:
  KEPErrorNullHandle();
  ~KEPErrorNullHandle() override;
  [[nodiscard]] std::unique_ptr<KEPError> Clone() const override;
};

/// Raised for a list position outside the list.
class KEP_PLATFORM KEPErrorPositionOutOfList : public KEPError {
 public:
  KEPErrorPositionOutOfList(int position, int size);
  ~KEPErrorPositionOutOfList() override;
  [[nodiscard]] std::unique_ptr<KEPError> Clone() const override;
};
