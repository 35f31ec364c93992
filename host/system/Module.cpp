#include "host/system/Module.h"

#include <dlfcn.h>

#include "host/system/Dictionary.h"

namespace host {
namespace {

bool isRegistered() { return isLateTypeKnown("MfgPPWordCont"); }

}  // namespace

std::filesystem::path defaultModulePath() {
  Dl_info here{};
  if (dladdr(reinterpret_cast<const void*>(&defaultModulePath), &here) == 0) {
    return "libMfgPPWord.so";
  }
  return std::filesystem::path(here.dli_fname).parent_path() / "libMfgPPWord.so";
}

void loadModule(const std::filesystem::path& path) {
  if (isRegistered()) return;
  if (dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL) == nullptr) {
    throw ModuleError(std::string("cannot load the PP word module: ") + dlerror());
  }
  if (!isRegistered()) {
    throw ModuleError("cannot load the PP word module: " + path.string() +
                      " is another library: it registers no PP word container");
  }
}

}  // namespace host
