#include "core/simulated_bag.h"

#include "core/parameter_keys.h"
#include "core/world.h"

namespace wendrill::simulator {

SimulatedBag::SimulatedBag(World& world) : world_(world), live_(world.LiveCount()) {}

void SimulatedBag::Set(std::u16string_view key, const Value& value) {
  world_.Enter(u"Set");
  Store(key, value);
  world_.Findings().NoteReadKey(key);
}

Value SimulatedBag::Get(std::u16string_view key) {
  world_.Enter(u"Get");
  CheckWhatTheScriptStored();
  Value value = Find(key);
  if (key == kKindKey) {
    world_.Findings().Warn(UnknownKindWarning(value));
  }
  return value;
}

Value SimulatedBag::Item(std::u16string_view key) {
  world_.Enter(u"Item");
  world_.Findings().NoteReadKey(key);
  return Find(key);
}

void SimulatedBag::PutItem(std::u16string_view key, const Value& value) {
  world_.Enter(u"Item");
  Store(key, value);
  if (!IsParameterKey(key)) {
    unchecked_.emplace_back(key);
  }
}

bool SimulatedBag::Exists(std::u16string_view key) {
  world_.Enter(u"Exists");
  return places_.contains(key);
}

TextArray SimulatedBag::Keys() {
  world_.Enter(u"Keys");
  TextArray keys;
  for (const auto& [key, value] : entries_) {
    keys.items.push_back(key);
  }
  return keys;
}

std::int32_t SimulatedBag::Count() {
  world_.Enter(u"Count");
  return static_cast<std::int32_t>(entries_.size());
}

void SimulatedBag::RemoveAll() {
  world_.Enter(u"RemoveAll");
  entries_.clear();
  places_.clear();
}

void SimulatedBag::Store(std::u16string_view key, const Value& value) {
  const auto place = places_.find(key);
  if (place != places_.end()) {
    entries_[place->second].second = value;
    return;
  }
  places_.emplace(key, entries_.size());
  entries_.emplace_back(key, value);
}

// Adds to the report the keys that the script has stored and that the library does not know (RunReport::NoteUnreadKey).
// Called only when the library reads the bag: a script may use a bag for other purposes, and a bag that the library
// never reads may contain any keys.
void SimulatedBag::CheckWhatTheScriptStored() {
  for (const std::u16string& key : unchecked_) {
    world_.Findings().NoteUnreadKey(key);
  }
  unchecked_.clear();
}

Value SimulatedBag::Find(std::u16string_view key) const {
  const auto place = places_.find(key);
  return place == places_.end() ? Value() : entries_[place->second].second;
}

}  // namespace wendrill::simulator
