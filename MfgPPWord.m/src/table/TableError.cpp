#include "src/table/TableError.h"

#include <memory>
#include <string>
#include <utility>

#include "Manufacturing/KEPMfgInternalError.h"

namespace ppword {

HRESULT recordTableError(const TableFault& fault) {
  constexpr int kTableFileError = 2;
  auto error = std::make_unique<KEPMfgInternalError>(fault.key, "ManufacturingError");
  if (fault.line) {
    const KEPUnicodeString line(std::to_string(*fault.line));
    error->SetNLSParameters(1, &line);
  }
  error->SetInformationOnErrorType(kTableFileError);
  return KEPError::GetReturn(std::move(error));
}

}  // namespace ppword
