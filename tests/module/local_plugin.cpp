// A plug-in that embeds the host, as an interpreter's extension does.
#include <exception>
#include <string>

#include "host/modeler/Document.h"
#include "host/system/Module.h"

/// Loads the module and makes a document with it. Why that failed; empty when it did not.
extern "C" KEP_PLATFORM const char* loadModuleInPlugin(const char* path) {
  static std::string reason;
  try {
    host::loadModule(path);
    if (!host::newDocument()->ppWordContainer()) reason = "the document has no PP word container";
  } catch (const std::exception& error) {
    reason = error.what();
  }
  return reason.c_str();
}
