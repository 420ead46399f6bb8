#include "short_memory.h"

#include <objidl.h>
#include <ole2.h>
#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace wendrill::com::testing {
namespace {

std::atomic<long> requestsLeft{0};  // until the one that fails; 0: no shortage, or it is over
std::atomic<bool> lasting{false};
std::atomic<bool> failing{false};
std::atomic<long> ownBlocks{0};
std::atomic<long> automationBlocks{0};

// Whether the request that is being made fails.
bool RunsShort() {
  if (failing && lasting) {
    return true;
  }
  if (requestsLeft == 0 || --requestsLeft != 0) {
    return false;
  }
  failing = true;
  return true;
}

// Automation strings and arrays are the system's task memory.
class BlockCounter final : public IMallocSpy {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IMallocSpy;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }  // as long as the process
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override {
    automationBlocks += block != nullptr ? 1 : 0;
    return block;
  }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL counted) override {
    automationBlocks -= block != nullptr && counted != FALSE ? 1 : 0;
    return block;
  }
  void STDMETHODCALLTYPE PostFree(BOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** changed, BOOL counted) override {
    *changed = block;
    automationBlocks -= block != nullptr && counted != FALSE ? 1 : 0;
    return size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return PostAlloc(block); }
  void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
  int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int allocated) override { return allocated; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}
};

BlockCounter blockCounter;

// The system's own function of that name.
template <typename Function>
Function* Genuine(const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), name)));
}

#define GENUINE(function) Genuine<decltype(function)>(#function)

BSTR WINAPI ShortSysAllocString(const OLECHAR* text) {
  static auto* const genuine = GENUINE(SysAllocString);
  return RunsShort() ? nullptr : genuine(text);
}

BSTR WINAPI ShortSysAllocStringLen(const OLECHAR* text, UINT length) {
  static auto* const genuine = GENUINE(SysAllocStringLen);
  return RunsShort() ? nullptr : genuine(text, length);
}

SAFEARRAY* WINAPI ShortSafeArrayCreateVector(VARTYPE type, LONG lower, ULONG count) {
  static auto* const genuine = GENUINE(SafeArrayCreateVector);
  return RunsShort() ? nullptr : genuine(type, lower, count);
}

HRESULT WINAPI ShortVariantChangeType(VARIANTARG* target, VARIANTARG* source, USHORT flags, VARTYPE type) {
  static auto* const genuine = GENUINE(VariantChangeType);
  return type == VT_BSTR && RunsShort() ? E_OUTOFMEMORY : genuine(target, source, flags, type);
}

HRESULT WINAPI ShortVariantChangeTypeEx(VARIANTARG* target, VARIANTARG* source, LCID locale, USHORT flags,
                                        VARTYPE type) {
  static auto* const genuine = GENUINE(VariantChangeTypeEx);
  return type == VT_BSTR && RunsShort() ? E_OUTOFMEMORY : genuine(target, source, locale, flags, type);
}

HRESULT WINAPI ShortVariantCopyInd(VARIANT* target, VARIANTARG* source) {
  static auto* const genuine = GENUINE(VariantCopyInd);
  return RunsShort() ? E_OUTOFMEMORY : genuine(target, source);
}

HRESULT WINAPI ShortCreateErrorInfo(ICreateErrorInfo** information) {
  static auto* const genuine = GENUINE(CreateErrorInfo);
  return RunsShort() ? E_OUTOFMEMORY : genuine(information);
}

}  // namespace

ShortMemory::ShortMemory(long nth, Shortage shortage) {
  failing = false;
  lasting = shortage == Shortage::Lasting;
  requestsLeft = nth;
}

ShortMemory::~ShortMemory() {
  End();
}

bool ShortMemory::End() {
  requestsLeft = 0;
  lasting = false;
  return failing;
}

void WatchMemory() {
  // Strings that were freed would be kept for the next ones.
  reinterpret_cast<void(WINAPI*)()>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache")))();
  CoRegisterMallocSpy(&blockCounter);
}

BlocksInUse CountBlocks() {
  return {ownBlocks, automationBlocks};
}

}  // namespace wendrill::com::testing

// What the program imports is called through these pointers; the import library's own stay out.
extern "C" {
#define IMPORT(function, bytes)                                                  \
  extern void* const imported##function __asm__("__imp__" #function "@" #bytes); \
  void* const imported##function = reinterpret_cast<void*>(&wendrill::com::testing::Short##function)
IMPORT(SysAllocString, 4);
IMPORT(SysAllocStringLen, 8);
IMPORT(SafeArrayCreateVector, 12);
IMPORT(VariantChangeType, 16);
IMPORT(VariantChangeTypeEx, 20);
IMPORT(VariantCopyInd, 8);
IMPORT(CreateErrorInfo, 4);
#undef IMPORT
}

void* operator new(std::size_t size) {
  void* const block = wendrill::com::testing::RunsShort() ? nullptr : std::malloc(size != 0 ? size : 1);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  ++wendrill::com::testing::ownBlocks;
  return block;
}

void operator delete(void* block) noexcept {
  wendrill::com::testing::ownBlocks -= block != nullptr ? 1 : 0;
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  operator delete(block);
}
