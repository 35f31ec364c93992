#include <gtest/gtest.h>

#include <string>

#include "System/KEPError.h"

namespace {

std::string message(std::string_view key, const KEPUnicodeString& parameter) {
  KEPError error(key, "ManufacturingError");
  error.SetNLSParameters(1, &parameter);
  return std::string(error.GetNLSMessage().View());
}

TEST(MessageCatalogue, TableErrorsBeginWithTheirLine) {
  EXPECT_EQ(message("ERR_5000", "7"),
            "line 7: *INSERT names no NC instruction; write \"*INSERT NC_NAME\"");
  EXPECT_EQ(message("ERR_5001", "7"),
            "line 7: a line that begins with \"*\" must be a *START_..., *END or *INSERT line");
  EXPECT_EQ(message("ERR_5002", "7"),
            "line 7: more *END lines than *START lines; remove the *END that closes nothing");
  EXPECT_EQ(message("ERR_5003", "7"),
            "line 7: fewer *END lines than *START lines; close every block with *END");
  EXPECT_EQ(message("ERR_5004", "7"),
            "line 7: *START_NC_COMMAND names no command; write \"*START_NC_COMMAND NC_NAME\"");
  EXPECT_EQ(message("ERR_5005", "7"),
            "line 7: *START_NC_INSTRUCTION names no instruction; write \"*START_NC_INSTRUCTION "
            "NC_NAME\"");
  EXPECT_EQ(message("ERR_5006", "7"),
            "line 7: *START_LIST names no parameter; write \"*START_LIST MFG_NAME\"");
  EXPECT_EQ(message("ERR_5007", "7"),
            "line 7: *START_FORMAT names no parameter; write \"*START_FORMAT MFG_NAME\"");
  EXPECT_EQ(message("ERR_5008", "7"),
            "line 7: no block begins like this; check the spelling of the *START_ keyword");
}

TEST(MessageCatalogue, ErrorsWithoutPlaceHaveTheirTextOnly) {
  const auto text = [](std::string_view key) {
    return std::string(KEPError(key, "ManufacturingError").GetNLSMessage().View());
  };
  EXPECT_EQ(text("ERR_5009"), "the PP word table cannot be opened; check its path and permissions");
  EXPECT_EQ(
      text("ERR_5010"),
      "the resource of the program's setup names no PP word table; set it to the file name of "
      "one");
  EXPECT_EQ(text("ERR_5011"), "the program's setup has no resource; assign a machine to it");
  EXPECT_EQ(text("ERR_5015"),
            "the PP word table that the program's resource names is in none of the PPTables "
            "folders; put the file there or correct its name, small and capital letters count");
}

TEST(MessageCatalogue, TableErrorWithoutParametersLeavesItsLineOut) {
  EXPECT_EQ(KEPError("ERR_5006", "ManufacturingError").GetNLSMessage(),
            KEPUnicodeString("*START_LIST names no parameter; write \"*START_LIST MFG_NAME\""));
}

TEST(MessageCatalogue, SystemErrorsHaveTexts) {
  EXPECT_EQ(KEPErrorNullHandle().GetNLSMessage(), KEPUnicodeString("a null handle was used"));
  EXPECT_EQ(KEPErrorPositionOutOfList(4, 3).GetNLSMessage(),
            KEPUnicodeString("position 4 is outside a list of 3 entries"));
}

TEST(MessageCatalogue, UnknownKeyIsItsOwnText) {
  EXPECT_EQ(KEPError("ERR_1", "ManufacturingError").GetNLSMessage(), KEPUnicodeString("ERR_1"));
}

TEST(MessageCatalogue, KeyOfAnotherCatalogueIsUnknown) {
  EXPECT_EQ(KEPError("ERR_5009", "System").GetNLSMessage(), KEPUnicodeString("ERR_5009"));
}

}  // namespace
