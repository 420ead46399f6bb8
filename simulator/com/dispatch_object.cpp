#include "com/dispatch_object.h"

#include <optional>
#include <vector>

#include "com/lazy_enumerator.h"
#include "com/server/boundary.h"
#include "com/simulation.h"
#include "common/error.h"

namespace wendrill::simulator {
namespace {

// The arguments of a call, from first to last. DISPPARAMS holds the arguments from last to first.
std::vector<Value> ArgumentsIn(const DISPPARAMS& arguments) {
  std::vector<Value> values;
  values.reserve(arguments.cArgs);
  for (UINT index = arguments.cArgs; index > 0; --index) {
    values.push_back(ValueIn(arguments.rgvarg[index - 1]));
  }
  return values;
}

}  // namespace

DispatchObject::DispatchObject(std::shared_ptr<SimulatedObject> object) : object_(std::move(object)) {
  TheSimulation().wrappers[object_.get()] = this;
}

DispatchObject::~DispatchObject() {
  TheSimulation().wrappers.erase(object_.get());
}

IDispatch* DispatchObject::For(std::shared_ptr<SimulatedObject> object) {
  const auto living = TheSimulation().wrappers.find(object.get());
  if (living == TheSimulation().wrappers.end()) {
    return new DispatchObject(std::move(object));
  }
  living->second->AddRef();
  return living->second;
}

void* DispatchObject::FindFurther(REFIID wanted) {
  const bool marked = (wanted == __uuidof(_TimedAirSegment) && object_->Is(SegmentType::Timed)) ||
                      (wanted == __uuidof(_UntimedAirSegment) && object_->Is(SegmentType::Untimed));
  return marked ? static_cast<IDispatch*>(this) : nullptr;
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) {
    return E_POINTER;
  }
  *count = 0;
  return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT, LCID, ITypeInfo** information) {
  if (information != nullptr) {
    *information = nullptr;
  }
  return DISP_E_BADINDEX;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (reserved != IID_NULL) {
    return DISP_E_UNKNOWNINTERFACE;
  }
  if (names == nullptr || ids == nullptr || count == 0) {
    return E_INVALIDARG;
  }
  std::fill_n(ids, count, DISPID_UNKNOWN);
  const auto id = names[0] == nullptr ? std::nullopt : object_->IdOf(com::TextOf(std::wstring_view(names[0])));
  if (!id) {
    return DISP_E_UNKNOWNNAME;
  }
  ids[0] = *id;
  return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT DispatchObject::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                               EXCEPINFO* exception, UINT*) {
  if (reserved != IID_NULL) {
    return DISP_E_UNKNOWNINTERFACE;
  }
  if (arguments == nullptr || (arguments->cArgs != 0 && arguments->rgvarg == nullptr)) {
    return E_INVALIDARG;
  }
  const com::Reference<DispatchObject> keepAlive(this);
  const HRESULT status = com::Guarded([&] { Answer(id, flags, *arguments, result); });
  return SUCCEEDED(status) ? status : com::FillException(status, exception);
}

void DispatchObject::Answer(DISPID id, WORD flags, const DISPPARAMS& arguments, VARIANT* result) {
  com::OwnedVariant answer;
  if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
    const std::vector<Value> values = ArgumentsIn(arguments);
    if (values.size() != 1) {
      Raise(RunTimeError::WrongArgumentCount);
    }
    object_->Put(Member::Id(id), values.front());
  } else if (id == DISPID_NEWENUM && object_->IsCollection()) {
    V_UNKNOWN(&answer) = NewWalkEnumerator([object = object_]() -> WalkStep {
      return [walk = std::shared_ptr<ObjectWalk>(object->Walk())] {
        return com::Reference<IDispatch>::Adopt(TheSimulation().bridge.ToAutomation(walk->Next()));
      };
    });
    V_VT(&answer) = VT_UNKNOWN;
  } else {
    ValueOut(object_->Call(Member::Id(id), ArgumentsIn(arguments)), &answer, com::ArrayForm::Variants);
  }
  if (result != nullptr) {
    std::swap(static_cast<VARIANT&>(answer), *result);
    // `answer` now holds the previous content of `result`, which may be uninitialised. So the destructor of `answer`
    // must not clear that content.
    V_VT(&answer) = VT_EMPTY;
  }
}

HRESULT DispatchObject::InterfaceSupportsErrorInfo(REFIID asked) {
  return asked == IID_IDispatch ? S_OK : S_FALSE;
}

}  // namespace wendrill::simulator
