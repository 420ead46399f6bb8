// The twenty members of IGet, early bound.
#include <algorithm>
#include <array>
#include <set>

#include "bag.h"
#include "desktop_fixture.h"
#include "record_file.h"

namespace wendrill::com::testing {
namespace {

constexpr HRESULT kUnspecified = static_cast<HRESULT>(0x80004005);

using GetMember = HRESULT (STDMETHODCALLTYPE _IGet::*)(IDispatch**, IDispatch**);

struct GetRow {
  const char* name;
  GetMember call;
  int error;  // for an index at or beyond the count; of the header, which knows no index, for a header without text
  bool returnsTheBag = false;
};

constexpr auto kMembers = std::to_array<GetRow>({
    {"ActiveAirSegments", &_IGet::ActiveAirSegments, 2205, true},
    {"AirSegments", &_IGet::AirSegments, 2207},
    {"AllAirSegments", &_IGet::AllAirSegments, 2209},
    {"BillingAddressElements", &_IGet::BillingAddressElements, 2235},
    {"CarSegment", &_IGet::CarSegment, 2211},
    {"ConfidentialRemarkElements", &_IGet::ConfidentialRemarkElements, 2241},
    {"ContactElements", &_IGet::ContactElements, 2239},
    {"FareCommissionElement", &_IGet::FareCommissionElement, 2215},
    {"FlownAirSegments", &_IGet::FlownAirSegments, 2217},
    {"FormOfPaymentElement", &_IGet::FormOfPaymentElement, 2219, true},
    {"HotelSegment", &_IGet::HotelSegment, 2221},
    {"MailingAddressElements", &_IGet::MailingAddressElements, 2237},
    {"NameElement", &_IGet::NameElement, 2223},
    {"OpenAirSegments", &_IGet::OpenAirSegments, 2225},
    {"OptionElements", &_IGet::OptionElements, 2237},
    {"PNRHeader", &_IGet::PNRHeader, 2227},
    {"RemarkElement", &_IGet::RemarkElement, 2229},
    {"TicketElement", &_IGet::TicketElement, 2231},
    {"ValidatingAirlineElement", &_IGet::ValidatingAirlineElement, 2233},
    {"AirSequenceNrElement", &_IGet::AirSequenceNrElement, 2213},
});
static_assert(kMembers.size() == 20);

// A failing scan for validating airlines counts none.
bool HidesFailures(const GetRow& member) {
  return member.call == &_IGet::ValidatingAirlineElement;
}

const GetRow& MemberNamed(std::string_view name) {
  const auto* member = std::ranges::find(kMembers, name, [](const GetRow& row) { return std::string_view(row.name); });
  EXPECT_NE(kMembers.end(), member) << "no member " << name;
  return *member;
}

// What a call made of a bag, and of the two by-reference parameters.
struct Outcome {
  HRESULT status = S_OK;
  IDispatch* params = nullptr;  // not counted
  Reference<IDispatch> result;
};

Outcome Call(_IGet& get, const GetRow& member, const Bag& bag) {
  Outcome outcome;
  outcome.params = bag.Object();
  outcome.status = (get.*member.call)(&outcome.params, outcome.result.Receive());
  return outcome;
}

Bag BagAt(SHORT index) {
  Bag bag;
  bag.Set(L"intKeyIndex", index);
  return bag;
}

// A desktop with one CQuillet, whose shared PNR the members read.
class Records : public Desktop {
 protected:
  void SetUp() override { get_ = Create<_CPNR>(CLSID_CPNR).As<_IGet>(); }
  void TearDown() override {
    get_ = {};
    quillet_ = {};
    Desktop::TearDown();
  }

  void RetrieveRichPnr() {
    LoadFile(InClone("simulator/scenarios/rich_pnr.toml"));
    quillet_ = CreateQuillet();
    LONG status = -1;
    ASSERT_EQ(S_OK, quillet_->RetrieveCurrent(&status));
  }

  void ConnectWithoutPnr() {
    Load(L"[[session]]\nname = 'A'");
    quillet_ = CreateQuillet();
  }

  _IGet& Get() { return *get_.Get(); }

