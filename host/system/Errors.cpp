#include <string>
#include <utility>

#include "Manufacturing/KEPMfgInternalError.h"
#include "System/KEPComponent.h"
#include "System/KEPError.h"
#include "System/KEPList.h"
#include "host/system/MessageCatalogue.h"
#include "host/system/Session.h"

KEPError::KEPError(std::string_view messageKey, std::string_view catalogue)
    : key_(messageKey), catalogue_(catalogue) {}
KEPError::~KEPError() = default;

void KEPError::SetNLSParameters(int count, const KEPUnicodeString* parameters) {
  parameters_.assign(parameters, parameters + count);
}

KEPUnicodeString KEPError::GetNLSMessage() const {
  return host::messageText(catalogue_.View(), key_.View(), parameters_);
}

HRESULT KEPError::GetReturn(std::unique_ptr<KEPError> error) {
  host::session().lastError = std::move(error);
  return E_FAIL;
}

const KEPError* KEPError::KEPGetLastError() { return host::session().lastError.get(); }
void KEPError::KEPCleanLastError() { host::session().lastError.reset(); }

KEPErrorNullHandle::KEPErrorNullHandle() : KEPError("ERR_NULL_HANDLE", "System") {}
KEPErrorNullHandle::~KEPErrorNullHandle() = default;

KEPErrorPositionOutOfList::KEPErrorPositionOutOfList(int position, int size)
    : KEPError("ERR_POSITION_OUT_OF_LIST", "System") {
  const KEPUnicodeString parameters[] = {std::to_string(position), std::to_string(size)};
  SetNLSParameters(2, parameters);
}
KEPErrorPositionOutOfList::~KEPErrorPositionOutOfList() = default;

KEPMfgInternalError::KEPMfgInternalError(std::string_view messageKey, std::string_view catalogue)
    : KEPError(messageKey, catalogue) {}
KEPMfgInternalError::~KEPMfgInternalError() = default;

std::unique_ptr<KEPError> KEPError::Clone() const { return std::make_unique<KEPError>(*this); }
std::unique_ptr<KEPError> KEPErrorNullHandle::Clone() const {
  return std::make_unique<KEPErrorNullHandle>(*this);
}
std::unique_ptr<KEPError> KEPErrorPositionOutOfList::Clone() const {
  return std::make_unique<KEPErrorPositionOutOfList>(*this);
}
std::unique_ptr<KEPError> KEPMfgInternalError::Clone() const {
  return std::make_unique<KEPMfgInternalError>(*this);
}

void KEPRaiseNullHandle() { throw KEPErrorNullHandle(); }
void KEPRaisePositionOutOfList(int position, int size) {
  throw KEPErrorPositionOutOfList(position, size);
}
