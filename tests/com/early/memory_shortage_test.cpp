// Memory runs short at each request for it in turn, for some members of each class, early and late bound. The objects
// are linked into this program, so that its operator new and its imports are theirs; the terminal's components are not
// struck. The caller meets a status, never an exception; nothing is left over, and the same member then works.
#include <array>
#include <cstdio>
#include <iterator>
#include <span>

#include "com/server/module.h"
#include "late_calls.h"
#include "memory_sweep.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }, { name = "B" }]
terminal = { version = "3.0P10000" }
reply = [
  { entry = "AN", pages = ["ONE\n)>1/2", "TWO\n)>2/2"] },
  { starts = "", screen = "DONE" },
]

[[pnr]]
RecordLocator = "ABC123"
on_display = true
display = '''
RP/PARXX0100/PARXX0100
PARXX0100/0001AA/12JUN08
 10 SSR VGML AF HK1/S5/P1
 41 FV AF/S5/P1
'''

[[pnr.Names]]
Text = "1.SMITH/JOHN MR(ADT)"
ElementNo = "1"
Initial = "JOHN MR"
LastName = "SMITH"
)toml";

// The objects, arguments and result of one call. A call makes nothing of its own: only the library may ask for memory.
struct Desk {
  explicit Desk(const wchar_t* argument) : entry(argument) {}

  Reference<_CQuillet> quillet;
  Reference<_CPNR> pnr;
  Reference<_CQueue> queue;
  Reference<_CBatch> batch;
  Reference<_CEncodeUtils> encodeUtils;
  Reference<_ParamBag> bag;
  Text entry;
  Text key{L"KEY"};
  OwnedVariant variable;  // a caller's, for parameters by reference
  OwnedVariant result;
};

HRESULT Late(IDispatch* object, const wchar_t* name, std::span<VARIANT> arguments, Desk& desk,
             WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET) {
  return testing::Late(object, name, arguments, &desk.result, flags);
}

BSTR* TextResult(Desk& desk) {
  V_VT(&desk.result) = VT_BSTR;
  V_BSTR(&desk.result) = nullptr;
  return &V_BSTR(&desk.result);
}

IDispatch** ObjectResult(Desk& desk) {
  V_VT(&desk.result) = VT_DISPATCH;
  V_DISPATCH(&desk.result) = nullptr;
  return &V_DISPATCH(&desk.result);
}

_CQuillet** QuilletResult(Desk& desk) {
  return reinterpret_cast<_CQuillet**>(ObjectResult(desk));
}

SHORT* NumberResult(Desk& desk) {
  V_VT(&desk.result) = VT_I2;
  V_I2(&desk.result) = 0;
  return &V_I2(&desk.result);
}

void SetText(VARIANT& variable, const wchar_t* text) {
  V_VT(&variable) = VT_BSTR;
  V_BSTR(&variable) = SysAllocString(text);
}

void Connect(Desk& desk) {
  ASSERT_EQ(S_OK, CreateInto(CLSID_CQuillet, desk.quillet));
}

void Send(Desk& desk) {
  Connect(desk);
  Text response;
  ASSERT_EQ(S_OK, desk.quillet->SendCommand(desk.entry, response.Receive()));
}

void Retrieve(Desk& desk) {
  Connect(desk);
  VARIANT_BOOL found = VARIANT_FALSE;
  ASSERT_EQ(S_OK, desk.quillet->RetrieveRecLoc(Text(L"ABC123"), &found));
  ASSERT_EQ(VARIANT_TRUE, found);
  ASSERT_EQ(S_OK, CreateInto(CLSID_CPNR, desk.pnr));
}

void MakeBag(Desk& desk) {
  ASSERT_EQ(S_OK, CoCreateInstance(CLSID_ParamBag, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_ParamBag),
                                   desk.bag.ReceiveVoid()));
}

void AskForTheFirst(Desk& desk) {
  Retrieve(desk);
  MakeBag(desk);
  for (const auto& [key, text] : {std::pair(L"strKeyPNRElement", desk.entry.Wide()), {L"intKeyIndex", L"0"}}) {
    OwnedVariant value;
    SetText(value, text.c_str());
    ASSERT_EQ(S_OK, desk.bag->Set(Text(key), value));
  }
}

void MakeQueue(Desk& desk) {
  Connect(desk);  // so that adding an entry connects no session
  ASSERT_EQ(S_OK, CreateInto(CLSID_CQueue, desk.queue));
}

