#include "trace/hiding.h"

#include <gtest/gtest.h>

namespace wendrill::trace {
namespace {

TEST(TraceHiding, ScreensKeepTheirRows) {
  Hiding hiding({});
  const std::vector<std::u16string> rows = {u"ONE", u"", u"  TWO  ", std::u16string(132, u'-')};
  EXPECT_EQ(hiding.Screen(rows), rows);
  EXPECT_TRUE(hiding.Screen({}).empty());
}

}  // namespace
}  // namespace wendrill::trace
