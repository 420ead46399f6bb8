// A program that knows nothing of a recording: it sends an entry and reads the answer, or presses keys.
//
//   recorded_program.exe release    lets go of every object before it ends
//   recorded_program.exe leave      ends while it holds them
//   recorded_program.exe rounds     lets go of every object after each of 200 entries
//   recorded_program.exe keys       counts the events that follow each key
#include <olectl.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "com/server/automation_types.h"
#include "event_sink.h"
#include "late_calls.h"
#include "platform.h"

namespace {

using namespace wendrill::com;
using namespace wendrill::com::testing;

int Failed(const char* what) {
  Reference<IErrorInfo> information;
  OwnedString description;
  if (GetErrorInfo(0, information.Receive()) == S_OK) {
    information->GetDescription(description.Receive());
  }
  std::printf("%s failed: %ls\n", what, description.Get() == nullptr ? L"" : description.Get());
  return 1;
}

Reference<IDispatch> NewSession() {
  CLSID id;
  Reference<IDispatch> session;
  if (SUCCEEDED(CLSIDFromProgID(L"kzuHostToolKit.HostSession", &id))) {
    CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, session.ReceiveVoid());
  }
  return session;
}

int PressKeys() {
  constexpr LONG kKeys[] = {322, 353, 272};  // Clear, PA2, Enter
  const Reference<IDispatch> session = NewSession();
  const auto container = session.As<IConnectionPointContainer>();
  Reference<IConnectionPoint> point;
  const auto sink = Reference<EventSink>::Adopt(new EventSink());
  DWORD cookie = 0;
  if (!container || FAILED(container->FindConnectionPoint(DIID__HostSessionEvents, point.Receive())) ||
      FAILED(point->Advise(sink.Get(), &cookie))) {
    return Failed("listening");
  }
  for (const LONG key : kKeys) {
    OwnedVariant accepted;
    if (FAILED(Invoke(session.Get(), L"SendKey", {Number(key)}, &accepted))) {
      return Failed("pressing a key");
    }
    sink->events = 0;
    PumpMessages();
    std::printf("%ld: %s, %d events\n", key, V_BOOL(&accepted) != VARIANT_FALSE ? "accepted" : "refused", sink->events);
  }
  sink->response = {};
  return SUCCEEDED(point->Unadvise(cookie)) ? 0 : Failed("listening no more");
}

int SendRounds() {
  constexpr int kRounds = 200;
  for (int round = 1; round <= kRounds; ++round) {
    const Reference<IDispatch> session = NewSession();
    const std::wstring number = L"DO" + std::to_wstring(round);
    OwnedString entry(TextOf(std::wstring_view(number)));
    VARIANT transmit = OfType(VT_BOOL);
    V_BOOL(&transmit) = VARIANT_TRUE;
    OwnedVariant response;
    if (!session || FAILED(Invoke(session.Get(), L"Send", {String(entry.Get()), transmit}, &response))) {
      return Failed("sending");
    }
  }
  return 0;
}

int Talk(bool leaves) {
  const Reference<IDispatch> session = NewSession();
  if (!session) {
    return Failed("creation");
  }
  OwnedString entry(u"AN15JUNPARLON");
  VARIANT transmit = OfType(VT_BOOL);
  V_BOOL(&transmit) = VARIANT_TRUE;
  OwnedVariant response;
  OwnedVariant buffer;
  if (FAILED(Invoke(session.Get(), L"Send", {String(entry.Get()), transmit}, &response)) ||
      FAILED(Invoke(V_DISPATCH(&response), L"Buffer", {}, &buffer))) {
    return Failed("sending");
  }
  std::printf("%u characters\n", SysStringLen(V_BSTR(&buffer)));
  if (leaves) {
    std::fflush(stdout);
    ExitProcess(0);
  }
  return 0;
}

}  // namespace

int main(int count, char** words) {
  const auto isAsked = [&](const char* way) { return count > 1 && std::strcmp(words[1], way) == 0; };
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int status = isAsked("keys") ? PressKeys() : isAsked("rounds") ? SendRounds() : Talk(isAsked("leave"));
  CoUninitialize();
  return status;
}
