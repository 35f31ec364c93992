#include "tests/document/FaultyVfs.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <limits>
#include <new>

namespace host::test {
namespace {

sqlite3_vfs* real = nullptr;
sqlite3_vfs faulty{};
FaultyVfs::Fault faultKind{};
int operationsLeft = 0;

/// A file and, behind it, that of the real file system.
struct File {
  sqlite3_file base;
  [[nodiscard]] sqlite3_file* inner() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};
sqlite3_file* innerOf(sqlite3_file* file) { return reinterpret_cast<File*>(file)->inner(); }
const sqlite3_io_methods& methodsOf(sqlite3_file* file) { return *innerOf(file)->pMethods; }

bool isDue() { return --operationsLeft <= 0; }

int strike() {
  if (faultKind == FaultyVfs::Fault::Kill) kill(getpid(), SIGKILL);
  return SQLITE_FULL;
}

int closeFile(sqlite3_file* file) { return methodsOf(file).xClose(innerOf(file)); }
int readFile(sqlite3_file* file, void* into, int count, sqlite3_int64 at) {
  return methodsOf(file).xRead(innerOf(file), into, count, at);
}
int writeFile(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
  if (!isDue()) return methodsOf(file).xWrite(innerOf(file), bytes, count, at);
  methodsOf(file).xWrite(innerOf(file), bytes, count / 2, at);
  return strike();
}
int truncateFile(sqlite3_file* file, sqlite3_int64 size) {
  return isDue() ? strike() : methodsOf(file).xTruncate(innerOf(file), size);
}
int syncFile(sqlite3_file* file, int flags) {
  return isDue() ? strike() : methodsOf(file).xSync(innerOf(file), flags);
}
int sizeOfFile(sqlite3_file* file, sqlite3_int64* size) {
  return methodsOf(file).xFileSize(innerOf(file), size);
}
int lockFile(sqlite3_file* file, int level) { return methodsOf(file).xLock(innerOf(file), level); }
int unlockFile(sqlite3_file* file, int level) {
  return methodsOf(file).xUnlock(innerOf(file), level);
}
int checkLock(sqlite3_file* file, int* result) {
  return methodsOf(file).xCheckReservedLock(innerOf(file), result);
}
int control(sqlite3_file* file, int what, void* argument) {
  return methodsOf(file).xFileControl(innerOf(file), what, argument);
}
int sectorSize(sqlite3_file* file) { return methodsOf(file).xSectorSize(innerOf(file)); }
int characteristics(sqlite3_file* /*file*/) { return 0; }

constexpr sqlite3_io_methods kMethods{
    1,        closeFile,  readFile,  writeFile, truncateFile, syncFile,        sizeOfFile,
    lockFile, unlockFile, checkLock, control,   sectorSize,   characteristics, nullptr,
    nullptr,  nullptr,    nullptr,   nullptr,   nullptr};

int openFile(sqlite3_vfs* /*vfs*/, sqlite3_filename name, sqlite3_file* file, int flags,
             int* outFlags) {
  const int code = real->xOpen(real, name, innerOf(file), flags, outFlags);
  file->pMethods = code == SQLITE_OK ? &kMethods : nullptr;
  return code;
}

int removeFile(sqlite3_vfs* /*vfs*/, const char* name, int sync) {
  if (!isDue()) return real->xDelete(real, name, sync);
  // What removes a journal ends a change: the kill behind it finds the new state.
  if (faultKind == FaultyVfs::Fault::Kill) real->xDelete(real, name, sync);
  return strike();
}

}  // namespace

FaultyVfs::FaultyVfs(Fault fault, int last) {
  faultKind = fault;
  operationsLeft = last;
  real = sqlite3_vfs_find(nullptr);
  faulty = *real;
  faulty.zName = "faulty";
  faulty.szOsFile += static_cast<int>(sizeof(File));
  faulty.xOpen = openFile;
  faulty.xDelete = removeFile;
  sqlite3_vfs_register(&faulty, 1);
}

FaultyVfs::~FaultyVfs() {
  sqlite3_vfs_unregister(&faulty);
  sqlite3_vfs_register(real, 1);
}

bool FaultyVfs::struck() { return operationsLeft <= 0; }

bool isKilledIn(const std::function<void()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      work();
    } catch (...) {
      _exit(1);
    }
    _exit(0);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  const bool isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  EXPECT_TRUE(isKilled || status == 0) << status;
  return isKilled;
}

}  // namespace host::test
