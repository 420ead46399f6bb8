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

// Keeps this DLL loaded until the process ends. At each load the tool chain's run time takes a thread-local index that
// it never gives back: the process would end at about the 1,080th load. Pinned here and not at the first creation,
// because programs also load the DLL without creating anything.
void StayLoaded(HINSTANCE instance) {
  HMODULE pinned = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<LPCWSTR>(instance), &pinned);
}

// What an earlier failure left on the thread is not the reason of this one.
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
  // Nothing else belongs here: objects of other servers must not be touched while the loader holds its lock.
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

// True to what lives, although the DLL stays loaded whatever it answers: a way to see whether anything was left behind.
HRESULT WINAPI DllCanUnloadNow() {
  return wendrill::com::CanUnload() ? S_OK : S_FALSE;
}

HRESULT WINAPI DllRegisterServer() {
  return GuardedAndLogged([] { wendrill::com::RegisterServer(RegistrationScope::Machine); });
}

HRESULT WINAPI DllUnregisterServer() {
  return GuardedAndLogged([] { wendrill::com::UnregisterServer(RegistrationScope::Machine); });
}

// regsvr32 /n /i:WORD,WORD...
HRESULT WINAPI DllInstall(BOOL install, LPCWSTR words) {
  return GuardedAndLogged([&] { wendrill::com::InstallServer(install != FALSE, words); });
}

}  // extern "C"
