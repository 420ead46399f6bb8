// A sample of each class's members through real automation: every call into the toolkit fails in turn, with each of
// three errors. The caller sees status, source and description, nothing leaks, and the same call then works.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <iterator>

#include "desktop_fixture.h"

namespace wendrill::com::testing {
namespace {

// --- What fails, and what the caller meets --------------------------------------------------------------------------

constexpr HRESULT kErrors[] = {E_FAIL, static_cast<HRESULT>(0x800A01B6), E_ACCESSDENIED};

// One letter for each call into the toolkit, in order.
constexpr wchar_t kOwnNumber = L'O';      // the member's own number
constexpr wchar_t kAccessNumber = L'A';   // the number of the generic access, 2252
constexpr wchar_t kToolkitsError = L'T';  // the toolkit's error as it came
constexpr wchar_t kPassedOver = L'-';     // nothing: the member does not depend on it
constexpr wchar_t kRepeat = L'*';         // at the end: every further call like the one before

constexpr HRESULT kSessionHandOutFailed = static_cast<HRESULT>(0x80040456);

// The objects of one run.
struct Desk {
  Reference<_CQuillet> quillet;
  Reference<_CPNR> pnr;
  Reference<_CQueue> queue;
  Reference<_CBatch> batch;
  Reference<_CEncodeUtils> encodeUtils;
  Reference<_ParamBag> bag;
};

// A published class and a call of one of its members.
struct SampleCall {
  const char* name;
  int number;          // the member's own; 0: it has none
  std::wstring meets;  // letters as above
  std::function<void(Desk&)> prepare;
  std::function<HRESULT(Desk&)> call;
};

void PrintTo(const SampleCall& sample, std::ostream* out) {
  *out << sample.name;
}

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }, { name = "B" }]
reply = [
  { entry = "AN", pages = ["ONE\n)>1/2", "TWO\n)>2/2"] },
  { entry = "ER", screen = "*T*" },
  { starts = "", screen = "DONE" },
]

[[pnr]]
RecordLocator = "ABC123"
entries = ["ER"]
on_display = true
display = '''
RP/PARXX0100/PARXX0100
PARXX0100/0001AA/12JUN08
 10 SSR VGML AF HK1/S5/P1
'''

[[pnr.Names]]
Text = "1.SMITH/JOHN MR(ADT)"
ElementNo = "1"
Initial = "JOHN MR"
LastName = "SMITH"

[[pnr.Cars]]
Text = "11  CCR QC HK1 CDG 15JUN-18JUN ECMN/DO-ORY/RG-EUR 45.00 UNL DY"
ElementNo = "11"
PickUpCity = "CDG"
PickUpDate = 2008-06-15
DropOffDate = 2008-06-18
CarType = "ECMN"
ConfirmationNo = "H123"
Passengers = ["1"]
)toml";

constexpr wchar_t kOlderTerminal[] =
    LR"toml(
terminal = { version = "2.3P299" }
session = [{ name = "A" }]
reply = [{ starts = "", screen = "DONE" }]

[[pnr]]
RecordLocator = "ABC123"
entries = ["ER"]
)toml";

template <typename Interface>
HRESULT CreateInto(const CLSID& id, Reference<Interface>& object) {
  return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.ReceiveVoid());
}

void Connect(Desk& desk) {
  ASSERT_EQ(S_OK, CreateInto(CLSID_CQuillet, desk.quillet));
}

void Retrieve(Desk& desk) {
  Connect(desk);
  VARIANT_BOOL found = VARIANT_FALSE;
  ASSERT_EQ(S_OK, desk.quillet->RetrieveRecLoc(Text(L"ABC123"), &found));
  ASSERT_EQ(VARIANT_TRUE, found);
  ASSERT_EQ(S_OK, CreateInto(CLSID_CPNR, desk.pnr));
}

void Send(Desk& desk) {
  Connect(desk);
  Text response;
  ASSERT_EQ(S_OK, desk.quillet->SendCommand(Text(L"JD"), response.Receive()));
}

void MakeBag(Desk& desk) {
  ASSERT_EQ(S_OK, CreateInto(CLSID_ParamBag, desk.bag));
}

void Put(Desk& desk, const wchar_t* key, const wchar_t* value) {
  OwnedVariant text;
  V_VT(&text) = VT_BSTR;
  V_BSTR(&text) = SysAllocString(value);
  ASSERT_EQ(S_OK, desk.bag->Set(Text(key), text));
}

