// The simulated parameter bag: the two members that the library calls, and the members with which a script fills and
// reads the bag.
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
// The library calls Set and Get, a script calls PutItem and Item. A key that PutItem stores is probably misspelled when
// it is not one of the library's parameter keys. When the library reads the bag afterwards, the report warns of this
// key, unless the script reads the key or the library sets it.
class SimulatedBag final : public ParamBag {
 public:
  explicit SimulatedBag(World& world);

  void Set(std::u16string_view key, const Value& value) override;
  Value Get(std::u16string_view key) override;

  Value Item(std::u16string_view key);
  void PutItem(std::u16string_view key, const Value& value);
  bool Exists(std::u16string_view key);
  TextArray Keys();  // an array with the lower bound 0, in the order in which the keys were first set
  std::int32_t Count();
  void RemoveAll();

 private:
  void Store(std::u16string_view key, const Value& value);
  void CheckWhatTheScriptStored();
  Value Find(std::u16string_view key) const;

  World& world_;
  LiveMark live_;
  std::vector<std::pair<std::u16string, Value>> entries_;
  std::map<std::u16string, std::size_t, std::less<>> places_;  // the index of each key in entries_
  std::vector<std::u16string> unchecked_;  // keys unknown to the library, stored by the script since the last Get
};

}  // namespace wendrill::simulator
