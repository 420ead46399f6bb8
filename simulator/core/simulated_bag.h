// The simulated parameter bag: the two operations that the library calls, and those that a script needs to fill and
// read it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/param_bag.h"
#include "core/gate.h"

namespace wendrill::simulator {

class World;

// Keys are compared exactly. Reading a missing key returns Empty and does not add the key.
//
// Set and Get are what the library calls, PutItem and Item what a script calls: so the bag sees when a script stores
// under a key that the library does not know, which is a misspelled one, and the report tells it.
class SimulatedBag final : public ParamBag {
 public:
  explicit SimulatedBag(World& world);

  void Set(std::u16string_view key, const Value& value) override;
  Value Get(std::u16string_view key) override;

  Value Item(std::u16string_view key);
  void PutItem(std::u16string_view key, const Value& value);
  bool Exists(std::u16string_view key);
  TextArray Keys();  // counted from 0, in the order in which they were first set
  std::int32_t Count();
  void RemoveAll();

 private:
  void Store(std::u16string_view key, const Value& value);
  void CheckWhatTheScriptStored();
  Value Find(std::u16string_view key) const;

  World& world_;
  LiveMark live_;
  std::vector<std::pair<std::u16string, Value>> entries_;
  std::map<std::u16string, std::size_t, std::less<>> places_;  // of each key: its index in entries_
  std::vector<std::u16string> unchecked_;                      // unknown keys that the script stored since the last Get
};

}  // namespace wendrill::simulator
