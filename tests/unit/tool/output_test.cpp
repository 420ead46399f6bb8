// What is written for a display. Expected values are read off the rows.
#include "output.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "common/text.h"

namespace wendrill::tool {
namespace {

using Json = nlohmann::json;

std::u16string Display(std::initializer_list<TextView> rows) {
  std::u16string display;
  for (const TextView row : rows) {
    display += std::u16string(row) + std::u16string(kRowWidth - row.size(), kBlank);
  }
  return display;
}

const std::u16string kDisplay = Display({
    u"RP/PARXX0100/NCEYY2100            AM/SU  12JUN08/0930Z   ABC123",
    u"PARXX0100/0001AA/11JUN08",
    u"  1.SMITH/JOHN MR(ADT)",
    u"  2  AF 123 Y 15JUN 7 NCECDG GK2      0900 1030+1     K7PQ2R",
    u"  3  ARNK",
    u" 4  ATX QT HK1 NCECDG 20JUN-TAXI, \"BIG\"",
    u"  5 SUR/0830/A/NCE/12 RUE DE LYON/P1",
    u"  6 SSR NSST AF HK2 NCECDG/12A,P1/S2",
    u"  7 FP PAX",
    u"  8 FO 057-1",
});

Json Read(const std::u16string& display, Keys keys = Keys::Plain, const Selection& selection = {}) {
  RecordReader reader(keys);
  EXPECT_FALSE(reader.Read(display));
  std::string text;
  AppendObject(text, "7", reader, keys, selection);
  return Json::parse(text);
}

TEST(Output, HasHeadAndCreation) {
  const Json object = Read(kDisplay);
  EXPECT_EQ(object["id"], 7);
  EXPECT_EQ(object["locator"], "ABC123");
  EXPECT_EQ(object["header"], Json({{"line", "RP/PARXX0100/NCEYY2100            AM/SU  12JUN08/0930Z   ABC123"},
                                    {"office", "PARXX0100"},
                                    {"queue_office", "NCEYY2100"},
                                    {"updated", "2008-06-12T09:30Z"}}));
  EXPECT_EQ(object["created"], Json({{"office", "PARXX0100"}, {"agent", "0001AA"}, {"date", "2008-06-11"}}));
}

TEST(Output, HasSegmentsInPlainNames) {
  const Json air = Read(kDisplay)["air"];
  EXPECT_EQ(air[0], Json({{"kind", "timed"},
                          {"no", "2"},
                          {"airline", "AF"},
                          {"number", "123"},
                          {"class", "Y"},
                          {"date", "2008-06-15"},
                          {"from", "NCE"},
                          {"to", "CDG"},
                          {"status", "GK2"},
                          {"open", false},
                          {"departs", "0900"},
                          {"arrives", "1030"},
                          {"day_change", "1"},
                          {"confirmation", "K7PQ2R"},
                          {"text", "2  AF 123 Y 15JUN 7 NCECDG GK2      0900 1030+1     K7PQ2R"}}));
  EXPECT_EQ(air[1], Json({{"kind", "other"}, {"no", "3"}, {"text", "3  ARNK"}}));
}

// Their arrays begin at index 1, and IGetPNR cannot reach the last.
TEST(Output, HasEveryElementOfTheKindsThatCountFromOne) {
  const Json object = Read(kDisplay);
  EXPECT_EQ(object["atx"].size(), 1U);
  EXPECT_EQ(object["atx"][0]["date"], "2008-06-20");
  EXPECT_EQ(object["atx"][0]["text"], " 4  ATX QT HK1 NCECDG 20JUN-TAXI, \"BIG\"");
  EXPECT_EQ(object["surface"].size(), 1U);
  EXPECT_EQ(object["surface"][0]["arrival"], true);
  EXPECT_EQ(Read(kDisplay, Keys::Bag)["Elements"]["SUR"][0]["strKeyAddress"], "12 RUE DE LYON");
}

TEST(Output, HasTheLibrarysNamesAndFormsWhenAsked) {
  const Json object = Read(kDisplay, Keys::Bag);
  EXPECT_EQ(object["ActiveAirSegments"].size(), 1U);
  EXPECT_EQ(object["AllAirSegments"].size(), 2U);
  EXPECT_EQ(object["ActiveAirSegments"][0]["strKeyDepDate"], "15JUN08");
  EXPECT_EQ(object["Elements"]["SSR"][0]["blnKeySeat"], "True");  // a text, as the library has it
  EXPECT_EQ(Read(kDisplay)["ssr"][0]["is_seat"], true);
  EXPECT_EQ(object["PNRHeader"]["strKeyElementNr"], 0);
  EXPECT_EQ(object["CreationDate"], "11JUN08");
}

TEST(Output, TellsWhatAnAccessorRaises) {
  const Json object = Read(Display({u"RP/PARXX0100", u"  1 FP PAX/P1"}));
  EXPECT_EQ(object["fares"]["payments"][0]["text"], "1 FP PAX/P1");
  EXPECT_EQ(object["warnings"][0]["row"], 2);
  EXPECT_EQ(object["warnings"][0]["text"].get<std::string>().substr(0, 28), "reading the element raises 5");
}

TEST(Output, HasChosenKindsAlone) {
  const Json object = Read(kDisplay, Keys::Plain, {.kinds = {"air", "payments"}});
  EXPECT_TRUE(object.contains("air"));
  EXPECT_TRUE(object["fares"].contains("payments"));
  EXPECT_FALSE(object.contains("names"));
  EXPECT_FALSE(object.contains("elements"));
  EXPECT_EQ(object["fares"].size(), 1U);
}

TEST(Output, OriginalIssuesHaveNumberAndText) {
  EXPECT_EQ(Read(kDisplay)["fares"]["original_issues"], Json::array({{{"no", "8"}, {"text", "8 FO 057-1"}}}));
}

TEST(Output, CsvQuotesWhatNeedsIt) {
  RecordReader reader(Keys::Plain);
  ASSERT_FALSE(reader.Read(kDisplay));
  EXPECT_EQ(CsvHeading("atx", Keys::Plain), "id,locator,text,no,from,to,provider,date,free_text,status\r\n");
  std::string text;
  AppendCsv(text, "\"a#1\"", reader, Keys::Plain, "atx");
  EXPECT_EQ(text,
            "a#1,ABC123,\" 4  ATX QT HK1 NCECDG 20JUN-TAXI, \"\"BIG\"\"\",4,NCE,CDG,QT,2008-06-20,"
            "\"TAXI, \"\"BIG\"\"\",HK1\r\n");
}

TEST(Output, CsvLeavesWhatIsNotThereEmpty) {
  RecordReader reader(Keys::Plain);
  ASSERT_FALSE(reader.Read(kDisplay));
  EXPECT_EQ(CsvHeading("air", Keys::Plain),
            "id,locator,kind,text,airline,status,confirmation,no,from,class,open,number,date,to,arrives,departs,"
            "day_change\r\n");
  std::string text;
  AppendCsv(text, "7", reader, Keys::Plain, "air");
  EXPECT_EQ(text,
            "7,ABC123,timed,2  AF 123 Y 15JUN 7 NCECDG GK2      0900 1030+1     K7PQ2R,AF,GK2,K7PQ2R,2,NCE,Y,false,123,"
            "2008-06-15,CDG,1030,0900,1\r\n7,ABC123,other,3  ARNK,,,,3,,,,,,,,,\r\n");
}

TEST(Output, OfABadDisplayIsItsError) {
  std::string text;
  AppendError(text, "\"x\"", {9, u"the \"row\""});
  EXPECT_EQ(text, R"({"id":"x","error":{"row":9,"text":"the \"row\""}})");
  RecordReader reader(Keys::Plain);
  EXPECT_EQ(reader.Read(u"NO HEADER")->row, 1);
}

TEST(Output, SchemaNamesEveryField) {
  const Json schema = Json::parse(SchemaText());
  EXPECT_EQ(schema["schema"], "0");
  const Json& properties = schema["oneOf"][0]["properties"];
  const Json object = Read(kDisplay);
  for (const auto& [key, value] : object.items()) {
    EXPECT_TRUE(properties.contains(key)) << key;
  }
}

}  // namespace
}  // namespace wendrill::tool
