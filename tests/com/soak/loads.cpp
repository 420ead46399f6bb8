#include "loads.h"

#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "growth.h"
#include "soak_desk.h"

namespace wendrill::soak {
namespace {

constexpr int kWarmUp = 20;

// A DLL as a client has it that knows nothing of COM's own loading.
class LoadedDll {
 public:
  explicit LoadedDll(const wchar_t* name) : module_(LoadLibraryW(name)) {
    if (module_ == nullptr) {
      throw std::runtime_error("a DLL cannot be loaded: error " + std::to_string(GetLastError()));
    }
  }
  ~LoadedDll() { FreeLibrary(module_); }
  LoadedDll(const LoadedDll&) = delete;
  LoadedDll& operator=(const LoadedDll&) = delete;

  template <typename Interface>
  Reference<Interface> Create(const CLSID& id) const {
    using ClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, LPVOID*);
    Reference<IClassFactory> factory;
    Reference<Interface> object;
    if (FAILED(Function<ClassObject>("DllGetClassObject")(id, IID_IClassFactory, factory.ReceiveVoid())) ||
        FAILED(factory->CreateInstance(nullptr, __uuidof(Interface), object.ReceiveVoid()))) {
      throw std::runtime_error("an object cannot be created");
    }
    return object;
  }

 private:
  template <typename Signature>
  Signature Function(const char* name) const {
    return reinterpret_cast<Signature>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

  HMODULE module_;
};

constexpr wchar_t kLibrary[] = L"Wendrill23.dll";
constexpr wchar_t kSimulator[] = L"QuilletSimulator.dll";

// Each failure is an exception inside the DLL and leaves its error on the thread, which is taken.
void RequireFailure(HRESULT status) {
  Reference<IErrorInfo> information;
  if (SUCCEEDED(status) || GetErrorInfo(0, information.Receive()) != S_OK) {
    throw std::runtime_error("a call that has to fail did not, or left no error");
  }
}

void LoadBoth() {
  const LoadedDll library(kLibrary);
  const LoadedDll simulator(kSimulator);
}

void LoadBothAndFail() {
  const LoadedDll library(kLibrary);
  const LoadedDll simulator(kSimulator);
  Reference<_CQuillet> found;
  VARIANT position{};
  V_VT(&position) = VT_I4;
  V_I4(&position) = 1;
  RequireFailure(library.Create<_CQueue>(CLSID_CQueue)->Item(position, found.Receive()));
  RequireFailure(simulator.Create<_Control>(CLSID_Control)->LoadText(Text(L"no scenario")));
}

bool Repeat(const char* what, int times, void (*load)()) {
  std::printf("%d loads and unloads %s\n", times, what);
  std::fflush(stdout);
  for (int warm = 0; warm < kWarmUp; ++warm) {
    load();
  }
  const Memory before = MemoryNow();
  for (int time = 0; time < times; ++time) {
    load();
  }
  return NothingLeftBehind(before, MemoryNow(), LiveIn(kLibrary) + LiveIn(kSimulator));
}

}  // namespace

bool LoadAndUnload(int times) {
  return Repeat("without any call", times, LoadBoth) && Repeat("with a failing call each", times, LoadBothAndFail);
}

}  // namespace wendrill::soak
