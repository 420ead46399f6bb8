// The five functions that an automation DLL exports.

#include <windows.h>

#include "com/server/boundary.h"
#include "com/server/class_factory.h"
#include "com/server/module.h"
#include "com/server/registration.h"
#include "com/server/registration_log.h"

using wendrill::com::Guarded;
using wendrill::com::RegistrationScope;

namespace {

// Keeps this DLL loaded until the process ends. At each load of the DLL, the run time of the tool chain allocates a
// thread-local storage index, which it never frees. A process that loads and unloads the DLL repeatedly would run out
// of these indexes and end at about the 1,080th load. The DLL is pinned when it is loaded, not when it first creates an
// object, because some programs load the DLL without creating an object.
void StayLoaded(HINSTANCE instance) {
  HMODULE pinned = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<LPCWSTR>(instance), &pinned);
}

// Runs `work` inside the exception boundary and writes a failure to the registration log. Clears the thread's error
// information first, so that the log does not report an earlier failure.
template <typename Work>
HRESULT GuardedAndLogged(Work&& work) noexcept {
  SetErrorInfo(0, nullptr);
  const HRESULT status = Guarded(work);
  if (FAILED(status)) {
    wendrill::com::LogRefusal(status);
  }
  return status;
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  // processEnds must not call objects of other servers, because the system holds the loader lock during DllMain.
  if (reason == DLL_PROCESS_DETACH && wendrill::com::kServer.processEnds != nullptr) {
    wendrill::com::kServer.processEnds();
  }
  if (reason == DLL_PROCESS_ATTACH) {
    StayLoaded(instance);
    wendrill::com::SetModuleInstance(instance);
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

HRESULT WINAPI DllGetClassObject(REFCLSID id, REFIID wanted, LPVOID* object) {
  return wendrill::com::ClassObjectOf(id, wanted, object);
}

// Returns S_FALSE while an object or a class factory is live or a lock of IClassFactory::LockServer is held, otherwise
// S_OK. The DLL stays loaded in any case; tests use the result to detect leaked objects.
HRESULT WINAPI DllCanUnloadNow() {
  return wendrill::com::CanUnload() ? S_OK : S_FALSE;
}

HRESULT WINAPI DllRegisterServer() {
  return GuardedAndLogged([] { wendrill::com::RegisterServer(RegistrationScope::Machine); });
}

HRESULT WINAPI DllUnregisterServer() {
  return GuardedAndLogged([] { wendrill::com::UnregisterServer(RegistrationScope::Machine); });
}

// Called by regsvr32 /n /i:WORD,WORD... with the text after /i: in `words`.
HRESULT WINAPI DllInstall(BOOL install, LPCWSTR words) {
  return GuardedAndLogged([&] { wendrill::com::InstallServer(install != FALSE, words); });
}

}  // extern "C"
