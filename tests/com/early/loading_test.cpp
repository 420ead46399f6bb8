// What a program meets that loads the DLLs: they stay, and raise their errors whatever else the program holds. A DLL is
// loaded for the first time once in a process, so each of these tests runs in a process of its own, as CTest runs them.
#include <filesystem>

#include "desktop_fixture.h"
#include "late_calls.h"

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

// --- Beside another unwinder ----------------------------------------------------------------------------------------

#ifdef FOREIGN_UNWINDER

void LoadForeignUnwinder() {
  const std::filesystem::path file = std::filesystem::path(FOREIGN_UNWINDER).make_preferred();
  ASSERT_NE(nullptr, LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) << file;
  ASSERT_NE(nullptr, GetModuleHandleW(L"libgcc_s_dw2-1.dll"));
}

// An error of either DLL is an exception inside, which the unwinder has to bring to the border.
void ExpectErrorsToArrive() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  {
    Reference<_CQueue> queue;
    ASSERT_EQ(S_OK, CoCreateInstance(CLSID_CQueue, nullptr, CLSCTX_INPROC_SERVER, IID__CQueue, queue.ReceiveVoid()));
    Reference<_CQuillet> found;
    EXPECT_OWN_ERROR(5, queue->Item(Number(1), found.Receive()));
    Reference<_Control> control;
    ASSERT_EQ(S_OK,
              CoCreateInstance(CLSID_Control, nullptr, CLSCTX_INPROC_SERVER, IID__Control, control.ReceiveVoid()));
    EXPECT_TRUE(FAILED(control->LoadText(Text(L"no scenario"))));
    EXPECT_NE(L"", TakeError().description);
  }
  CoUninitialize();
}

TEST(Loading, AfterAForeignUnwinderErrorsArrive) {
  RequireAFreshProcess();
  LoadForeignUnwinder();
  ExpectErrorsToArrive();
}

TEST(Loading, OnceBeforeAndOnceAfterAForeignUnwinderErrorsArrive) {
  RequireAFreshProcess();
  for (const wchar_t* dll : kDlls) {
    FreeLibrary(LoadLibraryW(dll));
  }
  LoadForeignUnwinder();
  ExpectErrorsToArrive();
}

TEST(Loading, BeforeAForeignUnwinderErrorsArriveThen) {
  RequireAFreshProcess();
  ExpectErrorsToArrive();
  LoadForeignUnwinder();
  ExpectErrorsToArrive();
}

#endif

}  // namespace
}  // namespace wendrill::com::testing
