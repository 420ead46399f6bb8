// Late-bound calls to objects of other servers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "com/server/automation_types.h"
#include "toolkit/automation_object.h"
#include "toolkit/received_text.h"

namespace wendrill::com {

// Dispatch identifiers by name, looked up once per type of object and kept. A type is what an object's description
// (ITypeInfo) says it is, and nothing else: generic servers and proxies share one method table among many types. A
// description is recognised by its address, so it is held, which keeps its address from being used again.
//
// Servers that describe themselves anew at every call must not make this grow without end: the oldest of so many
// descriptions gives way to a new one, and its names are asked for again when it comes back.
class KnownNames {
 public:
  // The identifier of a member of an object that `type` describes; 438 when the object has no member of that name. The
  // name is one that stands in the library's code, and is known by its place there: comparing addresses is what a call
  // can afford.
  DISPID IdOf(IDispatch* object, const Reference<ITypeInfo>& type, std::u16string_view name);

  // The descriptions belong to other servers: this, or the end of the object, lets go of them before this library may
  // unload.
  void Forget();

 private:
  struct TypeNames {
    Reference<ITypeInfo> type;
    std::vector<std::pair<std::u16string_view, DISPID>> ids;  // a handful
  };

  TypeNames* Find(const ITypeInfo* type);
  void Keep(const Reference<ITypeInfo>& type, std::u16string_view name, DISPID id);

  std::vector<TypeNames> types_;
  std::size_t oldest_ = 0;  // the next to give way once there are as many types as are kept
};

// An object of another server and the names of its members. An object that does not describe itself is asked for a
// name's identifier each time.
class NamedObject {
 public:
  NamedObject(Reference<IDispatch> object, KnownNames& names) : object_(std::move(object)), names_(&names) {}

  IDispatch* Get() const { return object_.Get(); }
  KnownNames& Names() const { return *names_; }

  // 438 when the object has no member of that name, which is one that stands in the library's code.
  DISPID IdOf(std::u16string_view name);

 private:
  Reference<IDispatch> object_;
  KnownNames* names_;
  Reference<ITypeInfo> type_;  // none when it does not describe itself
  bool wasDescribed_ = false;  // it has been asked to
};

// One late-bound call. `arguments` come in their written order. Errors of the callee travel on unchanged.
void CallMember(IDispatch* object, DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result);

// The numbers, texts and objects that such calls give; a result that does not convert is 13.
std::u16string TextResult(IDispatch* object, DISPID id);
ReceivedText ReceivedResult(IDispatch* object, DISPID id);  // a text in the callee's own string
std::int32_t NumberResult(IDispatch* object, DISPID id);
Reference<IDispatch> TakeObject(VARIANT& result);  // out of the result, without counting; none for Empty and Nothing

// The automation string of a text: the one in which it was received, where it came so.
BSTR StringOf(ReceivedText text);

// Makes an object of a registered class. 429 where the system has no better reason.
Reference<IDispatch> CreateComponent(const wchar_t* programmaticId);

}  // namespace wendrill::com
