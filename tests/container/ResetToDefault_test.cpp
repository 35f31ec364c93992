#include <gtest/gtest.h>

#include <algorithm>

#include "KEPIMfgPPCommand.h"
#include "System/KEPError.h"
#include "host/modeler/Container.h"
#include "src/container/KEPMfgPPCommand.h"
#include "src/container/KEPMfgPPWordContainerTie.h"
#include "tests/container/ContainerDouble.h"
#include "tests/container/Listing.h"
#include "tests/support/PPWordDocument.h"

namespace ppword::test {
namespace {

constexpr const char* kUserCommand = "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX";

class Reset : public testing::Test {
 protected:
  [[nodiscard]] KEPISpecObject_var find(std::string_view name) const {
    return KEPISpecObject_var::Adopt(features->FindStartUp(name));
  }

  KEPVar<host::Document> document = host::newDocument();
  KEPIContainer_var features = document->features();
  KEPIMfgPPWordContainer_var words = document->ppWordContainer();
};

std::vector<std::string> sorted(std::vector<std::string> entries) {
  std::sort(entries.begin(), entries.end());
  return entries;
}

TEST_F(Reset, DefaultLinesComeBack) {
  const auto before = listing(features);
  for (const auto& member : features->ListMembersHere(KEPInterfaceId<KEPIMfgSyntaxEvaluation>())) {
    KEPISpecAttrAccess_var(member)->SetString("Syntaxe", "OTHER/1");
  }
  ASSERT_NE(listing(features), before);
  EXPECT_EQ(words->ResetToDefault(), 0);
  EXPECT_EQ(sorted(listing(features)), sorted(before));
}

TEST_F(Reset, InstructionsStandInCatalogueOrder) {
  words->ResetToDefault();
  std::vector<std::string> expected;
  for (const std::string& entry : writtenOutCatalogue()) {
    if (entry.starts_with("MfgPPSyntax") || entry.find(" : MfgPPSyntax\n") != std::string::npos) {
      expected.push_back(entry);
    }
  }
  std::vector<std::string> entries = listing(features);
  ASSERT_EQ(entries.size(), 156U);
  entries.erase(entries.begin(), entries.end() - 81);
  EXPECT_EQ(entries, expected);
}

TEST_F(Reset, InstructionsOfUsersAndTablesGo) {
  words->SetUserSyntax("USER/1");
  const auto own = KEPISpecObject_var::Adopt(features->CreateStartUp("NC_OWN", find("NC_GOTO")));
  const auto instance =
      KEPISpecObject_var::Adopt(features->CreateInstance(find("NC_GOTO"), "Goto.1"));
  words->ResetToDefault();
  EXPECT_FALSE(find(kUserCommand));
  EXPECT_FALSE(find("NC_OWN"));
  EXPECT_FALSE(own->GetContainer());
  EXPECT_FALSE(instance->GetContainer());
}

TEST_F(Reset, FurtherSequencesOfDefaultInstructionsGo) {
  KEPISpecAttrAccess_var(find("NC_GOTO"))
      ->AddAttribute("Syntaxe2", KEPISpecAttribute::Kind::StringList);
  words->ResetToDefault();
  EXPECT_EQ(entryOf(find("NC_GOTO")),
            "NC_GOTO : MfgPPSyntax\n  Syntaxe: GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n");
}

TEST_F(Reset, ParametersKeepWhatTheyHave) {
  KEPMfgAttributeUtilities::SetString(find("MFG_XPOINT"), "Format", "%8.3f");
  words->ResetToDefault();
  EXPECT_EQ(entryOf(find("MFG_XPOINT")), "MFG_XPOINT : MfgPPParameter\n  Format: %8.3f\n");
}

TEST_F(Reset, PPCommandsAreKept) {
  const KEPIMfgPPCommand_var command =
      KEPISpecObject_var::Adopt(features->CreateInstance(find("MfgPPCommand"), ""));
  command->SetCommandName("NC_GOTO");
  command->SetSequenceNumber(1);
  words->ResetToDefault();
  const KEPISpecObject_var feature = command;
  ASSERT_TRUE(feature->GetContainer());
  EXPECT_EQ(entryOf(feature), " : MfgPPCommand\n  CommandName: NC_GOTO\n  SequenceNumber: 1\n");
}

TEST_F(Reset, InstructionThatIsAPPCommandTooIsKept) {
  const auto container =
      KEPVar<host::Container>::Adopt(new host::Container(*document, "MfgPPWordCont"));
  const KEPIMfgPPWordContainer_var other = container;
  other->Initialize(false);
  const auto syntax = KEPISpecObject_var::Adopt(container->FindStartUp("MfgPPSyntax"));
  const auto both = KEPISpecObject_var::Adopt(container->CreateStartUp("MfgPPCommand", syntax));
  ASSERT_TRUE(KEPIMfgSyntaxEvaluation_var(both));
  ASSERT_TRUE(KEPIMfgPPCommand_var(both));
  other->ResetToDefault();
  EXPECT_TRUE(both->GetContainer());
  EXPECT_FALSE(syntax->GetContainer());
  EXPECT_EQ(KEPISpecObject_var::Adopt(container->FindStartUp("MfgPPCommand")).Get(), both.Get());
}

TEST_F(Reset, TwiceGivesTheSameCatalogue) {
  words->ResetToDefault();
  const auto once = listing(features);
  const auto counts = referencesOf(document);
  words->ResetToDefault();
  EXPECT_EQ(listing(features), once);
  EXPECT_EQ(referencesOf(document), counts);
}

TEST_F(Reset, HandleOnARemovedInstructionHoldsItsLastReference) {
  const KEPISpecObject_var old = find("NC_GOTO");
  EXPECT_EQ(old->GetReferenceCount(), 2);
  words->ResetToDefault();
  EXPECT_EQ(old->GetReferenceCount(), 1);
  EXPECT_NE(find("NC_GOTO").Get(), old.Get());
}

TEST(BareContainer, ResetMakesTheCatalogue) {
  const auto document = host::Document::create();
  EXPECT_EQ(document->ppWordContainer()->ResetToDefault(), 0);
  const auto entries = listing(document->features());
  EXPECT_EQ(std::vector<std::string>(entries.begin() + 1, entries.end()), writtenOutCatalogue());
}

TEST(ResetOrder, WalksFromTheLastMemberToTheFirstAndReleasesEach) {
  const auto document = host::Document::create();
  Log log;
  LoggingMember first("first", log);
  LoggingMember command("command", log);
  LoggingMember last("last", log);
  KEPMfgPPCommand answer;
  command.answer(KEPInterfaceId<KEPIMfgPPCommand>(), answer);
  ContainerDouble features(document->features());
  features.members = [&](const KEPMetaClass* interfaceClass) {
    log.push_back("list " + interfaceClass->GetName());
    return std::vector<KEPBaseUnknown_var>{&first, &command, &last};
  };
  KEPMfgPPWordContainerTie words(features);

  EXPECT_EQ(words.ResetToDefault(), 0);
  EXPECT_EQ(log, (Log{"list KEPIMfgSyntaxEvaluation", "ask last for KEPIMfgPPCommand",
                      "ask last for KEPILifeCycleObject", "remove last",
                      "ask command for KEPIMfgPPCommand", "ask first for KEPIMfgPPCommand",
                      "ask first for KEPILifeCycleObject", "remove first"}));
  EXPECT_EQ(first.GetReferenceCount(), 1);
  EXPECT_EQ(command.GetReferenceCount(), 1);
  EXPECT_EQ(last.GetReferenceCount(), 1);
  EXPECT_EQ(listing(document->features()).size(), 156U);
}

TEST(ResetOrder, ErrorInTheMiddlePassesOnWithTheRestAsItWas) {
  const auto document = host::newDocument();
  Log log;
  LoggingMember first("first", log);
  KEPBaseUnknown withoutLifeCycle;
  LoggingMember last("last", log);
  ContainerDouble features(document->features());
  features.members = [&](const KEPMetaClass*) {
    return std::vector<KEPBaseUnknown_var>{&first, &withoutLifeCycle, &last};
  };
  const auto before = listing(document->features());
  KEPMfgPPWordContainerTie words(features);
  EXPECT_THROW(words.ResetToDefault(), KEPErrorNullHandle);
  EXPECT_EQ(log, (Log{"ask last for KEPIMfgPPCommand", "ask last for KEPILifeCycleObject",
                      "remove last"}));
  EXPECT_EQ(listing(document->features()), before);
  EXPECT_EQ(first.GetReferenceCount(), 1);
  EXPECT_EQ(withoutLifeCycle.GetReferenceCount(), 1);
  EXPECT_EQ(last.GetReferenceCount(), 1);
}

TEST(ClosedDocument, ContainerThatOutlivesItIsResetToTheCatalogue) {
  KEPIMfgPPWordContainer_var words = host::newDocument()->ppWordContainer();
  const KEPIContainer_var features = words;
  ASSERT_FALSE(features->GetDocument());
  ASSERT_TRUE(listing(features).empty());
  EXPECT_EQ(words->ResetToDefault(), 0);
  EXPECT_EQ(listing(features), writtenOutCatalogue());
  EXPECT_EQ(words->ResetToDefault(), 0);
  EXPECT_EQ(listing(features).size(), 155U);
}

}  // namespace
}  // namespace ppword::test
