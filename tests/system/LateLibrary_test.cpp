#include "host/system/LateLibrary.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using host::LateFunction;
using host::LateLibrary;

constinit LateLibrary mathematics("libm.so.6");
constinit LateFunction<mathematics, double(double)> squareRoot("sqrt");
constinit LateFunction<mathematics, double(double)> noFunction("ppword_no_such_function");
constinit LateLibrary absent("libppword-absent.so.0");
constinit LateFunction<absent, void()> function("function");
constinit LateLibrary absentBeside("libppword-absent.so", LateLibrary::Place::Beside);
constinit LateFunction<absentBeside, void()> functionBeside("function");

template <typename Call>
std::string errorOf(const Call& call) {
  try {
    call();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "no error";
}

constexpr const char* kNoFile = ": cannot open shared object file: No such file or directory";

TEST(LateLibrary, FunctionIsCalledAsItself) {
  EXPECT_EQ(squareRoot(9), 3);
  EXPECT_EQ(squareRoot(2.25), 1.5);
}

TEST(LateLibrary, LibraryThatIsNotThereIsNamed) {
  const std::string expected = std::string("not installed: libppword-absent.so.0") + kNoFile;
  EXPECT_EQ(errorOf([] { function(); }), expected);
  EXPECT_EQ(errorOf([] { function(); }), expected) << "at the second call";
}

TEST(LateLibrary, LibraryBesideTheHostIsNamedWithItsFolder) {
  const std::string path = host::defaultModulePath().parent_path() / "libppword-absent.so";
  EXPECT_EQ(errorOf([] { functionBeside(); }), "not installed: " + path + kNoFile);
}

TEST(LateLibrary, FunctionThatIsNotThereIsNamed) {
  const std::string error = errorOf([] { noFunction(2); });
  EXPECT_TRUE(error.starts_with("not installed: ") &&
              error.ends_with("libm.so.6: undefined symbol: ppword_no_such_function"))
      << error;
}

}  // namespace
