// Callers without manners: every slot of every interface with null pointers, every member with arguments of every type
// and count. Each call ends with a status; nothing crashes, hangs or leaks.
//
// The members come from the type library, so that a new one is called here without anybody's thinking of it.
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>

#include "common/text.h"
#include "desktop_fixture.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }]

[[pnr]]
RecordLocator = "ABC123"
on_display = true
display = '''
RP/PARXX0100/PARXX0100
 10 SSR VGML AF HK1/S5/P1
'''

[[pnr.Names]]
Text = "1.SMITH/JOHN MR(ADT)"
ElementNo = "1"
)toml";

// --- What the type library says
// ------------------------------------------------------------------------------------------

// A member of an interface as its slot takes it.
struct Slot {
  std::wstring name;
  ULONG offset = 0;  // of the slot, in bytes
  INVOKEKIND kind = INVOKE_FUNC;
  struct Parameter {
    VARTYPE type = VT_EMPTY;     // VT_PTR for every pointer
    VARTYPE pointee = VT_EMPTY;  // VT_PTR: a pointer to an interface
    bool isResult = false;
  };
  std::vector<Parameter> parameters = {};
};

Slot::Parameter ParameterOf(const ELEMDESC& description) {
  Slot::Parameter parameter;
  parameter.type = description.tdesc.vt;
  parameter.isResult = (description.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
  if (parameter.type == VT_PTR) {
    parameter.pointee = description.tdesc.lptdesc->vt;
  }
  return parameter;
}

std::wstring NameOf(ITypeInfo* type, MEMBERID id) {
  Text name;
  EXPECT_EQ(S_OK, type->GetDocumentation(id, name.Receive(), nullptr, nullptr, nullptr));
  return name.Wide();
}

// The interface behind an object's description, which describes the late-bound half of it.
Reference<ITypeInfo> SlotsOf(IDispatch* object) {
  Reference<ITypeInfo> lateBound;
  EXPECT_EQ(S_OK, object->GetTypeInfo(0, LOCALE_USER_DEFAULT, lateBound.Receive()));
  HREFTYPE reference = 0;
  EXPECT_EQ(S_OK, lateBound->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  Reference<ITypeInfo> slots;
  EXPECT_EQ(S_OK, lateBound->GetRefTypeInfo(reference, slots.Receive()));
  return slots;
}

std::vector<Slot> PublishedSlots(IDispatch* object) {
  const Reference<ITypeInfo> type = SlotsOf(object);
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(S_OK, type->GetTypeAttr(&attributes));
  std::vector<Slot> slots;
  for (UINT index = 0; index < attributes->cFuncs; ++index) {
    FUNCDESC* function = nullptr;
    EXPECT_EQ(S_OK, type->GetFuncDesc(index, &function));
    Slot slot{.name = NameOf(type.Get(), function->memid),
              .offset = static_cast<ULONG>(function->oVft),
              .kind = function->invkind};
    for (SHORT parameter = 0; parameter < function->cParams; ++parameter) {
      slot.parameters.push_back(ParameterOf(function->lprgelemdescParam[parameter]));
    }
    slots.push_back(std::move(slot));
    type->ReleaseFuncDesc(function);
  }
  type->ReleaseTypeAttr(attributes);
  return slots;
}

// --- Calling a slot
// ------------------------------------------------------------------------------------------------------

// The arguments of one call of a slot: room for what the slot hands out, and what is passed by value.
class SlotArguments {
 public:
  // `nullAt`: which pointers are null.
  SlotArguments(const Slot& slot, IDispatch* bag, const std::function<bool(std::size_t)>& nullAt)
      : slot_(slot), values_(slot.parameters.size()), rooms_(slot.parameters.size()) {
    for (std::size_t index = 0; index < values_.size(); ++index) {
      Fill(index, bag, nullAt(index));
    }
  }
  ~SlotArguments() {
    for (std::size_t index = 0; index < rooms_.size(); ++index) {
      Clear(index);
    }
  }
  SlotArguments(const SlotArguments&) = delete;
  SlotArguments& operator=(const SlotArguments&) = delete;

  HRESULT Call(IDispatch* object) {
    std::vector<VARTYPE> types;
    std::vector<VARIANTARG*> pointers;
    for (std::size_t index = 0; index < values_.size(); ++index) {
      types.push_back(TypeOnStack(slot_.parameters[index].type));
      pointers.push_back(&values_[index]);
    }
    OwnedVariant status;
    EXPECT_EQ(S_OK, DispCallFunc(object, slot_.offset, CC_STDCALL, VT_I4, static_cast<UINT>(types.size()), types.data(),
                                 pointers.data(), &status));
    return V_I4(&status);
  }

 private:
  static VARTYPE TypeOnStack(VARTYPE type) {
    switch (type) {
      case VT_I2:
      case VT_BOOL:
        return VT_I2;
      case VT_VARIANT:
        return VT_VARIANT;
      default:
        return VT_I4;  // pointers, strings, numbers
    }
  }

  void Fill(std::size_t index, IDispatch* bag, bool isNull) {
    const Slot::Parameter& parameter = slot_.parameters[index];
    VariantInit(&values_[index]);
    VariantInit(&rooms_[index]);
    if (isNull || parameter.type == VT_VARIANT) {
      return;
    }
    if (parameter.type == VT_BSTR) {
      V_BSTR(&rooms_[index]) = SysAllocString(L"JD");
      V_BSTR(&values_[index]) = V_BSTR(&rooms_[index]);
    } else if (parameter.type == VT_PTR) {
      // In and out: the bag in front of every object parameter.
      if (!parameter.isResult && (parameter.pointee == VT_PTR || parameter.pointee == VT_DISPATCH)) {
        V_DISPATCH(&rooms_[index]) = bag;
        bag->AddRef();
      }
      const bool wholeVariant = parameter.pointee == VT_VARIANT;
      V_BYREF(&values_[index]) = wholeVariant ? static_cast<void*>(&rooms_[index]) : &V_BYREF(&rooms_[index]);
    }
  }

  void Clear(std::size_t index) {
    const Slot::Parameter& parameter = slot_.parameters[index];
    VARIANT& room = rooms_[index];
    if (parameter.type == VT_BSTR || parameter.pointee == VT_BSTR) {
      SysFreeString(V_BSTR(&room));
    } else if (parameter.pointee == VT_VARIANT) {
      VariantClear(&room);
    } else if (parameter.pointee == VT_SAFEARRAY) {
      SafeArrayDestroy(V_ARRAY(&room));
    } else if ((parameter.pointee == VT_PTR || parameter.pointee == VT_DISPATCH || parameter.pointee == VT_UNKNOWN) &&
               V_UNKNOWN(&room) != nullptr) {
      V_UNKNOWN(&room)->Release();
    }
  }

  const Slot& slot_;
  std::vector<VARIANT> values_;
  std::vector<VARIANT> rooms_;
};

// --- The desktop
// -----------------------------------------------------------------------------------------------------------

// One object of every interface that the library publishes, on a desktop with a PNR.
class HostileSlots : public Desktop {
 protected:
  void SetUp() override {
    Load(kScenario);
    quillet_ = CreateQuillet();
    VARIANT_BOOL found = VARIANT_FALSE;
    ASSERT_EQ(S_OK, quillet_->RetrieveRecLoc(Text(L"ABC123"), &found));
    bag_ = Create<_ParamBag>(CLSID_ParamBag);
    const auto pnr = Create<_CPNR>(CLSID_CPNR);
    objects_ = {quillet_.As<IDispatch>(),
                Adopted(pnr.As<_CPNR>().Release()),
                Adopted(pnr.As<_IGet>().Release()),
                Adopted(pnr.As<_IGetPNR>().Release()),
                Create<IDispatch>(CLSID_CQueue),
                Create<IDispatch>(CLSID_CBatch),
                Create<IDispatch>(CLSID_CEncodeUtils),
                Create<IDispatch>(CLSID_IGet),
                Create<IDispatch>(CLSID_IGetPNR)};
  }

  void TearDown() override {
    objects_.clear();
    bag_ = {};
    quillet_ = {};
    Desktop::TearDown();
  }

  // A pointer to an interface that derives from IDispatch, as that very pointer: asking the object would give its
  // default interface.
  static Reference<IDispatch> Adopted(IDispatch* pointer) { return Reference<IDispatch>::Adopt(pointer); }

  // StopLoop is among the members.
  void Reconnect() {
    EXPECT_EQ(S_OK, quillet_->ConnectSession(Text(L"A")));
    Journal();
  }

  Reference<_CQuillet> quillet_;
  Reference<_ParamBag> bag_;
  std::vector<Reference<IDispatch>> objects_;
};

std::string Narrow(const std::wstring& text) {
  return ToUtf8(TextOf(std::wstring_view(text)));
}

constexpr std::size_t kPublishedMembers = 110 + 21;  // the members of IGet and IGetPNR twice: CPNR's and the empty ones

// --- Slots
// -------------------------------------------------------------------------------------------------------------------

TEST_F(HostileSlots, RefuseNullForTheirResults) {
  std::size_t members = 0;
  for (const auto& object : objects_) {
    for (const Slot& slot : PublishedSlots(object.Get())) {
      SCOPED_TRACE(Narrow(slot.name));
      ++members;
      SlotArguments arguments(slot, bag_.Get(), [](std::size_t) { return true; });
      const HRESULT status = arguments.Call(object.Get());
      const bool hasResult = !slot.parameters.empty() && slot.parameters.back().isResult;
      if (hasResult) {
        EXPECT_EQ(E_POINTER, status);
      }
      Reconnect();
    }
  }
  EXPECT_EQ(kPublishedMembers, members);
}

TEST_F(HostileSlots, TakeNullForEachOfTheirPointersInTurn) {
  for (const auto& object : objects_) {
    for (const Slot& slot : PublishedSlots(object.Get())) {
      for (std::size_t index = 0; index < slot.parameters.size(); ++index) {
        SCOPED_TRACE(Narrow(slot.name) + ", parameter " + std::to_string(index));
        SlotArguments arguments(slot, bag_.Get(), [index](std::size_t at) { return at == index; });
        const HRESULT status = arguments.Call(object.Get());
        if (slot.parameters[index].isResult) {
          EXPECT_EQ(E_POINTER, status);
        }
        Reconnect();
      }
    }
  }
}

TEST_F(HostileSlots, WorkWithAllTheirPointers) {
  for (const auto& object : objects_) {
    for (const Slot& slot : PublishedSlots(object.Get())) {
      SCOPED_TRACE(Narrow(slot.name));
      SlotArguments arguments(slot, bag_.Get(), [](std::size_t) { return false; });
      arguments.Call(object.Get());
      Reconnect();
    }
  }
}

TEST_F(HostileSlots, OfIDispatchAndIUnknownRefuseNull) {
  for (const auto& object : objects_) {
    EXPECT_EQ(E_POINTER, object->QueryInterface(IID_IUnknown, nullptr));
    EXPECT_EQ(E_POINTER, object->GetTypeInfoCount(nullptr));
    EXPECT_EQ(E_POINTER, object->GetTypeInfo(0, 0, nullptr));
    Reference<ITypeInfo> none;
    EXPECT_EQ(DISP_E_BADINDEX, object->GetTypeInfo(1, 0, none.Receive()));
    DISPID id = 0;
    LPOLESTR noName = nullptr;
    EXPECT_TRUE(FAILED(object->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id)));
    EXPECT_TRUE(FAILED(object->GetIDsOfNames(IID_NULL, &noName, 1, 0, nullptr)));
    EXPECT_TRUE(FAILED(object->GetIDsOfNames(IID_NULL, &noName, 1, 0, &id)));
    EXPECT_TRUE(FAILED(object->GetIDsOfNames(IID_NULL, &noName, 0, 0, &id)));
    EXPECT_TRUE(FAILED(object->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr)));
    void* unknown = this;
    EXPECT_EQ(E_NOINTERFACE, object->QueryInterface(IID_IStream, &unknown));
    EXPECT_EQ(nullptr, unknown);
    EXPECT_EQ(E_POINTER, object.As<IProvideClassInfo>()->GetClassInfo(nullptr));
  }
}

