// The generic element access of IGetPNR, early bound.
#include <array>
#include <set>

#include "bag.h"
#include "desktop_fixture.h"
#include "record_file.h"

namespace wendrill::com::testing {
namespace {

constexpr HRESULT kUnspecified = static_cast<HRESULT>(0x80004005);

struct KindRow {
  const wchar_t* kind;
  int error;  // 0: failures arrive as they are
};

constexpr auto kKinds = std::to_array<KindRow>({
    {L"ALL", 2252},
    {L"ATX", 0},
    {L"* SP", 2259},
    {L"SUR", 2258},
    {L"FH", 2245},
    {L"FA", 2255},
    {L"FE", 2256},
    {L"FS", 2251},
    {L"OSI", 2249},
    {L"SSR", 2247},
    {L"ES", 2253},
    {L"MIS", 0},
    {L"MCO", 2260},
    {L"INS", 2261},
    {L"HTL", 2261},
});
static_assert(kKinds.size() == 15);

Bag Asking(const wchar_t* kind, SHORT index) {
  Bag bag;
  bag.Set(L"intKeyIndex", index);
  bag.Set(L"strKeyPNRElement", kind);
  return bag;
}

// A list of prefixes as a typed client makes it. Its strings are copied into the bag.
class Prefixes {
 public:
  Prefixes(LONG lowerBound, std::initializer_list<const wchar_t*> texts) {
    V_VT(&value_) = VT_ARRAY | VT_BSTR;
    V_ARRAY(&value_) = SafeArrayCreateVector(VT_BSTR, lowerBound, static_cast<ULONG>(texts.size()));
    for (const wchar_t* text : texts) {
      EXPECT_EQ(S_OK, SafeArrayPutElement(V_ARRAY(&value_), &lowerBound, static_cast<BSTR>(Text(text))));
      ++lowerBound;
    }
  }
  const VARIANT& Value() const { return value_; }

 private:
  OwnedVariant value_;
};

std::vector<std::wstring> TextsIn(IDispatch* bag, const wchar_t* key) {
  OwnedVariant value;
  ReadKey(bag, key, &value);
  std::vector<std::wstring> texts;
  EXPECT_EQ(VT_ARRAY | VT_BSTR, V_VT(&value)) << "typed clients receive texts as such";
  if (V_VT(&value) != (VT_ARRAY | VT_BSTR)) {
    return texts;
  }
  LONG lower = 0;
  LONG upper = -1;
  SafeArrayGetLBound(V_ARRAY(&value), 1, &lower);
  SafeArrayGetUBound(V_ARRAY(&value), 1, &upper);
  EXPECT_EQ(1, lower);
  for (LONG index = lower; index <= upper; ++index) {
    Text text;
    EXPECT_EQ(S_OK, SafeArrayGetElement(V_ARRAY(&value), &index, text.Receive()));
    texts.push_back(text.Wide());
  }
  return texts;
}

class Elements : public Desktop {
 protected:
  void SetUp() override { getPnr_ = Create<_CPNR>(CLSID_CPNR).As<_IGetPNR>(); }
  void TearDown() override {
    getPnr_ = {};
    quillet_ = {};
    Desktop::TearDown();
  }

  void RetrieveRichPnr() {
    LoadFile(InClone("simulator/scenarios/rich_pnr.toml"));
    quillet_ = CreateQuillet();
    LONG status = -1;
    ASSERT_EQ(S_OK, quillet_->RetrieveCurrent(&status));
  }

  HRESULT Call(const Bag& bag) {
    IDispatch* params = bag.Object();
    const HRESULT status = getPnr_->Elements(&params, result_.Receive());
    EXPECT_EQ(bag.Object(), params);
    return status;
  }

  // What the call before returned.
  IDispatch* Result() const { return result_.Get(); }

  HRESULT Search(const VARIANT& prefixes) {
    Bag bag;
    bag.Set(L"strKeyPNRElement", L"ALL");
    bag.Set(L"strKeyFind()", prefixes);
    return Call(bag);
  }

  void ForgetResult() { result_ = {}; }

