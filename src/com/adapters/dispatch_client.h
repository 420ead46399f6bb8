// Late-bound calls to objects of other servers.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "com/server/automation_types.h"
#include "toolkit/automation_object.h"
#include "toolkit/received_text.h"

namespace wendrill::com {

// Dispatch identifiers of one type of object by name, as far as they were looked up. A name is one that stands in the
// library's code, and is known by its place there: comparing addresses is what a call can afford.
class TypeNames {
 public:
  explicit TypeNames(Reference<ITypeInfo> type) : type_(std::move(type)) {}

  // The identifier of a member of an object of the type; 438 when it has no member of that name.
  DISPID IdOf(IDispatch* object, std::u16string_view name);

 private:
  Reference<ITypeInfo> type_;  // one description stands for a type; holding it keeps its address from being used again
  std::vector<std::pair<std::u16string_view, DISPID>> ids_;  // a handful
};

// Dispatch identifiers by name, looked up once per object type and kept. The types' descriptions belong to other
// servers: Forget, or the end of this, lets go of them before this library may unload.
class KnownNames {
 public:
  // The names of the object's type, good until Forget; null when the object does not describe itself, or describes
  // itself anew at every call.
  TypeNames* Of(IDispatch* object);

  void Forget() { types_.clear(); }

 private:
  std::map<ITypeInfo*, TypeNames> types_;
};

// An object of another server and the names of its members. An object that does not describe itself is asked for a
// name's identifier each time.
class NamedObject {
 public:
  NamedObject(Reference<IDispatch> object, KnownNames& names) : object_(std::move(object)), names_(&names) {}

  // Of a type that has been told before.
  NamedObject(Reference<IDispatch> object, KnownNames& names, TypeNames* ofType)
      : object_(std::move(object)), names_(&names), ofType_(ofType), wasDescribed_(true) {}

  IDispatch* Get() const { return object_.Get(); }
  KnownNames& Names() const { return *names_; }

  // 438 when the object has no member of that name, which is one that stands in the library's code.
  DISPID IdOf(std::u16string_view name);

 private:
  Reference<IDispatch> object_;
  KnownNames* names_;
  TypeNames* ofType_ = nullptr;
  bool wasDescribed_ = false;  // it has been asked to describe itself
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
