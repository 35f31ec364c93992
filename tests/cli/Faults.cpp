// Loaded before the C library (LD_PRELOAD), lets calls of the system fail that no test can make
// fail otherwise. PPWORD_FAULT is CALL:SUBJECT:CALLS:ERROR. The first CALLS calls with this subject
// succeed, all after them fail with the number ERROR. With a negative number they succeed, and the
// first of them raises the signal -ERROR.
//
// CALL is fsync (SUBJECT: folder or file), open (SUBJECT: how the path ends), fread (SUBJECT is
// empty; it fails with EBADF) or pread (SUBJECT is empty). With damage (SUBJECT is empty) the byte
// at the place CALLS of a file is read as another one: its lowest bit is changed.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

struct Fault {
  char call[16] = "";
  char subject[64] = "";
  long calls = 0;
  int error = 0;
};

Fault readFault() {
  Fault fault;
  const char* const text = std::getenv("PPWORD_FAULT");
  if (text == nullptr) return fault;
  const char* const subject = std::strchr(text, ':') + 1;
  const char* const calls = std::strchr(subject, ':') + 1;
  std::memcpy(fault.call, text, static_cast<std::size_t>(subject - text - 1));
  std::memcpy(fault.subject, subject, static_cast<std::size_t>(calls - subject - 1));
  char* rest = nullptr;
  fault.calls = std::strtol(calls, &rest, 10);
  fault.error = static_cast<int>(std::strtol(rest + 1, nullptr, 10));
  return fault;
}

Fault fault;
bool isRead = false;

bool isMeant(const char* call) {
  if (!isRead) fault = readFault();
  isRead = true;
  return std::strcmp(fault.call, call) == 0;
}

// True when a call that is meant is to fail; sets errno.
bool fails() {
  if (--fault.calls >= 0) return false;
  errno = fault.error;
  if (fault.error >= 0) return true;
  if (fault.calls == -1) std::raise(-fault.error);
  return false;
}

bool endsAsMeant(const char* path) {
  const std::size_t length = std::strlen(path);
  const std::size_t end = std::strlen(fault.subject);
  return length >= end && std::strcmp(path + length - end, fault.subject) == 0;
}

bool failsToOpen(const char* path) { return isMeant("open") && endsAsMeant(path) && fails(); }

template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool isFolder(int descriptor) {
  struct stat state {};
  return fstat(descriptor, &state) == 0 && S_ISDIR(state.st_mode);
}

}  // namespace

#define OPENED(name)                                                         \
  int name(const char* path, int flags, ...) {                               \
    va_list rest;                                                            \
    va_start(rest, flags);                                                   \
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0U;  \
    va_end(rest);                                                            \
    if (failsToOpen(path)) return -1;                                        \
    static const auto real = next<int (*)(const char*, int, mode_t)>(#name); \
    return real(path, flags, mode);                                          \
  }
#define STREAM(name)                                                           \
  FILE* name(const char* path, const char* mode) {                             \
    if (failsToOpen(path)) return nullptr;                                     \
    static const auto real = next<FILE* (*)(const char*, const char*)>(#name); \
    return real(path, mode);                                                   \
  }

extern "C" {

OPENED(open)
OPENED(open64)
STREAM(fopen)
STREAM(fopen64)

int fsync(int descriptor) {
  const bool isSubject =
      isMeant("fsync") && isFolder(descriptor) == (std::strcmp(fault.subject, "folder") == 0);
  if (isSubject && fails()) return -1;
  static const auto real = next<int (*)(int)>("fsync");
  return real(descriptor);
}

size_t fread(void* bytes, size_t size, size_t count, FILE* file) {
  if (isMeant("fread") && fails()) {
    // Only the library itself can mark a stream as failed.
    const int unreadable = open("/dev/null", O_WRONLY);
    dup2(unreadable, fileno(file));
    close(unreadable);
  }
  static const auto real = next<size_t (*)(void*, size_t, size_t, FILE*)>("fread");
  return real(bytes, size, count, file);
}

ssize_t pread(int descriptor, void* bytes, size_t most, off_t offset) {
  if (isMeant("pread") && fails()) return -1;
  static const auto real = next<ssize_t (*)(int, void*, size_t, off_t)>("pread");
  const ssize_t count = real(descriptor, bytes, most, offset);
  const off_t at = isMeant("damage") ? fault.calls - offset : -1;
  if (at >= 0 && at < count) static_cast<char*>(bytes)[at] ^= 1;
  return count;
}

int fdatasync(int descriptor) { return fsync(descriptor); }
}
