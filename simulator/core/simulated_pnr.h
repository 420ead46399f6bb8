// The simulated PNR object model: the PNR object, its header, its collections and their elements.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "core/gate.h"
#include "core/scenario.h"
#include "derive/object_model.h"
#include "toolkit/automation_object.h"
#include "trace/lines.h"

namespace wendrill::simulator {

class World;
class RunningSession;

// An object of the PNR object model as an automation client sees it. A caller identifies a member by its name, in any
// case, or by its DISPID. The methods raise 438 (member not supported) for a member that the object does not have and
// for an assignment to a read-only property, and 450 for a wrong number of arguments.
class SimulatedObject : public AutomationObject {
 public:
  // The DISPID of the member with this name, compared without regard to case; nullopt when the object does not have the
  // member.
  virtual std::optional<std::int32_t> IdOf(std::u16string_view name) const = 0;

  // Whether this object is a collection. When the result is false, Walk raises 438 (member not supported).
  virtual bool IsCollection() const = 0;
};

// A header, an element, or a car's passenger association: an object with read-only properties.
class SimulatedElement final : public SimulatedObject {
 public:
  SimulatedElement(World& world, std::shared_ptr<const ScenarioObject> content);

  std::optional<std::int32_t> IdOf(std::u16string_view name) const override;
  bool IsCollection() const override { return false; }
  Value Get(const Member& member) override;
  void Put(const Member& member, const Value& value) override;
  Value Call(const Member& member, std::span<const Value> arguments) override;
  std::unique_ptr<ObjectWalk> Walk() override;
  bool Is(SegmentType type) const override;

 private:
  World& world_;
  LiveMark live_;
  std::shared_ptr<const ScenarioObject> content_;
};

// A collection with Count, Item and an enumerator. Item takes a position counted from 1. Item raises 9 (index out of
// range) for a position that does not exist, and the errors of ToInt32 for an argument that cannot be converted to a
// 32-bit integer.
class SimulatedCollection final : public SimulatedObject {
 public:
  SimulatedCollection(World& world, std::shared_ptr<const ScenarioList> content);

  std::optional<std::int32_t> IdOf(std::u16string_view name) const override;
  bool IsCollection() const override { return true; }
  Value Get(const Member& member) override;
  void Put(const Member& member, const Value& value) override;
  Value Call(const Member& member, std::span<const Value> arguments) override;
  std::unique_ptr<ObjectWalk> Walk() override;
  bool Is(SegmentType) const override { return false; }

 private:
  World& world_;
  LiveMark live_;
  std::shared_ptr<const ScenarioList> content_;
};

// The object that a session returns as its HostConnection. The object has no members: a client only passes it to the
// PNR object, which reads the PNRs of the connection's session.
class SimulatedConnection final : public SimulatedObject {
 public:
  SimulatedConnection(World& world, std::shared_ptr<RunningSession> session);

  const std::shared_ptr<RunningSession>& Session() const { return session_; }

  std::optional<std::int32_t> IdOf(std::u16string_view) const override { return std::nullopt; }
  bool IsCollection() const override { return false; }
  Value Get(const Member& member) override;
  void Put(const Member& member, const Value& value) override;
  Value Call(const Member& member, std::span<const Value> arguments) override;
  std::unique_ptr<ObjectWalk> Walk() override;
  bool Is(SegmentType) const override { return false; }

 private:
  LiveMark live_;
  std::shared_ptr<RunningSession> session_;
};

// The PNR object. A new PNR object is empty: no display text, a header without text, collections without elements.
//
// RetrieveCurrent finds the PNR on display in a session, Retrieve finds the PNR that an entry retrieves. The first
// argument of both is the HostConnection of the session. The outcome decides about the content of this object:
// - PNR found: the object has the content of this PNR.
// - No PNR found: the object is empty.
// - Error: the object stays unchanged. RetrieveCurrent and Retrieve raise 13 (type mismatch) when the first argument is
//   not a HostConnection, and the error that the scenario gives to the PNR that was found.
class SimulatedPnr final : public SimulatedObject {
 public:
  explicit SimulatedPnr(World& world);

  std::optional<std::int32_t> IdOf(std::u16string_view name) const override;
  bool IsCollection() const override { return false; }
  Value Get(const Member& member) override;
  void Put(const Member& member, const Value& value) override;
  Value Call(const Member& member, std::span<const Value> arguments) override;
  std::unique_ptr<ObjectWalk> Walk() override;
  bool Is(SegmentType) const override { return false; }

 private:
  Value Read(std::int32_t id) const;
  std::shared_ptr<const ScenarioList> ElementsOf(std::int32_t id) const;
  Value RetrieveCurrent(std::span<const Value> arguments);
  Value Retrieve(std::span<const Value> arguments);
  void Fill(std::shared_ptr<const ScenarioPnr> found, trace::Retrieved& line);

  World& world_;
  LiveMark live_;
  std::shared_ptr<const ScenarioPnr> content_;
  Value value_;  // the value last assigned to the default property
};

}  // namespace wendrill::simulator
