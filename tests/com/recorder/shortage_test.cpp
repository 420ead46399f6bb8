// Memory runs short inside the recorder, at each request for it in turn: while it only passes calls on, while it
// records, and while it makes the file. The program meets what the terminal answered or E_OUTOFMEMORY, never an
// exception, and gets nothing of the terminal's that is not wrapped.
#include <olectl.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <tuple>

#include "com/recorder/run.h"
#include "com/recorder/run_recorder.h"
#include "com/recorder/wrapper.h"
#include "event_sink.h"
#include "hand_made.h"
#include "late_calls.h"
#include "memory_sweep.h"
#include "recorder.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A long name of a session" }]
reply = [{ starts = "", screen = "DONE" }]

[[pnr]]
RecordLocator = "ABC123"
on_display = true
[[pnr.Names]]
Text = "1.TREMBLAY/ODETTE MRS"
ElementNo = "1"
Initial = "ODETTE MRS"
LastName = "TREMBLAY"
)toml";

constexpr DISPID kNames = 2;
constexpr DISPID kRetrieveCurrent = 80;
constexpr DISPID kRetrieve = 81;

constexpr wchar_t kFile[] = L"short_memory.toml";

std::filesystem::path File() {
  return std::filesystem::temp_directory_path() / kFile;
}

// The objects, arguments and result of one call.
struct Desk {
  Reference<IDispatch> object;  // whose member is called
  Reference<IDispatch> connection;
  Reference<IEnumVARIANT> elements;
  Reference<IConnectionPoint> point;
  Reference<EventSink> sink = Reference<EventSink>::Adopt(new EventSink());
  Reference<recorder::IRunRecorder> run;
  Text entry{L"a long entry"};
  Text unknown{L"no session has this name"};
  std::filesystem::path file = File();
  OwnedVariant result;
};

template <const CLSID& kClass>
HRESULT Create(Desk& desk) {
  desk.object = {};
  return CreateInto(kClass, desk.object);
}

template <const CLSID& kClass>
void Has(Desk& desk) {
  ASSERT_EQ(S_OK, Create<kClass>(desk));
}

// The object that a member returns takes the place of the one that has the member.
void Follow(Desk& desk, const wchar_t* name, std::span<VARIANT> arguments = {}) {
  OwnedVariant result;
  ASSERT_EQ(S_OK, Late(desk.object.Get(), name, arguments, &result));
  ASSERT_EQ(VT_DISPATCH, V_VT(&result));
  desk.object = Reference<IDispatch>(V_DISPATCH(&result));
}

HRESULT Send(Desk& desk) {
  VARIANT transmit = OfType(VT_BOOL);
  V_BOOL(&transmit) = VARIANT_TRUE;
  std::array<VARIANT, 2> arguments{String(desk.entry), transmit};
  return Late(desk.object.Get(), L"Send", arguments, &desk.result);
}

void HasResponse(Desk& desk) {
  Has<CLSID_RecordedSession>(desk);
  ASSERT_EQ(S_OK, Send(desk));
  desk.object = Reference<IDispatch>(V_DISPATCH(&desk.result));
}

void HasPnrAndConnection(Desk& desk) {
  Has<CLSID_RecordedSession>(desk);
  Follow(desk, L"HostConnection");
  desk.connection = desk.object;
  Has<CLSID_RecordedPNR>(desk);
}

HRESULT RetrieveCurrent(Desk& desk) {
  std::array<VARIANT, 1> arguments{Object(desk.connection.Get())};
  return Late(desk.object.Get(), kRetrieveCurrent, arguments, &desk.result);
}

void HasRetrievedPnr(Desk& desk) {
  HasPnrAndConnection(desk);
  ASSERT_EQ(S_OK, RetrieveCurrent(desk));
}

void HasEnumerator(Desk& desk) {
  Has<CLSID_RecordedSessionList>(desk);
  OwnedVariant result;
  ASSERT_EQ(S_OK, Late(desk.object.Get(), DISPID_NEWENUM, {}, &result));
  ASSERT_EQ(S_OK, V_UNKNOWN(&result)->QueryInterface(IID_IEnumVARIANT, desk.elements.ReceiveVoid()));
}

HRESULT FindPoint(Desk& desk) {
  const auto container = desk.object.As<IConnectionPointContainer>();
  return container->FindConnectionPoint(DIID__HostSessionEvents, desk.point.Receive());
}

void HasPoint(Desk& desk) {
  Has<CLSID_RecordedSession>(desk);
  ASSERT_EQ(S_OK, FindPoint(desk));
}

// Begins and ends listening.
HRESULT Listen(Desk& desk) {
  DWORD cookie = 0;
  const HRESULT status = desk.point->Advise(desk.sink.Get(), &cookie);
  return FAILED(status) ? status : desk.point->Unadvise(cookie);
}

// An event that cannot be passed on is lost, and the terminal hears of it. The session's handlers are called in turn.
HRESULT ReceiveEvent(Desk& desk) {
  DWORD cookie = 0;
  HRESULT status = desk.point->Advise(desk.sink.Get(), &cookie);
  if (SUCCEEDED(status)) {
    status = Send(desk);
    PumpMessages();
    desk.sink->response = {};
    desk.point->Unadvise(cookie);
  }
  return status;
}

