#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "KEPMfgPPWordUtilities.h"
#include "Manufacturing/KEPMfgInternalError.h"
#include "Manufacturing/KEPMfgNames.h"
#include "host/manufacturing/Program.h"
#include "host/manufacturing/Resource.h"

/// A program on a machine that names `table`; without one the machine has no such value.
[[nodiscard]] inline KEPIMfgProgram_var programOn(std::optional<std::string> table,
                                                  KEPVar<host::Document> document = nullptr) {
  const auto machine = host::Resource::create("Mill.1");
  if (table) machine->setValue(MfgPPWordTable, KEPUnicodeString(*std::move(table)));
  return host::Program::create("Program.1", std::move(document), host::Setup::create(machine));
}

[[nodiscard]] inline KEPIMfgProgram_var programWithoutResource() {
  return host::Program::create("Program.1", nullptr, host::Setup::create(nullptr));
}
[[nodiscard]] inline KEPIMfgProgram_var programWithoutSetup() {
  return host::Program::create("Program.1", nullptr, nullptr);
}

/// A component that is a program and no activity.
class BareProgram final : public KEPIMfgProgram {
 public:
  [[nodiscard]] static KEPIMfgProgram_var create() {
    return KEPIMfgProgram_var::Adopt(new BareProgram);
  }

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    return interfaceClass == KEPInterfaceId<KEPIMfgProgram>() ? this : nullptr;
  }
};

/// The last error as "key type: message"; empty when there is none.
[[nodiscard]] inline std::string lastError() {
  const auto* const error = dynamic_cast<const KEPMfgInternalError*>(KEPError::KEPGetLastError());
  if (error == nullptr) return KEPError::KEPGetLastError() == nullptr ? "" : "another error";
  EXPECT_EQ(error->GetCatalogue().View(), "ManufacturingError");
  return std::string(error->GetMessageKey().View()) + ' ' +
         std::to_string(error->GetInformationOnErrorType()) + " (" +
         std::to_string(error->GetNLSParameters().size()) + ')';
}

/// The key of the host error that `operation` raises; "nothing" without one.
template <class Operation>
[[nodiscard]] std::string raisedBy(Operation operation) {
  try {
    operation();
  } catch (const KEPError& error) {
    return std::string(error.GetMessageKey().View());
  }
  return "nothing";
}

/// The private operations.
class KEPMfgPPWordUtilitiesTest {
 public:
  template <class From>
  static HRESULT tableOf(const From& from, std::unique_ptr<KEPMfgPPTableTxt>& reader) {
    return KEPMfgPPWordUtilities::GetPPTable(from, reader);
  }
};
