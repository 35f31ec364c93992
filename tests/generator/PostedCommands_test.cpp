#include "KEPIMfgPPWordFactory.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "host/document/DocumentFile.h"
#include "host/modeler/Document.h"
#include "tests/document/StoredContent.h"
#include "tests/generator/Generation.h"
#include "tests/generator/Scratch.h"

namespace host::test {
namespace {

/// A document with the PP commands NC_GOTO (sequence 1), NC_START_MACRO (1) and NC_GOTO (2).
class PostedCommands : public testing::Test {
 protected:
  PostedCommands() {
    addCommand(*document, "NC_GOTO", 1);
    addCommand(*document, "NC_START_MACRO", 1);
    addCommand(*document, "NC_GOTO", 2);
  }

  KEPVar<Document> document = newDocument();
};

/// Gives NC_GOTO a second sequence.
void setSequence(const Document& document) {
  const KEPISpecAttrAccess_var type =
      KEPISpecObject_var::Adopt(document.features()->FindStartUp("NC_GOTO"));
  type->AddAttribute("Syntaxe2", KEPISpecAttribute::Kind::StringList);
  type->AppendToList("Syntaxe2", "GODLTA");
}

TEST_F(PostedCommands, GiveTheLinesOfTheirInstructions) {
  const Posting commands =
      post(document, jobOf("{\"ppCommand\":2}\n{\"ppCommand\":1,\"points\":[[1,2,3],[4,5,6]]}"));
  EXPECT_EQ(commands.error, "");
  EXPECT_EQ(commands.lines, (Lines{"PARTNO PART TO BE MACHINED", "COOLNT/ON", "CUTCOM/OFF",
                                   "GOTO/    1.00000,    2.00000,    3.00000",
                                   "GOTO/    4.00000,    5.00000,    6.00000"}));
  const Posting instructions =
      post(document,
           jobOf("{\"nc\":\"NC_START_MACRO\"}\n{\"nc\":\"NC_GOTO\",\"points\":[[1,2,3],[4,5,6]]}"));
  EXPECT_EQ(commands.lines, instructions.lines);
  EXPECT_EQ(commands.summary.elements, 3);
  ASSERT_EQ(commands.summary.instructions.entries().size(), 2U);
  EXPECT_EQ(commands.summary.instructions.entries()[0].name, "NC_START_MACRO");
  EXPECT_EQ(commands.summary.instructions.entries()[1].count, 2);
}

TEST_F(PostedCommands, GiveTheSameLinesWhenTheirDocumentIsOpenedAgain) {
  const Scratch folder;
  saveDocument(*document, folder.path("part"));
  const std::string job = jobOf("{\"ppCommand\":2}\n{\"ppCommand\":1,\"points\":[[1,2,3]]}");
  const Posting again = post(openDocument(folder.path("part")), job);
  EXPECT_EQ(again.error, "");
  EXPECT_EQ(again.lines, post(document, job).lines);
}

TEST_F(PostedCommands, AreListedByNameAndPosition) {
  const auto commands = ppCommands(*document);
  ASSERT_EQ(commands.size(), 3U);
  KEPUnicodeString name;
  int number = 0;
  EXPECT_TRUE(commands[1]->GetCommandName(name));
  EXPECT_TRUE(commands[2]->GetSequenceNumber(number));
  EXPECT_EQ(name.View(), "NC_START_MACRO");
  EXPECT_EQ(number, 2);
  KEPILifeCycleObject_var(commands[0])->remove();
  EXPECT_EQ(ppCommands(*document).size(), 2U);
}

TEST_F(PostedCommands, PositionThatIsNotThereIsRefused) {
  EXPECT_EQ(post(document, jobOf("{\"ppCommand\":4}")).error,
            "job:2: error: PP command 4 is not in this document, which has 3");
}

TEST_F(PostedCommands, CommandThatCannotBeWrittenIsRefused) {
  addCommand(*document, "NC_NONE", 1);
  for (const int position : {3, 4}) {
    const std::string command = std::to_string(position);
    EXPECT_EQ(post(document, jobOf("{\"ppCommand\":" + command + "}")).error,
              "job:2: error: PP command " + command +
                  " cannot be written: it names no NC instruction of this document or no sequence "
                  "of it, or one of its lines cannot be computed");
  }
}

TEST_F(PostedCommands, WhatTheyCannotEvaluateIsCountedWithTheirPosition) {
  addCommand(*document, "NC_COMMENT", 1);
  const Posting posting = post(document, jobOf("{\"ppCommand\":4}"));
  ASSERT_EQ(posting.summary.unevaluated.entries().size(), 1U);
  EXPECT_EQ(posting.summary.unevaluated.entries()[0].name, "MFG_MO_COMMENT");
  EXPECT_EQ(posting.summary.unevaluated.entries()[0].firstInstruction, "PP command 4");
}

TEST_F(PostedCommands, WhatTheyDeleteIsCountedWithTheirPosition) {
  document->ppWordContainer()->SetUserSyntax(KEPUnicodeString("GOTO/1+"));
  addCommand(*document, "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX", 1);
  const Posting posting = post(document, jobOf("{\"ppCommand\":4}"));
  EXPECT_EQ(posting.lines, Lines{"GOTO/"});
  ASSERT_EQ(posting.summary.deleted.entries().size(), 1U);
  EXPECT_EQ(posting.summary.deleted.entries()[0].name, "1+");
  EXPECT_EQ(posting.summary.deleted.entries()[0].firstInstruction, "PP command 4");
}

/// Writes down what the generator is about to write.
class Announced final : public ElementObserver {
 public:
  void elementBegins(const WrittenElement& written) override {
    all.push_back(std::to_string(written.element.line) + '.' + std::to_string(written.point) + ' ' +
                  std::string(written.instruction) + ' ' + std::to_string(written.sequence) +
                  (written.evaluation ? "" : " unknown"));
  }
  Lines all;
};

TEST_F(PostedCommands, ElementsAreAnnouncedWithInstructionSequenceAndPoint) {
  const InputFile file(
      jobOf("{\"ppCommand\":3,\"points\":[[1,2,3],[4,5,6]]}\n{\"ppCommand\":2}\n"
            "{\"nc\":\"NC_GOTO\",\"sequence\":2,\"points\":[[1,2,3]]}\n{\"ppCommand\":4}"));
  addCommand(*document, "NC_NONE", 1);
  setSequence(*document);
  KeptLines sink;
  Announced announced;
  JobReader reader(std::make_unique<LineReader>(file.path()));
  Generator generator(document, "job", sink, &announced);
  EXPECT_THROW(generator.run(reader), InputError);
  EXPECT_EQ(announced.all, (Lines{"2.1 NC_GOTO 2", "2.2 NC_GOTO 2", "3.1 NC_START_MACRO 1",
                                  "4.1 NC_GOTO 2", "5.1 NC_NONE 1 unknown"}));
}

}  // namespace
}  // namespace host::test
