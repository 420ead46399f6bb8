// CPNR's own members and its counts, early bound.
#include "desktop_fixture.h"

namespace wendrill::com::testing {
namespace {

using PnrObject = Desktop;

constexpr wchar_t kOnePnr[] =
    LR"([[session]]
name = "A"
[[pnr]]
RecordLocator = "ABC123"
display = '''
RP/PARXX0100/PARXX0100
PARXX0100/0001AA/12JUN08
'''
[[pnr.AirSegments]]
kind = "timed"
[[pnr.AirSegments]]
kind = "open"
[[pnr.AirSegments]]
kind = "flown"
[[pnr.Contacts]]
Text = "AP"
)";

class LoadedPnr : public Desktop {
 protected:
  void Retrieve() {
    Load(kOnePnr);
    quillet_ = CreateQuillet();
    VARIANT_BOOL found = VARIANT_FALSE;
    ASSERT_EQ(S_OK, quillet_->RetrieveRecLoc(Text(L"ABC123"), &found));
    ASSERT_EQ(VARIANT_TRUE, found);
  }
  void TearDown() override {
    quillet_ = {};
    Desktop::TearDown();
  }

 private:
  Reference<_CQuillet> quillet_;
};

TEST_F(PnrObject, WithoutASessionCommandRoundTripsAndRecordLocatorIs91) {
  const auto pnr = Create<_CPNR>(CLSID_CPNR);
  Text text;
  EXPECT_EQ(S_OK, pnr->put_Command(Text(L"RT")));
  EXPECT_EQ(S_OK, pnr->get_Command(text.Receive()));
  EXPECT_EQ(L"RT", text.Wide());
  EXPECT_OWN_ERROR(91, pnr->get_RecordLocator(text.Receive()));
  Reference<IDispatch> toolkit;
  EXPECT_EQ(S_OK, pnr->get_PNR(toolkit.Receive()));
  EXPECT_FALSE(toolkit);
}

TEST_F(LoadedPnr, TextsComeFromHeaderAndDisplay) {
  Retrieve();
  const auto pnr = Create<_CPNR>(CLSID_CPNR);
  Text text;
  EXPECT_EQ(S_OK, pnr->get_RecordLocator(text.Receive()));
  EXPECT_EQ(L"ABC123", text.Wide());
  EXPECT_EQ(S_OK, pnr->get_CreationOfficeID(text.Receive()));
  EXPECT_EQ(L"PARXX0100", text.Wide());
  EXPECT_EQ(S_OK, pnr->get_CreationAgentSign(text.Receive()));
  EXPECT_EQ(L"0001AA", text.Wide());
  EXPECT_EQ(S_OK, pnr->get_CreationDate(text.Receive()));
  EXPECT_EQ(L"12JUN08", text.Wide());
  EXPECT_EQ(S_OK, pnr->get_Text(text.Receive()));
  EXPECT_EQ(Row(L"RP/PARXX0100/PARXX0100") + Row(L"PARXX0100/0001AA/12JUN08"), text.Wide());
}

// A count property and what it gives for kOnePnr.
struct CountCase {
  const char* name;
  HRESULT (STDMETHODCALLTYPE _CPNR::*get)(SHORT*);
  SHORT expected;
};

constexpr CountCase kCounts[] = {
    {"NameElements", &_CPNR::get_NameElementsCount, 0},
    {"TicketElements", &_CPNR::get_TicketElementsCount, 0},
    {"RemarkElements", &_CPNR::get_RemarkElementsCount, 0},
    {"FormOfPaymentElements", &_CPNR::get_FormOfPaymentElementsCount, 0},
    {"HotelSegments", &_CPNR::get_HotelSegmentsCount, 0},
    {"FareCommissionElements", &_CPNR::get_FareCommissionElementsCount, 0},
    {"OpenAirSegments", &_CPNR::get_OpenAirSegmentsCount, 1},
    {"OrigianlIssueElements", &_CPNR::get_OrigianlIssueElementsCount, 0},
    {"AirSegments", &_CPNR::get_AirSegmentsCount, 1},
    {"ActiveAirSegments", &_CPNR::get_ActiveAirSegmentsCount, 2},
    {"INSElements", &_CPNR::get_INSElementsCount, 0},
    {"MISElements", &_CPNR::get_MISElementsCount, 0},
    {"MailingAddressElements", &_CPNR::get_MailingAddressElementsCount, 0},
    {"ContactElements", &_CPNR::get_ContactElementsCount, 1},
    {"ConfidentialRemarkElements", &_CPNR::get_ConfidentialRemarkElementsCount, 0},
    {"OptionElements", &_CPNR::get_OptionElementsCount, 0},
    {"BillingAddressElements", &_CPNR::get_BillingAddressElementsCount, 0},
    {"AllAirSegments", &_CPNR::get_AllAirSegmentsCount, 3},
    {"FlownAirSegments", &_CPNR::get_FlownAirSegmentsCount, 1},
    {"CarSegments", &_CPNR::get_CarSegmentsCount, 0},
    {"FEElements", &_CPNR::get_FEElementsCount, 0},
    {"AutoTktElements", &_CPNR::get_AutoTktElementsCount, 0},
    {"HTLElements", &_CPNR::get_HTLElementsCount, 0},
};

TEST_F(LoadedPnr, EveryCountAnswers) {
  Retrieve();
  const auto pnr = Create<_CPNR>(CLSID_CPNR);
  for (const CountCase& count : kCounts) {
    SHORT actual = -1;
    EXPECT_EQ(S_OK, (pnr.Get()->*count.get)(&actual)) << count.name;
    EXPECT_EQ(count.expected, actual) << count.name;
  }
}

TEST_F(PnrObject, WithoutAPnrEveryCountIs91) {
  const auto pnr = Create<_CPNR>(CLSID_CPNR);
  for (const CountCase& count : kCounts) {
    SCOPED_TRACE(count.name);
    SHORT actual = -1;
    EXPECT_OWN_ERROR(91, (pnr.Get()->*count.get)(&actual));
  }
}

TEST_F(LoadedPnr, PnrReturnsOneObjectAndPutAssignsItsDefaultProperty) {
  Retrieve();
  const auto pnr = Create<_CPNR>(CLSID_CPNR);
  Reference<IDispatch> first;
  Reference<IDispatch> second;
  EXPECT_EQ(S_OK, pnr->get_PNR(first.Receive()));
  EXPECT_EQ(S_OK, pnr->put_PNR(pnr.Get()));
  EXPECT_EQ(S_OK, pnr->get_PNR(second.Receive()));
  EXPECT_EQ(first.Get(), second.Get());
  EXPECT_EQ(S_OK, pnr->put_PNR(nullptr));  // the default property lets go of this object again
}

TEST_F(PnrObject, AllThreeInterfacesAreOneObject) {
  const auto pnr = Create<_CPNR>(CLSID_CPNR);
  const auto get = pnr.As<_IGet>();
  const auto getPnr = pnr.As<_IGetPNR>();
  ASSERT_TRUE(get);
  ASSERT_TRUE(getPnr);
  EXPECT_EQ(pnr.As<IUnknown>().Get(), get.As<IUnknown>().Get());
  EXPECT_EQ(pnr.As<IUnknown>().Get(), getPnr.As<IUnknown>().Get());
  EXPECT_EQ(pnr.As<IDispatch>().Get(), get.As<IDispatch>().Get());
  const auto support = get.As<ISupportErrorInfo>();
  for (const IID& identity : {IID__CPNR, IID__IGet, IID__IGetPNR}) {
    EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(identity));
  }
  EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID__CQuillet));
}

}  // namespace
}  // namespace wendrill::com::testing
