#include "KEPIMfgBufferComment.h"
#include "tests/evaluation/Evaluations.h"

namespace ppword::test {
namespace {

class OutputComment : public Evaluations {
 protected:
  OutputComment() { make("MFG_OUTPUT_COMMENT", "MfgPPParameter"); }
  [[nodiscard]] KEPIMfgBufferComment& buffer() const { return *KEPIMfgBufferComment_var(words); }
};

TEST_F(OutputComment, CommentIsGivenAsItStands) {
  for (const char* comment : {"$$ ROUGHING", " \t\xFF\xC3 %MFG_XPOINT,", ""}) {
    buffer().SetComment(comment);
    EXPECT_EQ(value("MFG_OUTPUT_COMMENT"), comment);
  }
}

TEST_F(OutputComment, CommentThatWasNeverSetIsEmpty) { EXPECT_EQ(value("MFG_OUTPUT_COMMENT"), ""); }

TEST_F(OutputComment, WithoutContainerOrBufferThereIsNoValue) {
  EXPECT_EQ(valueOutside("MFG_OUTPUT_COMMENT"), kNoValue);
  moveTo(BareWords(*document, {}));
  make("MFG_OUTPUT_COMMENT", "");
  EXPECT_EQ(value("MFG_OUTPUT_COMMENT"), kNoValue);
}

}  // namespace
}  // namespace ppword::test