template <const wchar_t* kName>
HRESULT Ask(Desk& desk) {
  return Late(desk.object.Get(), kName, {}, &desk.result);
}
constexpr wchar_t kCount[] = L"Count";
constexpr wchar_t kNewEnum[] = L"_NewEnum";
constexpr wchar_t kLastResponse[] = L"LastResponse";
constexpr wchar_t kHostConnection[] = L"HostConnection";
constexpr wchar_t kBuffer[] = L"Buffer";
constexpr wchar_t kTerminalVersion[] = L"TerminalVersion";

template <const wchar_t* kName, LONG kArgument>
HRESULT AskWith(Desk& desk) {
  std::array<VARIANT, 1> arguments{Number(kArgument)};
  return Late(desk.object.Get(), kName, arguments, &desk.result);
}
constexpr wchar_t kItem[] = L"Item";
constexpr wchar_t kSendKey[] = L"SendKey";
constexpr wchar_t kLockAlarm[] = L"LockAlarm";

// An object whose member returns an object and stores one in a variable. It makes them before the memory is short.
Reference<IDispatch> NewReturning() {
  return HandMade::New(
      [returned = HandMade::New(), stored = HandMade::New()](DISPID, const DISPPARAMS& arguments, VARIANT* result) {
        *V_DISPATCHREF(&arguments.rgvarg[0]) = Reference<IDispatch>(stored).Release();
        V_VT(result) = VT_DISPATCH;
        V_DISPATCH(result) = Reference<IDispatch>(returned).Release();
        return S_OK;
      });
}

// A member that fails with a number of the terminal's own.
HRESULT FindNothing(Desk& desk) {
  std::array<VARIANT, 1> arguments{String(desk.unknown)};
  const HRESULT status = Late(desk.object.Get(), kItem, arguments, &desk.result);
  return status == static_cast<HRESULT>(0x800A0009) ? S_OK : status;
}

enum class Recorded { Not, ByTheProgram, ByLives };

struct SampleCall {
  const char* name;
  void (*prepare)(Desk&);
  HRESULT (*call)(Desk&);
};

void PrintTo(const SampleCall& sample, std::ostream* out) {
  *out << sample.name;
}

const SampleCall kCalls[] = {
    {"SessionList", nullptr, Create<CLSID_RecordedSessionList>},
    {"Session", nullptr, Create<CLSID_RecordedSession>},
    {"PNR", nullptr, Create<CLSID_RecordedPNR>},
    {"Alarm", nullptr, Create<CLSID_RecordedAlarmManager>},
    {"TextHelper", nullptr, Create<CLSID_RecordedTextHelper>},
    {"ParamBag", nullptr, Create<CLSID_PassedParamBag>},
    {"SessionList_Count", Has<CLSID_RecordedSessionList>, Ask<kCount>},
    {"SessionList_Item", Has<CLSID_RecordedSessionList>, AskWith<kItem, 1>},
    {"SessionList_Item_fails", Has<CLSID_RecordedSessionList>, FindNothing},
    {"SessionList_NewEnum", Has<CLSID_RecordedSessionList>, Ask<kNewEnum>},
    {"SessionList_NewEnum_Next", HasEnumerator,
     [](Desk& desk) {
       desk.elements->Reset();
       return desk.elements->Next(1, &desk.result, nullptr);
     }},
    {"Session_Send", Has<CLSID_RecordedSession>, Send},
    {"Session_Send_after_another", HasResponse,
     [](Desk& desk) {
       const HRESULT status = Create<CLSID_RecordedSession>(desk);
       return FAILED(status) ? status : Send(desk);
     }},
    {"Session_LastResponse",
     [](Desk& desk) {
       Has<CLSID_RecordedSession>(desk);
       ASSERT_EQ(S_OK, Send(desk));
     },
     Ask<kLastResponse>},
    {"Session_HostConnection", Has<CLSID_RecordedSession>, Ask<kHostConnection>},
    {"Session_SendKey", Has<CLSID_RecordedSession>, AskWith<kSendKey, 353>},
    {"Session_FindConnectionPoint", Has<CLSID_RecordedSession>, FindPoint},
    {"Session_Advise", HasPoint, Listen},
    {"Session_Event", HasPoint, ReceiveEvent},
    {"Response_Buffer", HasResponse, Ask<kBuffer>},
    {"PNR_RetrieveCurrent", HasPnrAndConnection, RetrieveCurrent},
    {"PNR_RetrieveCurrent_by_reference", HasPnrAndConnection,
     [](Desk& desk) {
       VARIANT connection = Object(desk.connection.Get());
       std::array<VARIANT, 1> arguments{ByReference(&connection)};
       return Late(desk.object.Get(), kRetrieveCurrent, arguments, &desk.result);
     }},
    {"PNR_Retrieve", HasPnrAndConnection,
     [](Desk& desk) {
       std::array<VARIANT, 2> arguments{Object(desk.connection.Get()), String(desk.entry)};
       return Late(desk.object.Get(), kRetrieve, arguments, &desk.result);
     }},
    {"PNR_Names", HasRetrievedPnr, [](Desk& desk) { return Late(desk.object.Get(), kNames, {}, &desk.result); }},
    {"A_result_and_an_object_in_a_variable",
     [](Desk& desk) {
       desk.object = recorder::Wrapper::Of(NewReturning().Get(), recorder::Kind::Other);
       ASSERT_TRUE(desk.object);
     },
     [](Desk& desk) {
       IDispatch* variable = nullptr;
       VARIANT reference = OfType(VT_BYREF | VT_DISPATCH);
       V_DISPATCHREF(&reference) = &variable;
       std::array<VARIANT, 1> arguments{reference};
       const HRESULT status = Late(desk.object.Get(), 1, arguments, &desk.result);
       const auto stored = Reference<IDispatch>::Adopt(variable);
       EXPECT_TRUE(!stored || stored.As<recorder::IWrapper>());
       EXPECT_EQ(SUCCEEDED(status), V_VT(&desk.result) == VT_DISPATCH);
       return status;
     }},
    {"AlarmManager_LockAlarm", Has<CLSID_RecordedAlarmManager>, AskWith<kLockAlarm, 1>},
    {"TextHelper_TerminalVersion", Has<CLSID_RecordedTextHelper>, Ask<kTerminalVersion>},
};

