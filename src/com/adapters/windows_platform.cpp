#include "com/adapters/windows_platform.h"

#include "com/adapters/foreign_bag.h"
#include "com/adapters/host_toolkit.h"

namespace wendrill::com {

std::shared_ptr<HostSessionList> RegisteredComponents::CreateSessionList() {
  return AdaptSessionList(CreateComponent(L"kzuHostToolKit.HostSessionList"), names_);
}

std::shared_ptr<HostSession> RegisteredComponents::CreateSession() {
  return AdaptSession(CreateComponent(L"kzuHostToolKit.HostSession"), names_);
}

ObjectRef RegisteredComponents::CreatePnr() {
  return ForeignObjects(names_).ToCore(CreateComponent(L"szuPNR.PNR").Get());
}

std::shared_ptr<AlarmManager> RegisteredComponents::CreateAlarmManager() {
  return AdaptAlarmManager(CreateComponent(L"wzuScriptHelper.AlarmManager"), names_);
}

std::shared_ptr<TextHelperService> RegisteredComponents::CreateTextHelper() {
  return AdaptTextHelper(CreateComponent(L"Pellorin.TextHelper"), names_);
}

ParamBagRef RegisteredComponents::CreateParamBag() {
  return AdaptParamBag(CreateComponent(L"Pellorin.ParamBag").Get(), names_);
}

double LocalClock::SecondsSinceMidnight() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return now.wHour * 3600.0 + now.wMinute * 60.0 + now.wSecond + now.wMilliseconds / 1000.0;
}

void LocalClock::Sleep(std::chrono::milliseconds duration) {
  ::Sleep(static_cast<DWORD>(duration.count()));
}

namespace {

bool QuitMessageWaits() {
  MSG message;
  return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
}

}  // namespace

// Dispatches the waiting messages, up to and including the first message that was posted after RunOnce began. Without
// this limit, a handler that posts a message each time it runs would keep RunOnce from returning, and the library could
// not check the condition that it waits for. PeekMessageW returns WM_QUIT only when no other message is left. So when
// RunOnce ends at the limit, it looks for WM_QUIT separately.
bool ThreadMessages::RunOnce() {
  const DWORD began = GetTickCount();
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return true;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    if (static_cast<LONG>(message.time - began) > 0) {
      return QuitMessageWaits();
    }
  }
  return false;
}

}  // namespace wendrill::com