// A member that takes a text and gives one.
template <typename Member>
std::function<HRESULT(Desk&)> Sending(Member member, const wchar_t* entry) {
  return [member, entry](Desk& desk) {
    Text response;
    return (desk.quillet.Get()->*member)(Text(entry), response.Receive());
  };
}

template <typename Member>
std::function<HRESULT(Desk&)> Retrieving(Member member, const wchar_t* entry) {
  return [member, entry](Desk& desk) {
    VARIANT_BOOL found = VARIANT_FALSE;
    return (desk.quillet.Get()->*member)(Text(entry), &found);
  };
}

template <typename Member>
std::function<HRESULT(Desk&)> ReadingText(Member member) {
  return [member](Desk& desk) {
    Text text;
    return (desk.pnr.Get()->*member)(text.Receive());
  };
}

template <typename Member>
std::function<HRESULT(Desk&)> Counting(Member member) {
  return [member](Desk& desk) {
    SHORT count = 0;
    return (desk.pnr.Get()->*member)(&count);
  };
}

template <typename Interface, typename Member>
std::function<HRESULT(Desk&)> Recording(Member member) {
  return [member](Desk& desk) {
    const auto records = desk.pnr.As<Interface>();
    IDispatch* bag = desk.bag.Get();
    Reference<IDispatch> result;
    return (records.Get()->*member)(&bag, result.Receive());
  };
}

std::function<void(Desk&)> AskingFor(const wchar_t* kind) {
  return [kind](Desk& desk) {
    Retrieve(desk);
    MakeBag(desk);
    Put(desk, L"strKeyPNRElement", kind);
    Put(desk, L"intKeyIndex", L"0");
  };
}

// Clear, lock, send, read, unlock: only the lock's own calls are passed over.
const std::wstring kAlarmEntry = L"O----OO----";