const SampleCall kEnds[] = {
    {"End",
     [](Desk& desk) {
       HasResponse(desk);
       desk.object = {};
       ASSERT_EQ(S_OK, CreateInto(CLSID_Run, desk.run));
     },
     [](Desk& desk) {
       const recording::Outcome* outcome = desk.run->End();
       return outcome != nullptr && outcome->isWritten ? S_OK : E_OUTOFMEMORY;
     }},
};

// The last object is released, then the process ends. Where there is no object any more, one is created for it.
const SampleCall kReleases[] = {
    {"Release", HasResponse,
     [](Desk& desk) {
       const HRESULT status = desk.object ? S_OK : Create<CLSID_RecordedSession>(desk);
       desk.object = {};
       recorder::ProcessEnds();
       const bool isWritten = GetFileAttributesW(desk.file.c_str()) != INVALID_FILE_ATTRIBUTES;
       return SUCCEEDED(status) && !isWritten ? E_OUTOFMEMORY : status;
     }},
};

using Sample = std::tuple<SampleCall, Recorded>;

class RecorderShortage : public MemorySweep, public ::testing::WithParamInterface<Sample> {
 protected:
  static inline int requests = 0;
  static inline int calls = 0;

  static void TearDownTestSuite() {
    std::printf("memory shortage in the recorder: %d calls, %d requests x 2 kinds of shortage\n", calls, requests);
  }

  void SetUp() override { Load(kScenario); }
  void TearDown() override {
    AtRest();
    MemorySweep::TearDown();
  }

  SweptCall Prepare() override {
    const auto& [sample, recorded] = GetParam();
    AtRest();
    if (recorded != Recorded::Not) {
      recorder::TheRun().Start({.file = File(), .kept = {}},
                               recorded == Recorded::ByLives ? recorder::EndedBy::Lives : recorder::EndedBy::Program);
    }
    auto desk = std::make_shared<Desk>();
    if (sample.prepare != nullptr) {
      sample.prepare(*desk);
    }
    return {desk, [&desk = *desk, call = sample.call] { return call(desk); }, &desk->result};
  }

  bool MayFailWith(HRESULT status) const override {
    return status == E_OUTOFMEMORY || status == static_cast<HRESULT>(0x800A0007);
  }

  // Without the recording, which grows with each call.
  BlocksInUse AtRest() override {
    recorder::TheRun() = recorder::Run();
    std::filesystem::remove(File());
    return MemorySweep::AtRest();
  }
};

TEST_P(RecorderShortage, AtEachRequestIsAnErrorAndLeavesNothing) {
  requests += Sweep();
  ++calls;
}

INSTANTIATE_TEST_SUITE_P(Passing, RecorderShortage,
                         ::testing::Combine(::testing::ValuesIn(kCalls), ::testing::Values(Recorded::Not)),
                         [](const auto& sample) { return std::string(std::get<0>(sample.param).name); });
INSTANTIATE_TEST_SUITE_P(Recording, RecorderShortage,
                         ::testing::Combine(::testing::ValuesIn(kCalls), ::testing::Values(Recorded::ByTheProgram)),
                         [](const auto& sample) { return std::string(std::get<0>(sample.param).name); });
INSTANTIATE_TEST_SUITE_P(Ending, RecorderShortage,
                         ::testing::Combine(::testing::ValuesIn(kEnds), ::testing::Values(Recorded::ByTheProgram)),
                         [](const auto& sample) { return std::string(std::get<0>(sample.param).name); });
INSTANTIATE_TEST_SUITE_P(Releasing, RecorderShortage,
                         ::testing::Combine(::testing::ValuesIn(kReleases), ::testing::Values(Recorded::ByLives)),
                         [](const auto& sample) { return std::string(std::get<0>(sample.param).name); });

}  // namespace
}  // namespace wendrill::com::testing