// Counts that do not fit what stands behind them.
TEST_F(HostileSlots, OfIDispatchRefuseArgumentsThatAreNotThere) {
  VARIANT one;
  VariantInit(&one);
  DISPID put = DISPID_PROPERTYPUT;
  const DISPPARAMS broken[] = {
      {nullptr, nullptr, 1, 0}, {nullptr, nullptr, 4, 0}, {&one, nullptr, 1, 1},          {&one, &put, 1, 2},
      {&one, &put, 0, 1},       {nullptr, &put, 1, 1},    {&one, nullptr, 0xFFFFFFFF, 0}, {&one, &put, 1, 0xFFFFFFFF},
  };
  for (const auto& object : objects_) {
    for (const Slot& slot : PublishedSlots(object.Get())) {
      auto* name = const_cast<LPOLESTR>(slot.name.c_str());
      DISPID id = DISPID_UNKNOWN;
      ASSERT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, &name, 1, 0, &id)) << Narrow(slot.name);
      for (DISPPARAMS parameters : broken) {
        for (const WORD flags : {WORD{DISPATCH_METHOD | DISPATCH_PROPERTYGET}, WORD{DISPATCH_PROPERTYPUT}}) {
          OwnedVariant result;
          EXPECT_TRUE(FAILED(object->Invoke(id, IID_NULL, 0, flags, &parameters, &result, nullptr, nullptr)))
              << Narrow(slot.name) << " took " << parameters.cArgs << " arguments, " << parameters.cNamedArgs
              << " named";
        }
      }
    }
  }
}

