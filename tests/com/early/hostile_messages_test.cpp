// Messages that arrive while a member waits, and do what no caller should.
#include <functional>
#include <utility>

#include "bag.h"
#include "desktop_fixture.h"

namespace wendrill::com::testing {
namespace {

// A window of the caller's own, whose messages run what a test wants.
class MessageWindow {
 public:
  MessageWindow() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OnMessage;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"HostileMessages";
    RegisterClassW(&windowClass);
    window_ = CreateWindowExW(0, windowClass.lpszClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              windowClass.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~MessageWindow() {
    DestroyWindow(window_);
    UnregisterClassW(L"HostileMessages", GetModuleHandleW(nullptr));
  }
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;

  // Runs when the messages are pumped next.
  void Post(std::function<void()> act) {
    act_ = std::move(act);
    PostAgain();
  }
  void PostAgain() { PostMessageW(window_, WM_APP, 0, 0); }

 private:
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_APP && self != nullptr) {
      const auto act = self->act_;  // which may post another
      act();
      return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }

  HWND window_ = nullptr;
  std::function<void()> act_;
};

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }, { name = "B" }]
reply = [
  { entry = "LATE", screen = "AT LAST", late = 3 },
  { entry = "ER", screen = "STORED", late = 3 },
  { entry = "GROWS", screen = "MORE", text = "DAC:CONT +" },
  { starts = "", screen = "DONE" },
]
)toml";

class HostileMessages : public Desktop {
 protected:
  void SetUp() override {
    Load(kScenario);
    quillet_ = CreateQuillet();
  }

  void TearDown() override {
    quillet_ = {};
    Desktop::TearDown();
  }

  // Sends the entry that is answered late; its answer is empty where the call fails.
  static std::pair<HRESULT, std::wstring> SendLate(_CQuillet* quillet) {
    Text response;
    const HRESULT status = quillet->SendCommandNoClear(Text(L"LATE"), response.Receive());
    return {status, response.Wide()};
  }

  void ExpectTheLateAnswer() {
    const auto [status, response] = SendLate(quillet_.Get());
    EXPECT_EQ(S_OK, status);
    EXPECT_EQ(Row(L"AT LAST"), response);
  }

  Reference<_CQuillet> quillet_;
  MessageWindow window_;
};

constexpr HRESULT kNotAnswered = static_cast<HRESULT>(0x800A0000 + 2530);

TEST_F(HostileMessages, ASecondEntryTakesTheResponseInProgress) {
  bool done = false;
  window_.Post([&] {
    Text response;
    EXPECT_EQ(S_OK, quillet_->SendCommand(Text(L"JD"), response.Receive()));
    EXPECT_EQ(Row(L"DONE"), response.Wide());
    done = true;
  });
  EXPECT_EQ(kNotAnswered, SendLate(quillet_.Get()).first);
  EXPECT_TRUE(done);
  ExpectTheLateAnswer();
}

TEST_F(HostileMessages, StopLoopEndsTheWait) {
  window_.Post([&] { EXPECT_EQ(S_OK, quillet_->StopLoop()); });
  EXPECT_EQ(kNotAnswered, SendLate(quillet_.Get()).first);
  EXPECT_EQ(S_OK, quillet_->ConnectSession(Text(L"A")));
  ExpectTheLateAnswer();
}

TEST_F(HostileMessages, TheObjectThatWaitsIsReleasedAndStillAnswers) {
  _CQuillet* const waiting = quillet_.Get();
  window_.Post([&] {
    quillet_ = {};
    CoFreeUnusedLibraries();
  });
  const auto [status, response] = SendLate(waiting);
  EXPECT_EQ(S_OK, status);
  EXPECT_EQ(Row(L"AT LAST"), response);
  EXPECT_EQ(0, LiveObjects());
}

TEST_F(HostileMessages, TheObjectThatWaitsInALateBoundCallIsReleasedAndStillAnswers) {
  IDispatch* const waiting = quillet_.Get();
  window_.Post([&] { quillet_ = {}; });
  VARIANT entry;
  V_VT(&entry) = VT_BSTR;
  V_BSTR(&entry) = SysAllocString(L"LATE");
  DISPPARAMS parameters{&entry, nullptr, 1, 0};
  OwnedVariant result;
  constexpr DISPID kSendCommandNoClear = 4;
  EXPECT_EQ(S_OK,
            waiting->Invoke(kSendCommandNoClear, IID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr));
  ASSERT_EQ(VT_BSTR, V_VT(&result));
  EXPECT_EQ(Row(L"AT LAST"), std::wstring(V_BSTR(&result)));
  VariantClear(&entry);
  EXPECT_EQ(0, LiveObjects());
}

TEST_F(HostileMessages, TheObjectThatSwitchesTheModeIsReleasedAndStillSwitchesIt) {
  _CQuillet* const waiting = quillet_.Get();
  window_.Post([&] { quillet_ = {}; });
  EXPECT_EQ(S_OK, waiting->ChangeSMOD(5, 12));
  EXPECT_EQ(L"key 353\r\nkey 353\r\nsend 0512\r\n", Journal());
  EXPECT_EQ(0, LiveObjects());
}

