#include "recording/rewriting.h"

#include <gtest/gtest.h>

namespace wendrill::recording {
namespace {

using std::chrono::milliseconds;

TEST(Rewriting, IsDueAtFirst) {
  EXPECT_TRUE(Rewriting().IsDue({}));
}

TEST(Rewriting, TakesATenthOfTheTimeAtMost) {
  const Rewriting::Time begin{};
  Rewriting rewriting;
  rewriting.Took(begin, begin + milliseconds(20));
  EXPECT_FALSE(rewriting.IsDue(begin + milliseconds(199)));
  EXPECT_TRUE(rewriting.IsDue(begin + milliseconds(200)));
  rewriting.Took(begin + milliseconds(200), begin + milliseconds(300));
  EXPECT_FALSE(rewriting.IsDue(begin + milliseconds(1199)));
  EXPECT_TRUE(rewriting.IsDue(begin + milliseconds(1200)));
}

}  // namespace
}  // namespace wendrill::recording