TEST_F(HostileSlots, OfClassFactoriesRefuseNullAndAggregation) {
  for (const CLSID& id :
       {CLSID_CQuillet, CLSID_CPNR, CLSID_CQueue, CLSID_CBatch, CLSID_CEncodeUtils, CLSID_IGet, CLSID_IGetPNR}) {
    Reference<IClassFactory> factory;
    ASSERT_EQ(S_OK, CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.ReceiveVoid()));
    EXPECT_EQ(E_POINTER, factory->CreateInstance(nullptr, IID_IDispatch, nullptr));
    void* object = this;
    EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(bag_.Get(), IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
    object = this;
    EXPECT_EQ(E_NOINTERFACE, factory->CreateInstance(nullptr, IID_IStream, &object));
    EXPECT_EQ(nullptr, object);
  }
}

TEST_F(HostileSlots, OfEnumeratorsRefuseNull) {
  const auto queue = Create<_CQueue>(CLSID_CQueue);
  Reference<IUnknown> unknown;
  ASSERT_EQ(S_OK, queue->get_NewEnum(unknown.Receive()));
  const auto elements = unknown.As<IEnumVARIANT>();
  ULONG count = 1;
  EXPECT_EQ(E_POINTER, elements->Next(1, nullptr, &count));
  OwnedVariant element;
  EXPECT_EQ(E_POINTER, elements->Next(2, &element, nullptr));
  EXPECT_EQ(E_POINTER, elements->Clone(nullptr));
  EXPECT_EQ(S_FALSE, elements->Skip(0xFFFFFFFF));
  EXPECT_EQ(S_FALSE, elements->Next(1, &element, &count));
  EXPECT_EQ(0U, count);
}

