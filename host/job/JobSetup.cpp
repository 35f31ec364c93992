#include "host/job/JobSetup.h"

#include "host/manufacturing/GeneratorData.h"
#include "host/system/Session.h"

namespace host {

JobSetup::JobSetup(const JobHeader& header, Document& document)
    : previous_(session().generatorData) {
  const auto generation = GeneratorData::create(header.pointFormat, header.axisFormat);
  if (header.angleFactor) generation->setAngleFactor(*header.angleFactor);
  setCurrentGeneratorData(generation);
  for (const auto& [name, value] : header.designParameters) {
    document.setDesignParameter(name, value);
  }
}

JobSetup::~JobSetup() { setCurrentGeneratorData(previous_); }

}  // namespace host
