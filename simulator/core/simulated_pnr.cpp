#include "core/simulated_pnr.h"

#include <algorithm>
#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "core/traced.h"
#include "core/world.h"

namespace wendrill::simulator {
namespace {

constexpr Property kPnrMembers[] = {kPnrValue, kPnrDisplayText, kPnrHeader, kPnrRetrieveCurrent, kPnrRetrieve};
constexpr Property kCollectionMembers[] = {kCollectionItem, kCollectionCount, kCollectionWalk};

constexpr std::int32_t NumberOf(RunTimeError error) {
  return static_cast<std::int32_t>(error);
}

// Whether `member` identifies the property that has the name `name` (compared without regard to case) and the DISPID
// `id`.
bool Means(const Member& member, std::u16string_view name, std::int32_t id) {
  return member.IsNamed() ? CompareWithoutCase(member.DispatchName(), name) == 0 : member.DispatchId() == id;
}

const Property* FindProperty(std::span<const Property> properties, const Member& member) {
  const auto found = std::find_if(properties.begin(), properties.end(), [&member](const Property& property) {
    return Means(member, property.name, property.id);
  });
  return found == properties.end() ? nullptr : &*found;
}

std::optional<std::int32_t> IdAmong(std::span<const Property> properties, std::u16string_view name) {
  const Property* property = FindProperty(properties, Member::Name(name));
  return property == nullptr ? std::nullopt : std::optional(property->id);
}

const Collection* FindCollection(const Member& member) {
  const auto* found = std::find_if(std::begin(kCollections), std::end(kCollections),
                                   [&member](const Collection& each) { return Means(member, each.name, each.id); });
  return found == std::end(kCollections) ? nullptr : found;
}

[[noreturn]] void FailForMember(std::u16string_view object, const Member& member, std::u16string_view wrong) {
  const std::u16string name = member.IsNamed() ? u"member \"" + std::u16string(member.DispatchName()) + u"\""
                                               : u"member with dispatch identifier " + DecimalText(member.DispatchId());
  Fail(NumberOf(RunTimeError::MemberNotSupported),
       u"The simulated " + std::u16string(object) + u" " + std::u16string(wrong) + u" " + name + u".");
}

[[noreturn]] void FailWithoutMember(std::u16string_view object, const Member& member) {
  FailForMember(object, member, u"has no");
}

[[noreturn]] void FailReadOnly(std::u16string_view object, const Member& member) {
  FailForMember(object, member, u"does not let itself be assigned the");
}

void CheckArguments(std::u16string_view member, std::span<const Value> arguments, std::size_t expected) {
  if (arguments.size() != expected) {
    Fail(NumberOf(RunTimeError::WrongArgumentCount), u"The number of arguments of " + std::u16string(member) + u" is " +
                                                         DecimalText(static_cast<std::int64_t>(expected)) + u", not " +
                                                         DecimalText(static_cast<std::int64_t>(arguments.size())) +
                                                         u".");
  }
}

// Visitor that converts the content of a property to the value that a client receives. For an object or a collection,
// this value is a new simulated object.
struct Handed {
  World& world;

  Value operator()(const Value& value) const { return value; }
  Value operator()(const std::shared_ptr<const ScenarioObject>& object) const {
    return ObjectRef(std::make_shared<SimulatedElement>(world, object));
  }
  Value operator()(const std::shared_ptr<const ScenarioList>& list) const {
    return ObjectRef(std::make_shared<SimulatedCollection>(world, list));
  }
};

class SimulatedWalk final : public ObjectWalk {
 public:
  SimulatedWalk(World& world, std::shared_ptr<const ScenarioList> content)
      : world_(world), content_(std::move(content)) {}

  ObjectRef Next() override {
    world_.Enter(u"Next");
    if (next_ == content_->size()) {
      return nullptr;
    }
    return std::make_shared<SimulatedElement>(world_, (*content_)[next_++]);
  }

