// Late-bound calls to objects of other servers.
//
// The library reaches the closed components through IDispatch alone. A member that is known by name costs two calls
// into the component: GetIDsOfNames for the identifier (DISPID), then Invoke. The first often costs more than the
// second, so identifiers are kept. Three classes share the work:
//
//   NamedObject   one object of another server. Asks it once for its description (ITypeInfo) and keeps the answer.
//   TypeNames     the identifiers that one description contains, shared by all objects that it describes.
//   KnownNames    the descriptions, shared by all objects of the DLL and kept between calls.
//
// Invariant: an identifier is taken from the cache only when asking the object would return the same identifier.
//   - Identifiers are kept per description, not per method table or class: generic servers and proxies share one method
//     table among objects of many types. An object without a description is asked on every call.
//   - A description is recognised by its address. The cache holds a reference to it, so that the address cannot be used
//     again for another description.
//   - An identifier is kept only when the description contains the same one. Objects that get members at run time share
//     a description that does not list these members: the same name may have another identifier in the next object.
//   - A name is recognised by its address as well, because comparing strings would cost as much as asking the object.
//     So every name is a string literal of the library.
//
// Bounds: a server may create a new description at every call. KnownNames keeps at most kMostTypes descriptions; a
// further description replaces the oldest, and objects that it describes are then asked for identifiers again, unless
// they are live. Searching descriptions and identifiers is linear: the closed components have about twenty types, and
// the library calls only a few members of each.
//
// Reentrancy: GetIDsOfNames, and the Release of a replaced description, run foreign code that may call back into this
// cache. So no iterator into the cache is used after such a call, and a replaced description is released last.
//
// Lifetime: descriptions belong to other servers, which must not be called any more when the process ends. So Forget
// releases the descriptions when the last object of this DLL is released.
//
// Tested by tests/com/early/response_types_test.cpp: objects of two types have the same names under different
// identifiers, with one description for each type, with a new description at every call, and without descriptions.
#pragma once

#include <cstddef>
#include <cstdint>
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

// The identifiers that one description contains, as far as they have been asked for.
class TypeNames {
 public:
  explicit TypeNames(const Reference<ITypeInfo>& type) : type_(type) {}

  const ITypeInfo* Type() const { return type_.Get(); }

  // The identifier of the member `name` of an object that this description describes. Raises 438 when the object has no
  // such member. REQUIRES: `name` is a string literal.
  DISPID IdOf(IDispatch* object, std::u16string_view name);

 private:
  DISPID Ask(IDispatch* object, std::u16string_view name);

  Reference<ITypeInfo> type_;
  std::vector<std::pair<const char16_t*, DISPID>> ids_;  // by address of the name
};

// The cache of descriptions.
class KnownNames {
 public:
  // The identifiers that the description `type` contains; never null.
  std::shared_ptr<TypeNames> Of(const Reference<ITypeInfo>& type);

  // Releases all descriptions. Must be called, or this object destroyed, before the library may unload.
  void Forget();

 private:
  std::vector<std::shared_ptr<TypeNames>> types_;
  std::size_t oldest_ = 0;  // index of the description to replace next, once kMostTypes are kept
};

// An object of another server, whose members are called by name. Owns a reference to the object.
class NamedObject {
 public:
  NamedObject(Reference<IDispatch> object, KnownNames& known) : object_(std::move(object)), known_(&known) {}

  IDispatch* Get() const { return object_.Get(); }
  KnownNames& Names() const { return *known_; }

  // The identifier of the member `name`. Raises 438 when the object has no such member. REQUIRES: `name` is a string
  // literal.
  DISPID IdOf(std::u16string_view name);

 private:
  void Describe();

  Reference<IDispatch> object_;
  KnownNames* known_;
  std::shared_ptr<TypeNames> names_;  // null when the object does not describe itself
  bool wasDescribed_ = false;         // whether the object has been asked for its description
};

// One late-bound call. `arguments` are in order from first to last; the call reverses them in place. `result` may be
// null. Raises the callee's error unchanged.
void CallMember(IDispatch* object, DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result);

// Read a member and convert its result to a string or an integer. Raise the callee's error unchanged, and 13 for a
// result that does not convert.
std::u16string TextResult(IDispatch* object, DISPID id);
ReceivedText ReceivedResult(IDispatch* object, DISPID id);  // the callee's own string, not a copy
std::int32_t NumberResult(IDispatch* object, DISPID id);

// Moves the object reference out of `result`; null for Empty, Null and Nothing. Raises 424 for a value that is not an
// object, 13 for an object without IDispatch.
Reference<IDispatch> TakeObject(VARIANT& result);

// The text as a BSTR, which the caller frees: the callee's own string when `text` still owns one, otherwise a copy.
BSTR StringOf(ReceivedText&& text);

// Creates an object of a registered class. Raises the class's own error, or 429 when the class cannot be created and
// gives no reason.
Reference<IDispatch> CreateComponent(const wchar_t* programmaticId);

}  // namespace wendrill::com
