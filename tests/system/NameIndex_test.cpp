#include "host/system/NameIndex.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <random>
#include <string>

namespace {

class Item {
 public:
  explicit Item(std::string name) : name_(std::move(name)) {}
  [[nodiscard]] std::string_view GetName() const { return name_; }

 private:
  std::string name_;
};

TEST(NameIndex, HoldsNothingAtFirst) {
  const host::NameIndex<Item> index;
  EXPECT_EQ(index.find(""), nullptr);
  EXPECT_EQ(index.find("A"), nullptr);
}

TEST(NameIndex, FindsExactNames) {
  Item name("MFG_XPOINT");
  Item longer("MFG_XPOINT2");
  host::NameIndex<Item> index;
  index.insert(name);
  index.insert(longer);
  EXPECT_EQ(index.find("MFG_XPOINT"), &name);
  EXPECT_EQ(index.find("MFG_XPOINT2"), &longer);
  EXPECT_EQ(index.find("MFG_XPOIN"), nullptr);
  EXPECT_EQ(index.find("mfg_xpoint"), nullptr);
}

// Half full with few slots, so that items stand one after the other and wrap around the end.
TEST(NameIndex, AgreesWithAMapWhileItemsComeAndGo) {
  std::mt19937 random(20240607);
  for (const unsigned names : {6U, 8U, 14U, 60U, 1000U}) {
    host::NameIndex<Item> index;
    std::map<std::string, std::unique_ptr<Item>, std::less<>> expected;
    for (int step = 0; step < 20'000; ++step) {
      const std::string name = "N" + std::to_string(random() % names);
      const auto found = expected.find(name);
      ASSERT_EQ(index.find(name), found == expected.end() ? nullptr : found->second.get()) << step;
      if (found == expected.end()) {
        index.insert(*expected.emplace(name, std::make_unique<Item>(name)).first->second);
      } else {
        index.erase(*found->second);
        expected.erase(found);
      }
    }
    for (const auto& [name, item] : expected) ASSERT_EQ(index.find(name), item.get()) << name;
  }
}

}  // namespace
