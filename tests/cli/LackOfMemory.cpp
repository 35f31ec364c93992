// Loaded before the C library (LD_PRELOAD), lets no memory be left: after the program has begun,
// the first PPWORD_ALLOCATIONS allocations succeed, and all after them fail. It has begun when it
// sets its locale; before that the system loads its libraries.

#include <dlfcn.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>

namespace {

bool hasBegun = false;
long left = 0;

bool isLeft() {
  if (!hasBegun || left-- > 0) return true;
  left = 0;
  errno = ENOMEM;
  return false;
}

}  // namespace

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);

void* malloc(std::size_t size) { return isLeft() ? __libc_malloc(size) : nullptr; }
void* calloc(std::size_t count, std::size_t size) {
  return isLeft() ? __libc_calloc(count, size) : nullptr;
}
void* realloc(void* memory, std::size_t size) {
  return isLeft() ? __libc_realloc(memory, size) : nullptr;
}

char* setlocale(int category, const char* locale) {
  const char* const text = std::getenv("PPWORD_ALLOCATIONS");
  left = text == nullptr ? 0 : std::strtol(text, nullptr, 10);
  static const auto real =
      reinterpret_cast<char* (*)(int, const char*)>(dlsym(RTLD_NEXT, "setlocale"));
  hasBegun = true;
  return real(category, locale);
}
}