const SampleCall kSamples[] = {
    {"CQuillet", 0, L"T*", {}, [](Desk& desk) { return CreateInto(CLSID_CQuillet, desk.quillet); }},
    {"CQuillet_ConnectSession", 2535, L"OO", Connect,
     [](Desk& desk) { return desk.quillet->ConnectSession(Text(L"B")); }},
    {"CQuillet_SendCommand", 2505, kAlarmEntry, Connect, Sending(&_CQuillet::SendCommand, L"ER")},
    {"CQuillet_SendCommandNoTransmit", 2505, L"O", Connect, Sending(&_CQuillet::SendCommandNoTransmit, L"JD")},
    {"CQuillet_SendCommandGetAll", 2525, L"OOOOOO--", Connect, Sending(&_CQuillet::SendCommandGetAll, L"AN")},
    {"CQuillet_RetrieveRecLoc", 2501, L"OOOO", Connect, Retrieving(&_CQuillet::RetrieveRecLoc, L"ABC123")},
    {"CQuillet_ReadPNR", 2503, L"----OOOO----", Connect, Retrieving(&_CQuillet::ReadPNR, L"ER")},
    {"CQuillet_ChangeSMOD", 2520, L"OOOO", Connect, [](Desk& desk) { return desk.quillet->ChangeSMOD(5, 12); }},
    {"CQuillet_LockAlarm", 2558, L"--------", Connect,
     [](Desk& desk) {
       const HRESULT status = desk.quillet->LockAlarm();
       return FAILED(status) ? status : desk.quillet->UnLockAlarm();
     }},
    {"CQuillet_LastBuffer", 0, L"TT", Send,
     [](Desk& desk) {
       Text buffer;
       return desk.quillet->get_LastBuffer(buffer.Receive());
     }},
    {"CQuillet_SendCommandFI", 2506,
     L"OOOO"
     L"OO--",
     [](Desk& desk) {
       Connect(desk);
       MakeBag(desk);
     },
     [](Desk& desk) {
       Text response;
       IDispatch* bag = desk.bag.Get();
       return desk.quillet->SendCommandFI(Text(L"JD"), &bag, response.Receive());
     }},
    {"CQuillet_SendCommandTicsPas", 2540, L"OOOOO",
     [](Desk& desk) {
       Connect(desk);
       MakeBag(desk);
       Put(desk, L"strKeyCommand", L"JD");
     },
     [](Desk& desk) {
       Text response;
       IDispatch* bag = desk.bag.Get();
       return desk.quillet->SendCommandTicsPas(&bag, response.Receive());
     }},
    {"CPNR_RecordLocator", 0, L"TT", Retrieve, ReadingText(&_CPNR::get_RecordLocator)},
    {"CPNR_CreationDate", 0, L"T", Retrieve, ReadingText(&_CPNR::get_CreationDate)},
    {"CPNR_NameElementsCount", 0, L"TTT", Retrieve, Counting(&_CPNR::get_NameElementsCount)},
    {"CPNR_SpecialServiceElementsCount", 2035, L"O", Retrieve, Counting(&_CPNR::get_SpecialServiceElementsCount)},
    {"CPNR_ValidatingAirlineElementsCount", 0, L"-*", Retrieve, Counting(&_CPNR::get_ValidatingAirlineElementsCount)},
    {"IGet_NameElement", 2223, L"T*", AskingFor(L""), Recording<_IGet>(&_IGet::NameElement)},
    {"IGet_CarSegment", 2211, L"T*", AskingFor(L""), Recording<_IGet>(&_IGet::CarSegment)},
    {"IGet_PNRHeader", 2227, L"T*", AskingFor(L""), Recording<_IGet>(&_IGet::PNRHeader)},
    {"IGetPNR_Elements", 2247, L"AO*", AskingFor(L"SSR"), Recording<_IGetPNR>(&_IGetPNR::Elements)},
    {"CQueue_Add", 2400, L"O*", [](Desk& desk) { ASSERT_EQ(S_OK, CreateInto(CLSID_CQueue, desk.queue)); },
     [](Desk& desk) {
       const Text entry(L"JD");
       BSTR passed = entry;
       Reference<_CQuillet> added;
       return desk.queue->Add(&passed, nullptr, added.Receive());
     }},
    {"CBatch_SubmitWithResponse", 2315,
     L"OOO--"
     L"OOO",
     [](Desk& desk) {
       Connect(desk);
       MakeBag(desk);
       ASSERT_EQ(S_OK, CreateInto(CLSID_CBatch, desk.batch));
       Reference<_CQueue> commands;
       ASSERT_EQ(S_OK, desk.batch->get_Commands(commands.Receive()));
       const Text entry(L"JD");
       BSTR passed = entry;
       Reference<_CQuillet> added;
       ASSERT_EQ(S_OK, commands->Add(&passed, nullptr, added.Receive()));
     },
     [](Desk& desk) {
       IDispatch* bag = desk.bag.Get();
       return desk.batch->SubmitWithResponse(&bag);
     }},
    {"CEncodeUtils", 0, L"O", {}, [](Desk& desk) { return CreateInto(CLSID_CEncodeUtils, desk.encodeUtils); }},
    {"CEncodeUtils_EncodeSession", 0, L"T",
     [](Desk& desk) { ASSERT_EQ(S_OK, CreateInto(CLSID_CEncodeUtils, desk.encodeUtils)); },
     [](Desk& desk) {
       Reference<IDispatch> connection;
       return desk.encodeUtils->get_EncodeSession(connection.Receive());
     }},
};

// --- The sweep ------------------------------------------------------------------------------------------------------

class FaultSweep : public Desktop, public ::testing::WithParamInterface<SampleCall> {
 protected:
  static inline int calls = 0;
  static inline int failures = 0;
  static inline int differences = 0;

  static void TearDownTestSuite() {
    std::printf("fault sweep through automation: %zu members, %d calls x %zu errors: %d failures, %d differences\n",
                std::size(kSamples), calls, std::size(kErrors), failures, differences);
  }

  void SetUp() override { Load(kScenario); }

  // Only what failed is recorded as a part of a test's result.
  void TearDown() override {
    Desktop::TearDown();
    differences += ::testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
  }

  static void Prepare(Desk& desk) {
    if (GetParam().prepare) {
      GetParam().prepare(desk);
    }
  }

  LONG CallsOfAnUndisturbedRun() {
    Desk desk;
    Prepare(desk);
    const LONG before = Calls();
    EXPECT_EQ(S_OK, GetParam().call(desk));
    return Calls() - before;
  }

  // The letter of the n-th call, counted from 1.
  static wchar_t MeetsAt(LONG nth, LONG all) {
    const std::wstring& letters = GetParam().meets;
    const auto place = static_cast<std::size_t>(nth - 1);
    if (letters.back() == kRepeat) {
      return letters[std::min(place, letters.size() - 2)];
    }
    EXPECT_EQ(letters.size(), static_cast<std::size_t>(all));
    return place < letters.size() ? letters[place] : L'?';
  }

