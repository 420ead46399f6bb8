// Late-bound calls to objects of other servers.
//
// The library calls the terminal's components through IDispatch; only a parameter bag that implements _ParamBag is
// called through its vtable. A call of a member that is known by name takes two calls into the component:
// GetIDsOfNames, which returns the DISPID, then Invoke. GetIDsOfNames often takes longer than Invoke, so DISPIDs are
// cached. Three classes share the work:
//
//   NamedObject   one object of another server. Asks the object once for its type information (ITypeInfo).
//   TypeNames     the DISPIDs in the type information of one type, shared by all objects of that type.
//   KnownNames    the cache: a TypeNames for each type, shared by all objects of the DLL and kept between calls.
//
// Invariant: a DISPID is taken from the cache only when GetIDsOfNames of the object would return the same DISPID.
//   - DISPIDs are cached by type information, not by vtable or class: generic servers and proxies share one vtable
//     among objects of many types. An object without type information is asked for the DISPID on every call.
//   - Type information is recognised by its address. The cache holds a reference to the ITypeInfo, so that the address
//     cannot be used again for another type.
//   - A DISPID is cached only when the type information contains the same DISPID for the name. Objects that get members
//     at run time share type information that does not list these members: the name of such a member may have another
//     DISPID in another object.
//   - A member's name is also recognised by its address, because comparing strings would cost as much as asking the
//     object. So every name is a string literal of the library.
//
// Bounds: a server may create new type information on every call. KnownNames caches the type information of at most
// kMostTypes types; the type information of a further type replaces the oldest. After the replacement, a live
// NamedObject keeps the DISPIDs of its type; a NamedObject that is created later asks for the DISPIDs again. The
// searches for a type and for a name are linear: the terminal's components have about twenty types, and the library
// calls only a few members of each type.
//
// Reentrancy: GetIDsOfNames, and the Release of replaced type information, run foreign code that may call back into
// this cache. So no iterator into the cache is used after such a call, and replaced type information is released last.
//
// Lifetime: type information belongs to other servers, which must not be called any more when the process ends. So the
// type information is released when the last object of this DLL is released: by Forget, or by the destructor of
// KnownNames.
//
// Tested by tests/com/early/response_types_test.cpp: objects of two types have the same names with different DISPIDs,
// with one ITypeInfo for each type, with a new ITypeInfo on every call, and without type information.
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

// The type information of one type, with a cache of the DISPIDs of its members.
class TypeNames {
 public:
  explicit TypeNames(const Reference<ITypeInfo>& type) : type_(type) {}

  const ITypeInfo* Type() const { return type_.Get(); }

  // The DISPID of the member `name` of an object that has this type information. Raises 438 (member not supported) when
  // the object has no such member, and the error of GetIDsOfNames for any other failure. REQUIRES: `name` is a string
  // literal.
  DISPID IdOf(IDispatch* object, std::u16string_view name);

 private:
  // Returns the DISPID that the object returns for the name. Caches the DISPID only if the type information contains
  // the same DISPID for the name: otherwise, the member belongs to this object alone, and another object of the type
  // may return another DISPID for the name.
  DISPID Ask(IDispatch* object, std::u16string_view name);

  Reference<ITypeInfo> type_;
  std::vector<std::pair<const char16_t*, DISPID>> ids_;  // DISPIDs by the address of the name
};

// The cache of type information and of the DISPIDs in it.
class KnownNames {
 public:
  // The TypeNames of the type information `type`; never null. Adds `type` to the cache when the cache lacks it.
  std::shared_ptr<TypeNames> Of(const Reference<ITypeInfo>& type);

  // Empties the cache. Type information is released now, or with the last NamedObject that still uses it. The cache
  // must be emptied, or this object destroyed, before the DLL may unload.
  void Forget();

 private:
  std::vector<std::shared_ptr<TypeNames>> types_;
  std::size_t oldest_ = 0;  // index in types_ of the type to replace next, once kMostTypes are cached
};

// An object of another server, whose members are called by name. Owns a reference to the object.
class NamedObject {
 public:
  NamedObject(Reference<IDispatch> object, KnownNames& known) : object_(std::move(object)), known_(&known) {}

  IDispatch* Get() const { return object_.Get(); }
  KnownNames& Names() const { return *known_; }

  // The DISPID of the member `name`. Raises 438 (member not supported) when the object has no such member, and the
  // error of GetIDsOfNames for any other failure. REQUIRES: `name` is a string literal.
  DISPID IdOf(std::u16string_view name);

 private:
  // Asks the object for its type information, and stores the TypeNames of that type information in names_.
  void Describe();

  Reference<IDispatch> object_;
  KnownNames* known_;
  std::shared_ptr<TypeNames> names_;  // null when the object has no type information
  bool wasDescribed_ = false;         // whether the object has been asked for its type information
};

// Makes one late-bound call. `arguments` are in order from first to last; CallMember reverses `arguments` in place.
// `result` may be null. Raises the callee's error unchanged.
void CallMember(IDispatch* object, DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result);

// TextResult, ReceivedResult and NumberResult read a member and convert its result to a string or an integer. They
// raise the callee's error unchanged, and 13 (type mismatch) for a result that does not convert.
std::u16string TextResult(IDispatch* object, DISPID id);
ReceivedText ReceivedResult(IDispatch* object, DISPID id);  // takes ownership of the callee's string; no copy
std::int32_t NumberResult(IDispatch* object, DISPID id);

// Returns the object in `result`; null for Empty, Null and Nothing. If `result` has the type VT_DISPATCH, its reference
// is moved into the return value, and `result` becomes Empty. Raises 424 (object required) for a value that is not an
// object, and 13 (type mismatch) for an object without IDispatch.
Reference<IDispatch> TakeObject(VARIANT& result);

// The text as a BSTR, which the caller frees. The BSTR is the string that the callee allocated if `text` still owns
// that string, otherwise a copy.
BSTR StringOf(ReceivedText&& text);

// Creates an object of the class that is registered under a ProgID. Raises 429 (object cannot be created) when the
// ProgID or its class is not registered. When the class is registered but fails to create the object, raises the error
// of the class.
Reference<IDispatch> CreateComponent(const wchar_t* programmaticId);

}  // namespace wendrill::com
