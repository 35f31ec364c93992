#pragma once

#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "Manufacturing/KEPIMfgProgram.h"
#include "host/modeler/Document.h"
#include "post/job/JobHeader.h"

namespace host {

/// What the header of a job sets up: the data of the running generation while this object exists,
/// and the design parameters of the document, which stay.
class JobSetup {
 public:
  /// Raises an InputError for a format that prints no number. The module must be loaded.
  JobSetup(const JobHeader& header, Document& document);
  JobSetup(const JobSetup&) = delete;
  JobSetup& operator=(const JobSetup&) = delete;
  ~JobSetup();

 private:
  KEPIMfgGeneratorData_var previous_;
};

/// The program of a job in its document: on a setup whose resource is the machine that the header
/// names, with the table that it names. Without a machine in the header the setup has no resource.
[[nodiscard]] KEPIMfgProgram_var programOf(const JobHeader& header, KEPVar<Document> document);

}  // namespace host
