#pragma once

#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "System/KEPPlatform.h"
#include "host/job/JobHeader.h"
#include "host/modeler/Document.h"

namespace host {

/// What the header of a job sets up: the data of the running generation while the setup lives, and
/// the design parameters of the document, which stay.
class KEP_PLATFORM JobSetup {
 public:
  /// Raises the InputError of a format that shows no number. The module must be loaded.
  JobSetup(const JobHeader& header, Document& document);
  JobSetup(const JobSetup&) = delete;
  JobSetup& operator=(const JobSetup&) = delete;
  ~JobSetup();

 private:
  KEPIMfgGeneratorData_var previous_;
};

}  // namespace host
