// What a program meets that loads the DLLs: they stay. A DLL is
// loaded for the first time once in a process, so each of these tests runs in a process of its own, as CTest runs them.
#include "desktop_fixture.h"

namespace wendrill::com::testing {
namespace {

constexpr const wchar_t* kDlls[] = {L"Wendrill23.dll", L"QuilletSimulator.dll"};

void RequireAFreshProcess() {
  for (const wchar_t* dll : kDlls) {
    ASSERT_EQ(nullptr, GetModuleHandleW(dll)) << "run this test alone: --gtest_filter";
  }
}

HRESULT CanUnload(const wchar_t* dll) {
  using Function = HRESULT(WINAPI*)();
  const auto address = GetProcAddress(GetModuleHandleW(dll), "DllCanUnloadNow");
  return reinterpret_cast<Function>(reinterpret_cast<void*>(address))();
}

TEST(Loading, IsForGoodWithoutAnyCall) {
  RequireAFreshProcess();
  for (const wchar_t* dll : kDlls) {
    const HMODULE loaded = LoadLibraryW(dll);
    ASSERT_NE(nullptr, loaded);
    FreeLibrary(loaded);
    EXPECT_EQ(loaded, GetModuleHandleW(dll));
  }
}

TEST(Loading, IsForGoodAndWhatLivesIsStillTold) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  Reference<_CQueue> queue;
  Reference<_ParamBag> bag;
  ASSERT_EQ(S_OK, CoCreateInstance(CLSID_CQueue, nullptr, CLSCTX_INPROC_SERVER, IID__CQueue, queue.ReceiveVoid()));
  ASSERT_EQ(S_OK, CoCreateInstance(CLSID_ParamBag, nullptr, CLSCTX_INPROC_SERVER, IID__ParamBag, bag.ReceiveVoid()));
  for (const wchar_t* dll : kDlls) {
    EXPECT_EQ(S_FALSE, CanUnload(dll));
  }
  queue = {};
  bag = {};
  for (const wchar_t* dll : kDlls) {
    EXPECT_EQ(S_OK, CanUnload(dll));
  }
  CoUninitialize();
  for (const wchar_t* dll : kDlls) {
    EXPECT_NE(nullptr, GetModuleHandleW(dll));
  }
}

}  // namespace
}  // namespace wendrill::com::testing
