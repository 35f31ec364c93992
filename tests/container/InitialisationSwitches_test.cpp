// Each of these tests runs in a process of its own, since the switches are read once in each.

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/container/Publishing.h"

namespace ppword::test {
namespace {

constexpr Circumstances kUpToDate{.needsUpgrade = false, .skip = false};
constexpr Circumstances kUpToDateSkipping{.needsUpgrade = false, .skip = true};
constexpr Circumstances kToUpgrade{.needsUpgrade = true, .skip = false};
constexpr Circumstances kToUpgradeSkipping{.needsUpgrade = true, .skip = true};

void set(const char* name, const char* text = "1") {
  ASSERT_EQ(setenv(name, text, /*overwrite=*/1), 0);
}
void unset(const char* name) { ASSERT_EQ(unsetenv(name), 0); }

TEST(ForcePublish, DocumentUpToDateIsPublished) {
  set("MfgForcePublish");
  EXPECT_EQ(initialised(kUpToDate), kPublished);
  EXPECT_EQ(initialised(kUpToDateSkipping), kSkipped);
}

TEST(ForcePublish, DocumentToUpgradeIsPublished) {
  set("MfgForcePublish");
  EXPECT_EQ(initialised(kToUpgrade), kPublished);
  EXPECT_EQ(initialised(kToUpgradeSkipping), kSkipped);
}

TEST(ForcePublish, IsReadOnce) {
  set("MfgForcePublish");
  EXPECT_EQ(initialised(kUpToDate), kPublished);
  unset("MfgForcePublish");
  EXPECT_EQ(initialised(kUpToDate), kPublished);
}

TEST(ForcePublish, ThatIsUnsetIsReadOnce) {
  EXPECT_EQ(initialised(kUpToDate), kNotPublished);
  set("MfgForcePublish");
  EXPECT_EQ(initialised(kUpToDate), kNotPublished);
}

TEST(ForcePublish, IsNotReadWhileTheDocumentNeedsAnUpgrade) {
  EXPECT_EQ(initialised(kToUpgrade), kPublished);
  set("MfgForcePublish");
  EXPECT_EQ(initialised(kUpToDate), kPublished);
}

TEST(NoPublish, NothingIsPublishedAndNothingFails) {
  set("MfgNoPublish");
  EXPECT_EQ(initialised(kToUpgrade), kNotPublished);
  EXPECT_EQ(initialised(kToUpgradeSkipping), kNotPublished);
  EXPECT_EQ(initialised(kUpToDate), kNotPublished);
  EXPECT_EQ(initialised(kUpToDateSkipping), kNotPublished);
}

TEST(NoPublish, IsReadOnce) {
  set("MfgNoPublish");
  EXPECT_EQ(initialised(kToUpgrade), kNotPublished);
  unset("MfgNoPublish");
  EXPECT_EQ(initialised(kToUpgrade), kNotPublished);
}

TEST(NoPublish, ThatIsUnsetIsReadOnce) {
  EXPECT_EQ(initialised(kToUpgrade), kPublished);
  set("MfgNoPublish");
  EXPECT_EQ(initialised(kToUpgrade), kPublished);
}

TEST(NoPublish, IsReadWhenPublishingIsFirstDue) {
  EXPECT_EQ(initialised(kUpToDate), kNotPublished);
  set("MfgNoPublish");
  EXPECT_EQ(initialised(kToUpgrade), kNotPublished);
}

TEST(ForceAndNoPublish, NothingIsPublishedAndNothingFails) {
  set("MfgForcePublish");
  set("MfgNoPublish");
  EXPECT_EQ(initialised(kUpToDate), kNotPublished);
  EXPECT_EQ(initialised(kUpToDateSkipping), kNotPublished);
  EXPECT_EQ(initialised(kToUpgrade), kNotPublished);
  EXPECT_EQ(initialised(kToUpgradeSkipping), kNotPublished);
}

TEST(EmptySwitches, CountAsUnset) {
  set("MfgForcePublish", "");
  set("MfgNoPublish", "");
  EXPECT_EQ(initialised(kUpToDate), kNotPublished);
  EXPECT_EQ(initialised(kToUpgrade), kPublished);
}

}  // namespace
}  // namespace ppword::test
