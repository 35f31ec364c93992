#include "post/job/JobSetup.h"

#include <algorithm>
#include <utility>

#include "Manufacturing/KEPMfgNames.h"
#include "host/manufacturing/GeneratorData.h"
#include "host/manufacturing/Program.h"
#include "host/manufacturing/Resource.h"
#include "host/system/Session.h"
#include "language/number/NumberFormat.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

void requireFormat(const JobHeader& header, std::string_view key, std::string format, long column) {
  if (format.empty()) return;
  // The module reads the format of a generation so.
  std::replace(format.begin(), format.end(), ',', '.');
  if (ppword::printsNumbers(format)) return;
  throw InputError(header.file, header.line, column,
                   std::string("$.").append(key).append(
                       ": no number can be printed with this format; write one conversion of e, f, "
                       "g or a, such as %.3f"));
}

/// Null for a job that states nothing about how its numbers are printed: a generation would be
/// asked for each of them.
KEPIMfgGeneratorData_var generationOf(const JobHeader& header) {
  const bool isStated =
      header.angleFactor || !header.pointFormat.empty() || !header.axisFormat.empty();
  if (!isStated) return nullptr;
  const auto generation = GeneratorData::create(header.pointFormat, header.axisFormat);
  if (header.angleFactor) generation->setAngleFactor(*header.angleFactor);
  return generation;
}

KEPIMfgResource_var machineOf(const JobHeader& header) {
  if (header.resource.empty()) return nullptr;
  const auto machine = Resource::create(header.resource);
  if (!header.table.empty()) machine->setValue(MfgPPWordTable, KEPUnicodeString(header.table));
  return machine;
}

}  // namespace

JobSetup::JobSetup(const JobHeader& header, Document& document)
    : previous_(session().generatorData) {
  requireFormat(header, "pointFormat", header.pointFormat, header.pointFormatColumn);
  requireFormat(header, "axisFormat", header.axisFormat, header.axisFormatColumn);
  setCurrentGeneratorData(generationOf(header));
  for (const auto& [name, value] : header.designParameters) {
    document.setDesignParameter(name, value);
  }
}

JobSetup::~JobSetup() { setCurrentGeneratorData(previous_); }

KEPIMfgProgram_var programOf(const JobHeader& header, KEPVar<Document> document) {
  return Program::create(header.program, std::move(document), Setup::create(machineOf(header)));
}

}  // namespace host