  void FailCall(LONG nth, wchar_t meets, HRESULT planned);
  void ExpectFailure(HRESULT status, wchar_t meets, HRESULT planned);
};

void FaultSweep::ExpectFailure(HRESULT status, wchar_t meets, HRESULT planned) {
  const ErrorOnThread error = TakeError();
  if (meets == kPassedOver) {
    EXPECT_EQ(S_OK, status);
  } else if (meets == kToolkitsError) {
    EXPECT_EQ(planned, status);
    EXPECT_EQ(L"QuilletSimulator", error.source);
    EXPECT_NE(std::wstring::npos, error.description.find(L" was made to fail, as planned.")) << error.description;
  } else if (GetParam().number == 0) {
    EXPECT_EQ(kSessionHandOutFailed, status);
    EXPECT_EQ(L"CEncodeUtils.Class_Initialize", error.source);
  } else {
    const int number = meets == kAccessNumber ? 2252 : GetParam().number;
    EXPECT_EQ(static_cast<HRESULT>(0x800A0000 + number), status);
    EXPECT_EQ(L"Wendrill23", error.source);
    EXPECT_EQ(WideMessageOf(number), error.description);
  }
}

void FaultSweep::FailCall(LONG nth, wchar_t meets, HRESULT planned) {
  {
    Desk desk;
    Prepare(desk);
    TakeError();
    FailNext(L"*", planned, nth);
    ExpectFailure(GetParam().call(desk), meets, planned);
    if (GetParam().prepare) {
      EXPECT_EQ(S_OK, GetParam().call(desk)) << "the next call";
    }
  }
  EXPECT_EQ(0, LiveObjects());
}

TEST_P(FaultSweep, EveryCallFailsInTurn) {
  const LONG all = CallsOfAnUndisturbedRun();
  ASSERT_GT(all, 0);
  calls += all;
  for (LONG nth = 1; nth <= all; ++nth) {
    for (const HRESULT planned : kErrors) {
      SCOPED_TRACE("call " + std::to_string(nth) + " of " + std::to_string(all) + " fails with " +
                   std::to_string(planned));
      ++failures;
      FailCall(nth, MeetsAt(nth, all), planned);
    }
  }
}

// The members that give the alarm lock back, on an older terminal: the clear key of UNLOCK fails both times.
// `clearKeys` are those pressed before it.
struct LockingMember {
  int number;
  int clearKeys;
  std::function<HRESULT(Desk&)> call;
};

using FailingUnlock = Desktop;

TEST_F(FailingUnlock, Is2559AndInsideSendCommandGetAll2525) {
  Load(kOlderTerminal);
  const LockingMember members[] = {
      {2559, 2, Sending(&_CQuillet::SendCommand, L"ER")},
      {2559, 2, Sending(&_CQuillet::SendCommandNoClear, L"ER")},
      {2559, 1, Sending(&_CQuillet::SendCommandGetAllNoClear, L"ER")},
      {2525, 2, Sending(&_CQuillet::SendCommandGetAll, L"ER")},
      {2559, 1,
       [](Desk& desk) {
         Text response;
         OwnedVariant pages;
         return desk.quillet->SendCommandCollectPages(Text(L"ER"), &pages, response.Receive());
       }},
      {2559, 1,
       [](Desk& desk) {
         Text response;
         IDispatch* bag = desk.bag.Get();
         return desk.quillet->SendCommandFI(Text(L"ER"), &bag, response.Receive());
       }},
      {2559, 1, Retrieving(&_CQuillet::ReadPNR, L"ER")},
  };
  for (const LockingMember& member : members) {
    SCOPED_TRACE(&member - members);
    Desk desk;
    Connect(desk);
    MakeBag(desk);
    TakeError();
    FailNext(L"SendKey", E_FAIL, member.clearKeys + 1);
    FailNext(L"SendKey", E_FAIL, member.clearKeys + 2);
    EXPECT_EQ(static_cast<HRESULT>(0x800A0000 + member.number), member.call(desk));
    const ErrorOnThread error = TakeError();
    EXPECT_EQ(L"Wendrill23", error.source);
    EXPECT_EQ(WideMessageOf(member.number), error.description);
    EXPECT_EQ(S_OK, desk.quillet->UnLockAlarm()) << "the lock is given back later";
    EXPECT_EQ(S_OK, member.call(desk)) << "the next call";
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, FaultSweep, ::testing::ValuesIn(kSamples),
                         [](const auto& sample) { return std::string(sample.param.name); });

}  // namespace
}  // namespace wendrill::com::testing