void QueueOne(Desk& desk) {
  MakeQueue(desk);
  BSTR command = desk.entry;
  BSTR key = desk.key;
  Reference<_CQuillet> added;
  ASSERT_EQ(S_OK, desk.queue->Add(&command, &key, added.Receive()));
}

void MakeBatch(Desk& desk) {
  QueueOne(desk);
  MakeBag(desk);
  ASSERT_EQ(S_OK, CreateInto(CLSID_CBatch, desk.batch));
  ASSERT_EQ(S_OK, desk.batch->putref_Commands(desk.queue.Get()));
}

template <auto kMember>
HRESULT Sending(Desk& desk) {
  return (desk.quillet.Get()->*kMember)(desk.entry, TextResult(desk));
}

template <auto kMember>
HRESULT ReadingText(Desk& desk) {
  return (desk.pnr.Get()->*kMember)(TextResult(desk));
}

template <auto kMember>
HRESULT Counting(Desk& desk) {
  return (desk.pnr.Get()->*kMember)(NumberResult(desk));
}

template <typename Interface, auto kMember>
HRESULT Recording(Desk& desk) {
  IDispatch* bag = desk.bag.Get();
  return (desk.pnr.As<Interface>().Get()->*kMember)(&bag, ObjectResult(desk));
}

// A member of CPNR, IGet or IGetPNR, by its name, with the bag.
template <const wchar_t* kName>
HRESULT LateRecording(Desk& desk) {
  std::array<VARIANT, 1> arguments{Object(desk.bag.Get())};
  return Late(desk.pnr.Get(), kName, arguments, desk);
}
constexpr wchar_t kNameElement[] = L"NameElement";
constexpr wchar_t kElements[] = L"Elements";

// A member of CQuillet, by its name, with the entry.
template <const wchar_t* kName>
HRESULT LateSending(Desk& desk) {
  std::array<VARIANT, 1> arguments{String(desk.entry)};
  return Late(desk.quillet.Get(), kName, arguments, desk);
}
constexpr wchar_t kSendCommand[] = L"SendCommand";
constexpr wchar_t kRetrieveRecLoc[] = L"RetrieveRecLoc";

// A published class and a call of one of its members.
struct SampleCall {
  const char* name;
  int number;  // the member's own; 0: it has none
  const wchar_t* entry;
  void (*prepare)(Desk&);
  HRESULT (*call)(Desk&);
};

void PrintTo(const SampleCall& sample, std::ostream* out) {
  *out << sample.name;
}

constexpr int kNeverRaises = -2;
constexpr int kSessionHandOut = -1;  // CEncodeUtils's own, which is no number of this library

