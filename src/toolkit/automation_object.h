// The generic object port: how the library reaches the PNR object model, which it knows by dispatch identifiers and
// names alone.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "common/value.h"

namespace wendrill {

// A member of a foreign object, addressed by its dispatch identifier where that is known, else by its name.
class Member {
 public:
  static constexpr Member Id(std::int32_t id) { return Member(id, {}); }
  // REQUIRES: `name` is a string literal. The member keeps a view of it, and the dispatch client's cache recognises the
  // name by its address.
  static constexpr Member Name(std::u16string_view name) { return Member(0, name); }

  constexpr bool IsNamed() const { return !name_.empty(); }
  constexpr std::int32_t DispatchId() const { return id_; }
  constexpr std::u16string_view DispatchName() const { return name_; }

 private:
  constexpr Member(std::int32_t id, std::u16string_view name) : id_(id), name_(name) {}
  std::int32_t id_;
  std::u16string_view name_;
};

// The two types of active air segments. Each has an interface of its own; see platform.idl for the interface
// identifiers.
enum class SegmentType { Timed, Untimed };

// An enumerator of a collection, in the collection's own order. Keeps alive what it needs of the collection: the caller
// may drop its reference to the collection during the enumeration.
class ObjectWalk {
 public:
  virtual ~ObjectWalk() = default;

  // The next object, or Nothing after the last one. Raises 424 for an element that is not an object, 91 for an element
  // that is Nothing, and otherwise the collection's own error.
  virtual ObjectRef Next() = 0;
};

// A foreign object: one that another component owns. An ObjectRef is a shared reference to it; the object is released
// when its last ObjectRef is dropped.
//
// Every method except Is may raise the object's own error, with its number, source and description. Get, Put and Call
// raise 438 for a member that the object does not have. Foreign code runs inside every call: it may call back into the
// library before it returns.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;

  // The value of a property. Sent as a method call and a property get at once, because automation components differ in
  // how they declare a member without arguments. An object in the result is a new reference, which the caller owns.
  virtual Value Get(const Member& member) = 0;

  // Assigns a property by value (DISPATCH_PROPERTYPUT, never PROPERTYPUTREF). The object may keep a copy of `value`;
  // when the value is an object, it may keep a reference to that object.
  virtual void Put(const Member& member, const Value& value) = 0;

  // Calls a method with the arguments from first to last, all by value, and returns its result; Empty for a method
  // without one. `arguments` need live only until the call returns.
  virtual Value Call(const Member& member, std::span<const Value> arguments) = 0;

  // A new enumerator of this collection (DISPID_NEWENUM), positioned before the first object. Raises 438 when this
  // object is not a collection.
  virtual std::unique_ptr<ObjectWalk> Walk() = 0;

  // Whether the object supports the interface of a segment type. Never raises.
  virtual bool Is(SegmentType type) const = 0;
};

}  // namespace wendrill
