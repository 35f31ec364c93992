// Files of machine parameters, whose lengths rs274 takes as inches.

#include <gtest/gtest.h>

#include <string>

#include "post/program/NcProgram.h"
#include "post/toolpath/LineReader.h"
#include "tests/support/InputFile.h"

namespace {

using host::LengthUnit;

std::string textOf(std::string_view text, LengthUnit unit = LengthUnit::Millimetre) {
  const InputFile file(text);
  try {
    return host::machineFileText(file.path(), unit);
  } catch (const host::InputError& error) {
    return std::to_string(error.line()) + ':' + std::to_string(error.column()) + ": " +
           error.message();
  }
}

TEST(MachineFile, LengthsBecomeInches) {
  EXPECT_EQ(textOf("31\t25.4\n5161 25.4\n5164 90\n5167 50.8\n\n5183 -25.4\n5211 25.4\n5220 1\n"),
            "31\t25.400000000\n5161\t1.000000000\n5164\t90.000000000\n5167\t2.000000000\n"
            "5183\t-1.000000000\n5211\t1.000000000\n5220\t1.000000000\n");
  EXPECT_EQ(
      textOf(
          "5221 25.4\n5229 25.4\n5230 45\n5241 25.4\n5381 25.4\n5389 25.4\n5390 10\n5401 25.4\n"),
      "5221\t1.000000000\n5229\t1.000000000\n5230\t45.000000000\n5241\t1.000000000\n"
      "5381\t1.000000000\n5389\t1.000000000\n5390\t10.000000000\n5401\t25.400000000\n");
}

TEST(MachineFile, InchesStay) {
  EXPECT_EQ(textOf("5161\t2.5\r\n", LengthUnit::Inch), "5161\t2.500000000\n");
}

TEST(MachineFile, WrongLinesAreRefusedWithTheirPlace) {
  constexpr std::string_view kNone =
      ":1: not a parameter of a machine: a number from 1 to 5602 and its value";
  EXPECT_EQ(textOf("5161 1\nfoo\n"), "2" + std::string(kNone));
  for (const std::string_view text : {"5161\n", "5161 x\n", "5161 inf\n", "5161 1 2\n", "0 1\n",
                                      "5603 1\n", "-1 1\n", "99999999999999999999 1\n"}) {
    EXPECT_EQ(textOf(text), "1" + std::string(kNone)) << text;
  }
  EXPECT_EQ(textOf("5162 1\n5161 1\n"), "2:1: the numbers of the parameters do not count up");
}

}  // namespace