const SampleCall kSamples[] = {
    {"CQuillet", 0, L"", nullptr, [](Desk& desk) { return CreateInto(CLSID_CQuillet, desk.quillet); }},
    {"CPNR", 0, L"", nullptr, [](Desk& desk) { return CreateInto(CLSID_CPNR, desk.pnr); }},
    {"CQueue", 0, L"", nullptr, [](Desk& desk) { return CreateInto(CLSID_CQueue, desk.queue); }},
    {"CBatch", 0, L"", nullptr, [](Desk& desk) { return CreateInto(CLSID_CBatch, desk.batch); }},
    {"CEncodeUtils", kSessionHandOut, L"", nullptr,
     [](Desk& desk) { return CreateInto(CLSID_CEncodeUtils, desk.encodeUtils); }},
    {"CQuillet_ConnectSession", 2535, L"B", Connect,
     [](Desk& desk) { return desk.quillet->ConnectSession(desk.entry); }},
    {"CQuillet_Command", 0, L"a long entry", Connect,
     [](Desk& desk) {
       const HRESULT status = desk.quillet->put_Command(desk.entry);
       return FAILED(status) ? status : desk.quillet->get_Command(TextResult(desk));
     }},
    {"CQuillet_SendCommand", 2505, L"JD", Connect, Sending<&_CQuillet::SendCommand>},
    {"CQuillet_SendCommand_late", 2505, L"JD", Connect, LateSending<kSendCommand>},
    {"CQuillet_SendCommand_alarm", 2505, L"ER", Connect, Sending<&_CQuillet::SendCommand>},
    // The version is too long to fit into a string object, so comparing it takes memory.
    {"CQuillet_LockUnLockAlarm", kNeverRaises, L"", Connect,
     [](Desk& desk) {
       SHORT code = 0;
       return desk.quillet->LockUnLockAlarm(VARIANT_TRUE, &code);
     }},
    {"CQuillet_SendCommandGetAll", 2525, L"AN", Connect, Sending<&_CQuillet::SendCommandGetAll>},
    {"CQuillet_SendCommandCollectPages", 2557, L"AN", Connect,
     [](Desk& desk) { return desk.quillet->SendCommandCollectPages(desk.entry, &desk.variable, TextResult(desk)); }},
    {"CQuillet_SendCommandCollectPages_late", 2557, L"AN", Connect,
     [](Desk& desk) {
       std::array<VARIANT, 2> arguments{String(desk.entry), ByReference(&desk.variable)};
       return Late(desk.quillet.Get(), L"SendCommandCollectPages", arguments, desk);
     }},
    {"CQuillet_SendCommandFI_late", 2506, L"JD",
     [](Desk& desk) {
       Connect(desk);
       MakeBag(desk);
     },
     [](Desk& desk) {
       std::array<VARIANT, 2> arguments{String(desk.entry), Object(desk.bag.Get())};
       return Late(desk.quillet.Get(), L"SendCommandFI", arguments, desk);
     }},
    {"CQuillet_RetrieveRecLoc_late", 2501, L"ABC123", Connect, LateSending<kRetrieveRecLoc>},
    {"CQuillet_ChangeSMOD", 2520, L"", Connect, [](Desk& desk) { return desk.quillet->ChangeSMOD(5, 12); }},
    {"CQuillet_SendKey_late", 2515, L"", Connect,
     [](Desk& desk) {
       if (V_VT(&desk.variable) == VT_EMPTY) {
         V_VT(&desk.variable) = VT_I4;
         V_I4(&desk.variable) = 272;
       }
       std::array<VARIANT, 1> arguments{ByReference(&desk.variable)};
       return Late(desk.quillet.Get(), L"SendKey", arguments, desk);
     }},
    {"CQuillet_LastBuffer_late", 0, L"JD", Send,
     [](Desk& desk) { return Late(desk.quillet.Get(), L"LastBuffer", {}, desk); }},
    {"CQuillet_GetLineFromLastBuffer", 0, L"JD", Send,
     [](Desk& desk) { return desk.quillet->GetLineFromLastBuffer(1, TextResult(desk)); }},
    {"CQuillet_GetSessionList_late", 0, L"", Connect,
     [](Desk& desk) { return Late(desk.quillet.Get(), L"GetSessionList", {}, desk); }},
    {"CPNR_Command_put_late", 0, L"12345678", Retrieve,
     [](Desk& desk) {
       std::array<VARIANT, 1> arguments{Number(12345678)};
       const HRESULT status = Late(desk.pnr.Get(), L"Command", arguments, desk, DISPATCH_PROPERTYPUT);
       return FAILED(status) ? status : desk.pnr->get_Command(TextResult(desk));
     }},
    {"CPNR_RecordLocator", 0, L"", Retrieve, ReadingText<&_CPNR::get_RecordLocator>},
    {"CPNR_CreationDate", 0, L"", Retrieve, ReadingText<&_CPNR::get_CreationDate>},
    {"CPNR_PNR_late", 0, L"", Retrieve, [](Desk& desk) { return Late(desk.pnr.Get(), L"PNR", {}, desk); }},
    {"CPNR_NameElementsCount_late", 0, L"", Retrieve,
     [](Desk& desk) { return Late(desk.pnr.Get(), L"NameElementsCount", {}, desk); }},
    {"CPNR_SpecialServiceElementsCount", 2035, L"", Retrieve, Counting<&_CPNR::get_SpecialServiceElementsCount>},
    {"CPNR_ValidatingAirlineElementsCount", 0, L"", Retrieve, Counting<&_CPNR::get_ValidatingAirlineElementsCount>},
    {"IGet_NameElement", 2223, L"", AskForTheFirst, Recording<_IGet, &_IGet::NameElement>},
    {"IGet_NameElement_late", 2223, L"", AskForTheFirst, LateRecording<kNameElement>},
    {"IGet_ValidatingAirlineElement", 2233, L"", AskForTheFirst, Recording<_IGet, &_IGet::ValidatingAirlineElement>},
    {"IGetPNR_Elements", 2247, L"SSR", AskForTheFirst, Recording<_IGetPNR, &_IGetPNR::Elements>},
    {"IGetPNR_Elements_late", 2247, L"SSR", AskForTheFirst, LateRecording<kElements>},
    {"CQueue_Add", 2400, L"a long entry", MakeQueue,
     [](Desk& desk) {
       BSTR command = desk.entry;
       BSTR key = desk.key;
       return desk.queue->Add(&command, &key, QuilletResult(desk));
     }},
    {"CQueue_Add_late", 2400, L"a long entry", MakeQueue,
     [](Desk& desk) {
       std::array<VARIANT, 2> arguments{String(desk.entry), String(desk.key)};
       return Late(desk.queue.Get(), L"Add", arguments, desk);
     }},
    {"CQueue_Add_first_object", 2400, L"a long entry",
     [](Desk& desk) { ASSERT_EQ(S_OK, CreateInto(CLSID_CQueue, desk.queue)); },
     [](Desk& desk) {
       BSTR command = desk.entry;
       return desk.queue->Add(&command, nullptr, QuilletResult(desk));
     }},
    {"CQueue_Item_late", 0, L"JD", QueueOne,
     [](Desk& desk) {
       std::array<VARIANT, 1> arguments{String(desk.key)};
       return Late(desk.queue.Get(), L"Item", arguments, desk);
     }},
    {"CQueue_NewEnum_late", 0, L"JD", QueueOne,
     [](Desk& desk) { return Late(desk.queue.Get(), L"NewEnum", {}, desk); }},
    {"CBatch_Commands_late", 0, L"JD", [](Desk& desk) { ASSERT_EQ(S_OK, CreateInto(CLSID_CBatch, desk.batch)); },
     [](Desk& desk) { return Late(desk.batch.Get(), L"Commands", {}, desk); }},
    {"CBatch_Separator_late", 0, L"", MakeBatch,
     [](Desk& desk) { return Late(desk.batch.Get(), L"Separator", {}, desk); }},
    {"CBatch_Submit", 2300, L"JD", MakeBatch, [](Desk& desk) { return desk.batch->Submit(); }},
    {"CBatch_SubmitWithResponse_late", 2315, L"JD", MakeBatch,
     [](Desk& desk) {
       std::array<VARIANT, 1> arguments{Object(desk.bag.Get())};
       return Late(desk.batch.Get(), L"SubmitWithResponse", arguments, desk);
     }},
    {"CBatch_RMBatch_late", 2310, L"a remark",
     [](Desk& desk) { ASSERT_EQ(S_OK, CreateInto(CLSID_CBatch, desk.batch)); },
     [](Desk& desk) {
       std::array<VARIANT, 2> arguments{String(desk.entry), ByReference(&desk.variable)};
       return Late(desk.batch.Get(), L"RMBatch", arguments, desk);
     }},
    {"CEncodeUtils_EncodeSession_late", 0, L"",
     [](Desk& desk) { ASSERT_EQ(S_OK, CreateInto(CLSID_CEncodeUtils, desk.encodeUtils)); },
     [](Desk& desk) { return Late(desk.encodeUtils.Get(), L"EncodeSession", {}, desk); }},
};

