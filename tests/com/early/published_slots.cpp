#include "published_slots.h"

#include "desktop_fixture.h"

namespace wendrill::com::testing {
namespace {

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

VARTYPE TypeOnStack(VARTYPE type) {
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

}  // namespace

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

SlotArguments::SlotArguments(const Slot& slot, IDispatch* bag, const std::function<bool(std::size_t)>& nullAt)
    : slot_(slot), values_(slot.parameters.size()), rooms_(slot.parameters.size()) {
  for (std::size_t index = 0; index < values_.size(); ++index) {
    Fill(index, bag, nullAt(index));
  }
}

SlotArguments::~SlotArguments() {
  for (std::size_t index = 0; index < rooms_.size(); ++index) {
    Clear(index);
  }
}

HRESULT SlotArguments::Call(IDispatch* object) {
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

void SlotArguments::Fill(std::size_t index, IDispatch* bag, bool isNull) {
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
    // In and out: the bag before every object parameter.
    if (!parameter.isResult && (parameter.pointee == VT_PTR || parameter.pointee == VT_DISPATCH)) {
      V_DISPATCH(&rooms_[index]) = bag;
      bag->AddRef();
    }
    const bool wholeVariant = parameter.pointee == VT_VARIANT;
    V_BYREF(&values_[index]) = wholeVariant ? static_cast<void*>(&rooms_[index]) : &V_BYREF(&rooms_[index]);
  }
}

void SlotArguments::Clear(std::size_t index) {
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

}  // namespace wendrill::com::testing
