#include "scan/toolkit_elements.h"

#include <gtest/gtest.h>

#include "unit/scan/scan_desk.h"

namespace wendrill::testing {
namespace {

class ToolkitElements : public ::testing::Test {
 protected:
  // What the accessor writes for one element with that text and the number 7.
  std::string Written(const Accessor& accessor, std::u16string text) {
    PnrDesk desk;
    desk.Hold(accessor.collection, {TextElement(desk, std::move(text), std::int16_t{7})});
    const auto bag = desk.Bag();
    ReadElement(desk.module, accessor, bag);
    return bag->SettingsText();
  }
};

TEST_F(ToolkitElements, AutoTicketHasItsNumberAndAssociations) {
  EXPECT_EQ(Written(kAutoTicket, u"FA PAX 117-2412345678/ETSK/12JUN08/PARXX0100/00001234/S2-3/P1"),
            "strKeyElement = \"FA PAX 117-2412345678/ETSK/12JUN08/PARXX0100/00001234/S2-3/P1\"\n"
            "strKeyElementNr = int16 7\n"
            "strKeyPasAsso = \"1\"\n"
            "strKeySegAsso = \"2-3\"\n"
            "strKeyTktNbr = \"117-2412345678\"\n");
}

TEST_F(ToolkitElements, AutoTicketTakesItsAssociationsInEitherOrder) {
  EXPECT_EQ(Written(kAutoTicket, u"FA PAX 117-24/P1,2/S3"),
            "strKeyElement = \"FA PAX 117-24/P1,2/S3\"\n"
            "strKeyElementNr = int16 7\n"
            "strKeyPasAsso = \"1,2\"\n"
            "strKeySegAsso = \"3\"\n"
            "strKeyTktNbr = \"117-24\"\n");
}

TEST_F(ToolkitElements, AutoTicketWithoutMarkersHasEmptyFields) {
  EXPECT_EQ(Written(kAutoTicket, u"FA INF 117-24"),
            "strKeyElement = \"FA INF 117-24\"\n"
            "strKeyElementNr = int16 7\n"
            "strKeyPasAsso = \"\"\n"
            "strKeySegAsso = \"\"\n"
            "strKeyTktNbr = \"\"\n");
}

TEST_F(ToolkitElements, EndorsementIsTheTextBehindItsHeadWithoutAssociations) {
  EXPECT_EQ(Written(kEndorsement, u"FE PAX NONREF/NONEND VALID SK/S3/P1"),
            "strKeyElement = \"FE PAX NONREF/NONEND VALID SK/S3/P1\"\n"
            "strKeyElementNr = int16 7\n"
            "strKeyText = \"NONREF/NONEND VALID SK\"\n"
            "strKeyPasAsso = \"1\"\n"
            "strKeySegAsso = \"3\"\n");
  EXPECT_EQ(Written(kEndorsement, u"FE NONREF/P2/S4"),
            "strKeyElement = \"FE NONREF/P2/S4\"\n"
            "strKeyElementNr = int16 7\n"
            "strKeyText = \"NONREF\"\n"
            "strKeyPasAsso = \"2\"\n"
            "strKeySegAsso = \"4\"\n");
}

TEST_F(ToolkitElements, InsuranceIsTheTextBehindItsKeywordAndOneCharacter) {
  EXPECT_EQ(Written(kInsurance, u"12 INS ELVIA COVER "),
            "strKeyElement = \"ELVIA COVER\"\nstrKeyElementNr = int16 7\n");
  EXPECT_EQ(Written(kInsurance, u"INS-X"), "strKeyElement = \"X\"\nstrKeyElementNr = int16 7\n");
  EXPECT_EQ(Written(kInsurance, u"NONE"), "strKeyElement = \"\"\nstrKeyElementNr = int16 7\n");
}

TEST_F(ToolkitElements, HotelLineIsCopiedAsItIs) {
  EXPECT_EQ(Written(kHotelLine, u"HTL 1A HK1 NCE"), "strKeyElement = \"HTL 1A HK1 NCE\"\nstrKeyElementNr = int16 7\n");
}

}  // namespace
}  // namespace wendrill::testing
