// Arguments of every type and count for every member that the type library publishes. Each call ends with a status;
// nothing crashes, hangs or leaks.
#include "hostile_values.h"

#include "every_object.h"
#include "published_slots.h"

namespace wendrill::com::testing {
namespace {

using HostileArguments = EveryObject;

// A failure that came as an exception tells who failed and why.
void ExpectTold(HRESULT status, EXCEPINFO& exception) {
  if (status == DISP_E_EXCEPTION) {
    EXPECT_NE(0U, SysStringLen(exception.bstrSource));
    EXPECT_NE(0U, SysStringLen(exception.bstrDescription));
    EXPECT_TRUE(FAILED(exception.scode));
  }
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
}

void CallLate(IDispatch* object, DISPID id, WORD flags, LateArguments& arguments) {
  DISPID put = DISPID_PROPERTYPUT;
  std::vector<VARIANT>& passed = arguments.Passed();
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 && !passed.empty();
  DISPPARAMS parameters{passed.data(), isPut ? &put : nullptr, static_cast<UINT>(passed.size()), isPut ? 1U : 0U};
  OwnedVariant result;
  EXCEPINFO exception{};
  const HRESULT status =
      object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &result, &exception, nullptr);
  ExpectTold(status, exception);
}

TEST_F(HostileArguments, LateBoundMembersTakeArgumentsOfEveryTypeAndCount) {
  Reference<IUnknown> noDispatch;
  {
    Reference<IUnknown> enumerator;
    ASSERT_EQ(S_OK, Create<_CQueue>(CLSID_CQueue)->get_NewEnum(enumerator.Receive()));
    noDispatch = std::move(enumerator);
  }
  const auto values = HostileValues(bag_.Get(), noDispatch.Get());
  for (const auto& object : objects_) {
    for (const Slot& slot : PublishedSlots(object.Get())) {
      auto* name = const_cast<LPOLESTR>(slot.name.c_str());
      DISPID id = DISPID_UNKNOWN;
      ASSERT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, &name, 1, 0, &id));
      const WORD flags =
          slot.kind == INVOKE_FUNC ? DISPATCH_METHOD | DISPATCH_PROPERTYGET : static_cast<WORD>(slot.kind);
      for (const auto& [what, make] : values) {
        SCOPED_TRACE(Narrow(slot.name) + " with " + what);
        for (const Passing passing : {Passing::ByValue, Passing::AsVariable, Passing::ByReference}) {
          for (std::size_t count = 0; count <= slot.parameters.size() + 1; ++count) {
            LateArguments arguments(count, make, passing);
            CallLate(object.Get(), id, flags, arguments);
          }
        }
        Reconnect();
      }
    }
  }
}

// The only parameters that take any value as it is, without a late-bound call's conversions in front.
TEST_F(HostileArguments, TakeAnyValueForAnIndexOfAQueue) {
  const auto queue = Create<_CQueue>(CLSID_CQueue);
  const Text entry(L"JD");
  BSTR passed = entry;
  Reference<_CQuillet> added;
  ASSERT_EQ(S_OK, queue->Add(&passed, nullptr, added.Receive()));
  Reference<IUnknown> noDispatch;
  ASSERT_EQ(S_OK, queue->get_NewEnum(noDispatch.Receive()));
  for (const auto& [what, make] : HostileValues(bag_.Get(), noDispatch.Get())) {
    SCOPED_TRACE(what);
    LateArguments arguments(1, make, Passing::ByValue);
    Reference<_CQuillet> found;
    EXPECT_TRUE(FAILED(queue->Item(arguments.Passed().front(), found.Receive())));
    EXPECT_TRUE(FAILED(queue->Remove(arguments.Passed().front())));
  }
}

}  // namespace
}  // namespace wendrill::com::testing
