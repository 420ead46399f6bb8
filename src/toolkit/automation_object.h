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
  // `name` stands in the library's code: it is borrowed, and stays where it is.
  static constexpr Member Name(std::u16string_view name) { return Member(0, name); }

  constexpr bool IsNamed() const { return !name_.empty(); }
  constexpr std::int32_t DispatchId() const { return id_; }
  constexpr std::u16string_view DispatchName() const { return name_; }

 private:
  constexpr Member(std::int32_t id, std::u16string_view name) : id_(id), name_(name) {}
  std::int32_t id_;
  std::u16string_view name_;
};

// The two segment types that active air segments are told apart by; see platform.idl for their interface identities.
enum class SegmentType { Timed, Untimed };

// A walk over a collection, in the collection's own order.
class ObjectWalk {
 public:
  virtual ~ObjectWalk() = default;

  // The next object; Nothing at the end. May fail with the collection's own error.
  virtual ObjectRef Next() = 0;
};

// Somebody else's object. Every call may fail with the object's own error; a member that the object does not have fails
// with 438.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;

  // Reads a property. A call without arguments and a property get are one thing to automation.
  virtual Value Get(const Member& member) = 0;

  // Assigns a property by value; an object argument is handed over as it is.
  virtual void Put(const Member& member, const Value& value) = 0;

  // Calls a method with arguments in their written order.
  virtual Value Call(const Member& member, std::span<const Value> arguments) = 0;

  // Starts a walk over this collection. 438 when this object is none.
  virtual std::unique_ptr<ObjectWalk> Walk() = 0;

  // Whether the object is of a segment type. Never fails.
  virtual bool Is(SegmentType type) const = 0;
};

}  // namespace wendrill
