#include "com/recorder/wrapper.h"

#include "com/recorder/enumerator.h"
#include "com/recorder/events.h"
#include "com/recorder/handed_arguments.h"
#include "com/recorder/quiet_call.h"
#include "com/recorder/run.h"
#include "com/server/boundary.h"
#include "platform.h"

namespace wendrill::recorder {

Wrapper* WrapperIn(IUnknown* object) {
  com::Reference<IWrapper> ours;
  if (object == nullptr || FAILED(object->QueryInterface(__uuidof(IWrapper), ours.ReceiveVoid()))) {
    return nullptr;
  }
  return &ours->Itself();
}

com::Reference<IUnknown> IdentityOf(IUnknown* object) {
  com::Reference<IUnknown> identity;
  object->QueryInterface(IID_IUnknown, identity.ReceiveVoid());
  return identity;
}

template <typename Interface>
HRESULT Part<Interface>::QueryInterface(REFIID wanted, void** object) {
  return owner_.QueryInterface(wanted, object);
}
template <typename Interface>
ULONG Part<Interface>::AddRef() {
  return owner_.AddRef();
}
template <typename Interface>
ULONG Part<Interface>::Release() {
  return owner_.Release();
}
template class Part<IProvideClassInfo>;
template class Part<ISupportErrorInfo>;
template class Part<IConnectionPointContainer>;

HRESULT ClassInformation::GetClassInfo(ITypeInfo** information) {
  com::Reference<IProvideClassInfo> real;
  const HRESULT status = owner_.Real()->QueryInterface(IID_IProvideClassInfo, real.ReceiveVoid());
  return FAILED(status) ? status : real->GetClassInfo(information);
}

HRESULT ErrorSupport::InterfaceSupportsErrorInfo(REFIID asked) {
  com::Reference<ISupportErrorInfo> real;
  const HRESULT status = owner_.Real()->QueryInterface(IID_ISupportErrorInfo, real.ReceiveVoid());
  return FAILED(status) ? status : real->InterfaceSupportsErrorInfo(asked);
}

HRESULT ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) {
  com::Reference<IConnectionPointContainer> real;
  const HRESULT status = owner_.Real()->QueryInterface(IID_IConnectionPointContainer, real.ReceiveVoid());
  return FAILED(status) ? status : WrappedPoints(owner_, real.Get(), points);
}

HRESULT ConnectionPoints::FindConnectionPoint(REFIID wanted, IConnectionPoint** point) {
  com::Reference<IConnectionPointContainer> real;
  const HRESULT status = owner_.Real()->QueryInterface(IID_IConnectionPointContainer, real.ReceiveVoid());
  return FAILED(status) ? status : WrappedPoint(owner_, real.Get(), wanted, point);
}

Wrapper::Wrapper(com::Reference<IDispatch> real, IUnknown* identity, Kind kind)
    : real_(std::move(real)), identity_(identity), kind_(kind) {
  TheRun().wrappers[identity_] = this;
}

// Removes the wrapper from the map before Gone is called: Gone may pump messages, and the handler of a message may
// receive the terminal's object again. That handler must not get this wrapper, which is being destroyed.
Wrapper::~Wrapper() {
  TheRun().wrappers.erase(identity_);
  if (Notes* notes = TheRun().Recording()) {
    notes->Gone(*this);
  }
}

com::Reference<IDispatch> Wrapper::Of(IDispatch* real, Kind kind) {
  if (real == nullptr || WrapperIn(real) != nullptr) {
    return com::Reference<IDispatch>(real);
  }
  const com::Reference<IUnknown> identity = IdentityOf(real);
  if (!identity) {
    return com::Reference<IDispatch>(real);
  }
  const auto living = TheRun().wrappers.find(identity.Get());
  if (living != TheRun().wrappers.end()) {
    return com::Reference<IDispatch>(living->second);
  }
  auto* created = new Wrapper(com::Reference<IDispatch>(real), identity.Get(), kind);
  auto owned = com::Reference<IDispatch>::Adopt(created);
  if (Notes* notes = TheRun().Recording(); notes != nullptr && kind == Kind::Session) {
    notes->Wrapped(*created);
  }
  return owned;
}

com::Reference<IDispatch> Wrapper::Living(IDispatch* real) {
  if (real != nullptr) {
    const com::Reference<IUnknown> identity = IdentityOf(real);
    const auto living = TheRun().wrappers.find(identity.Get());
    if (living != TheRun().wrappers.end()) {
      return com::Reference<IDispatch>(living->second);
    }
  }
  return com::Reference<IDispatch>(real);
}

