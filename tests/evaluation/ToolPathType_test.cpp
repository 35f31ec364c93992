#include "tests/evaluation/Evaluations.h"

namespace ppword::test {
namespace {

class ToolPathType : public Evaluations {
 protected:
  ToolPathType() {
    setList("MFG_TOOLPATH_TYPE", {"3AXIS", "5AXIS"});
    management.path = pathObject_;
    setActivity(milling_);
  }

 private:
  KEPVar<TestObject> milling_ = newActivity();
  KEPVar<TestObject> pathObject_ = object();

 protected:
  TestToolPathManagement& management = milling_->add<TestToolPathManagement>();
  TestToolPath& path = pathObject_->add<TestToolPath>();
};

TEST_F(ToolPathType, OneIsTheFirstEntryAndEveryOtherCodeTheSecond) {
  const std::pair<int, const char*> expected[] = {
      {1, "3AXIS"}, {2, "5AXIS"}, {0, "5AXIS"}, {-1, "5AXIS"}};
  for (const auto& [code, word] : expected) {
    path.type = code;
    EXPECT_EQ(value("MFG_TOOLPATH_TYPE"), word) << code;
  }
}

TEST_F(ToolPathType, TypeThatIsNotKnownGivesNoValue) {
  path.known = false;
  EXPECT_EQ(value("MFG_TOOLPATH_TYPE"), kNoValue);
  path.known = true;
  path.status = E_FAIL;
  EXPECT_EQ(value("MFG_TOOLPATH_TYPE"), kNoValue);
}

TEST_F(ToolPathType, MissingLinkToThePathGivesNoValue) {
  management.status = E_FAIL;
  EXPECT_EQ(value("MFG_TOOLPATH_TYPE"), kNoValue);
  management.status = S_OK;
  management.path = nullptr;
  EXPECT_EQ(value("MFG_TOOLPATH_TYPE"), kNoValue);
  setActivity(newActivity());
  EXPECT_EQ(value("MFG_TOOLPATH_TYPE"), kNoValue);
  words->SetObjects(nullptr);
  EXPECT_EQ(value("MFG_TOOLPATH_TYPE"), kNoValue);
}

TEST_F(ToolPathType, NeedsTheEntryOfItsList) {
  path.type = 5;
  setList("MFG_TOOLPATH_TYPE", {"3AXIS"});
  EXPECT_EQ(value("MFG_TOOLPATH_TYPE"), kNoValue);
  setList("MFG_TOOLPATH_TYPE", {"3AXIS", ""});
  EXPECT_EQ(value("MFG_TOOLPATH_TYPE"), "");
}

TEST_F(ToolPathType, WithoutContainerThereIsNoValue) {
  EXPECT_EQ(valueOutside("MFG_TOOLPATH_TYPE"), kNoValue);
}

}  // namespace
}  // namespace ppword::test
