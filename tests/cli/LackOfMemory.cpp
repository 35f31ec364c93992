// Loaded before the C library (LD_PRELOAD), lets no memory be left: after the program has begun,
// the first PPWORD_ALLOCATIONS allocations succeed, and all after them fail. It has begun when it
// sets its locale; before that the system loads its libraries, of whose allocations the first
// PPWORD_EARLY_ALLOCATIONS succeed, or all.

#include <dlfcn.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>

namespace {

long countOf(const char* name, long otherwise) {
  const char* const text = std::getenv(name);
  return text == nullptr ? otherwise : std::strtol(text, nullptr, 10);
}

bool hasBegun = false;
long left = -1;

bool isLeft() {
  constexpr long kAll = 1L << 30;
  if (left < 0) left = countOf("PPWORD_EARLY_ALLOCATIONS", kAll);
  if (left-- > 0) return true;
  left = 0;
  errno = ENOMEM;
  return false;
}

}  // namespace

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier): names of the C library.
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
// NOLINTEND(bugprone-reserved-identifier)

void* malloc(std::size_t size) { return isLeft() ? __libc_malloc(size) : nullptr; }
void* calloc(std::size_t count, std::size_t size) {
  return isLeft() ? __libc_calloc(count, size) : nullptr;
}
void* realloc(void* memory, std::size_t size) {
  return isLeft() ? __libc_realloc(memory, size) : nullptr;
}

char* setlocale(int category, const char* locale) {
  if (!hasBegun) left = countOf("PPWORD_ALLOCATIONS", 0);
  static const auto real =
      reinterpret_cast<char* (*)(int, const char*)>(dlsym(RTLD_NEXT, "setlocale"));
  hasBegun = true;
  return real(category, locale);
}
}
