#include "com/adapters/foreign_object.h"

#include <utility>
#include <vector>

#include "com/adapters/recycled.h"
#include "com/server/boundary.h"
#include "common/error.h"
#include "platform.h"

namespace wendrill::com {
namespace {

constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

class ForeignWalk final : public ObjectWalk {
 public:
  ForeignWalk(Reference<IEnumVARIANT> elements, const ForeignObjects& bridge)
      : elements_(std::move(elements)), bridge_(bridge) {}

  ObjectRef Next() override {
    OwnedVariant element;
    ULONG count = 0;
    CheckCall(elements_->Next(1, &element, &count), elements_.Get());
    if (count == 0) {
      return {};
    }
    return bridge_.Take(element);
  }

 private:
  Reference<IEnumVARIANT> elements_;
  ForeignObjects bridge_;
};

// The arguments of a call, converted to VARIANTs. The destructor clears the VARIANTs.
class CallArguments {
 public:
  CallArguments(std::span<const Value> values, const ObjectBridge& bridge) : variants_(values.size()) {
    for (std::size_t index = 0; index < values.size(); ++index) {
      ToVariant(values[index], &variants_[index], bridge, ArrayForm::Strings);
    }
  }
  CallArguments(const CallArguments&) = delete;
  CallArguments& operator=(const CallArguments&) = delete;

  std::span<VARIANT> All() {
    static_assert(sizeof(OwnedVariant) == sizeof(VARIANT));
    VARIANT* const first = variants_.data();
    return {first, variants_.size()};
  }

 private:
  std::vector<OwnedVariant> variants_;
};

}  // namespace

DISPID ForeignObject::IdOf(const Member& member) {
  return member.IsNamed() ? object_.IdOf(member.DispatchName()) : member.DispatchId();
}

Value ForeignObject::Get(const Member& member) {
  return Call(member, {});
}

Value ForeignObject::Call(const Member& member, std::span<const Value> arguments) {
  const ForeignObjects bridge(object_.Names());
  CallArguments given(arguments, bridge);
  OwnedVariant result;
  CallMember(object_.Get(), IdOf(member), kCall, given.All(), &result);
  return ToValue(result, bridge);
}

void ForeignObject::Put(const Member& member, const Value& value) {
  const ForeignObjects bridge(object_.Names());
  CallArguments given({&value, 1}, bridge);
  CallMember(object_.Get(), IdOf(member), DISPATCH_PROPERTYPUT, given.All(), nullptr);
}

std::unique_ptr<ObjectWalk> ForeignObject::Walk() {
  OwnedVariant result;
  CallMember(object_.Get(), DISPID_NEWENUM, kCall, {}, &result);
  Reference<IEnumVARIANT> elements;
  const bool isObject = V_VT(&result) == VT_UNKNOWN || V_VT(&result) == VT_DISPATCH;
  if (isObject && V_UNKNOWN(&result) != nullptr) {
    V_UNKNOWN(&result)->QueryInterface(IID_IEnumVARIANT, elements.ReceiveVoid());
  }
  if (!elements) {
    Raise(RunTimeError::MemberNotSupported);
  }
  return std::make_unique<ForeignWalk>(std::move(elements), ForeignObjects(object_.Names()));
}

bool ForeignObject::Is(SegmentType type) const {
  Reference<IUnknown> found;
  const IID& identity = type == SegmentType::Timed ? __uuidof(_TimedAirSegment) : __uuidof(_UntimedAirSegment);
  return SUCCEEDED(object_.Get()->QueryInterface(identity, found.ReceiveVoid()));
}

ObjectRef ForeignObjects::ToCore(IDispatch* object) const {
  return MakeRecycled<ForeignObject>(Reference<IDispatch>(object), names_);
}

ObjectRef ForeignObjects::Take(VARIANT& result) const {
  if (V_VT(&result) != VT_DISPATCH || V_DISPATCH(&result) == nullptr) {
    return ToObject(ToValue(result, *this));
  }
  V_VT(&result) = VT_EMPTY;
  return MakeRecycled<ForeignObject>(Reference<IDispatch>::Adopt(V_DISPATCH(&result)), names_);
}

IDispatch* ForeignObjects::ToAutomation(const ObjectRef& object) const {
  if (!object) {
    return nullptr;
  }
  // The cast to ForeignObject is safe: ToCore and Take create every object that the library's core holds, and both
  // create a ForeignObject.
  IDispatch* foreign = static_cast<const ForeignObject&>(*object).Object();
  foreign->AddRef();
  return foreign;
}

}  // namespace wendrill::com
