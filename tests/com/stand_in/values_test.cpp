// What the toolkit returns, and how it fails, as a caller meets it: values of every type, standard failures with and
// without error information, and which properties are read how often.
#include <array>
#include <map>

#include "common/error.h"
#include "desktop_fixture.h"
#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

// A caller's bag that keeps what it is given, byte by byte.
class VerbatimBag final : public _ParamBag {
 public:
  std::map<std::wstring, VARIANT> values;

  VerbatimBag() {
    V_VT(&values[L"intKeyIndex"]) = VT_I2;
    V_I2(&values[L"intKeyIndex"]) = 0;
  }
  VerbatimBag(const VerbatimBag&) = delete;
  VerbatimBag& operator=(const VerbatimBag&) = delete;
  virtual ~VerbatimBag() {
    for (auto& [key, value] : values) {
      VariantClear(&value);
    }
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == __uuidof(_ParamBag);
    *object = known ? static_cast<_ParamBag*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  // It is the test's local variable.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Set(BSTR key, VARIANT value) override {
    return VariantCopy(&values[std::wstring(key, SysStringLen(key))], &value);
  }
  HRESULT STDMETHODCALLTYPE Get(BSTR key, _ParamBagEntry** entry) override {
    *entry = nullptr;
    const auto found = values.find(std::wstring(key, SysStringLen(key)));
    if (found != values.end()) {
      entry_.value = &found->second;
      *entry = &entry_;
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE get_Item(VARIANT, VARIANT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT, VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Exists(VARIANT, VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Keys(VARIANT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Count(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return E_NOTIMPL; }

 private:
  struct Entry final : _ParamBagEntry {
    VARIANT* value = nullptr;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
      return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_Value(VARIANT* result) override { return VariantCopy(result, value); }
  };
  Entry entry_;
};

using Fill = void (*)(VARIANT*);

struct TypedValue {
  const char* name;
  Fill fill;
  const wchar_t* text;  // null: it has none, and its conversion fails with 13
};

template <VARTYPE kType, auto kValue>
void Whole(VARIANT* made) {
  V_VT(made) = kType;
  V_I8(made) = static_cast<LONGLONG>(kValue);
}

// 4.1
void Decimal(VARIANT* made) {
  V_DECIMAL(made) = DECIMAL{};
  V_VT(made) = VT_DECIMAL;
  V_DECIMAL(made).Lo64 = 41;
  V_DECIMAL(made).scale = 1;
}

// The types beside those that scripts use every day. Decimal and currency are exact, a single has seven digits.
const auto kTypedValues = std::to_array<TypedValue>({
    {"single",
     [](VARIANT* made) {
       V_VT(made) = VT_R4;
       V_R4(made) = 4.1F;
     },
     L"4.1"},
    {"single of seven digits",
     [](VARIANT* made) {
       V_VT(made) = VT_R4;
       V_R4(made) = 123456.7F;
     },
     L"123456.7"},
    {"currency", Whole<VT_CY, -41000>, L"-4.1"},
    {"currency beyond a double's digits", Whole<VT_CY, 9223372036854775807>, L"922337203685477.5807"},
    {"decimal", Decimal, L"4.1"},
    {"byte", Whole<VT_UI1, 255>, L"255"},
    {"signed byte", Whole<VT_I1, 0x80>, L"-128"},
    {"unsigned 16 bits", Whole<VT_UI2, 65535>, L"65535"},
    {"unsigned 32 bits", Whole<VT_UI4, 4294967295>, L"4294967295"},
    {"64 bits", Whole<VT_I8, 9007199254740993>, L"9007199254740993"},
    {"unsigned 64 bits", Whole<VT_UI8, ~0ULL>, L"18446744073709551615"},
    {"machine integer", Whole<VT_INT, 7>, L"7"},
    {"unsigned machine integer", Whole<VT_UINT, 7>, L"7"},
    {"error code",
     [](VARIANT* made) {
       V_VT(made) = VT_ERROR;
       V_ERROR(made) = E_FAIL;
     },
     nullptr},
    {"array of numbers",
     [](VARIANT* made) {
       V_VT(made) = VT_ARRAY | VT_I4;
       V_ARRAY(made) = SafeArrayCreateVector(VT_I4, 1, 2);
     },
     nullptr},
});

class Values : public Desktop {
 protected:
  void SetUp() override {
    Load(L"[[session]]\nname = 'A'\n");
    CLSID id;
    ASSERT_EQ(S_OK, CLSIDFromProgID(L"PnrStandIn.Control", &id));
    standIn_ = Create<IDispatch>(id);
    CallStandIn(L"Forget", {});
    quillet_ = CreateQuillet();
    pnr_ = Create<_CPNR>(CLSID_CPNR);
  }

  void TearDown() override {
    pnr_ = {};
    quillet_ = {};
    EXPECT_EQ(0, V_I4(&CallStandIn(L"Living", {})));
    standIn_ = {};
    Desktop::TearDown();
  }

  OwnedVariant& CallStandIn(const wchar_t* member, std::initializer_list<VARIANT> arguments) {
    VariantClear(&result_);
    EXPECT_EQ(S_OK, Invoke(standIn_.Get(), member, arguments, &result_));
    return result_;
  }

  void Answers(const wchar_t* path, const VARIANT& value) { CallStandIn(L"Answer", {OfText(Text(path)), value}); }
  void Answers(const wchar_t* path, const wchar_t* text) { Answers(path, OfText(Text(text))); }

  void Fails(const wchar_t* path, HRESULT status) { CallStandIn(L"Fail", {OfText(Text(path)), OfNumber(status)}); }
  void Fails(const wchar_t* path, HRESULT status, const wchar_t* description) {
    CallStandIn(L"Fail", {OfText(Text(path)), OfNumber(status), OfText(Text(description))});
  }

  // A commission, whose percentage the record stores as the toolkit returns it.
  void HoldCommission(const VARIANT& percent) {
    Answers(L"24[0].Text", L"8 FM");
    Answers(L"24[0].ElementNo", L"8");
    Answers(L"24[0].Percent", percent);
  }

  // A ticket, whose date the record hands to the text helper as text.
  void HoldTicket(const VARIANT& date) {
    Answers(L"63[0].Text", L"10 TK");
    Answers(L"63[0].ElementNo", L"10");
    Answers(L"63[0].Action", L"TL");
    Answers(L"63[0].Date", date);
  }

  HRESULT ReadCommission() { return Read(&_IGet::FareCommissionElement); }
  HRESULT ReadTicket() { return Read(&_IGet::TicketElement); }

  HRESULT Read(HRESULT (STDMETHODCALLTYPE _IGet::*member)(IDispatch**, IDispatch**)) {
    const auto records = pnr_.As<_IGet>();
    IDispatch* bag = &bag_;
    Reference<IDispatch> result;
    return (records.Get()->*member)(&bag, result.Receive());
  }

  std::wstring Reads() {
    OwnedVariant& reads = CallStandIn(L"Reads", {});
    return {V_BSTR(&reads), SysStringLen(V_BSTR(&reads))};
  }

  static VARIANT OfText(BSTR text) {
    VARIANT variant = OfType(VT_BSTR);
    V_BSTR(&variant) = text;
    return variant;
  }
  static VARIANT OfNumber(LONG number) {
    VARIANT variant = OfType(VT_I4);
    V_I4(&variant) = number;
    return variant;
  }

  Reference<IDispatch> standIn_;
  Reference<_CQuillet> quillet_;
  Reference<_CPNR> pnr_;
  VerbatimBag bag_;
  OwnedVariant result_;
};

// The same type and the same bytes; of an array, the same bounds.
void ExpectSame(const VARIANT& expected, const VARIANT& actual) {
  ASSERT_EQ(V_VT(&expected), V_VT(&actual));
  if ((V_VT(&expected) & VT_ARRAY) != 0) {
    EXPECT_EQ(V_ARRAY(&expected)->rgsabound[0].cElements, V_ARRAY(&actual)->rgsabound[0].cElements);
    EXPECT_EQ(V_ARRAY(&expected)->rgsabound[0].lLbound, V_ARRAY(&actual)->rgsabound[0].lLbound);
  } else if (V_VT(&expected) == VT_DECIMAL) {
    EXPECT_EQ(V_DECIMAL(&expected).Lo64, V_DECIMAL(&actual).Lo64);
    EXPECT_EQ(V_DECIMAL(&expected).scale, V_DECIMAL(&actual).scale);
  } else if (V_VT(&expected) == VT_R4 || V_VT(&expected) == VT_INT || V_VT(&expected) == VT_UINT ||
             V_VT(&expected) == VT_UI4 || V_VT(&expected) == VT_ERROR) {
    EXPECT_EQ(V_I4(&expected), V_I4(&actual));
  } else if (V_VT(&expected) == VT_UI1 || V_VT(&expected) == VT_I1) {
    EXPECT_EQ(V_UI1(&expected), V_UI1(&actual));
  } else if (V_VT(&expected) == VT_UI2) {
    EXPECT_EQ(V_UI2(&expected), V_UI2(&actual));
  } else {
    EXPECT_EQ(V_I8(&expected), V_I8(&actual));
  }
}

TEST_F(Values, OfEveryTypeReachTheBagUnchanged) {
  for (const TypedValue& typed : kTypedValues) {
    SCOPED_TRACE(typed.name);
    OwnedVariant value;
    typed.fill(&value);
    HoldCommission(value);
    EXPECT_EQ(S_OK, ReadCommission());
    ExpectSame(value, bag_.values[L"strKeyValue"]);
  }
}

// An integer is chosen so that its own text is no date.
TEST_F(Values, BecomeTextByTheirOwnType) {
  for (const TypedValue& typed : kTypedValues) {
    SCOPED_TRACE(typed.name);
    OwnedVariant value;
    typed.fill(&value);
    HoldTicket(value);
    if (typed.text == nullptr) {
      EXPECT_OWN_ERROR(13, ReadTicket());
      continue;
    }
    EXPECT_EQ(S_OK, ReadTicket());
    const VARIANT& text = bag_.values[L"strKeyDate"];
    ASSERT_EQ(VT_BSTR, V_VT(&text));
    EXPECT_STREQ(typed.text, V_BSTR(&text));
  }
}

TEST_F(Values, OfEveryTypeServeAsAnIndex) {
  HoldCommission(OfNumber(1));
  for (const TypedValue& typed : kTypedValues) {
    SCOPED_TRACE(typed.name);
    VARIANT& index = bag_.values[L"intKeyIndex"];
    VariantClear(&index);
    typed.fill(&index);
    const HRESULT status = ReadCommission();
    if (typed.text == nullptr) {
      EXPECT_OWN_ERROR(13, status);
    } else if (typed.text[0] == L'-') {
      EXPECT_EQ(S_OK, status);  // below the count, and nothing is there
    } else {
      EXPECT_OWN_ERROR(2215, status);  // one commission: each of them is beyond
    }
  }
}

struct StandardFailure {
  HRESULT status;
  int number;
};

TEST_F(Values, StandardFailuresWithoutErrorInformationArriveUnderTheRunTimesNumbers) {
  constexpr auto kFailures = std::to_array<StandardFailure>({
      {E_INVALIDARG, 5},
      {DISP_E_OVERFLOW, 6},
      {E_OUTOFMEMORY, 7},
      {DISP_E_BADINDEX, 9},
      {DISP_E_TYPEMISMATCH, 13},
      {E_ACCESSDENIED, 70},
      {REGDB_E_CLASSNOTREG, 429},
      {CO_E_CLASSSTRING, 429},
      {E_NOINTERFACE, 430},
      {DISP_E_UNKNOWNNAME, 438},
      {DISP_E_MEMBERNOTFOUND, 438},
      {E_NOTIMPL, 445},
      {DISP_E_PARAMNOTOPTIONAL, 449},
      {DISP_E_BADPARAMCOUNT, 450},
      {static_cast<HRESULT>(0x800706BA), 462},
  });
  HoldCommission(OfNumber(4));
  for (const StandardFailure& failure : kFailures) {
    SCOPED_TRACE(failure.number);
    const auto expected = static_cast<HRESULT>(0x800A0000 + failure.number);
    Fails(L"24[0].Percent", failure.status);
    EXPECT_EQ(expected, ReadCommission());
    EXPECT_EQ(WideMessageOf(failure.number), TakeError().description);
    Fails(L"24[0].Percent", failure.status, L"");  // an exception without a description has no information
    EXPECT_EQ(expected, ReadCommission());
    EXPECT_EQ(WideMessageOf(failure.number), TakeError().description);
    Fails(L"24[0].Percent", failure.status, L"The vault is closed.");
    EXPECT_EQ(failure.status, ReadCommission());
    EXPECT_EQ(L"The vault is closed.", TakeError().description);
  }
}

TEST_F(Values, OtherFailuresArriveAsTheyAre) {
  HoldCommission(OfNumber(4));
  for (const HRESULT status : {E_FAIL, E_POINTER, E_UNEXPECTED, DISP_E_BADVARTYPE, CLASS_E_CLASSNOTAVAILABLE,
                               static_cast<HRESULT>(0x80040456)}) {
    Fails(L"24[0].Percent", status);
    EXPECT_EQ(status, ReadCommission()) << std::hex << status;
  }
  Fails(L"24[0].Percent", static_cast<HRESULT>(0x800A01A8));
  EXPECT_EQ(static_cast<HRESULT>(0x800A01A8), ReadCommission());
}

TEST_F(Values, AFailureThatHasTheMembersNumberKeepsIt) {
  Answers(L"23[0].Text", L"9 FA PAX 220-1234567890");
  Fails(L"23[0].ElementNo", E_ACCESSDENIED);
  VARIANT& kind = bag_.values[L"strKeyPNRElement"];
  V_VT(&kind) = VT_BSTR;
  V_BSTR(&kind) = SysAllocString(L"FA");
  const auto elements = pnr_.As<_IGetPNR>();
  IDispatch* bag = &bag_;
  Reference<IDispatch> result;
  EXPECT_OWN_ERROR(2255, elements->Elements(&bag, result.Receive()));
}

TEST_F(Values, AreReadOnceAndInTheOrderOfTheKeys) {
  HoldCommission(OfNumber(4));
  Reads();
  EXPECT_EQ(S_OK, ReadCommission());
  EXPECT_EQ(
      L"24\r\n24.Count\r\n24\r\n24._NewEnum\r\n"
      L"24[0].Text\r\n24[0].ElementNo\r\n24[0].Percent\r\n",
      Reads());
}

TEST_F(Values, OfACarAreReadOnceThoughSeveralKeysAreCutFromOneText) {
  Answers(L"14[0].1", L"6 CCR ZE HK1/DO-CDG/RG-EUR 45.00 UNL DY/VV");
  for (const wchar_t* path : {L"14[0].2", L"14[0].8", L"14[0].9", L"14[0].10", L"14[0].11", L"14[0].18"}) {
    Answers(path, OfNumber(6));
  }
  Answers(L"14[0].44.Passengers[1].ElementNo", OfNumber(2));
  Answers(L"14[0].44.Passengers[0].ElementNo", OfNumber(1));
  Reads();
  EXPECT_EQ(S_OK, Read(&_IGet::CarSegment));
  EXPECT_EQ(
      L"14\r\n14.Count\r\n14\r\n14._NewEnum\r\n"
      L"14[0].1\r\n14[0].2\r\n14[0].8\r\n14[0].9\r\n14[0].10\r\n"
      L"14[0].44\r\n14[0].44.Passengers\r\n14[0].44.Passengers._NewEnum\r\n"
      L"14[0].44.Passengers[0].ElementNo\r\n14[0].44.Passengers[1].ElementNo\r\n"
      L"14[0].11\r\n14[0].18\r\n",
      Reads());
}

}  // namespace
}  // namespace wendrill::com::testing
