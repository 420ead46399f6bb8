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

TEST_F(ToolkitElements, EndorsementIsTheTextAfterItsKeywordWithoutAssociations) {
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

class Endorsement : public ToolkitElements {
 protected:
  // What "strKeyText" holds for an element with that text.
  std::string TextOf(const std::u16string& text) {
    const std::string written = Written(kEndorsement, text);
    const std::string key = "strKeyText = \"";
    const auto first = written.find(key) + key.size();
    return written.substr(first, written.find("\"\n", first) - first);
  }
};

TEST_F(Endorsement, PassengerTypeInsideTheTextCutsNothing) {
  EXPECT_EQ(TextOf(u"33 FE REF/INFANT DISCOUNT"), "REF/INFANT DISCOUNT");
  EXPECT_EQ(TextOf(u"33 FE VALID FOR 2 PAX ONLY/S3/P1"), "VALID FOR 2 PAX ONLY");
  EXPECT_EQ(TextOf(u"33 FE PAX INFO AT AIRPORT"), "INFO AT AIRPORT");
  EXPECT_EQ(TextOf(u"33 FE INFANT FARE"), "INFANT FARE") << "the next word is not INF but begins with it";
  EXPECT_EQ(TextOf(u"33 FE INF PAX PAYS CASH"), "PAX PAYS CASH") << "one passenger type, not two";
}

TEST_F(Endorsement, BeginsAfterTheElementNumberTheKeywordAndThePassengerType) {
  EXPECT_EQ(TextOf(u"FE NONREF"), "NONREF");
  EXPECT_EQ(TextOf(u"  33  FE  INF  NONREF "), "NONREF");
  EXPECT_EQ(TextOf(u"133 FE PAX NONREF"), "NONREF");
  EXPECT_EQ(TextOf(u"33 FE NO FEES"), "NO FEES") << "a later FE is text";
  EXPECT_EQ(TextOf(u"33 FE FE 20"), "FE 20");
}

TEST_F(Endorsement, WithoutItsKeywordIsTheWholeText) {
  EXPECT_EQ(TextOf(u"NO FEES/S3"), "NO FEES");
  EXPECT_EQ(TextOf(u"33 FEES PAID"), "33 FEES PAID");
  EXPECT_EQ(TextOf(u"X FE PAID"), "X FE PAID") << "only a number may precede the keyword";
}

TEST_F(Endorsement, EndsBeforeItsFirstAssociation) {
  EXPECT_EQ(TextOf(u"33 FE PAX NONREF/SPECIAL/PARIS/P2/S3"), "NONREF/SPECIAL/PARIS");
  EXPECT_EQ(TextOf(u"33 FE PAX NONREF /S3-4/P2"), "NONREF");
  EXPECT_EQ(TextOf(u"33 FE PAX/S3"), "") << "nothing follows the passenger type";
  EXPECT_EQ(TextOf(u"33 FE/P1"), "");
  EXPECT_EQ(TextOf(u"FE"), "");
  EXPECT_EQ(TextOf(u""), "");
}

TEST_F(ToolkitElements, InsuranceIsTheTextAfterItsKeywordAndOneCharacter) {
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