 private:
  World& world_;
  std::shared_ptr<const ScenarioList> content_;
  std::size_t next_ = 0;
};

// The session to which a HostConnection object belongs. Raises 13 (type mismatch) for any value that is not a
// HostConnection, Nothing included.
std::shared_ptr<RunningSession> SessionOf(const Value& connection) {
  const auto* object = connection.As<ObjectRef>();
  const auto ours = object == nullptr ? nullptr : std::dynamic_pointer_cast<SimulatedConnection>(*object);
  if (ours == nullptr) {
    Fail(NumberOf(RunTimeError::TypeMismatch), u"A PNR is read through the HostConnection of a running session.");
  }
  return ours->Session();
}

}  // namespace

// --- Elements ----------------------------------------------------------------------------------------------------

SimulatedElement::SimulatedElement(World& world, std::shared_ptr<const ScenarioObject> content)
    : world_(world), live_(world.LiveCount()), content_(std::move(content)) {}

std::optional<std::int32_t> SimulatedElement::IdOf(std::u16string_view name) const {
  return IdAmong(content_->type->properties, name);
}

Value SimulatedElement::Get(const Member& member) {
  const ObjectType& type = *content_->type;
  const Property* property = FindProperty(type.properties, member);
  if (property == nullptr) {
    FailWithoutMember(type.name, member);
  }
  world_.Enter(property->name);
  const auto place = static_cast<std::size_t>(property - type.properties.data());
  return std::visit(Handed{world_}, content_->contents[place]);
}

void SimulatedElement::Put(const Member& member, const Value& /*value*/) {
  FailReadOnly(content_->type->name, member);
}

Value SimulatedElement::Call(const Member& member, std::span<const Value> arguments) {
  CheckArguments(content_->type->name, arguments, 0);
  return Get(member);
}

std::unique_ptr<ObjectWalk> SimulatedElement::Walk() {
  FailWithoutMember(content_->type->name, Member::Name(kCollectionWalk.name));
}

bool SimulatedElement::Is(SegmentType type) const {
  return content_->kind == (type == SegmentType::Timed ? SegmentKind::Timed : SegmentKind::Open);
}

// --- Collections -------------------------------------------------------------------------------------------------

SimulatedCollection::SimulatedCollection(World& world, std::shared_ptr<const ScenarioList> content)
    : world_(world), live_(world.LiveCount()), content_(std::move(content)) {}

std::optional<std::int32_t> SimulatedCollection::IdOf(std::u16string_view name) const {
  return IdAmong(kCollectionMembers, name);
}

Value SimulatedCollection::Get(const Member& member) {
  return Call(member, {});
}

void SimulatedCollection::Put(const Member& member, const Value& /*value*/) {
  FailReadOnly(u"collection", member);
}

Value SimulatedCollection::Call(const Member& member, std::span<const Value> arguments) {
  if (Means(member, kCollectionCount.name, kCollectionCount.id)) {
    CheckArguments(kCollectionCount.name, arguments, 0);
    world_.Enter(kCollectionCount.name);
    return static_cast<std::int32_t>(content_->size());
  }
  if (!Means(member, kCollectionItem.name, kCollectionItem.id)) {
    FailWithoutMember(u"collection", member);
  }
  CheckArguments(kCollectionItem.name, arguments, 1);
  world_.Enter(kCollectionItem.name);
  const std::int32_t position = ToInt32(arguments.front());
  if (position < 1 || static_cast<std::size_t>(position) > content_->size()) {
    Fail(NumberOf(RunTimeError::SubscriptOutOfRange),
         u"The collection has no item at position " + DecimalText(position) + u".");
  }
  return Handed{world_}((*content_)[static_cast<std::size_t>(position) - 1]);
}

std::unique_ptr<ObjectWalk> SimulatedCollection::Walk() {
  world_.Enter(kCollectionWalk.name);
  return std::make_unique<SimulatedWalk>(world_, content_);
}

// --- The connection ----------------------------------------------------------------------------------------------

SimulatedConnection::SimulatedConnection(World& world, std::shared_ptr<RunningSession> session)
    : live_(world.LiveCount()), session_(std::move(session)) {}

Value SimulatedConnection::Get(const Member& member) {
  FailWithoutMember(u"connection", member);
}

void SimulatedConnection::Put(const Member& member, const Value& /*value*/) {
  FailWithoutMember(u"connection", member);
}

Value SimulatedConnection::Call(const Member& member, std::span<const Value> /*arguments*/) {
  FailWithoutMember(u"connection", member);
}

std::unique_ptr<ObjectWalk> SimulatedConnection::Walk() {
  FailWithoutMember(u"connection", Member::Name(kCollectionWalk.name));
}

// --- The PNR object ----------------------------------------------------------------------------------------------

SimulatedPnr::SimulatedPnr(World& world) : world_(world), live_(world.LiveCount()), content_(EmptyPnr()) {}

std::optional<std::int32_t> SimulatedPnr::IdOf(std::u16string_view name) const {
  if (const Collection* collection = FindCollection(Member::Name(name))) {
    return collection->id;
  }
  return IdAmong(kPnrMembers, name);
}

Value SimulatedPnr::Get(const Member& member) {
  return Call(member, {});
}

// Assigning to the default property stores the value and has no other effect. Raises 438 (member not supported) for any
// other member.
void SimulatedPnr::Put(const Member& member, const Value& value) {
  if (!Means(member, kPnrValue.name, kPnrValue.id)) {
    FailReadOnly(u"PNR", member);
  }
  world_.Enter(kPnrValue.name);
  value_ = value;
}

Value SimulatedPnr::Call(const Member& member, std::span<const Value> arguments) {
  if (const Collection* collection = FindCollection(member)) {
    CheckArguments(collection->name, arguments, 0);
    world_.Enter(collection->name);
    return ObjectRef(std::make_shared<SimulatedCollection>(world_, ElementsOf(collection->id)));
  }
  const Property* property = FindProperty(kPnrMembers, member);
  if (property == nullptr) {
    FailWithoutMember(u"PNR", member);
  }
  if (property->id == kPnrRetrieveCurrent.id) {
    return RetrieveCurrent(arguments);
  }
  if (property->id == kPnrRetrieve.id) {
    return Retrieve(arguments);
  }
  CheckArguments(property->name, arguments, 0);
  world_.Enter(property->name);
  return Read(property->id);
}

std::unique_ptr<ObjectWalk> SimulatedPnr::Walk() {
  FailWithoutMember(u"PNR", Member::Name(kCollectionWalk.name));
}

Value SimulatedPnr::Read(std::int32_t id) const {
  if (id == kPnrDisplayText.id) {
    return content_->display;
  }
  if (id == kPnrHeader.id) {
    return content_->header == nullptr ? Value(ObjectRef()) : Handed{world_}(content_->header);
  }
  return value_;
}

std::shared_ptr<const ScenarioList> SimulatedPnr::ElementsOf(std::int32_t id) const {
  const auto list = content_->collections.find(id);
  if (list == content_->collections.end()) {
    return std::make_shared<ScenarioList>();
  }
  return {content_, &list->second};
}

Value SimulatedPnr::RetrieveCurrent(std::span<const Value> arguments) {
  CheckArguments(kPnrRetrieveCurrent.name, arguments, 1);
  return Traced(world_.Tracing(), trace::Retrieved{}, [&](trace::Retrieved& line) -> Value {
    world_.Record().ReadPnrOnDisplay();
    world_.EnterUntraced(kPnrRetrieveCurrent.name);
    const auto session = SessionOf(arguments[0]);
    line.session = session->Name();
    Fill(session->ReadPnrOnDisplay(), line);
    return content_->status;
  });
}

Value SimulatedPnr::Retrieve(std::span<const Value> arguments) {
  CheckArguments(kPnrRetrieve.name, arguments, 2);
  const std::u16string entry = ToText(arguments[1], world_.Texts());
  return Traced(world_.Tracing(), trace::Retrieved{.entry = entry}, [&](trace::Retrieved& line) -> Value {
    world_.Record().Retrieve(entry);
    world_.EnterUntraced(kPnrRetrieve.name);
    const auto session = SessionOf(arguments[0]);
    line.session = session->Name();
    Fill(session->RetrievePnr(entry), line);
    return {};
  });
}

void SimulatedPnr::Fill(std::shared_ptr<const ScenarioPnr> found, trace::Retrieved& line) {
  if (found == nullptr) {
    content_ = EmptyPnr();
    return;
  }
  if (found->error != 0) {
    Fail(found->error, u"The scenario lets the retrieval of the PNR \"" + found->recordLocator + u"\" fail.");
  }
  content_ = std::move(found);
  if (world_.Tracing() != nullptr) {
    line.found = true;
    line.locator = content_->recordLocator;
    line.display = RawScreen(content_->display, kRowWidth).rows;
  }
}

}  // namespace wendrill::simulator
