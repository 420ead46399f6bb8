// AutomationObject, the port to a foreign object, implemented over an automation object of another server.
#pragma once

#include "com/adapters/dispatch_client.h"
#include "com/server/variant_values.h"
#include "toolkit/automation_object.h"

namespace wendrill::com {

class ForeignObject final : public AutomationObject {
 public:
  ForeignObject(Reference<IDispatch> object, KnownNames& names) : object_(std::move(object), names) {}

  IDispatch* Object() const { return object_.Get(); }

  Value Get(const Member& member) override;
  void Put(const Member& member, const Value& value) override;
  Value Call(const Member& member, std::span<const Value> arguments) override;
  std::unique_ptr<ObjectWalk> Walk() override;
  bool Is(SegmentType type) const override;

 private:
  DISPID IdOf(const Member& member);

  NamedObject object_;
};

// Wraps automation objects of other servers for the core, and unwraps them for calls to other servers.
class ForeignObjects final : public ObjectBridge {
 public:
  explicit ForeignObjects(KnownNames& names) : names_(names) {}

  ObjectRef ToCore(IDispatch* object) const override;
  IDispatch* ToAutomation(const ObjectRef& object) const override;

  // Returns the object in `result`, wrapped for the core. If `result` has the type VT_DISPATCH, its reference is moved
  // into the wrapper, and `result` becomes Empty. Raises 91 (object not set) for Nothing, 424 (object required) for a
  // value that is not an object, and 13 (type mismatch) for an object without IDispatch.
  ObjectRef Take(VARIANT& result) const;

  KnownNames& Names() const { return names_; }

 private:
  KnownNames& names_;
};

}  // namespace wendrill::com
