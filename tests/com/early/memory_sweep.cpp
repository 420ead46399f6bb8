#include "memory_sweep.h"

#include <algorithm>

#include "com/server/module.h"

namespace wendrill::com::testing {
namespace {

// A result as it is compared: texts and numbers as text, objects as one.
std::wstring Described(VARIANT& result) {
  if (V_VT(&result) == VT_DISPATCH || V_VT(&result) == VT_UNKNOWN) {
    return V_UNKNOWN(&result) == nullptr ? L"Nothing" : L"an object";
  }
  OwnedVariant text;
  return SUCCEEDED(VariantChangeType(&text, &result, 0, VT_BSTR))
             ? std::wstring(V_BSTR(&text), SysStringLen(V_BSTR(&text)))
             : L"";
}

}  // namespace

HRESULT Late(IDispatch* object, DISPID id, std::span<VARIANT> arguments, VARIANT* result, WORD flags) {
  std::reverse(arguments.begin(), arguments.end());
  DISPID value = DISPID_PROPERTYPUT;
  const bool isPut = flags == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters{arguments.data(), isPut ? &value : nullptr, static_cast<UINT>(arguments.size()),
                        isPut ? 1U : 0U};
  EXCEPINFO exception{};
  const HRESULT status = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, isPut ? nullptr : result,
                                        &exception, nullptr);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  return status == DISP_E_EXCEPTION ? exception.scode : status;
}

HRESULT Late(IDispatch* object, const wchar_t* name, std::span<VARIANT> arguments, VARIANT* result, WORD flags) {
  auto* asked = const_cast<LPOLESTR>(name);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT status = object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id);
  return FAILED(status) ? status : Late(object, id, arguments, result, flags);
}

BlocksInUse MemorySweep::AtRest() {
  EXPECT_EQ(0, LiveObjects());
  EXPECT_TRUE(CanUnload());
  return CountBlocks();
}

MemorySweep::Outcome MemorySweep::Call(const SweptCall& swept, long nth, Shortage shortage) {
  VariantClear(swept.result);
  ShortMemory memory(nth, shortage);
  Outcome outcome;
  outcome.status = swept.call();
  outcome.struck = memory.End();
  if (SUCCEEDED(outcome.status)) {
    outcome.result = Described(*swept.result);
  }
  TakeError();
  return outcome;
}

bool MemorySweep::Fail(long nth, Shortage shortage, const std::wstring& expected) {
  SCOPED_TRACE("request " + std::to_string(nth) + (shortage == Shortage::Once ? "" : " and every later one"));
  const SweptCall swept = Prepare();
  const Outcome outcome = Call(swept, nth, shortage);
  if (FAILED(outcome.status)) {
    EXPECT_TRUE(outcome.struck);
    EXPECT_TRUE(MayFailWith(outcome.status)) << std::hex << outcome.status;
    const Outcome next = CallUndisturbed(swept);
    EXPECT_EQ(S_OK, next.status) << "the next call";
    EXPECT_EQ(expected, next.result) << "the next call";
  } else {
    EXPECT_EQ(expected, outcome.result) << "of a call that did without the memory";
  }
  return outcome.struck;
}

int MemorySweep::Sweep() {
  {
    const SweptCall swept = Prepare();
    SCOPED_TRACE("before anything is counted");  // which makes what the test framework keeps
    // What is made once in a process is made under shortage, too.
    for (long nth = 1; Call(swept, nth, Shortage::Once).struck && nth < 3; ++nth) {
    }
  }
  std::wstring expected;
  {
    const Outcome outcome = CallUndisturbed(Prepare());
    EXPECT_EQ(S_OK, outcome.status);
    expected = outcome.result;
  }
  int requests = 0;
  BlocksInUse before = AtRest();
  for (const Shortage shortage : {Shortage::Once, Shortage::Lasting}) {
    long nth = 1;
    while (!HasFailure() && Fail(nth, shortage, expected)) {
      const BlocksInUse after = AtRest();
      if (after != before) {
        // Adapters' memory is kept for the next ones, once; what is lost is lost again.
        Fail(nth, shortage, expected);
        const BlocksInUse again = AtRest();
        EXPECT_EQ(after.own, again.own) << "request " << nth << " leaves blocks of memory";
        EXPECT_EQ(after.automation, again.automation) << "request " << nth << " leaves strings or arrays";
        before = after;
      }
      ++nth;
    }
    requests = shortage == Shortage::Once ? static_cast<int>(nth) - 1 : requests;
  }
  return requests;
}

}  // namespace wendrill::com::testing
