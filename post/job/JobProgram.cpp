#include "post/job/JobProgram.h"

#include <utility>

#include "Manufacturing/KEPMfgNames.h"
#include "host/manufacturing/Program.h"
#include "host/manufacturing/Resource.h"

namespace host {
namespace {

KEPIMfgResource_var machineOf(const JobHeader& header) {
  if (header.resource.empty()) return nullptr;
  const auto machine = Resource::create(header.resource);
  if (!header.table.empty()) machine->setValue(MfgPPWordTable, KEPUnicodeString(header.table));
  return machine;
}

}  // namespace

KEPIMfgProgram_var programOf(const JobHeader& header, KEPVar<Document> document) {
  return Program::create(header.program, std::move(document), Setup::create(machineOf(header)));
}

}  // namespace host
