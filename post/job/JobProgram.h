#pragma once

#include "Manufacturing/KEPIMfgProgram.h"
#include "host/modeler/Document.h"
#include "post/job/JobHeader.h"

namespace host {

/// The program of a job in its document: on a setup whose resource is the machine that the header
/// names, with the table that it names. A header without a machine gives a setup without resource.
[[nodiscard]] KEPIMfgProgram_var programOf(const JobHeader& header, KEPVar<Document> document);

}  // namespace host
