#include "com/recorder/handed_arguments.h"

#include <algorithm>
#include <utility>

#include "com/recorder/notes.h"
#include "com/recorder/quiet_call.h"
#include "com/recorder/wrapper.h"
#include "com/server/boundary.h"

namespace wendrill::recorder {
namespace {

bool IsReference(const VARIANT& argument) {
  return (V_VT(&argument) & VT_BYREF) != 0;
}

// The address of the object pointer in an argument, or in the variable to which a by-reference argument refers. Null
// when the argument or the variable is not of an object type.
IUnknown** PlaceOfObject(VARIANT& argument) {
  switch (V_VT(&argument)) {
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return &V_UNKNOWN(&argument);
    case VT_BYREF | VT_DISPATCH:
    case VT_BYREF | VT_UNKNOWN:
      return V_UNKNOWNREF(&argument);
    case VT_BYREF | VT_VARIANT:
      return V_VARIANTREF(&argument) == nullptr || !IsObject(*V_VARIANTREF(&argument))
                 ? nullptr
                 : &V_UNKNOWN(V_VARIANTREF(&argument));
    default:
      return nullptr;
  }
}

// The type of the object pointer for which PlaceOfObject returns the address: VT_DISPATCH or VT_UNKNOWN. REQUIRES:
// PlaceOfObject does not return null for the argument.
VARTYPE TypeOfObject(const VARIANT& argument) {
  const bool isInVariant = V_VT(&argument) == (VT_BYREF | VT_VARIANT);
  return isInVariant ? V_VT(V_VARIANTREF(&argument)) : static_cast<VARTYPE>(V_VT(&argument) & ~VT_BYREF);
}

IUnknown* ObjectOf(VARIANT& argument) {
  IUnknown** const place = PlaceOfObject(argument);
  return place == nullptr ? nullptr : *place;
}

}  // namespace

HandedArguments::HandedArguments(DISPPARAMS* arguments, Way way) : given_(arguments), way_(way) {
  for (UINT place = 0; given_ != nullptr && given_->rgvarg != nullptr && place < given_->cArgs; ++place) {
    VARIANT& argument = given_->rgvarg[place];
    IUnknown* const object = ObjectOf(argument);
    if (auto counterpart = CounterpartOf(object)) {
      Replace(place, std::move(counterpart));
    } else if (object != nullptr && IsReference(argument)) {
      common_.push_back({place, IdentityOf(object)});
    }
  }
}

// Returns the object that the callee gets in place of `object`.
// - In a call to the terminal: the terminal's object if `object` is a wrapper, else an empty reference.
// - In an event: the wrapper of `object`. An empty reference if `object` is null or does not implement IDispatch.
// An empty reference means that the callee gets `object` itself.
com::Reference<IDispatch> HandedArguments::CounterpartOf(IUnknown* object) const {
  if (way_ == Way::ToTheTerminal) {
    Wrapper* const wrapper = WrapperIn(object);
    return com::Reference<IDispatch>(wrapper == nullptr ? nullptr : wrapper->Real());
  }
  com::Reference<IDispatch> real;
  if (object != nullptr) {
    object->QueryInterface(IID_IDispatch, real.ReceiveVoid());
  }
  return Wrapper::Of(real.Get(), Kind::Response);
}

void HandedArguments::Replace(UINT place, com::Reference<IDispatch> object) {
  if (replaced_.empty()) {
    values_.assign(given_->rgvarg, given_->rgvarg + given_->cArgs);
    handed_ = *given_;
    handed_.rgvarg = values_.data();
  }
  auto& replaced = *replaced_.emplace_back(std::make_unique<Replaced>());
  replaced.place = place;
  replaced.object = std::move(object);
  VARIANT& handed = values_[place];
  if (!IsReference(handed)) {
    V_DISPATCH(&handed) = replaced.object.Get();
    return;
  }
  V_VT(&replaced.variable) = VT_DISPATCH;
  V_DISPATCH(&replaced.variable) = com::Reference<IDispatch>(replaced.object).Release();
  if (V_VT(&handed) == (VT_BYREF | VT_VARIANT)) {
    V_VARIANTREF(&handed) = &replaced.variable;
  } else {
    V_DISPATCHREF(&handed) = &V_DISPATCH(&replaced.variable);
  }
}

void HandedArguments::GiveBack() {
  for (UINT place = 0; given_ != nullptr && given_->rgvarg != nullptr && place < given_->cArgs; ++place) {
    VARIANT& argument = given_->rgvarg[place];
    if (!IsReference(argument)) {
      continue;
    }
    const auto replaced =
        std::find_if(replaced_.begin(), replaced_.end(), [place](const auto& each) { return each->place == place; });
    if (replaced != replaced_.end()) {
      GiveBack(**replaced, argument);
    } else {
      GiveBackInPlace(place, argument);
    }
  }
}

void HandedArguments::GiveBack(Replaced& replaced, VARIANT& argument) {
  VARIANT& variable = replaced.variable;
  if (V_VT(&variable) == VT_DISPATCH && V_DISPATCH(&variable) == replaced.object.Get()) {
    return;
  }
  if (V_VT(&argument) == (VT_BYREF | VT_VARIANT)) {
    VariantClear(V_VARIANTREF(&argument));
    std::swap(*V_VARIANTREF(&argument), variable);
  } else {
    std::swap(*V_UNKNOWNREF(&argument), V_UNKNOWN(&variable));  // `variable` then releases the caller's earlier object
  }
  GiveBackInPlace(replaced.place, argument);
}

void HandedArguments::GiveBackInPlace(UINT place, VARIANT& argument) {
  IUnknown** const variable = PlaceOfObject(argument);
  if (variable == nullptr || *variable == nullptr) {
    return;
  }
  const com::Reference<IUnknown> identity = IdentityOf(*variable);
  const bool isCommon = std::any_of(common_.begin(), common_.end(), [&](const Common& each) {
    return each.place == place && each.identity.Get() == identity.Get();
  });
  if (isCommon) {
    return;
  }
  com::OwnedVariant object;
  V_VT(&object) = TypeOfObject(argument);
  V_UNKNOWN(&object) = std::exchange(*variable, nullptr);
  if (way_ == Way::ToTheTerminal) {
    WrapResult(object, Kind::Other);
  } else if (Wrapper* const wrapper = WrapperIn(V_UNKNOWN(&object))) {
    const auto given = com::Reference<IUnknown>::Adopt(V_UNKNOWN(&object));
    V_UNKNOWN(&object) = com::Reference<IDispatch>(wrapper->Real()).Release();
  }
  *variable = std::exchange(V_UNKNOWN(&object), nullptr);
}

HRESULT HandOver(DISPPARAMS* arguments, HandedArguments::Way way, Notes* notes,
                 std::optional<HandedArguments>& handed) {
  const HRESULT status = com::Guarded([&] { handed.emplace(arguments, way); });
  if (FAILED(status) && notes != nullptr) {
    notes->Missed();
  }
  return status;
}

}  // namespace wendrill::recorder
