// usage: ppword_local_plugin_test PLUGIN MODULE
// Opens PLUGIN with its names kept to itself, as most programs open plug-ins, and lets it load
// MODULE. Nothing of the host or of the module is linked here.
#include <dlfcn.h>

#include <cstdio>

int main(int count, char** arguments) {
  if (count != 3) return 2;
  void* const plugin = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
  void* const function = plugin == nullptr ? nullptr : dlsym(plugin, "loadModuleInPlugin");
  if (function == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    return 2;
  }
  const char* const reason = reinterpret_cast<const char* (*)(const char*)>(function)(arguments[2]);
  if (*reason == '\0') return 0;
  std::fprintf(stderr, "%s\n", reason);
  return 1;
}
