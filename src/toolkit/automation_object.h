// Port to foreign objects. The library reaches the PNR object model through this port alone, and identifies members by
// DISPID or by name.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "common/value.h"

namespace wendrill {

// A member of a foreign object, identified by its DISPID where the library knows the DISPID, and by its name otherwise.
class Member {
 public:
  static constexpr Member Id(std::int32_t id) { return Member(id, {}); }
  // REQUIRES: `name` is a string literal. The Member keeps a view of the name, and the cache of the dispatch client
  // recognises the name by its address.
  static constexpr Member Name(std::u16string_view name) { return Member(0, name); }

  constexpr bool IsNamed() const { return !name_.empty(); }
  constexpr std::int32_t DispatchId() const { return id_; }
  constexpr std::u16string_view DispatchName() const { return name_; }

 private:
  constexpr Member(std::int32_t id, std::u16string_view name) : id_(id), name_(name) {}
  std::int32_t id_;
  std::u16string_view name_;
};

// The two types of active air segments. An air segment of the toolkit implements the interface of its type;
// idl/platform.idl contains the IIDs of both interfaces.
enum class SegmentType { Timed, Untimed };

// An enumerator of the objects of a collection, in the collection's own order. The enumerator keeps its own references
// to the objects that it needs, so the caller may release the collection during the enumeration.
class ObjectWalk {
 public:
  virtual ~ObjectWalk() = default;

  // The next object; null after the last object. Raises 424 (object required) for an element that is not an object, 91
  // (object not set) for an element that is Nothing, and the collection's own error when the collection fails.
  virtual ObjectRef Next() = 0;
};

// A foreign object: an object of another component. An ObjectRef is a shared reference to the object; the object is
// released when its last ObjectRef is destroyed.
//
// Every method except Is may raise the foreign object's own error, with its number, source and description. Get, Put
// and Call raise 438 (no such member) for a member that the object does not have. Every call runs foreign code, which
// may call back into the library before the call returns.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;

  // Returns the value of a property. The call is sent as a method call and a property get at once (DISPATCH_METHOD |
  // DISPATCH_PROPERTYGET), because components differ in how they declare a member without arguments. When the value is
  // an object, the result is a new reference to the object, and the caller owns that reference.
  virtual Value Get(const Member& member) = 0;

  // Assigns a property by value (DISPATCH_PROPERTYPUT, never DISPATCH_PROPERTYPUTREF). The foreign object may keep a
  // copy of `value`; when `value` is an object, the foreign object may keep a reference to that object.
  virtual void Put(const Member& member, const Value& value) = 0;

  // Calls a method and returns its result; Empty when the method returns nothing. Passes all arguments by value.
  // `arguments` contains the arguments from first to last, and must be valid only until the call returns.
  virtual Value Call(const Member& member, std::span<const Value> arguments) = 0;

  // Returns a new enumerator of this collection (DISPID_NEWENUM), positioned before the first object; never null.
  // Raises 438 (no such member) when this object is not a collection.
  virtual std::unique_ptr<ObjectWalk> Walk() = 0;

  // Whether the object implements the interface of a segment type. Never raises.
  virtual bool Is(SegmentType type) const = 0;
};

}  // namespace wendrill