 private:
  Reference<_CQuillet> quillet_;
  Reference<_IGetPNR> getPnr_;
  Reference<IDispatch> result_;
};

class RichPnrElements : public Elements, public ::testing::WithParamInterface<const char*> {};

TEST_P(RichPnrElements, StandInTheBagInTheOrderOfSetting) {
  RetrieveRichPnr();
  for (const Record& record : RecordsIn(GetParam())) {
    SCOPED_TRACE(record);
    const std::wstring kind(record.name.begin(), record.name.end());
    const Bag bag = Asking(kind.c_str(), record.index);
    const std::string given = bag.Contents();
    ExpectStatusOf(record, Call(bag));
    EXPECT_EQ(given + record.keys, bag.Contents());
    EXPECT_EQ(nullptr, Result());
  }
}

INSTANTIATE_TEST_SUITE_P(Files, RichPnrElements, ::testing::Values("kinds_of_the_display", "kinds_of_the_toolkit"),
                         [](const auto& test) { return std::string(test.param); });

TEST(ElementFiles, HoldEveryKindButTheSearch) {
  std::set<std::wstring> kinds{L"ALL"};
  for (const char* file : {"kinds_of_the_display", "kinds_of_the_toolkit"}) {
    for (const Record& record : RecordsIn(file)) {
      kinds.emplace(record.name.begin(), record.name.end());
    }
  }
  for (const KindRow& row : kKinds) {
    EXPECT_EQ(1U, kinds.count(row.kind)) << row.kind;
  }
}

TEST_F(Elements, WithoutAPnrRaiseTheKindsNumber) {
  for (const KindRow& row : kKinds) {
    SCOPED_TRACE(row.kind);
    EXPECT_OWN_ERROR(row.error == 0 ? 91 : row.error, Call(Asking(row.kind, 0)));
  }
}

TEST_F(Elements, TurnAToolkitFailureIntoTheKindsNumber) {
  RetrieveRichPnr();
  const Prefixes prefixes(0, {L"", L"RM"});
  for (const KindRow& row : kKinds) {
    SCOPED_TRACE(row.kind);
    Bag bag = Asking(row.kind, 0);
    bag.Set(L"strKeyFind()", prefixes.Value());
    FailNext(L"Text", kUnspecified, 1);
    if (row.error != 0) {
      EXPECT_OWN_ERROR(row.error, Call(bag));
    } else {
      EXPECT_EQ(kUnspecified, Call(bag));
      EXPECT_EQ(L"QuilletSimulator", TakeError().source);
    }
  }
}

TEST_F(Elements, OfAnEmptyOrUnknownKindAreNothing) {
  RetrieveRichPnr();
  for (const wchar_t* kind : {L"", L"NOPE", L"ssr", L" FS "}) {
    const Bag bag = Asking(kind, 0);
    const std::string given = bag.Contents();
    EXPECT_EQ(S_OK, Call(bag));
    EXPECT_EQ(nullptr, Result());
    EXPECT_EQ(given, bag.Contents());
  }
}

TEST_F(Elements, WithoutABagAre2252) {
  const auto getPnr = Create<_CPNR>(CLSID_CPNR).As<_IGetPNR>();
  IDispatch* nothing = nullptr;
  Reference<IDispatch> result;
  EXPECT_OWN_ERROR(2252, getPnr->Elements(&nothing, result.Receive()));
  EXPECT_OWN_ERROR(2252, getPnr->Elements(nullptr, result.Receive()));
  EXPECT_EQ(E_POINTER, getPnr->Elements(&nothing, nullptr));
}

TEST_F(Elements, OfAllAreTextsFromIndex1InANewBag) {
  RetrieveRichPnr();
  Bag bag;
  bag.Set(L"strKeyPNRElement", L"ALL");
  bag.Set(L"strKeyFind()", Prefixes(0, {L"FP", L"rm", L"SUR/"}).Value());
  ASSERT_EQ(S_OK, Call(bag));
  ASSERT_NE(nullptr, Result());
  EXPECT_NE(bag.Object(), Result());
  EXPECT_EQ((std::vector<std::wstring>{L"RM PAY AT AIRPORT/S5/P1", L"RM WINDOW SEATS WANTED",
                                       L"SUR/0830/A/NCE/12 RUE DE LYON/P1", L"SUR/1910/D/LYS/3 QUAI DU RHONE"}),
            TextsIn(Result(), L"strKeyResult()"));
  EXPECT_EQ((std::vector<std::wstring>{L"28", L"29", L"46", L"47"}), TextsIn(Result(), L"strKeyElementNbrs()"));
  ForgetResult();
}

TEST_F(Elements, OfAllTryEveryPrefixFromIndex1On) {
  RetrieveRichPnr();
  ASSERT_EQ(S_OK, Search(Prefixes(1, {L"TK", L"OSI"}).Value()));
  EXPECT_EQ((std::vector<std::wstring>{L"20", L"26"}), TextsIn(Result(), L"strKeyElementNbrs()"));
  ASSERT_EQ(S_OK, Search(Prefixes(-1, {L"TK", L"OSI", L"RC"}).Value()));
  EXPECT_EQ(std::vector<std::wstring>{L"30"}, TextsIn(Result(), L"strKeyElementNbrs()"));
  ASSERT_EQ(S_OK, Search(Prefixes(1, {}).Value()));
  EXPECT_EQ(std::vector<std::wstring>{}, TextsIn(Result(), L"strKeyElementNbrs()"));
  ForgetResult();
}

TEST_F(Elements, OfAllNeedAListOfPrefixesThatReachesIndex1) {
  RetrieveRichPnr();
  EXPECT_OWN_ERROR(2252, Search(Prefixes(2, {L"TK"}).Value()));
  EXPECT_OWN_ERROR(2252, Search(VARIANT{}));
}

TEST_F(Elements, OfTheInterfaceClassAreNothing) {
  const auto empty = Create<_IGetPNR>(CLSID_IGetPNR);
  const Bag bag = Asking(L"SSR", 0);
  IDispatch* params = bag.Object();
  Reference<IDispatch> result;
  EXPECT_EQ(S_OK, empty->Elements(&params, result.Receive()));
  EXPECT_FALSE(result);
  EXPECT_EQ("intKeyIndex = int16 0\nstrKeyPNRElement = \"SSR\"\n", bag.Contents());
}

}  // namespace
}  // namespace wendrill::com::testing
