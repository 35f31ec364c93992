#include <gtest/gtest.h>

#include <cstdlib>

#include "Manufacturing/KEPMfgEnvVarMgt.h"

namespace {

constexpr const char* kName = "PPWORD_TEST_SETTING";

class Settings : public testing::Test {
 protected:
  void TearDown() override { unsetenv(kName); }
};

TEST_F(Settings, UnsetSettingIsEmptyAndOff) {
  unsetenv(kName);
  EXPECT_EQ(KEPMfgEnvVarMgt::Get(kName).View(), "");
  EXPECT_FALSE(KEPMfgEnvVarMgt::GetStatus(kName));
}

TEST_F(Settings, EmptySettingIsOff) {
  setenv(kName, "", 1);
  EXPECT_FALSE(KEPMfgEnvVarMgt::GetStatus(kName));
}

TEST_F(Settings, SettingGivesItsTextAndIsOn) {
  setenv(kName, "0", 1);
  EXPECT_EQ(KEPMfgEnvVarMgt::Get(kName).View(), "0");
  EXPECT_TRUE(KEPMfgEnvVarMgt::GetStatus(kName));
}

}  // namespace
