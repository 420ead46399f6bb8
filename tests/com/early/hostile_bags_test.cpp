// Bags that fail, lie, re-enter the library, or are none.
#include <functional>

#include "desktop_fixture.h"
#include "hostile_bag.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }]

[unknown]
screen = "*T*"

[[pnr]]
RecordLocator = "ABC123"
display = '''
RP/PARXX0100/PARXX0100
 10 SSR VGML AF HK1/S5/P1
11  SSR WCHR AF HK1/S5/P1
 41 FV AF/S5/P1
'''

[[pnr.Names]]
Text = "1.SMITH/JOHN MR(ADT)"
ElementNo = "1"

[[pnr.Cars]]
Text = "11  CCR QC HK1 CDG 15JUN-18JUN ECMN/DO-ORY/RG-EUR 45.00 UNL DY"
ElementNo = "11"
PickUpDate = 2008-06-15
DropOffDate = 2008-06-18

[[pnr.MISElements]]
Text = "16 MIS QT HK1 PAR 20JUN-TRAIN LYON"
ElementNo = "16"

[[pnr]]
RecordLocator = "NONE00"
)toml";

// A member that takes a bag, with the number that its failures end in.
struct Taker {
  const char* name;
  HRESULT (*call)(_CQuillet* quillet, _CPNR* pnr, IDispatch** bag);
  int number;  // 0: the bag's error as it came
  const wchar_t* kind = L"";
  int numberWithoutIndex = 0;  // 0: a missing index is 0
};

template <auto kMember>
HRESULT Record(_CQuillet*, _CPNR* pnr, IDispatch** bag) {
  const Reference<_CPNR> held(pnr);
  const auto records = held.As<_IGet>();
  Reference<IDispatch> result;
  return (records.Get()->*kMember)(bag, result.Receive());
}

HRESULT Element(_CQuillet*, _CPNR* pnr, IDispatch** bag) {
  const Reference<_CPNR> held(pnr);
  Reference<IDispatch> result;
  return held.As<_IGetPNR>()->Elements(bag, result.Receive());
}

HRESULT SendFI(_CQuillet* quillet, _CPNR*, IDispatch** bag) {
  Text response;
  return quillet->SendCommandFI(Text(L"JD"), bag, response.Receive());
}

HRESULT SendTicsPas(_CQuillet* quillet, _CPNR*, IDispatch** bag) {
  Text response;
  return quillet->SendCommandTicsPas(bag, response.Receive());
}

HRESULT SubmitBatch(_CQuillet*, _CPNR*, IDispatch** bag) {
  Reference<_CBatch> batch;
  EXPECT_EQ(S_OK, CoCreateInstance(CLSID_CBatch, nullptr, CLSCTX_INPROC_SERVER, IID__CBatch, batch.ReceiveVoid()));
  return batch->SubmitWithResponse(bag);
}

constexpr Taker kTakers[] = {
    {"IGet.NameElement", Record<&_IGet::NameElement>, 0},
    {"IGet.CarSegment", Record<&_IGet::CarSegment>, 0},
    {"IGet.PNRHeader", Record<&_IGet::PNRHeader>, 0},
    {"IGet.ValidatingAirlineElement", Record<&_IGet::ValidatingAirlineElement>, 0, L"", 13},
    {"IGetPNR.Elements SSR", Element, 2247, L"SSR"},
    {"IGetPNR.Elements MIS", Element, 0, L"MIS"},
    {"IGetPNR.Elements ALL", Element, 2252, L"ALL"},
    {"CQuillet.SendCommandFI", SendFI, 2506},
    {"CQuillet.SendCommandTicsPas", SendTicsPas, 2540},
    {"CBatch.SubmitWithResponse", SubmitBatch, 2315},
};

class HostileBags : public Desktop {
 protected:
  void SetUp() override {
    Load(kScenario);
    quillet_ = CreateQuillet();
    pnr_ = Create<_CPNR>(CLSID_CPNR);
    Retrieve(L"ABC123");
  }

  void TearDown() override {
    pnr_ = {};
    quillet_ = {};
    EXPECT_EQ(0, HostileBag::Living());
    Desktop::TearDown();
  }

  void Retrieve(const wchar_t* locator) {
    VARIANT_BOOL found = VARIANT_FALSE;
    ASSERT_EQ(S_OK, quillet_->RetrieveRecLoc(Text(locator), &found));
  }

  Reference<HostileBag> BagFor(const Taker& taker) {
    auto bag = HostileBag::New();
    bag->Put(L"intKeyIndex", L"0");
    bag->Put(L"strKeyPNRElement", taker.kind);
    bag->Put(L"strKeyCommand", L"JD");
    return bag;
  }

