// The five functions that an automation DLL exports.

#include <windows.h>

#include <cwchar>

#include "com/server/boundary.h"
#include "com/server/class_factory.h"
#include "com/server/module.h"
#include "com/server/registration.h"

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
  return Guarded([] { return wendrill::com::RegisterServer(RegistrationScope::Machine); });
}

HRESULT WINAPI DllUnregisterServer() {
  return Guarded([] { return wendrill::com::UnregisterServer(RegistrationScope::Machine); });
}

// regsvr32 /n /i:user registers for the current user alone; any other text is refused.
HRESULT WINAPI DllInstall(BOOL install, LPCWSTR scopeName) {
  return Guarded([&]() -> HRESULT {
    const bool forUser = scopeName != nullptr && _wcsicmp(scopeName, L"user") == 0;
    const bool forMachine = scopeName == nullptr || *scopeName == L'\0' || _wcsicmp(scopeName, L"machine") == 0;
    if (!forUser && !forMachine) {
      return E_INVALIDARG;
    }
    const RegistrationScope scope = forUser ? RegistrationScope::User : RegistrationScope::Machine;
    return install != FALSE ? wendrill::com::RegisterServer(scope) : wendrill::com::UnregisterServer(scope);
  });
}

}  // extern "C"
