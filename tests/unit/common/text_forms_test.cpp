#include "common/text_forms.h"

#include <gtest/gtest.h>

#include "common/text.h"
#include "support/describe.h"
#include "unit/common/number_samples.h"

namespace wendrill::testing {
namespace {

TEST(UsTextForms, WriteNumbersAsAutomationDoes) {
  for (const NumberTextSample& sample : kNumberTextSamples) {
    EXPECT_EQ(UsTextForms().TextOf(sample.number), sample.text) << sample.number;
  }
}

TEST(UsTextForms, WriteAndReadDatesOfTheStandardForm) {
  EXPECT_EQ(UsTextForms().TextOf(Date{39611}), u"6/12/2008");
  EXPECT_EQ(UsTextForms().TextOf(Date{39611.5}), u"6/12/2008 12:00:00 PM");
  EXPECT_EQ(UsTextForms().DateOf(u"6/12/2008"), Date{39611});
  EXPECT_EQ(UsTextForms().DateOf(u"06/12/2008"), std::nullopt);
  EXPECT_EQ(UsTextForms().DateOf(u"12JUN08"), std::nullopt);
}

}  // namespace
}  // namespace wendrill::testing