  HRESULT Call(const Taker& taker, IDispatch* bag) {
    IDispatch* passed = bag;
    return taker.call(quillet_.Get(), pnr_.Get(), &passed);
  }

  Reference<_CQuillet> quillet_;
  Reference<_CPNR> pnr_;
};

// The generic access reads the kind first, which has a number of its own.
bool IsElement(const Taker& taker) {
  return taker.call == Element;
}
constexpr int kAccessNumber = 2252;
constexpr int kCallsForTheKind = 2;  // the entry and its value

bool IsOwn(HRESULT status, int number) {
  return status == static_cast<HRESULT>(0x800A0000 + number);
}

// --- Bags that fail -------------------------------------------------------------------------------------------------

// The bag leaves no error information: the system's text for the status replaces it.
TEST_F(HostileBags, WhoseEveryCallFailsInTurnMeetTheMembersPromise) {
  constexpr HRESULT kFailure = static_cast<HRESULT>(0x80041234);
  for (const Taker& taker : kTakers) {
    auto counted = BagFor(taker);
    Call(taker, counted.Get());
    const int calls = counted->Calls();
    for (int nth = 1; nth <= calls; ++nth) {
      SCOPED_TRACE(std::string(taker.name) + ", call " + std::to_string(nth) + " of " + std::to_string(calls));
      auto bag = BagFor(taker);
      bag->onCall = [nth](int call) { return call == nth ? kFailure : S_OK; };
      const int number = IsElement(taker) && nth <= kCallsForTheKind ? kAccessNumber : taker.number;
      const HRESULT status = Call(taker, bag.Get());
      EXPECT_EQ(number == 0 ? kFailure : static_cast<HRESULT>(0x800A0000 + number), status) << std::hex << status;
      EXPECT_NE(L"", TakeError().description);
    }
  }
}

TEST_F(HostileBags, ThatHandOutNoEntriesHaveNoKeys) {
  for (const Taker& taker : kTakers) {
    SCOPED_TRACE(taker.name);
    auto bag = BagFor(taker);
    bag->handsOutNoEntries = true;
    const HRESULT status = Call(taker, bag.Get());
    EXPECT_TRUE(taker.numberWithoutIndex == 0 ? status == S_OK : IsOwn(status, taker.numberWithoutIndex))
        << std::hex << status;
  }
}

// --- Bags that lie --------------------------------------------------------------------------------------------------

struct Lie {
  const char* name;
  std::function<HRESULT(VARIANT*)> tell;
};

const Lie kLies[] = {
    {"success without a value", [](VARIANT*) { return S_OK; }},
    {"S_FALSE", [](VARIANT*) { return S_FALSE; }},
    {"Null",
     [](VARIANT* value) {
       V_VT(value) = VT_NULL;
       return S_OK;
     }},
    {"a type that is none",
     [](VARIANT* value) {
       V_VT(value) = 0x0FF0;
       return S_OK;
     }},
    {"an error",
     [](VARIANT* value) {
       V_VT(value) = VT_ERROR;
       V_ERROR(value) = E_FAIL;
       return S_OK;
     }},
    {"an array that is none",
     [](VARIANT* value) {
       V_VT(value) = VT_ARRAY | VT_VARIANT;
       V_ARRAY(value) = nullptr;
       return S_OK;
     }},
    {"an array of numbers",
     [](VARIANT* value) {
       V_VT(value) = VT_ARRAY | VT_I4;
       V_ARRAY(value) = SafeArrayCreateVector(VT_I4, 0, 3);
       return S_OK;
     }},
    {"a reference to no variable",
     [](VARIANT* value) {
       V_VT(value) = VT_BYREF | VT_VARIANT;
       V_VARIANTREF(value) = nullptr;
       return S_OK;
     }},
    {"a reference to itself",
     [](VARIANT* value) {
       V_VT(value) = VT_BYREF | VT_VARIANT;
       V_VARIANTREF(value) = value;
       return S_OK;
     }},
    {"a million characters",
     [](VARIANT* value) {
       const std::wstring text(1'000'000, L'9');
       V_VT(value) = VT_BSTR;
       V_BSTR(value) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
       return S_OK;
     }},
};

TEST_F(HostileBags, ThatLieMeetAClearErrorOrAnAnswer) {
  for (const Taker& taker : kTakers) {
    for (const Lie& lie : kLies) {
      SCOPED_TRACE(std::string(taker.name) + ", " + lie.name);
      auto bag = BagFor(taker);
      bag->onValue = lie.tell;
      TakeError();
      const HRESULT status = Call(taker, bag.Get());
      EXPECT_TRUE(SUCCEEDED(status) || !TakeError().description.empty()) << std::hex << status;
    }
  }
}

// --- Bags that re-enter ---------------------------------------------------------------------------------------------