class MemoryShortage : public MemorySweep, public ::testing::WithParamInterface<SampleCall> {
 protected:
  static inline int requests = 0;

  static void SetUpTestSuite() {
    SetModuleInstance(LoadLibraryW(L"Wendrill23.dll"));  // its type library describes these objects
    MemorySweep::SetUpTestSuite();
  }
  static void TearDownTestSuite() {
    std::printf("memory shortage through automation: %zu members, %d requests x 2 kinds of shortage\n",
                std::size(kSamples), requests);
  }

  void SetUp() override { Load(kScenario); }

  SweptCall Prepare() override {
    auto desk = std::make_shared<Desk>(GetParam().entry);
    if (GetParam().prepare != nullptr) {
      GetParam().prepare(*desk);
    }
    return {desk, [&desk = *desk] { return GetParam().call(desk); }, &desk->result};
  }

  bool MayFailWith(HRESULT status) const override {
    const int number = GetParam().number;
    if (number == kNeverRaises) {
      return false;
    }
    const HRESULT own =
        number == kSessionHandOut ? static_cast<HRESULT>(0x80040456) : static_cast<HRESULT>(0x800A0000 + number);
    return status == E_OUTOFMEMORY || status == static_cast<HRESULT>(0x800A0007) || (number != 0 && status == own);
  }
};

TEST_P(MemoryShortage, AtEachRequestIsAnErrorAndLeavesNothing) {
  requests += Sweep();
}

INSTANTIATE_TEST_SUITE_P(Samples, MemoryShortage, ::testing::ValuesIn(kSamples),
                         [](const auto& sample) { return std::string(sample.param.name); });

}  // namespace
}  // namespace wendrill::com::testing