// --- Late-bound arguments of every kind
// -----------------------------------------------------------------------------------------

using Make = std::function<void(VARIANT*)>;

Make Of(VARTYPE type, double number) {
  return [type, number](VARIANT* made) {
    OwnedVariant source;
    V_VT(&source) = VT_R8;
    V_R8(&source) = number;
    EXPECT_EQ(S_OK, VariantChangeType(made, &source, 0, type));
  };
}

Make OfText(std::wstring text) {
  return [text = std::move(text)](VARIANT* made) {
    V_VT(made) = VT_BSTR;
    V_BSTR(made) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  };
}

Make OfArray(VARTYPE elements, UINT dimensions, LONG lower, ULONG count) {
  return [=](VARIANT* made) {
    std::vector<SAFEARRAYBOUND> bounds(dimensions, SAFEARRAYBOUND{count, lower});
    V_VT(made) = static_cast<VARTYPE>(VT_ARRAY | elements);
    V_ARRAY(made) = SafeArrayCreate(elements, dimensions, bounds.data());
  };
}

// A number that a conversion from a double would not give.
template <typename Set>
Make Raw(VARTYPE type, Set set) {
  return [type, set](VARIANT* made) {
    V_VT(made) = type;
    set(made);
  };
}

std::vector<std::pair<const char*, Make>> HostileValues(IDispatch* someObject, IUnknown* noDispatch) {
  return {
      {"Empty", [](VARIANT*) {}},
      {"Null", Raw(VT_NULL, [](VARIANT*) {})},
      {"Nothing", Raw(VT_DISPATCH, [](VARIANT* v) { V_DISPATCH(v) = nullptr; })},
      {"no unknown", Raw(VT_UNKNOWN, [](VARIANT* v) { V_UNKNOWN(v) = nullptr; })},
      {"object", Raw(VT_DISPATCH,
                     [someObject](VARIANT* v) {
                       V_DISPATCH(v) = someObject;
                       someObject->AddRef();
                     })},
      {"object without automation", Raw(VT_UNKNOWN,
                                        [noDispatch](VARIANT* v) {
                                          V_UNKNOWN(v) = noDispatch;
                                          noDispatch->AddRef();
                                        })},
      {"True", Raw(VT_BOOL, [](VARIANT* v) { V_BOOL(v) = VARIANT_TRUE; })},
      {"byte", Of(VT_UI1, 255)},
      {"-1", Of(VT_I2, -1)},
      {"-32768", Of(VT_I2, -32768)},
      {"70000", Of(VT_I4, 70000)},
      {"largest", Of(VT_I4, 2147483647)},
      {"smallest", Of(VT_I4, -2147483648.0)},
      {"64 bits", Of(VT_I8, 1e15)},
      {"unsigned", Of(VT_UI4, 4294967295.0)},
      {"1e300", Of(VT_R8, 1e300)},
      {"not a number", Raw(VT_R8, [](VARIANT* v) { V_R8(v) = std::nan(""); })},
      {"infinity", Raw(VT_R8, [](VARIANT* v) { V_R8(v) = std::numeric_limits<double>::infinity(); })},
      {"currency", Of(VT_CY, 922337203685477.0)},
      {"decimal", Of(VT_DECIMAL, 1e20)},
      {"date", Of(VT_DATE, 39611.5)},
      {"date out of range", Raw(VT_DATE, [](VARIANT* v) { V_DATE(v) = 1e15; })},
      {"error", Raw(VT_ERROR, [](VARIANT* v) { V_ERROR(v) = E_FAIL; })},
      {"omitted", Raw(VT_ERROR, [](VARIANT* v) { V_ERROR(v) = DISP_E_PARAMNOTFOUND; })},
      {"no string", Raw(VT_BSTR, [](VARIANT* v) { V_BSTR(v) = nullptr; })},
      {"text", OfText(L"JD")},
      {"number as text", OfText(L"1")},
      {"text with NUL", OfText(std::wstring(L"A\0B", 3))},
      {"unpaired surrogates", OfText(std::wstring{static_cast<wchar_t>(0xDC00), static_cast<wchar_t>(0xD800)})},
      {"a million characters", OfText(std::wstring(1'000'000, L'X'))},
      {"array of values", OfArray(VT_VARIANT, 1, 0, 3)},
      {"array of strings", OfArray(VT_BSTR, 1, 1, 2)},
      {"array without elements", OfArray(VT_VARIANT, 1, 0, 0)},
      {"array far below zero", OfArray(VT_VARIANT, 1, -2147483647, 2)},
      {"array of numbers", OfArray(VT_I4, 1, 0, 2)},
      {"array of two dimensions", OfArray(VT_VARIANT, 2, 0, 2)},
      {"array that is none", Raw(VT_ARRAY | VT_VARIANT, [](VARIANT* v) { V_ARRAY(v) = nullptr; })},
      {"reference to no variable", Raw(VT_BYREF | VT_VARIANT, [](VARIANT* v) { V_VARIANTREF(v) = nullptr; })},
      {"reference to itself", Raw(VT_BYREF | VT_VARIANT, [](VARIANT* v) { V_VARIANTREF(v) = v; })},
      {"reference to no text", Raw(VT_BYREF | VT_BSTR, [](VARIANT* v) { V_BSTRREF(v) = nullptr; })},
      {"reference to no object", Raw(VT_BYREF | VT_DISPATCH, [](VARIANT* v) { V_DISPATCHREF(v) = nullptr; })},
      {"unknown type", Raw(0x0FF0, [](VARIANT*) {})},
  };
}

