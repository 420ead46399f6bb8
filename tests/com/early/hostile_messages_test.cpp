// Messages that arrive while a member waits, and do what no caller should.
#include <functional>
#include <utility>

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

// Whoever asks the application to end still gets through behind the wait.
TEST_F(HostileMessages, ThatEndTheApplicationAreHandedOn) {
  PostQuitMessage(7);
  ExpectTheLateAnswer();
  MSG message;
  ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(static_cast<UINT>(WM_QUIT), message.message);
  EXPECT_EQ(7U, message.wParam);
}

}  // namespace
}  // namespace wendrill::com::testing
