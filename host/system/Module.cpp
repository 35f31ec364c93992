#include "host/system/Module.h"

#include <dlfcn.h>

#include "host/system/Dictionary.h"

namespace host {
namespace {

bool isRegistered() { return isLateTypeKnown("MfgPPWordCont"); }

// Of the library that this source is linked into; empty when it is unknown.
std::filesystem::path ownPath() {
  Dl_info here{};
  if (dladdr(reinterpret_cast<const void*>(&defaultModulePath), &here) == 0) return {};
  return here.dli_fname;
}

// The module finds the platform among the global names of the process. Those of a host that came
// with a plug-in are not among them yet. Where this fails, loading the module gives the reason.
void makeNamesGlobal() {
  static_cast<void>(dlopen(ownPath().c_str(), RTLD_NOW | RTLD_NOLOAD | RTLD_GLOBAL));
}

}  // namespace

std::filesystem::path defaultModulePath() { return ownPath().parent_path() / "libMfgPPWord.so"; }

void loadModule(const std::filesystem::path& path) {
  if (isRegistered()) return;
  makeNamesGlobal();
  if (dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL) == nullptr) {
    throw ModuleError(std::string("cannot load the PP word module: ") + dlerror());
  }
  if (!isRegistered()) {
    throw ModuleError("cannot load the PP word module: " + path.string() +
                      " is another library: it registers no PP word container");
  }
}

}  // namespace host