 private:
  Reference<_CQuillet> quillet_;
  Reference<_IGet> get_;
};

class RichPnrRecords : public Records, public ::testing::WithParamInterface<const char*> {};

TEST_P(RichPnrRecords, StandInTheBagInTheOrderOfSetting) {
  RetrieveRichPnr();
  for (const Record& record : RecordsIn(GetParam())) {
    SCOPED_TRACE(record);
    const GetRow& member = MemberNamed(record.name);
    const Bag bag = BagAt(record.index);
    const std::string given = bag.Contents();
    const Outcome outcome = Call(Get(), member, bag);
    ExpectStatusOf(record, outcome.status);
    EXPECT_EQ(given + record.keys, bag.Contents());
    EXPECT_EQ(bag.Object(), outcome.params);
    EXPECT_EQ(member.returnsTheBag && record.error == 0 ? bag.Object() : nullptr, outcome.result.Get());
  }
}

INSTANTIATE_TEST_SUITE_P(Files, RichPnrRecords,
                         ::testing::Values("air_segments", "cars_and_hotels", "names_and_remarks", "fares_and_header"),
                         [](const auto& test) { return std::string(test.param); });

TEST(RecordFiles, HoldEveryMember) {
  std::set<std::string> names;
  for (const char* file : {"air_segments", "cars_and_hotels", "names_and_remarks", "fares_and_header"}) {
    for (const Record& record : RecordsIn(file)) {
      names.insert(record.name);
    }
  }
  for (const GetRow& member : kMembers) {
    EXPECT_EQ(1U, names.count(member.name)) << member.name;
  }
}

TEST_F(Records, OfAnEmptyPnrRaiseEachMembersOwnNumber) {
  ConnectWithoutPnr();
  for (const GetRow& member : kMembers) {
    SCOPED_TRACE(member.name);
    const Bag bag = BagAt(0);
    EXPECT_OWN_ERROR(member.error, Call(Get(), member, bag).status);
    EXPECT_EQ("intKeyIndex = int16 0\n", bag.Contents());
  }
}

TEST_F(Records, WithoutAPnrAre91) {
  for (const GetRow& member : kMembers) {
    SCOPED_TRACE(member.name);
    const Bag bag = BagAt(0);
    EXPECT_OWN_ERROR(HidesFailures(member) ? member.error : 91, Call(Get(), member, bag).status);
  }
}

TEST_F(Records, WithoutABagAre91) {
  RetrieveRichPnr();
  for (const GetRow& member : kMembers) {
    SCOPED_TRACE(member.name);
    IDispatch* nothing = nullptr;
    Reference<IDispatch> result;
    EXPECT_OWN_ERROR(91, (Get().*member.call)(&nothing, result.Receive()));
    EXPECT_OWN_ERROR(91, (Get().*member.call)(nullptr, result.Receive()));
  }
}

TEST_F(Records, NeedAPlaceForTheResult) {
  RetrieveRichPnr();
  for (const GetRow& member : kMembers) {
    SCOPED_TRACE(member.name);
    const Bag bag = BagAt(0);
    IDispatch* params = bag.Object();
    EXPECT_EQ(E_POINTER, (Get().*member.call)(&params, nullptr));
    EXPECT_EQ("intKeyIndex = int16 0\n", bag.Contents());
  }
}

TEST_F(Records, PassAToolkitFailureOnUnchanged) {
  RetrieveRichPnr();
  for (const GetRow& member : kMembers) {
    SCOPED_TRACE(member.name);
    const Bag bag = BagAt(0);
    FailNext(L"Text", kUnspecified, 1);
    const HRESULT status = Call(Get(), member, bag).status;
    if (HidesFailures(member)) {
      EXPECT_EQ(static_cast<HRESULT>(0x800A0000 + member.error), status);
      continue;
    }
    EXPECT_EQ(kUnspecified, status);
    const ErrorOnThread error = TakeError();
    EXPECT_EQ(L"QuilletSimulator", error.source);
    EXPECT_NE(std::wstring::npos, error.description.find(L"Text"));
  }
}

// An index of any type that automation knows, for the second of the two remarks or for none.
template <VARTYPE kType, typename Number>
VARIANT IndexOf(Number number) {
  VARIANT plain{};
  V_VT(&plain) = VT_R8;
  V_R8(&plain) = static_cast<double>(number);
  VARIANT index{};
  EXPECT_EQ(S_OK, VariantChangeType(&index, &plain, 0, kType));
  return index;
}

TEST_F(Records, TakeAnIndexOfEveryNumericType) {
  RetrieveRichPnr();
  for (const VARIANT& index :
       {IndexOf<VT_I1>(1), IndexOf<VT_UI1>(1), IndexOf<VT_I2>(1), IndexOf<VT_UI2>(1), IndexOf<VT_I4>(1),
        IndexOf<VT_UI4>(1), IndexOf<VT_INT>(1), IndexOf<VT_UINT>(1), IndexOf<VT_I8>(1), IndexOf<VT_UI8>(1),
        IndexOf<VT_R4>(0.6), IndexOf<VT_R8>(1.4), IndexOf<VT_CY>(0.6), IndexOf<VT_DECIMAL>(1.2), IndexOf<VT_DATE>(1)}) {
    Bag bag;
    bag.Set(L"intKeyIndex", index);
    EXPECT_EQ(S_OK, Call(Get(), MemberNamed("RemarkElement"), bag).status) << "type " << V_VT(&index);
    OwnedVariant number;
    ReadKey(bag.Object(), L"strKeyElementNr", &number);
    EXPECT_EQ(L"29", std::wstring(V_VT(&number) == VT_BSTR ? V_BSTR(&number) : L"")) << "type " << V_VT(&index);
  }
}

TEST_F(Records, OfTheInterfaceClassAreNothing) {
  const auto empty = Create<_IGet>(CLSID_IGet);
  for (const GetRow& member : kMembers) {
    SCOPED_TRACE(member.name);
    const Bag bag = BagAt(0);
    const Outcome outcome = Call(*empty.Get(), member, bag);
    EXPECT_EQ(S_OK, outcome.status);
    EXPECT_FALSE(outcome.result);
    EXPECT_EQ("intKeyIndex = int16 0\n", bag.Contents());
  }
}

}  // namespace
}  // namespace wendrill::com::testing
