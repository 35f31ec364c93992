#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "host/modeler/Document.h"

namespace {

// How many allocations succeed before one fails; negative: all of them.
int allocationsLeft = -1;

}  // namespace

void* operator new(std::size_t size) {
  if (allocationsLeft == 0) throw std::bad_alloc();
  if (allocationsLeft > 0) --allocationsLeft;
  if (void* const memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

// A type under `name`, or null when the allocation after the first `successes` failed.
KEPISpecObject_var typeMadeWith(int successes, KEPIContainer& container, const std::string& name) {
  allocationsLeft = successes;
  try {
    auto type = KEPISpecObject_var::Adopt(container.CreateStartUp(name, nullptr));
    allocationsLeft = -1;
    return type;
  } catch (const std::bad_alloc&) {
    allocationsLeft = -1;
    return nullptr;
  }
}

std::size_t memberCount(const KEPIContainer& container) {
  return container.ListMembersHere(KEPInterfaceId<KEPISpecObject>()).size();
}

HRESULT removed(const KEPISpecObject_var& type) { return KEPILifeCycleObject_var(type)->remove(); }

TEST(LackOfMemory, TypeThatCannotBeMadeLeavesTheContainerAsItWas) {
  constexpr std::size_t kTypes = 40;
  const auto document = host::Document::create();
  KEPIContainer& container = *document->features();
  std::vector<KEPISpecObject_var> types;
  int failures = 0;
  while (types.size() < kTypes) {
    const std::string name = "TYPE_WITH_A_LONG_NAME_" + std::to_string(types.size());
    const std::size_t before = memberCount(container);
    KEPISpecObject_var type;
    for (int successes = 0; !(type = typeMadeWith(successes, container, name)); ++successes) {
      ++failures;
      ASSERT_EQ(container.FindStartUp(name), nullptr) << name << ' ' << successes;
      ASSERT_EQ(memberCount(container), before) << name << ' ' << successes;
    }
    ASSERT_EQ(KEPISpecObject_var::Adopt(container.FindStartUp(name)).Get(), type.Get());
    types.push_back(type);
  }
  // A feature, its entry in the list and, at a few sizes, a larger index.
  EXPECT_GT(failures, static_cast<int>(3 * kTypes));
  for (const KEPISpecObject_var& type : types) {
    ASSERT_EQ(removed(type), S_OK);
    ASSERT_EQ(container.FindStartUp(type->GetName()), nullptr);
  }
  EXPECT_EQ(memberCount(container), 1U);
}

}  // namespace
