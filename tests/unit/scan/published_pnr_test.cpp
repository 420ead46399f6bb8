// Every count and every member of IGet has one source: the toolkit's collections, or a scan of the display.
#include "scan/published_pnr.h"

#include <gtest/gtest.h>

#include "pnr/counts.h"
#include "pnr/records.h"
#include "scan/display_kinds.h"
#include "support/pnr_desk.h"

namespace wendrill::testing {
namespace {

TEST(PublishedPnrTest, EveryCountIsTheToolkitsOrADisplayKinds) {
  const PnrDesk desk;
  desk.HoldNothing();
  desk.Hold(static_cast<Collection>(3), {});  // the surface segments are among all elements
  for (const CountOf kind : kEveryCountOf) {
    SCOPED_TRACE(NameOf(kind));
    EXPECT_EQ(PublishedPnr(desk.module).Count(kind), 0);
    if (KindWith(&DisplayKind::count, kind) != nullptr) {
      EXPECT_TRUE(RaisesNumber(5, [&] { Count(desk.module, kind); })) << "the toolkit counts it too";
    }
  }
}

TEST(PublishedPnrTest, EveryMemberOfIGetReadsThePnrObjectOrADisplayKind) {
  const PnrDesk desk;
  desk.HoldNothing();
  const auto header = desk.Object("header");
  header->With(u"Text", u"");
  desk.pnr->With(76, ObjectRef(header));
  for (const GetMember member : kEveryGetMember) {
    SCOPED_TRACE(NameOf(member));
    const auto error = ErrorOf([&] { PublishedPnr(desk.module).Get(member, desk.Bag()); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description(), kElementMessage) << error->Number();
    if (KindWith(&DisplayKind::getter, member) != nullptr) {
      EXPECT_TRUE(RaisesNumber(5, [&] { PnrRecords(desk.module).Get(member, desk.Bag()); })) << "a row too many";
    }
  }
}

TEST(PublishedPnrTest, EveryDisplayKindHasItsOwnCountAndIsReadEitherByIGetOrByElements) {
  for (const DisplayKind* kind : kDisplayKinds) {
    EXPECT_EQ(KindWith(&DisplayKind::count, kind->count), kind) << kind->Name();
    EXPECT_NE(kind->getter.has_value(), kind->askedAs.has_value()) << kind->Name();
  }
}

TEST(PublishedPnrTest, PublishedNamesCountAndReadFromBothSources) {
  const PnrDesk desk;
  desk.HoldNothing();
  desk.Hold(Collection::Tickets, {desk.Object("ticket"), desk.Object("ticket")});
  desk.Display(u"HEADER\r\n5 MCO SK\r\n");
  PublishedPnr pnr(desk.module);
  EXPECT_EQ(pnr.TicketElementsCount(), 2);
  EXPECT_EQ(pnr.MCOElementsCount(), 1);
  EXPECT_TRUE(RaisesNumber(2231, [&] { pnr.TicketElement(desk.Bag(std::int16_t{2})); }));
  EXPECT_TRUE(RaisesNumber(2233, [&] { pnr.ValidatingAirlineElement(desk.Bag()); }));
}

}  // namespace
}  // namespace wendrill::testing
