#pragma once

#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "host/modeler/Document.h"
#include "post/job/JobHeader.h"

namespace host {

/// What the header of a job sets up: the data of the running generation while the setup lives, and
/// the design parameters of the document, which stay.
class JobSetup {
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