// What a call may pass: the value itself, a variable that holds it, or a reference to its storage.
enum class Passing { ByValue, AsVariable, ByReference };

class LateArguments {
 public:
  LateArguments(std::size_t count, const Make& make, Passing passing) : held_(count), passed_(count) {
    for (std::size_t index = 0; index < count; ++index) {
      VariantInit(&held_[index]);
      make(&held_[index]);
      passed_[index] = held_[index];
      if (passing == Passing::AsVariable) {
        V_VT(&passed_[index]) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&passed_[index]) = &held_[index];
      } else if (passing == Passing::ByReference && CanBeReferredTo(held_[index])) {
        V_VT(&passed_[index]) = static_cast<VARTYPE>(V_VT(&held_[index]) | VT_BYREF);
        V_BYREF(&passed_[index]) = &V_I4(&held_[index]);
      }
    }
  }
  ~LateArguments() {
    for (VARIANT& variant : held_) {
      if (V_VT(&variant) == 0x0FF0 || (V_VT(&variant) & VT_BYREF) != 0) {
        V_VT(&variant) = VT_EMPTY;
      }
      VariantClear(&variant);
    }
  }
  LateArguments(const LateArguments&) = delete;
  LateArguments& operator=(const LateArguments&) = delete;

  std::vector<VARIANT>& Passed() { return passed_; }

 private:
  static bool CanBeReferredTo(const VARIANT& variant) {
    const VARTYPE type = V_VT(&variant);
    return type != VT_EMPTY && type != VT_NULL && type != VT_DECIMAL && type != 0x0FF0 && (type & VT_BYREF) == 0;
  }

  std::vector<VARIANT> held_;
  std::vector<VARIANT> passed_;
};

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

TEST_F(HostileSlots, LateBoundMembersTakeArgumentsOfEveryTypeAndCount) {
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
TEST_F(HostileSlots, TakeAnyValueForAnIndexOfAQueue) {
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
