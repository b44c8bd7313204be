#include "platform/duiwindow/latest_cache.h"

#include <gtest/gtest.h>

namespace duiwindow {
namespace {

TEST(LatestCacheTest, KeepsNoMoreThanItMayAndLetsTheLeastAskedForGo) {
  LatestCache<int, int> cache(3);
  int made = 0;
  const auto get = [&](int key) {
    return cache.Get(key, [&] {
      ++made;
      return key * 10;
    });
  };
  for (const int key : {1, 2, 3, 1, 4}) EXPECT_EQ(get(key), key * 10);
  EXPECT_EQ(made, 4);
  EXPECT_EQ(cache.Count(), 3u);
  get(1);
  EXPECT_EQ(made, 4);  // asked for again before 4 came
  get(2);
  EXPECT_EQ(made, 5);
}

}  // namespace
}  // namespace duiwindow