TEST_F(HostileBags, ThatCallTheSameMemberFromEachCallAreServedBoth) {
  for (const Taker& taker : kTakers) {
    auto counted = BagFor(taker);
    const HRESULT undisturbed = Call(taker, counted.Get());
    for (int nth = 1; nth <= counted->Calls(); ++nth) {
      SCOPED_TRACE(std::string(taker.name) + ", call " + std::to_string(nth));
      auto bag = BagFor(taker);
      auto inner = BagFor(taker);
      HRESULT innerStatus = E_PENDING;
      bag->onCall = [&](int call) {
        if (call == nth) {
          innerStatus = Call(taker, inner.Get());
        }
        return S_OK;
      };
      EXPECT_EQ(undisturbed, Call(taker, bag.Get()));
      EXPECT_EQ(undisturbed, innerStatus);
    }
  }
}

// The PNR goes, so that the arrays that are being copied out of are created again and shorter.
TEST_F(HostileBags, ThatRetrieveAnotherPnrAndCountItAgainFromEachCall) {
  for (const Taker& taker : kTakers) {
    auto counted = BagFor(taker);
    Call(taker, counted.Get());
    for (int nth = 1; nth <= counted->Calls(); ++nth) {
      SCOPED_TRACE(std::string(taker.name) + ", call " + std::to_string(nth));
      Retrieve(L"ABC123");
      auto bag = BagFor(taker);
      bag->onCall = [&](int call) {
        if (call == nth) {
          SHORT count = 0;
          Retrieve(L"NONE00");
          pnr_->get_SpecialServiceElementsCount(&count);
          pnr_->get_ValidatingAirlineElementsCount(&count);
        }
        return S_OK;
      };
      const HRESULT status = Call(taker, bag.Get());
      EXPECT_TRUE(SUCCEEDED(status) || !TakeError().description.empty()) << std::hex << status;
    }
    Retrieve(L"ABC123");
  }
}

// The call keeps alive what it works on.
TEST_F(HostileBags, ThatReleaseEverythingFromEachCall) {
  for (const Taker& taker : kTakers) {
    auto counted = BagFor(taker);
    Call(taker, counted.Get());
    for (int nth = 1; nth <= counted->Calls(); ++nth) {
      SCOPED_TRACE(std::string(taker.name) + ", call " + std::to_string(nth));
      auto bag = BagFor(taker);
      bag->onCall = [&](int call) {
        if (call == nth) {
          pnr_ = {};
          quillet_ = {};
          CoFreeUnusedLibraries();
        }
        return S_OK;
      };
      IDispatch* passed = bag.Get();
      _CQuillet* const quillet = quillet_.Get();
      _CPNR* const pnr = pnr_.Get();
      const HRESULT status = taker.call(quillet, pnr, &passed);
      EXPECT_TRUE(SUCCEEDED(status) || !TakeError().description.empty()) << std::hex << status;
      quillet_ = CreateQuillet();
      pnr_ = Create<_CPNR>(CLSID_CPNR);
      Retrieve(L"ABC123");
    }
  }
}

// --- Objects that are no bags ---------------------------------------------------------------------------------------

// Without a default member there is nothing to read a key from.
TEST_F(HostileBags, ThatAreNoneMeetTheMembersPromise) {
  const Reference<IDispatch> none[] = {quillet_.As<IDispatch>(), pnr_.As<IDispatch>(), Create<IDispatch>(CLSID_CBatch),
                                       Create<IDispatch>(CLSID_IGet), Create<IDispatch>(CLSID_CQueue)};
  for (const Taker& taker : kTakers) {
    for (const auto& object : none) {
      SCOPED_TRACE(taker.name);
      const HRESULT status = Call(taker, object.Get());
      EXPECT_TRUE(FAILED(status));
      EXPECT_NE(L"", TakeError().description);
      if (IsElement(taker)) {
        EXPECT_TRUE(IsOwn(status, kAccessNumber)) << std::hex << status;
      } else if (taker.number != 0) {
        EXPECT_TRUE(IsOwn(status, taker.number)) << std::hex << status;
      }
    }
  }
}

TEST_F(HostileBags, ThatAreNothingMeetTheMembersPromise) {
  for (const Taker& taker : kTakers) {
    SCOPED_TRACE(taker.name);
    const HRESULT status = Call(taker, nullptr);
    const int number = IsElement(taker) ? kAccessNumber : taker.number != 0 ? taker.number : 91;
    EXPECT_TRUE(IsOwn(status, number)) << std::hex << status;
    EXPECT_TRUE(FAILED(taker.call(quillet_.Get(), pnr_.Get(), nullptr)));
    TakeError();
  }
}

}  // namespace
}  // namespace wendrill::com::testing
