#include "com/adapters/recycled.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace wendrill::com {
namespace {

struct Adapter {
  Adapter(int* livingCount, std::string givenName) : living(livingCount), name(std::move(givenName)) { ++*living; }
  ~Adapter() { --*living; }
  Adapter(const Adapter&) = delete;
  Adapter& operator=(const Adapter&) = delete;

  int* living;
  std::string name;
};

TEST(Recycled, AnAdapterComesToStandWhereOneWent) {
  int living = 0;
  auto first = MakeRecycled<Adapter>(&living, "first");
  const Adapter* const place = first.get();
  first.reset();
  EXPECT_EQ(0, living);
  const auto second = MakeRecycled<Adapter>(&living, "second");
  EXPECT_EQ(place, second.get());
  EXPECT_EQ("second", second->name);
  EXPECT_EQ(1, living);
}

TEST(Recycled, LivingAdaptersNeverShareAPlace) {
  int living = 0;
  for (int round = 0; round < 3; ++round) {
    std::vector<std::shared_ptr<Adapter>> adapters;
    std::set<const Adapter*> places;
    for (int i = 0; i < 50; ++i) {
      adapters.push_back(MakeRecycled<Adapter>(&living, std::to_string(i)));
      places.insert(adapters.back().get());
    }
    EXPECT_EQ(50, living);
    EXPECT_EQ(50U, places.size());
    EXPECT_EQ("49", adapters.back()->name);
    adapters.clear();
    EXPECT_EQ(0, living);
  }
}

}  // namespace
}  // namespace wendrill::com