// The inner switch ends first and lets the session of its events go; the outer one finds that it is gone.
TEST_F(HostileMessages, AModeSwitchInsideAModeSwitchEndsBoth) {
  HRESULT inner = E_PENDING;
  window_.Post([&] { inner = quillet_->ChangeSMOD(1, 1); });
  const HRESULT outer = quillet_->ChangeSMOD(5, 12);
  EXPECT_EQ(S_OK, inner);
  EXPECT_TRUE(outer == S_OK || outer == static_cast<HRESULT>(0x800A0000 + 2520)) << std::hex << outer;
  EXPECT_EQ(S_OK, quillet_->ChangeSMOD(5, 12));
}

TEST_F(HostileMessages, AlarmEntriesGiveTheirLockBackWhenTheSessionGoes) {
  window_.Post([&] { quillet_->StopLoop(); });
  Text response;
  EXPECT_EQ(kNotAnswered, quillet_->SendCommandNoClear(Text(L"ER"), response.Receive()));
  EXPECT_EQ(L"alarm lock\r\nkey 322\r\nsend ER\r\nalarm unlock\r\n", Journal());
}

// A message that posts itself again and again must not keep the library from looking at the response.
TEST_F(HostileMessages, WithoutEndDoNotKeepTheAnswerFromArriving) {
  int messages = 0;
  window_.Post([&] {
    ++messages;
    window_.PostAgain();
  });
  const DWORD began = GetTickCount();
  ExpectTheLateAnswer();
  EXPECT_LT(GetTickCount() - began, 5000U);
  EXPECT_GT(messages, 0);
  window_.Post([] {});
}

// Whoever asks the application to end gets through: the wait ends, and the caller's own loop finds the message.
class AClosingProgram : public HostileMessages {
 protected:
  static constexpr WPARAM kExitCode = 7;

  // The caller's own loop.
  static void ExpectTheQuitMessage() {
    MSG message;
    do {
      ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
      DispatchMessageW(&message);
    } while (message.message != WM_QUIT);
    EXPECT_EQ(kExitCode, message.wParam);
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  }
};

TEST_F(AClosingProgram, EndsTheResponseWaitAndGivesTheAlarmLockBack) {
  PostQuitMessage(kExitCode);
  Text response;
  EXPECT_OWN_ERROR(2530, quillet_->SendCommandNoClear(Text(L"ER"), response.Receive()));
  EXPECT_EQ(L"alarm lock\r\nkey 322\r\nsend ER\r\nalarm unlock\r\n", Journal());
  ExpectTheQuitMessage();
  ExpectTheLateAnswer();
}

TEST_F(AClosingProgram, EndsEveryWaitUntilItsOwnLoopHasSeenTheMessage) {
  PostQuitMessage(kExitCode);
  for (int wait = 0; wait < 3; ++wait) {
    EXPECT_EQ(kNotAnswered, SendLate(quillet_.Get()).first);
  }
  ExpectTheQuitMessage();
}

// A program's window posts the quit message while the library waits.
TEST_F(AClosingProgram, EndsTheResponseWaitFromAMessage) {
  window_.Post([] { PostQuitMessage(kExitCode); });
  EXPECT_EQ(kNotAnswered, SendLate(quillet_.Get()).first);
  ExpectTheQuitMessage();
}

// The system keeps the quit message back as long as any other waits.
TEST_F(AClosingProgram, EndsTheWaitAlthoughMessagesKeepComing) {
  int messages = 0;
  window_.Post([&] {
    if (++messages == 1) {
      PostQuitMessage(kExitCode);
    }
    window_.PostAgain();
  });
  EXPECT_OWN_ERROR(2520, quillet_->ChangeSMOD(5, 12));
  window_.Post([] {});
  ExpectTheQuitMessage();
}

TEST_F(AClosingProgram, EndsTheModeSwitchAndItsEventConnection) {
  window_.Post([] { PostQuitMessage(kExitCode); });
  EXPECT_OWN_ERROR(2520, quillet_->ChangeSMOD(5, 12));
  ExpectTheQuitMessage();
  Journal();
  EXPECT_EQ(S_OK, quillet_->ChangeSMOD(5, 12));
  EXPECT_EQ(L"key 353\r\nkey 353\r\nsend 0512\r\n", Journal());
}

TEST_F(AClosingProgram, EndsTheCollectionOfTicsPas) {
  Text pages;
  ASSERT_EQ(S_OK, quillet_->SendCommandGetAll(Text(L""), pages.Receive()));  // begins a collection
  Bag bag;
  bag.Set(L"strKeyCommand", L"GROWS");
  bag.Set(L"blnKeyGetAll", L"True");
  IDispatch* parameters = bag.Object();
  PostQuitMessage(kExitCode);
  window_.Post([&] { quillet_->StopLoop(); });  // ends the collection without a failure where nothing else does
  EXPECT_OWN_ERROR(2540, quillet_->SendCommandTicsPas(&parameters, pages.Receive()));
  EXPECT_EQ(L"send GROWS\r\n", Journal());
  ExpectTheQuitMessage();
}

}  // namespace
}  // namespace wendrill::com::testing
