#include "toolkit/received_text.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

namespace wendrill {
namespace {

// A component's memory, and what was given back to it.
std::array<char16_t, 3> memory = {u'A', u'N', u'?'};
std::vector<char16_t*> freed;

void Free(char16_t* characters) {
  freed.push_back(characters);
}
void FreeElsewhere(char16_t* /*characters*/) {
  FAIL() << "it was not received from there";
}

class ReceivedTexts : public ::testing::Test {
 protected:
  ReceivedTexts() { freed.clear(); }

  static ReceivedText Received() { return {memory.data(), 2, Free}; }
};

TEST_F(ReceivedTexts, AreSeenWhereTheyLie) {
  const ReceivedText text = Received();
  EXPECT_EQ(u"AN", text.View());
  EXPECT_EQ(memory.data(), text.View().data());
}

TEST_F(ReceivedTexts, GiveTheirMemoryBackOnce) {
  {
    ReceivedText text = Received();
    const ReceivedText moved = std::move(text);
    EXPECT_EQ(u"AN", moved.View());
    EXPECT_TRUE(freed.empty());
  }
  EXPECT_EQ(std::vector{memory.data()}, freed);
}

TEST_F(ReceivedTexts, GiveTheirMemoryBackWhenAnotherTakesTheirPlace) {
  ReceivedText text = Received();
  text = ReceivedText(u"OWN");
  EXPECT_EQ(u"OWN", text.View());
  EXPECT_EQ(std::vector{memory.data()}, freed);
}

TEST_F(ReceivedTexts, AreReleasedToWhoFreesThemTheSameWay) {
  {
    ReceivedText text = Received();
    EXPECT_EQ(nullptr, text.Release(FreeElsewhere));
    EXPECT_EQ(u"AN", text.View());
    EXPECT_EQ(memory.data(), text.Release(Free));
    EXPECT_EQ(u"", text.View());
  }
  EXPECT_TRUE(freed.empty());
}

TEST_F(ReceivedTexts, AreCopiedWhenTheyAreTaken) {
  {
    ReceivedText text = Received();
    EXPECT_EQ(u"AN", text.Take());
  }
  EXPECT_EQ(std::vector{memory.data()}, freed);
}

TEST_F(ReceivedTexts, OfOurOwnAreTakenAsTheyAre) {
  const std::u16string screen(1920, u'X');
  std::u16string own = screen;
  const char16_t* const place = own.data();
  ReceivedText text(std::move(own));
  EXPECT_EQ(nullptr, text.Release(Free));
  const std::u16string taken = text.Take();
  EXPECT_EQ(screen, taken);
  EXPECT_EQ(place, taken.data());
}

TEST_F(ReceivedTexts, WithoutMemoryAreEmpty) {
  ReceivedText none(nullptr, 0, Free);
  EXPECT_EQ(u"", none.View());
  EXPECT_EQ(nullptr, none.Release(Free));
  EXPECT_EQ(u"", ReceivedText().Take());
  EXPECT_TRUE(freed.empty());
}

}  // namespace
}  // namespace wendrill