Act Wrapper::ActOf(DISPID id) {
  if (kind_ == Kind::Pnr) {
    return ActOfPnr(id);
  }
  if (!acts_) {
    std::vector<std::pair<DISPID, Act>> acts;
    for (const NamedMember& member : kNamedMembers) {
      if (member.object == kind_) {
        if (const auto found = IdOf(real_.Get(), member.name)) {
          acts.emplace_back(*found, member.act);
        }
      }
    }
    acts_ = std::move(acts);
  }
  for (const auto& [known, act] : *acts_) {
    if (known == id) {
      return act;
    }
  }
  return kind_ == Kind::SessionList && id == DISPID_NEWENUM ? Act::ListSessions : Act::None;
}

void* Wrapper::FindFurther(REFIID wanted) {
  void* part = wanted == IID_IProvideClassInfo           ? static_cast<void*>(&classInformation_)
               : wanted == IID_ISupportErrorInfo         ? static_cast<void*>(&errorSupport_)
               : wanted == IID_IConnectionPointContainer ? static_cast<void*>(&connectionPoints_)
               : wanted == __uuidof(_TimedAirSegment) || wanted == __uuidof(_UntimedAirSegment)
                   ? static_cast<void*>(static_cast<IDispatch*>(this))
                   : nullptr;
  if (part == nullptr) {
    return nullptr;
  }
  com::Reference<IUnknown> real;
  return SUCCEEDED(real_->QueryInterface(wanted, real.ReceiveVoid())) ? part : nullptr;
}

HRESULT Wrapper::GetTypeInfoCount(UINT* count) {
  return real_->GetTypeInfoCount(count);
}

HRESULT Wrapper::GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) {
  return real_->GetTypeInfo(index, locale, information);
}

HRESULT Wrapper::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) {
  const com::Reference<Wrapper> keepAlive(this);
  const HRESULT status = real_->GetIDsOfNames(reserved, names, count, locale, ids);
  if (Notes* notes = TheRun().Recording(); notes != nullptr && FAILED(status) && names != nullptr && count == 1) {
    notes->NameUnknown(*this, names[0]);
  }
  return status;
}

HRESULT Wrapper::Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* argument) {
  // The call may pump messages, and the handler of a message may release this object.
  const com::Reference<Wrapper> keepAlive(this);
  Notes* const notes = TheRun().Recording();
  std::optional<HandedArguments> handed;
  HRESULT status = HandOver(arguments, HandedArguments::Way::ToTheTerminal, notes, handed);
  if (FAILED(status)) {
    return status;
  }
  PassedCall call;
  com::OwnedVariant unwanted;
  if (notes != nullptr) {
    call = notes->Begin(*this, id, flags, arguments);
    result = result == nullptr && call.act == Act::Send ? &unwanted : result;
  }
  status = real_->Invoke(id, reserved, locale, flags, handed->Get(), result, exception, argument);
  const HRESULT given = com::Guarded([&] {
    handed->GiveBack();
    if (SUCCEEDED(status) && result != nullptr) {
      WrapOwnResult(id, call.act, *result);
    }
  });
  if (SUCCEEDED(status) && FAILED(given)) {
    status = given;
    if (result != nullptr) {
      VariantClear(result);  // the caller does not clear the result of a failed call
    }
  }
  if (notes != nullptr) {
    notes->End(*this, call, status, exception, SUCCEEDED(status) ? result : nullptr);
  }
  return status;
}

void Wrapper::WrapOwnResult(DISPID id, Act act, VARIANT& result) const {
  if (kind_ != Kind::Pnr || id != simulator::kPnrValue.id) {
    WrapResult(result, ResultOf(act));
  } else if (V_VT(&result) == VT_DISPATCH && V_DISPATCH(&result) != nullptr) {
    // Only the program assigns objects to the property Value. So an object that has no wrapper belongs to the program,
    // and gets none. If the program assigned a wrapper, the terminal got the wrapped object, and the program now gets
    // the wrapper of that object again.
    const auto given = com::Reference<IDispatch>::Adopt(V_DISPATCH(&result));
    V_DISPATCH(&result) = Living(given.Get()).Release();
  }
}

void WrapResult(VARIANT& result, Kind kind) {
  if (!IsObject(result) || V_UNKNOWN(&result) == nullptr) {
    return;
  }
  const auto given = com::Reference<IUnknown>::Adopt(V_UNKNOWN(&result));
  V_UNKNOWN(&result) = nullptr;  // if wrapping fails, the program must not get the terminal's object
  com::Reference<IDispatch> object;
  if (V_VT(&result) == VT_DISPATCH) {
    V_DISPATCH(&result) = Wrapper::Of(static_cast<IDispatch*>(given.Get()), kind).Release();
  } else if (const auto enumerator = given.As<IEnumVARIANT>()) {
    V_UNKNOWN(&result) = NewWrappedEnumerator(enumerator, kind);
  } else if (SUCCEEDED(given->QueryInterface(IID_IDispatch, object.ReceiveVoid()))) {
    V_UNKNOWN(&result) = Wrapper::Of(object.Get(), kind).Release();
  } else {
    V_UNKNOWN(&result) = com::Reference<IUnknown>(given).Release();
  }
}

}  // namespace wendrill::recorder
