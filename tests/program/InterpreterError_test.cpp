// What rs274 writes when it stops.

#include "post/program/InterpreterError.h"

#include <gtest/gtest.h>

namespace {

using host::readInterpreterError;

TEST(InterpreterError, MessageAndBlockFollowTheLastFile) {
  const auto error = readInterpreterError(
      "File: x Unrecognized line skipped:\nexecuting\nexecuting\nBad number\n  N3 G1 X[ \n");
  EXPECT_EQ(error.message, "Bad number");
  EXPECT_EQ(error.block, "N3 G1 X[");
  EXPECT_EQ(error.tool, std::nullopt);
  EXPECT_EQ(error.called, "");
}

TEST(InterpreterError, MissingToolIsRead) {
  EXPECT_EQ(readInterpreterError("Requested tool 7 not found in the tool table\nN2 T7\n").tool, 7);
}

TEST(InterpreterError, MissingSubroutineIsRead) {
  const auto error =
      readInterpreterError("executing\nEOF in file:/a/b.ngc seeking o-word: o<ab> from line: 12\n");
  EXPECT_EQ(error.called, "ab");
  EXPECT_EQ(error.file, "/a/b.ngc");
  EXPECT_EQ(error.line, 12);
  EXPECT_EQ(error.block, "");
}

TEST(InterpreterError, AnythingElseIsNoPlace) {
  EXPECT_EQ(readInterpreterError("").message, "");
  EXPECT_EQ(readInterpreterError("executing\n").message, "");
  EXPECT_EQ(readInterpreterError(std::string(2000, 'x')).message, std::string(500, 'x'));
}

}  // namespace
