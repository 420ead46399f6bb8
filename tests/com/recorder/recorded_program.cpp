// A program that knows nothing of a recording: it sends an entry and reads the answer.
//
//   recorded_program.exe release    lets go of every object before it ends
//   recorded_program.exe leave      ends while it holds them
#include <cstdio>
#include <cstring>

#include "com/server/automation_types.h"
#include "late_calls.h"

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

int Talk(bool leaves) {
  CLSID id;
  Reference<IDispatch> session;
  if (FAILED(CLSIDFromProgID(L"kzuHostToolKit.HostSession", &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, session.ReceiveVoid()))) {
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
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int status = Talk(count > 1 && std::strcmp(words[1], "leave") == 0);
  CoUninitialize();
  return status;
}
